#include <fmt/format.h>

#include "analysis/Doc_Initial.h"
#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

// The kinds of document whose query differs from the others'.
constexpr std::int32_t kUncleared = 5;
constexpr std::int32_t kReceived = 9;
constexpr std::int32_t kJobCard = 43;

constexpr std::string_view kLedger =
    "LEDGERNAMES1.LEDGER_ID , LEDGERNAMES1.LEDGERNAME AS LEDGERNAME ";
constexpr std::string_view kByLedger =
    "GROUP BY LEDGERNAMES1.LEDGER_ID , LEDGERNAMES1.LEDGERNAME ORDER BY LEDGERNAMES1.LEDGERNAME ";
constexpr std::string_view kLedgerOfLine =
    "INNER JOIN LEDGERNAMES1 ON LEDGERNAMES1.LEDGER_ID = VOUCHERDETAILS1.LEDGER_ID ";
constexpr std::string_view kTypeOfLine =
    "INNER JOIN VOUCHER1 ON VOUCHER1.VOUCHER_ID = VOUCHERDETAILS1.VOUCHER_ID "
    "INNER JOIN VOUCHERTYPE1 ON VOUCHERTYPE1.VOUCHERTYPE_ID = VOUCHER1.VOUCHERTYPE_ID ";

std::string TypeClause(const DocumentListArguments& arguments) {
  const std::int32_t id = arguments.lngVouchertype_id;
  std::string clause;
  if (id == kJobCard) {
    clause = fmt::format(
        "   (desr1.vouchertype_Id = {} or ( Desr1.Vouchertype_id = 39 and Desr1.IsJobCard = 1 ))",
        id);
  } else if (arguments.blnNoRel) {
    clause = fmt::format(" Vouchertype1.vouchertype_id ={}", id);
  } else {
    clause = fmt::format(" Vouchertype1.subrelatedto ={}", id);
  }
  if (!arguments.strBillFilter.empty()) clause.append(" and ").append(arguments.strBillFilter);
  return clause;
}

// Uncleared items of the bank ledgers.
std::string ComposeUncleared(const DocumentListArguments& arguments, const std::string& scale) {
  return fmt::format(
      "SELECT SUM(CREDITAMT+DEBITAMT)/{}  as AMOUNT ,  {}FROM VOUCHERDETAILS1 {}"
      "INNER JOIN SUBGROUPNAME1 ON SUBGROUPNAME1.SUBGROUP_ID = LEDGERNAMES1.SUBGROUP_ID {}"
      "WHERE  (Vouchertype1.relatedto = 6 OR Vouchertype1.RelatedTo = 7 ) and "
      "[VHRDETAILDATE] BETWEEN #{}# AND #{}# AND  "
      "(VOUCHERDETAILS1.CLEARANCEDATE IS NULL) AND  "
      "VOUCHERDETAILS1.DELETED = 0 AND VOUCHERDETAILS1.VHRDETAILOPTIONAL = 0  "
      "AND VOUCHERDETAILS1.CLEARANCEDATE IS NULL  "
      "AND SUBGROUPNAME1.CODE IN (2,41) {}",
      scale, kLedger, kLedgerOfLine, kTypeOfLine, SqlDateText(arguments.dtFromDate),
      SqlDateText(arguments.dtToDate), kByLedger);
}

std::string ComposeReceived(const DocumentListArguments& arguments, const std::string& scale) {
  return fmt::format(
      "SELECT SUM(CREDITAMT)/{}  as AMOUNT ,  {}FROM VOUCHERDETAILS1 {}{} Where {}"
      " and  [VHRDETAILDATE] BETWEEN #{}# AND #{}# AND  "
      " VoucherDetails1.Creditamt > 0 and VOUCHERDETAILS1.DELETED = 0 AND "
      "VOUCHERDETAILS1.VHRDETAILOPTIONAL = 0  {}",
      scale, kLedger, kLedgerOfLine, kTypeOfLine, TypeClause(arguments),
      SqlDateText(arguments.dtFromDate), SqlDateText(arguments.dtToDate), kByLedger);
}

std::string ComposeDocuments(const DocumentListArguments& arguments, const std::string& scale) {
  return fmt::format(
      "SELECT SUM(DESR1.TOTALAMOUNT)/{}  as AMOUNT , {}FROM (DESR1 "
      "INNER JOIN VOUCHERTYPE1 ON VOUCHERTYPE1.VOUCHERTYPE_ID = DESR1.VOUCHERTYPE_ID) "
      "INNER JOIN LEDGERNAMES1 ON LEDGERNAMES1.LEDGER_ID = DESR1.LEDGER_ID "
      "WHERE {} AND DESR1.DELETED = 0 And Desr1.Optional =0 AND "
      " DESR1.{} BETWEEN #{}# and #{}# {}",
      scale, kLedger, TypeClause(arguments),
      arguments.lngVouchertype_id == kJobCard ? "JobcardDATE" : "DATE",
      SqlDateText(arguments.dtFromDate), SqlDateText(arguments.dtToDate), kByLedger);
}

}  // namespace

std::string ComposeDoc_Initial(const DocumentListArguments& arguments) {
  const std::string scale = SingleText(arguments.gScale);
  switch (arguments.lngVouchertype_id) {
    case kUncleared:
      return ComposeUncleared(arguments, scale);
    case kReceived:
      return ComposeReceived(arguments, scale);
    default:
      return ComposeDocuments(arguments, scale);
  }
}

}  // namespace pstolvane1
