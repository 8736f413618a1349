#include <gtest/gtest.h>

#include "session/FilterClauses.h"

namespace pstolvane1 {
namespace {

struct Outputs {
  std::string desr, voucher, godown;
};

Outputs Build(const DocumentFilter& filter, bool via_voucher_details, std::string_view table = "",
              std::uint8_t position = 0, Outputs out = {}) {
  BuildSubgroupFilter(filter, via_voucher_details, out.desr, out.voucher, table, position,
                      out.godown);
  return out;
}

TEST(BuildSubgroupFilter, EntryType1KeepsTheGroupsAsConditions) {
  const Outputs out = Build({.btTypeOfentry = 1}, true);
  EXPECT_EQ(out.voucher,
            " voucher1.voucher_id in (select v.voucher_id from voucherdetails1 as v inner join "
            "subgroupname1 on subgroupname1.subgroup_id = v.subgroup_id and (subgroupname1.code=2 "
            "or subgroupname1.code=1 or subgroupname1.code = 41) )   ");
  EXPECT_EQ(out.desr,
            " desr1.desr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on "
            "ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on "
            "subgroupname1.subgroup_id = ledgernames1.subgroup_id  and (subgroupname1.code=2 or "
            "subgroupname1.code=1 or subgroupname1.code =41))    ");
  EXPECT_EQ(out.godown,
            " godownitem1.gdesr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on "
            "ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on "
            "subgroupname1.subgroup_id = ledgernames1.subgroup_id  and (subgroupname1.code=2 or "
            "subgroupname1.code=1 or subgroupname1.code =41))    ");
}

TEST(BuildSubgroupFilter, EntryType2NegatesTheVoucherOutsideAndTheDocumentInside) {
  const Outputs out = Build({.btTypeOfentry = 2}, true, "V2");
  EXPECT_EQ(out.voucher,
            "v2.voucher_id not in (select v.voucher_id from voucherdetails1 as v inner join "
            "subgroupname1 on subgroupname1.subgroup_id = v.subgroup_id and (subgroupname1.code =2 "
            "or subgroupname1.code = 1 or subgroupname1.code = 41) )   ");
  EXPECT_EQ(out.desr,
            " desr1.desr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on "
            "ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on "
            "subgroupname1.subgroup_id = ledgernames1.subgroup_id  and (subgroupname1.code<>2 and "
            "subgroupname1.code<>1 and subgroupname1.code <> 41))    ");
}

TEST(BuildSubgroupFilter, AsAJoinClauseItIsNamedOnTheTable) {
  EXPECT_EQ(Build({.btTypeOfentry = 1}, false, "Voucher1").voucher,
            " inner join subgroupname1 on subgroupname1.subgroup_id = voucher1.subgroup_id and "
            "(subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code = 41)    ");
  EXPECT_EQ(Build({.btTypeOfentry = 2}, false).voucher,
            " inner join subgroupname1 on subgroupname1.subgroup_id =  voucher1.subgroup_id and "
            "(subgroupname1.code<>2 and subgroupname1.code<>1 and subgroupname1.code <> 41)    ");
}

TEST(BuildSubgroupFilter, AnyOtherEntryTypeTakesTheHostsCondition) {
  const DocumentFilter filter{.strSubgroupFilter = "SubgroupName1.Code = 7", .btTypeOfentry = 3};
  const Outputs condition = Build(filter, true);
  EXPECT_EQ(condition.voucher,
            " voucher1.voucher_id in (select v.voucher_id from voucherdetails1 as v inner join "
            "subgroupname1 on subgroupname1.subgroup_id = v.subgroup_id and subgroupname1.code = 7 "
            ")   ");
  EXPECT_EQ(
      condition.desr,
      " desr1.desr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on "
      "ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on "
      "subgroupname1.subgroup_id = ledgernames1.subgroup_id  and subgroupname1.code = 7)    ");
  const Outputs join = Build(filter, false);
  EXPECT_EQ(join.voucher,
            " inner join subgroupname1 on subgroupname1.subgroup_id =  voucher1.subgroup_id and    "
            "subgroupname1.code = 7");
  EXPECT_EQ(join.desr,
            " desr1.desr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on "
            "ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on "
            "subgroupname1.subgroup_id = ledgernames1.subgroup_id  and subgroupname1.code = 7 )    "
            "");
}

TEST(BuildSubgroupFilter, TheHostsConditionIsNotReadForEntryTypes1And2) {
  const Outputs out = Build({.strSubgroupFilter = "nonsense", .btTypeOfentry = 1}, true);
  EXPECT_EQ(out.voucher.find("nonsense"), std::string::npos);
  EXPECT_EQ(out.desr.find("nonsense"), std::string::npos);
  EXPECT_EQ(out.godown.find("nonsense"), std::string::npos);
}

TEST(BuildSubgroupFilter, PlacesTheWordAndOnEachOutput) {
  for (const std::uint8_t type : {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{2}}) {
    for (const bool via_voucher_details : {true, false}) {
      const DocumentFilter filter{.strSubgroupFilter = "X", .btTypeOfentry = type};
      const Outputs plain = Build(filter, via_voucher_details, "T", 0);
      const Outputs front = Build(filter, via_voucher_details, "T", 1);
      const Outputs behind = Build(filter, via_voucher_details, "T", 2);
      const Outputs other = Build(filter, via_voucher_details, "T", 3);
      for (std::string Outputs::*const output :
           {&Outputs::desr, &Outputs::voucher, &Outputs::godown}) {
        EXPECT_FALSE((plain.*output).empty());
        EXPECT_EQ(front.*output, " and " + plain.*output);
        EXPECT_EQ(behind.*output, plain.*output + " and ");
        EXPECT_EQ(other.*output, plain.*output);
      }
    }
  }
}

TEST(BuildSubgroupFilter, TheGodownFormIsTheDocumentFormOnItsOwnKey) {
  for (const std::uint8_t type : {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{2}}) {
    for (const bool via_voucher_details : {true, false}) {
      const Outputs out =
          Build({.strSubgroupFilter = "X", .btTypeOfentry = type}, via_voucher_details);
      const std::string document = " desr1.desr_id in";
      const std::string godown = " godownitem1.gdesr_id in";
      ASSERT_TRUE(out.desr.starts_with(document));
      EXPECT_EQ(out.godown, godown + out.desr.substr(document.size()));
    }
  }
}

TEST(BuildSubgroupFilter, AJoinForTheVoucherKeepsTheDocumentFormOfTypes1And2) {
  for (const std::uint8_t type : {std::uint8_t{1}, std::uint8_t{2}}) {
    const DocumentFilter filter{.btTypeOfentry = type};
    EXPECT_EQ(Build(filter, false).desr, Build(filter, true).desr);
  }
}

TEST(BuildSubgroupFilter, OutputsThatAreFilledAreReplacedByTheFiltersOwn) {
  const Outputs out =
      Build({.btTypeOfentry = 1}, true, "", 0, {.desr = "Old", .voucher = "Old", .godown = "Old"});
  EXPECT_EQ(out.desr.find("old"), std::string::npos);
  EXPECT_EQ(out.voucher.find("old"), std::string::npos);
  EXPECT_EQ(out.godown.find("old"), std::string::npos);
}

TEST(BuildSubgroupFilter, AnEmptyFilterLeavesTheOutputsButPlacesTheWordAndLowersThem) {
  const Outputs untouched = Build({}, true, "", 1);
  EXPECT_EQ(untouched.desr, "");
  EXPECT_EQ(untouched.voucher, "");
  EXPECT_EQ(untouched.godown, "");
  const Outputs kept = Build({}, true, "", 1, {.desr = "Old = 1", .voucher = "", .godown = ""});
  EXPECT_EQ(kept.desr, " and old = 1");
}

TEST(BuildVouchertypeFilter, WithoutAFilterNothingAndTheJoinIsLeftAlone) {
  std::string join = "before";
  EXPECT_EQ(BuildVouchertypeFilter({}, 4, join, 1), "");
  EXPECT_EQ(join, "before");
}

TEST(BuildVouchertypeFilter, Mode1And3GiveTheFilterWithAndButNoJoin) {
  const DocumentFilter filter{.strVouchertypeFilter = "Vouchertype1.RelatedTo = 10"};
  for (const std::uint8_t mode : {std::uint8_t{1}, std::uint8_t{3}}) {
    std::string join = "before";
    EXPECT_EQ(BuildVouchertypeFilter(filter, mode, join, 1), " And Vouchertype1.RelatedTo = 10");
    EXPECT_EQ(BuildVouchertypeFilter(filter, mode, join, 2), "Vouchertype1.RelatedTo = 10 And ");
    EXPECT_EQ(join, "before");
  }
}

TEST(BuildVouchertypeFilter, JoinsTheVoucherTypeFromTheTableOfTheMode) {
  const DocumentFilter filter{.strVouchertypeFilter = "X"};
  std::string join;
  EXPECT_EQ(BuildVouchertypeFilter(filter, 4, join, 0), "X");
  EXPECT_EQ(join,
            "  inner Join vouchertype1 on Vouchertype1.Vouchertype_id = "
            "Desr1.Vouchertype_id ");
  EXPECT_EQ(BuildVouchertypeFilter(filter, 5, join, 0), "X");
  EXPECT_EQ(join,
            "  inner join Desr1 on Desr1.Desr_id = Godownitem1.Gdesr_id inner Join "
            "vouchertype1 on Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id ");
  for (const std::uint8_t mode : {std::uint8_t{0}, std::uint8_t{2}, std::uint8_t{6}}) {
    EXPECT_EQ(BuildVouchertypeFilter(filter, mode, join, 0), "X");
    EXPECT_EQ(join,
              " Inner join voucher1 On Voucher1.Voucher_id = VoucherDetails1.Voucher_id "
              "inner Join vouchertype1 on Vouchertype1.Vouchertype_id = "
              "Voucher1.Vouchertype_id ");
  }
}

TEST(BuildOptionalFilter, OptNo1IsRegularAnd2Optional) {
  EXPECT_EQ(BuildOptionalFilter({.OptNo = 1}, 1, 0), " Voucher1.Optional = 0 ");
  EXPECT_EQ(BuildOptionalFilter({.OptNo = 2}, 1, 0), " Voucher1.Optional = 1 ");
  EXPECT_EQ(BuildOptionalFilter({.OptNo = 1}, 2, 0), " Voucherdetails1.vhrdetailoptional = 0 ");
  EXPECT_EQ(BuildOptionalFilter({.OptNo = 1}, 3, 1), " and  Desr1.Optional = 0 ");
  EXPECT_EQ(BuildOptionalFilter({.OptNo = 2}, 5, 2), " Godownitem1.GdesrOptional = 1  and ");
}

TEST(BuildOptionalFilter, OptNo0AndTable4GiveNothing) {
  EXPECT_EQ(BuildOptionalFilter({.OptNo = 0}, 1, 1), "");
  EXPECT_EQ(BuildOptionalFilter({.OptNo = 3}, 1, 1), "");
  EXPECT_EQ(BuildOptionalFilter({.OptNo = 1}, 4, 1), "");
}

TEST(FilterClauses, AnEmptySetFilterGivesEmptyTextsEverywhere) {
  const DocumentFilter none;
  for (const bool via_voucher_details : {true, false}) {
    const Outputs out = Build(none, via_voucher_details, "Voucher1", 1);
    EXPECT_EQ(out.desr + out.voucher + out.godown, "");
  }
  for (int number = 0; number <= 6; ++number) {
    const auto n = static_cast<std::uint8_t>(number);
    std::string join;
    EXPECT_EQ(BuildVouchertypeFilter(none, n, join, 1) + join, "");
    EXPECT_EQ(BuildOptionalFilter(none, n, 1), "");
  }
}

}  // namespace
}  // namespace pstolvane1
