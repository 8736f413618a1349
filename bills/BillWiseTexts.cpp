#include <fmt/format.h>

#include "bills/BillWise.h"
#include "movements/QueryFilter.h"
#include "session/QueryText.h"
#include "session/mInternationalization.h"

namespace pstolvane1 {
namespace {

std::string Between(const BillWiseArguments& arguments) {
  return fmt::format("Between #{}# and #{}#", SqlDateText(arguments.dtFromDate),
                     SqlDateText(arguments.dtToDate));
}

// On account and current entries belong to no bill.
std::string OfBills(std::string_view entries) {
  return fmt::format("{0}.reftype <> 'acc' and {0}.reftype <> 'cur'", entries);
}

// By the column voucher_id of the rows above: the entries of sale bills, and the receipts against
// their bills, as they were entered.
std::string Receipts(const BillWiseArguments& arguments) {
  const std::string between = Between(arguments);
  return fmt::format(
      "(( SHAPE {{ select entries.billbybill_id , entries.voucher_id "
      "from billbybilldetails1 as entries inner join vouchertype1 "
      "on vouchertype1.vouchertype_id = entries.vouchertype_id "
      "where entries.date {between} and vouchertype1.relatedto = 10 "
      "and vouchertype1.subrelatedto = vouchertype1.vouchertype_id and {of_bills} "
      "order by entries.billbybilldetails_id }} as chsalebills "
      "APPEND ( {{ select receipts.billbybill_id , receipts.receiptno , "
      "receipts.amountcr/{scale} as amountcr , billbybill1.refno , receipts.date , "
      "receipts.voucher_id , vouchertype1.vouchertype "
      "from billbybilldetails1 as receipts inner join vouchertype1 "
      "on vouchertype1.vouchertype_id = receipts.vouchertype_id "
      "inner join billbybill1 on billbybill1.billbybill_id = receipts.billbybill_id "
      "where receipts.vouchertype_id = 9 and receipts.date {between} and {receipts_of_bills} "
      "order by receipts.billbybilldetails_id }} "
      "RELATE billbybill_id TO billbybill_id ) AS chreceiptbills ) "
      "RELATE voucher_id TO voucher_id ) AS chsalereceiptbill",
      fmt::arg("between", between), fmt::arg("of_bills", OfBills("entries")),
      fmt::arg("scale", SingleText(arguments.sngScale)),
      fmt::arg("receipts_of_bills", OfBills("receipts")));
}

}  // namespace

std::string ComposeBillWiseQuery(const BillWiseArguments& arguments, const DocumentFilter& filter) {
  const std::string between = Between(arguments);
  std::string lines = fmt::format(
      "select desrdetails1.desr_id , desrdetails1.item_id , desrdetails1.qtydespout as QtyOut , "
      "desrdetails1.price as Rate , desr1.date , desr1.desrrefno as refno , desr1.ledger_id , "
      "desr1.totalamount/{scale} as TotalAmount , desr1.related_id as Voucher_id , "
      "vouchertype1.vouchertype , ledgernames1.ledgername as LedgerName "
      "from desrdetails1 inner join desr1 on desr1.desr_id = desrdetails1.desr_id "
      "inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id "
      "inner join ledgernames1 on ledgernames1.ledger_id = desr1.ledger_id "
      "where {filters}vouchertype1.relatedto = 10 and vouchertype1.vouchertype_id <> 43 "
      "and desrdetails1.desrdetdate {between} and desrdetails1.iswarranty = 0 "
      "and desr1.date {between} and desr1.deleted = 0",
      fmt::arg("scale", SingleText(arguments.sngScale)),
      fmt::arg("filters", FilterOfDocuments(filter, Vouchertype::kJoined).Conditions()),
      fmt::arg("between", between));
  if (!arguments.blnDetailed) return lines;
  return fmt::format("SHAPE {{ {} }} AS rsbillbybill APPEND {}", lines, Receipts(arguments));
}

std::string ComposeBillWiseQuery1(const BillWiseArguments& arguments) {
  std::string entries = fmt::format(
      "select billbybill1.refno , entries.voucher_id , entries.date , entries.amountdr , "
      "vouchertype1.vouchertype , ledgernames1.ledgername as LedgerName , "
      "(select min(desr1.desr_id) from desr1 where desr1.related_id = entries.voucher_id "
      "and desr1.deleted = 0) as Desr_id "
      "from billbybilldetails1 as entries inner join billbybill1 "
      "on billbybill1.billbybill_id = entries.billbybill_id inner join vouchertype1 "
      "on vouchertype1.vouchertype_id = entries.vouchertype_id inner join ledgernames1 "
      "on ledgernames1.ledger_id = billbybill1.ledger_id "
      "where {} and entries.optionaldetails = 0 and billbybill1.yearno = {} "
      "and entries.date {} "
      "order by entries.date , billbybill1.refno , ledgernames1.ledgername , "
      "ledgernames1.ledger_id , entries.billbybilldetails_id",
      OfBills("entries"), arguments.bytYearno, Between(arguments));
  if (!arguments.blnDetailed) return entries;
  return fmt::format(
      "SHAPE {{ {} }} AS rsbillbybill APPEND ( {{ select desr1.related_id , "
      "desrdetails1.item_id , desrdetails1.qtydespout as QtyOut , desrdetails1.price as Rate "
      "from desr1 inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id "
      "where desr1.deleted = 0 and desrdetails1.iswarranty = 0 and desr1.related_id in "
      "(select posted.voucher_id from billbybilldetails1 as posted where posted.date {}) "
      "order by desr1.desr_id , desrdetails1.desrdetails_id }} "
      "RELATE voucher_id TO related_id ) AS chsalebill , {}",
      entries, Between(arguments), Receipts(arguments));
}

}  // namespace pstolvane1
