#include <fmt/format.h>

#include "session/QueryText.h"
#include "vehicle/Bills.h"
#include "vehicle/Labour.h"
#include "vehicle/MechanicLabourReport.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kMechanics =
    "inner join mechanicname on mechanicname.mechanic_id = qry2.mechanic_id ";

std::string ComposeByMechanic(const std::string& bills, const std::string& scale) {
  return fmt::format(
      "Select mechanicname.mechanic_id, mechanicname.mechanicname, qry2.totalbill/{} as totalbill, "
      "qry2.labourbill/{} as labourbill from (Select qry1.mechanic_id, "
      "sum(isnull(qry1.totalbill,0)) as totalbill, sum(isnull(qry1.labourbill,0)) as labourbill "
      "from {} group by qry1.mechanic_id) as qry2 {}"
      "order by mechanicname.mechanicname, mechanicname.mechanic_id ",
      scale, scale, bills, kMechanics);
}

std::string ComposeByModel(const std::string& bills, const std::string& scale) {
  return fmt::format(
      "Select mechanicname.mechanic_id, mechanicname.mechanicname, items1.item_id, "
      "items1.itemname as itemname, isnull(qry2.totalbill,0)/{} as totalbill, "
      "qry2.labourbill/{} as labourbill from (Select qry1.mechanic_id, qry1.vehicle_id, "
      "sum(qry1.totalbill) as totalbill, sum(qry1.labourbill) as labourbill "
      "from {} group by qry1.mechanic_id, qry1.vehicle_id) as qry2 "
      "inner join items1 on items1.item_id = qry2.vehicle_id {}"
      "order by mechanicname.mechanicname, itemname, items1.item_id, mechanicname.mechanic_id ",
      scale, scale, bills, kMechanics);
}

std::string ComposeByItem(const std::string& conditions, const std::string& scale) {
  return fmt::format(
      "Select mechanicname.mechanic_id, mechanicname.mechanicname, items1.item_id, "
      "items1.itemname as itemname, qry3.totalbill/{} as totalbill, "
      "qry2.labourbill/{} as labourbill from (Select terms1.mechanic_id, desrdetails1.item_id, "
      "sum(desrdetails1.qtydespout * desrdetails1.price) as labourbill{}"
      "inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id "
      "inner join items1 on items1.item_id = desrdetails1.item_id "
      "where {} and items1.considerforsih = 0 group by terms1.mechanic_id, desrdetails1.item_id) "
      "as qry2 inner join (Select terms1.mechanic_id, sum(desr1.totalamount) as totalbill{}where {}"
      " group by terms1.mechanic_id) as qry3 on qry3.mechanic_id = qry2.mechanic_id "
      "inner join items1 on items1.item_id = qry2.item_id {}"
      "order by mechanicname.mechanicname, itemname, items1.item_id, mechanicname.mechanic_id ",
      scale, scale, kBillsOfTerms, conditions, kBillsOfTerms, conditions, kMechanics);
}

}  // namespace

std::string ComposeMechanicLabourReport(const LabourArguments& arguments,
                                        const DocumentFilter& filter) {
  const bool by_vehicle = arguments.btTypeOfReport == kByVehicle;
  const std::string scale = SingleText(arguments.sngScale);
  const std::string conditions =
      FilterOfLabour(filter, arguments.btTypeOfReport, arguments.Mechanic_id).Conditions() +
      BilledBetween(arguments.dtFromDate, arguments.dtToDate);
  if (arguments.blnDetailed && !by_vehicle) return ComposeByItem(conditions, scale);
  const std::string bills = fmt::format(
      "(Select terms1.mechanic_id, terms1.vehicle_id, desr1.totalamount as totalbill, "
      "{} as labourbill{}where {}) as qry1",
      kLabourOfBill, kBillsOfTerms, conditions);
  return arguments.blnDetailed ? ComposeByModel(bills, scale) : ComposeByMechanic(bills, scale);
}

}  // namespace pstolvane1
