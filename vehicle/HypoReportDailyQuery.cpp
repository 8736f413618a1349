#include <fmt/format.h>

#include "session/QueryText.h"
#include "vehicle/Bills.h"
#include "vehicle/HypoReportDaily.h"

namespace pstolvane1 {

std::string ComposeHypoReportDaily(const HypoListArguments& arguments,
                                   const DocumentFilter& filter) {
  const std::string scale = SingleText(arguments.sngScale);
  QueryFilter sales({FilterTable::kDocuments}, Undated::kDropped, Vouchertype::kJoined);
  sales.AddOptional(filter).AddVouchertype(VouchertypeOrKind(filter, BillKind::kVehicleSale));
  if (arguments.Hypo_id != 0) {
    sales.Add(fmt::format("terms1.hypo_id = {}", arguments.Hypo_id));
  }
  sales.AddParties(filter);
  const std::string of_item =
      arguments.Item_id == 0 ? std::string()
                             : fmt::format("and desrdetails1.item_id = {} ", arguments.Item_id);
  return fmt::format(
      "Select desr1.desr_id, desr1.date, desr1.related_id as voucher_id, desr1.optional, "
      "desr1.prefix, desr1.desrrefno as refno, desr1.suffix, vouchertype1.vouchertype, "
      "terms1.despatchto as buyername, terms1.registrationnumber, "
      "desr1.totalamount/{} as totalbill, "
      "(desrdetails1.qtydespout * desrdetails1.price)/{} as vehiclebill, "
      "items1.itemname as itemname, ledgernames1.ledgername{}"
      "inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id {}"
      "inner join hypo on hypo.hypo_id = terms1.hypo_id "
      "inner join items1 on items1.item_id = desrdetails1.item_id "
      "inner join ledgernames1 on ledgernames1.ledger_id = desr1.ledger_id where {}{} "
      "order by hypo.name, desr1.date, desr1.desr_id, itemname, desrdetails1.desrdetails_id ",
      scale, scale, kBillsOfTerms, of_item, sales.Conditions(),
      BilledBetween(arguments.dtFromDate, arguments.dtToDate));
}

}  // namespace pstolvane1
