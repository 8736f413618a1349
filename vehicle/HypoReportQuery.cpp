#include <fmt/format.h>

#include "session/QueryText.h"
#include "vehicle/Bills.h"
#include "vehicle/HypoReport.h"

namespace pstolvane1 {

std::string ComposeHypoReport(const HypoArguments& arguments, const DocumentFilter& filter) {
  const bool detailed = arguments.blnDetailed;
  const std::string scale = SingleText(arguments.sngScale);
  QueryFilter sales = FilterOfBills(filter, BillKind::kVehicleSale);
  if (arguments.Hypo_id != 0) {
    sales.Add(fmt::format("terms1.hypo_id = {}", arguments.Hypo_id));
  }
  const std::string conditions = sales.Add("terms1.hypo_id <> 0").Conditions() +
                                 BilledBetween(arguments.dtFromDate, arguments.dtToDate);
  return fmt::format(
      "Select hypo.hypo_id, hypo.name, hypo.pincode, qry1.qty, qry1.value/{} as vehicleamt, "
      "qry2.totalsales/{} as totalsales{} from (Select terms1.hypo_id, "
      "sum(desrdetails1.qtydespout) as qty, "
      "sum(desrdetails1.qtydespout * desrdetails1.price) as value{}{}"
      "inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id where {} "
      "group by terms1.hypo_id{}) as qry1 inner join "
      "(Select terms1.hypo_id, sum(desr1.totalamount) as totalsales{}where {} "
      "group by terms1.hypo_id) as qry2 on qry2.hypo_id = qry1.hypo_id "
      "inner join hypo on hypo.hypo_id = qry1.hypo_id {}order by {}hypo.name, {}hypo.hypo_id ",
      scale, scale,
      detailed ? fmt::format(", items1.item_id, items1.itemname as itemname, "
                             "qry1.totalsalesit/{} as totalsalesitem",
                             scale)
               : std::string(),
      detailed ? ", desrdetails1.item_id, sum(desr1.totalamount) as totalsalesit" : "",
      kBillsOfTerms, conditions, detailed ? ", desrdetails1.item_id" : "", kBillsOfTerms,
      conditions, detailed ? "inner join items1 on items1.item_id = qry1.item_id " : "",
      arguments.ByPin() ? "hypo.pincode, " : "", detailed ? "itemname, items1.item_id, " : "");
}

}  // namespace pstolvane1
