#include "session/FilterClauses.h"

#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

// The groups that btTypeOfentry is about, and the others; each place has its own spacing.
constexpr std::string_view kVoucherOf =
    "In (Select V.Voucher_id From Voucherdetails1 as V inner Join SubgroupName1 on "
    "SubgroupName1.Subgroup_id = V.Subgroup_id And ";
constexpr std::string_view kDocumentOf =
    " In (Select D.Desr_id From Desr1 as D inner Join LedgerNames1 on Ledgernames1.Ledger_id = "
    "D.Ledger_id inner join SubgroupName1 on SubgroupName1.Subgroup_id = "
    "Ledgernames1.Subgroup_id  And ";

std::string WithAnd(std::string_view clause, std::string_view word, std::uint8_t position) {
  if (clause.empty()) return {};
  if (position == 1) return std::string(word).append(clause);
  if (position == 2) return std::string(clause).append(word);
  return std::string(clause);
}

std::string VoucherCondition(const DocumentFilter& filter, std::string_view table) {
  std::string text(table);
  switch (filter.btTypeOfentry) {
    case 1:
      return text.append(".Voucher_id ")
          .append(kVoucherOf)
          .append("(SubgroupName1.Code=2 Or SubgroupName1.Code=1 Or SubgroupName1.Code = 41) )   ");
    case 2:
      // Negated outside: a voucher with any detail of these groups is out. The document form below
      // negates inside, and both are meant.
      return text.append(".Voucher_id not ")
          .append(kVoucherOf)
          .append(
              "(SubgroupName1.Code =2 or SubgroupName1.Code = 1 OR SubgroupName1.Code = 41) )   ");
    default:
      return text.append(".Voucher_id ")
          .append(kVoucherOf)
          .append(filter.strSubgroupFilter)
          .append(" )   ");
  }
}

std::string VoucherJoin(const DocumentFilter& filter, std::string_view table) {
  std::string text(" inner Join SubgroupName1 on SubgroupName1.Subgroup_id = ");
  text.append(table).append(".Subgroup_id And ");
  switch (filter.btTypeOfentry) {
    case 1:
      return text.append(
          "(SubgroupName1.Code=2 Or SubgroupName1.Code=1 Or SubgroupName1.Code = 41)    ");
    case 2:
      return text.append(
          "(SubgroupName1.Code<>2 and SubgroupName1.Code<>1 and SubgroupName1.Code <> 41)    ");
    default:
      return text.append("   ").append(filter.strSubgroupFilter);
  }
}

std::string DocumentCondition(const DocumentFilter& filter, std::string_view key,
                              bool via_voucher_details) {
  std::string text(key);
  text.append(kDocumentOf);
  switch (filter.btTypeOfentry) {
    case 1:
      return text.append(
          "(SubgroupName1.Code=2 Or SubgroupName1.Code=1 OR SubgroupName1.Code =41))    ");
    case 2:
      return text.append(
          "(SubgroupName1.Code<>2 and SubgroupName1.Code<>1 and SubgroupName1.Code <> 41))    ");
    default:
      return text.append(filter.strSubgroupFilter).append(via_voucher_details ? ")    " : " )    ");
  }
}

}  // namespace

void BuildSubgroupFilter(const DocumentFilter& filter, bool blnViaVoucherDetails,
                         std::string& strDesrFilter, std::string& strVoucherFilter,
                         std::string_view strVoucherTable, std::uint8_t bytAndPosition,
                         std::string& strGodownFilter) {
  if (filter.btTypeOfentry == 1 || filter.btTypeOfentry == 2 || !filter.strSubgroupFilter.empty()) {
    const std::string_view table = strVoucherTable.empty() ? " Voucher1" : strVoucherTable;
    strVoucherFilter =
        blnViaVoucherDetails ? VoucherCondition(filter, table) : VoucherJoin(filter, table);
    strDesrFilter = DocumentCondition(filter, " Desr1.Desr_id", blnViaVoucherDetails);
    strGodownFilter = DocumentCondition(filter, " Godownitem1.GDesr_id", blnViaVoucherDetails);
  }
  for (std::string* const output : {&strDesrFilter, &strVoucherFilter, &strGodownFilter}) {
    *output = LowerCase(WithAnd(*output, " And ", bytAndPosition));
  }
}

std::string BuildVouchertypeFilter(const DocumentFilter& filter, std::uint8_t bytMode,
                                   std::string& strJoin, std::uint8_t bytAndPosition) {
  if (filter.strVouchertypeFilter.empty()) return {};
  switch (bytMode) {
    case 1:
    case 3:
      break;
    case 4:
      strJoin = "  inner Join vouchertype1 on Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id ";
      break;
    case 5:
      strJoin =
          "  inner join Desr1 on Desr1.Desr_id = Godownitem1.Gdesr_id inner Join vouchertype1 on "
          "Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id ";
      break;
    default:
      strJoin =
          " Inner join voucher1 On Voucher1.Voucher_id = VoucherDetails1.Voucher_id inner Join "
          "vouchertype1 on Vouchertype1.Vouchertype_id = Voucher1.Vouchertype_id ";
  }
  return WithAnd(filter.strVouchertypeFilter, " And ", bytAndPosition);
}

std::string BuildOptionalFilter(const DocumentFilter& filter, std::uint8_t bytTable,
                                std::uint8_t bytAndPosition) {
  if (filter.OptNo != 1 && filter.OptNo != 2) return {};
  std::string condition;
  switch (bytTable) {
    case 1:
      condition = " Voucher1.Optional = ";
      break;
    case 2:
      condition = " Voucherdetails1.vhrdetailoptional = ";
      break;
    case 3:
      condition = " Desr1.Optional = ";
      break;
    case 5:
      condition = " Godownitem1.GdesrOptional = ";
      break;
    default:
      return {};
  }
  condition.append(filter.OptNo == 1 ? "0 " : "1 ");
  return WithAnd(condition, " and ", bytAndPosition);
}

}  // namespace pstolvane1
