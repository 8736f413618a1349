#include <fmt/format.h>

#include "session/QueryText.h"
#include "vehicle/Bills.h"
#include "vehicle/FreeService.h"
#include "vehicle/FreeServiceReport.h"

namespace pstolvane1 {

// The bills are summed before the names are joined to them.
std::string ComposeFreeServiceReport(const FreeServiceArguments& arguments,
                                     const DocumentFilter& filter) {
  const std::string by_model = fmt::format(
      "(Select terms1.vehicle_id, terms1.servicetype_id, sum(desr1.totalamount) as value{}"
      "where {}{} group by terms1.vehicle_id, terms1.servicetype_id) as qry1 "
      "inner join items1 on items1.item_id = qry1.vehicle_id ",
      kBillsOfTerms, FilterOfFreeServices(filter).Conditions(),
      BilledBetween(arguments.dtFromDate, arguments.dtToDate));
  const std::string scale = SingleText(arguments.sngScale);
  if (!arguments.blnDetailed) {
    return fmt::format(
        "Select itemcategory1.categoryname as categoryname, itemcategory1.itemcategory_id, "
        "qry2.servicetype_id, qry2.value/{} as value from (Select items1.itemcategory_id, "
        "qry1.servicetype_id, sum(qry1.value) as value from {}"
        "group by items1.itemcategory_id, qry1.servicetype_id) as qry2 "
        "inner join itemcategory1 on itemcategory1.itemcategory_id = qry2.itemcategory_id "
        "order by categoryname, qry2.servicetype_id, itemcategory1.itemcategory_id ",
        scale, by_model);
  }
  const std::string category =
      arguments.OneCategory()
          ? fmt::format("where itemcategory1.itemcategory_id = {} ", arguments.Cat_id)
          : std::string();
  return fmt::format(
      "Select itemcategory1.categoryname as categoryname, itemcategory1.itemcategory_id, "
      "items1.item_id, items1.itemname as itemname, qry1.servicetype_id, qry1.value/{} as value "
      "from {}inner join itemcategory1 on itemcategory1.itemcategory_id = items1.itemcategory_id "
      "{}order by categoryname, itemname, qry1.servicetype_id, itemcategory1.itemcategory_id, "
      "items1.item_id ",
      scale, by_model, category);
}

}  // namespace pstolvane1
