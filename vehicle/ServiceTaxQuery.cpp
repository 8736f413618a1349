#include <fmt/format.h>

#include "session/QueryText.h"
#include "vehicle/Bills.h"
#include "vehicle/ServiceTax.h"

namespace pstolvane1 {
namespace {

std::string Conditions(const DocumentFilter& filter) {
  QueryFilter bills({FilterTable::kDocuments}, Undated::kDropped, Vouchertype::kJoined);
  bills.AddVouchertype(VouchertypeOrKind(filter, BillKind::kServiceBill))
      .AddParties(filter)
      .AddOptional(filter);
  return bills.Conditions() + IsOfKind(BillKind::kServiceBill);
}

}  // namespace

std::string ComposeServiceTax(const ServiceTaxArguments& arguments, const DocumentFilter& filter) {
  const std::string between = fmt::format(
      "between #{}# and #{}#", SqlDateText(arguments.dtFromDate), SqlDateText(arguments.dtToDate));
  return fmt::format(
      "select desrdetails1.item_id,desrdetails1.desr_id,desrdetails1.salestax/{} as salestax,"
      "desrdetails1.QtyDespOut as QtyOut,desrdetails1.ActualRate as rate,Desr1.Ledger_id,"
      "desr1.related_id as voucher_id,DESR1.DESRREFNO AS REFNO,DESR1.DATE from desrdetails1 "
      "inner join desr1 on desr1.desr_id = desrdetails1.desr_id and desr1.deleted = 0 and "
      "DESR1.DATE {} "
      "inner join VoucherType1 on VoucherType1.VoucherType_id = desr1.VoucherType_id "
      "where desrdetails1.desrdetdate {} and desrdetails1.Salestax <> 0 and "
      "desrdetails1.QTYDESPIN = 0 and ({}) "
      "order by desr1.RELATED_ID,desrdetails1.desrdetails_id",
      SingleText(arguments.sngScale), between, between, Conditions(filter));
}

}  // namespace pstolvane1
