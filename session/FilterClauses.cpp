#include "session/FilterClauses.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <iterator>

#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

struct TableTexts {
  FilterTable table;
  std::string_view name, optional_flag, key;
};

constexpr TableTexts kTables[] = {
    {FilterTable::kVouchers, "Voucher1", "Optional", "Voucher_id"},
    {FilterTable::kVoucherDetails, "Voucherdetails1", "vhrdetailoptional", "Voucher_id"},
    {FilterTable::kDocuments, "Desr1", "Optional", "Desr_id"},
    {FilterTable::kMovements, "Godownitem1", "GdesrOptional", "GDesr_id"},
};

const TableTexts* TextsOf(FilterTable table) {
  const auto* found = std::find_if(std::begin(kTables), std::end(kTables),
                                   [table](const TableTexts& one) { return one.table == table; });
  return found == std::end(kTables) ? nullptr : found;
}

// The ledger groups of btTypeOfentry 1 and 2. Each form has its own spacing.
struct GroupTexts {
  std::string_view type_1, type_2;
};
constexpr GroupTexts kOfVoucher{
    "(SubgroupName1.Code=2 Or SubgroupName1.Code=1 Or SubgroupName1.Code = 41)",
    "(SubgroupName1.Code =2 or SubgroupName1.Code = 1 OR SubgroupName1.Code = 41)"};
constexpr GroupTexts kOfVoucherJoin{
    "(SubgroupName1.Code=2 Or SubgroupName1.Code=1 Or SubgroupName1.Code = 41)    ",
    "(SubgroupName1.Code<>2 and SubgroupName1.Code<>1 and SubgroupName1.Code <> 41)    "};
constexpr GroupTexts kOfDocument{
    "(SubgroupName1.Code=2 Or SubgroupName1.Code=1 OR SubgroupName1.Code =41)",
    "(SubgroupName1.Code<>2 and SubgroupName1.Code<>1 and SubgroupName1.Code <> 41)"};

bool AsksForParties(const DocumentFilter& filter) {
  return filter.btTypeOfentry == 1 || filter.btTypeOfentry == 2 ||
         !filter.strSubgroupFilter.empty();
}

std::string_view GroupsOf(const DocumentFilter& filter, const GroupTexts& texts) {
  switch (filter.btTypeOfentry) {
    case 1:
      return texts.type_1;
    case 2:
      return texts.type_2;
    default:
      return filter.strSubgroupFilter;
  }
}

// Up to the parenthesis that closes the subselect.
std::string VoucherInGroups(const DocumentFilter& filter, std::string_view name) {
  return fmt::format(
      "{}.Voucher_id {}In (Select V.Voucher_id From Voucherdetails1 as V inner Join SubgroupName1 "
      "on SubgroupName1.Subgroup_id = V.Subgroup_id And {}",
      name, filter.btTypeOfentry == 2 ? "not " : "", GroupsOf(filter, kOfVoucher));
}

std::string DocumentInGroups(const DocumentFilter& filter, std::string_view name,
                             std::string_view key) {
  return fmt::format(
      "{}.{} In (Select D.Desr_id From Desr1 as D inner Join LedgerNames1 on "
      "Ledgernames1.Ledger_id = D.Ledger_id inner join SubgroupName1 on SubgroupName1.Subgroup_id "
      "= Ledgernames1.Subgroup_id  And {}",
      name, key, GroupsOf(filter, kOfDocument));
}

std::string VoucherJoin(const DocumentFilter& filter, std::string_view name) {
  const bool given = filter.btTypeOfentry != 1 && filter.btTypeOfentry != 2;
  return fmt::format(
      " inner Join SubgroupName1 on SubgroupName1.Subgroup_id = {}.Subgroup_id And {}{}", name,
      given ? "   " : "", GroupsOf(filter, kOfVoucherJoin));
}

std::string WithAnd(std::string_view clause, std::string_view word, std::uint8_t position) {
  if (clause.empty()) return {};
  if (position == 1) return std::string(word).append(clause);
  if (position == 2) return std::string(clause).append(word);
  return std::string(clause);
}

}  // namespace

std::string_view NameOf(const NamedTable& table) {
  return table.name.empty() ? TextsOf(table.table)->name : table.name;
}

