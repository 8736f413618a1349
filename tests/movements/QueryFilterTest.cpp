#include <gtest/gtest.h>

#include "movements/QueryFilter.h"
#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

// Documents of type 7, regular ones, of parties in the groups of entry type 1.
const DocumentFilter kAll{"Vouchertype1.Vouchertype_id = 7", "", 1, 1};

std::string PartiesOn(const std::string& key) {
  return key +
         " in (select d.desr_id from desr1 as d inner join ledgernames1 on ledgernames1.ledger_id "
         "= d.ledger_id inner join subgroupname1 on subgroupname1.subgroup_id = "
         "ledgernames1.subgroup_id  and (subgroupname1.code=2 or subgroupname1.code=1 or "
         "subgroupname1.code =41))";
}

TEST(QueryFilter, WithoutAFilterThereIsNothing) {
  for (const Undated undated : {Undated::kDropped, Undated::kKept}) {
    const QueryFilter filter = FilterOfMovements({}, undated);
    EXPECT_EQ(filter.Joins() + filter.Conditions(), "");
  }
  const QueryFilter documents = FilterOfDocuments({});
  EXPECT_EQ(documents.Joins() + documents.Conditions(), "");
}

TEST(QueryFilter, MovementsReachTheVoucherTypeThroughTheirDocument) {
  const QueryFilter filter = FilterOfMovements(kAll, Undated::kDropped);
  EXPECT_EQ(LowerCase(filter.Joins()),
            " inner join desr1 on desr1.desr_id = godownitem1.gdesr_id inner join vouchertype1 on "
            "vouchertype1.vouchertype_id = desr1.vouchertype_id ");
  EXPECT_EQ(LowerCase(filter.Conditions()),
            "vouchertype1.vouchertype_id = 7 and godownitem1.gdesroptional = 0 and " +
                PartiesOn("godownitem1.gdesr_id") + " and ");
}

TEST(QueryFilter, AFilterThatKeepsUndatedLinesJoinsFromTheLeft) {
  const QueryFilter filter = FilterOfMovements(kAll, Undated::kKept);
  EXPECT_EQ(LowerCase(filter.Joins()),
            " left join desr1 on desr1.desr_id = godownitem1.gdesr_id left join vouchertype1 on "
            "vouchertype1.vouchertype_id = desr1.vouchertype_id ");
  EXPECT_EQ(LowerCase(filter.Conditions()),
            "((vouchertype1.vouchertype_id = 7 and godownitem1.gdesroptional = 0 and " +
                PartiesOn("godownitem1.gdesr_id") + ") or godownitem1.date is null) and ");
}

TEST(QueryFilter, DocumentsJoinTheVoucherTypeUnlessTheQueryHasIt) {
  const std::string conditions = "vouchertype1.vouchertype_id = 7 and desr1.optional = 0 and " +
                                 PartiesOn("desr1.desr_id") + " and ";
  const QueryFilter filter = FilterOfDocuments(kAll);
  EXPECT_EQ(LowerCase(filter.Joins()),
            " inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id ");
  EXPECT_EQ(LowerCase(filter.Conditions()), conditions);
  const QueryFilter joined = FilterOfDocuments(kAll, Vouchertype::kJoined);
  EXPECT_EQ(joined.Joins(), "");
  EXPECT_EQ(LowerCase(joined.Conditions()), conditions);
}

TEST(QueryFilter, ATableIsNamedAsTheQueryNamesIt) {
  QueryFilter filter({FilterTable::kMovements, "git"}, Undated::kKept);
  filter.AddSetFilter(kAll);
  EXPECT_EQ(LowerCase(filter.Joins()),
            " left join desr1 on desr1.desr_id = git.gdesr_id left join vouchertype1 on "
            "vouchertype1.vouchertype_id = desr1.vouchertype_id ");
  EXPECT_EQ(LowerCase(filter.Conditions()),
            "((vouchertype1.vouchertype_id = 7 and git.gdesroptional = 0 and " +
                PartiesOn("git.gdesr_id") + ") or git.date is null) and ");
}

TEST(QueryFilter, WhatTheHostWroteStandsAsItIs) {
  // Words that a filter is made of, inside the host's literals.
  const std::string host = "Vouchertype1.Vouchertype In ('Godownitem1. and', 'INNER band')";
  QueryFilter filter({FilterTable::kMovements, "git"}, Undated::kKept);
  filter.AddVouchertype(host);
  EXPECT_EQ(filter.Conditions(), "((" + host + ") or git.date is null) and ");
}

TEST(QueryFilter, ConditionsStandInTheOrderInWhichTheyAreAddedWithoutParentheses) {
  QueryFilter filter({FilterTable::kDocuments});
  filter.Add("a = 1 or b = 1").Add("").AddOptional({.OptNo = 2}).Add("c = 1");
  EXPECT_EQ(filter.Conditions(), "a = 1 or b = 1 and Desr1.Optional = 1 and c = 1 and ");
  EXPECT_EQ(filter.Joins(), "");
}

TEST(QueryFilter, TwoConditionsOnTheVoucherTypeJoinItOnce) {
  QueryFilter filter({FilterTable::kDocuments});
  filter.AddVouchertype("x").AddVouchertype("y").AddVouchertype("");
  EXPECT_EQ(filter.Conditions(), "x and y and ");
  EXPECT_EQ(filter.Joins(),
            " inner join vouchertype1 on Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id ");
}

TEST(QueryFilter, VouchersAndTheirLines) {
  QueryFilter lines({FilterTable::kVoucherDetails});
  lines.AddSetFilter({"x", "SubgroupName1.Code = 7", 0, 1});
  EXPECT_EQ(LowerCase(lines.Joins()),
            " inner join voucher1 on voucher1.voucher_id = voucherdetails1.voucher_id inner join "
            "vouchertype1 on vouchertype1.vouchertype_id = voucher1.vouchertype_id ");
  EXPECT_EQ(LowerCase(lines.Conditions()),
            "x and voucherdetails1.vhrdetailoptional = 0 and voucherdetails1.voucher_id in (select "
            "v.voucher_id from voucherdetails1 as v inner join subgroupname1 on "
            "subgroupname1.subgroup_id = v.subgroup_id and subgroupname1.code = 7 ) and ");
  QueryFilter vouchers({FilterTable::kVouchers, "v2"});
  vouchers.AddVouchertype("x").AddParties({.btTypeOfentry = 2});
  EXPECT_EQ(LowerCase(vouchers.Joins()),
            " inner join vouchertype1 on vouchertype1.vouchertype_id = v2.vouchertype_id ");
  EXPECT_TRUE(LowerCase(vouchers.Conditions()).starts_with("x and v2.voucher_id not in (select "));
}

}  // namespace
}  // namespace pstolvane1