std::string OptionalCondition(const DocumentFilter& filter, const NamedTable& table) {
  if (filter.OptNo != 1 && filter.OptNo != 2) return {};
  return fmt::format("{}.{} = {}", NameOf(table), TextsOf(table.table)->optional_flag,
                     filter.OptNo - 1);
}

std::string PartyCondition(const DocumentFilter& filter, const NamedTable& table) {
  if (!AsksForParties(filter)) return {};
  const bool vouchers =
      table.table == FilterTable::kVouchers || table.table == FilterTable::kVoucherDetails;
  return vouchers ? VoucherInGroups(filter, NameOf(table)) + " )"
                  : DocumentInGroups(filter, NameOf(table), TextsOf(table.table)->key) + ")";
}

std::vector<std::string> JoinsOfVouchertype(const NamedTable& table) {
  const auto from = [](std::string_view name) {
    return fmt::format("vouchertype1 on Vouchertype1.Vouchertype_id = {}.Vouchertype_id", name);
  };
  switch (table.table) {
    case FilterTable::kMovements:
      return {fmt::format("Desr1 on Desr1.Desr_id = {}.Gdesr_id", NameOf(table)), from("Desr1")};
    case FilterTable::kVoucherDetails:
      return {fmt::format("voucher1 On Voucher1.Voucher_id = {}.Voucher_id", NameOf(table)),
              from("Voucher1")};
    default:
      return {from(NameOf(table))};
  }
}

void BuildSubgroupFilter(const DocumentFilter& filter, bool blnViaVoucherDetails,
                         std::string& strDesrFilter, std::string& strVoucherFilter,
                         std::string_view strVoucherTable, std::uint8_t bytAndPosition,
                         std::string& strGodownFilter) {
  if (AsksForParties(filter)) {
    const std::string_view table = strVoucherTable.empty() ? " Voucher1" : strVoucherTable;
    strVoucherFilter = blnViaVoucherDetails ? VoucherInGroups(filter, table) + " )   "
                                            : VoucherJoin(filter, table);
    const bool given = filter.btTypeOfentry != 1 && filter.btTypeOfentry != 2;
    const std::string_view end = given && !blnViaVoucherDetails ? " )    " : ")    ";
    strDesrFilter = DocumentInGroups(filter, " Desr1", "Desr_id").append(end);
    strGodownFilter = DocumentInGroups(filter, " Godownitem1", "GDesr_id").append(end);
  }
  for (std::string* const output : {&strDesrFilter, &strVoucherFilter, &strGodownFilter}) {
    *output = LowerCase(WithAnd(*output, " And ", bytAndPosition));
  }
}

std::string BuildVouchertypeFilter(const DocumentFilter& filter, std::uint8_t bytMode,
                                   std::string& strJoin, std::uint8_t bytAndPosition) {
  if (filter.strVouchertypeFilter.empty()) return {};
  const auto joins_of = [](FilterTable table, std::string_view name) {
    return JoinsOfVouchertype({table, name});
  };
  switch (bytMode) {
    case 1:
    case 3:
      break;
    case 4:
      strJoin = fmt::format("  inner Join {} ",
                            fmt::join(joins_of(FilterTable::kDocuments, "Desr1"), ""));
      break;
    case 5:
      strJoin =
          fmt::format("  inner join {} ",
                      fmt::join(joins_of(FilterTable::kMovements, "Godownitem1"), " inner Join "));
      break;
    default:
      strJoin = fmt::format(
          " Inner join {} ",
          fmt::join(joins_of(FilterTable::kVoucherDetails, "VoucherDetails1"), " inner Join "));
  }
  return WithAnd(filter.strVouchertypeFilter, " And ", bytAndPosition);
}

std::string BuildOptionalFilter(const DocumentFilter& filter, std::uint8_t bytTable,
                                std::uint8_t bytAndPosition) {
  const auto table = static_cast<FilterTable>(bytTable);
  if (!TextsOf(table)) return {};
  const std::string condition = OptionalCondition(filter, {table});
  return condition.empty() ? condition : WithAnd(" " + condition + " ", " and ", bytAndPosition);
}

}  // namespace pstolvane1
