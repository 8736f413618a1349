#include <fmt/format.h>

#include "analysis/Commission.h"
#include "movements/QueryFilter.h"
#include "session/QueryText.h"
#include "session/mInternationalization.h"

namespace pstolvane1 {
namespace {

// The lines of documents, each with the slab that it reaches as employeecommision: the one that was
// entered last among those of its employee and item that had begun and whose quantity it has.
constexpr std::string_view kLinesWithSlabs =
    "desr1 inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id "
    "inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id "
    "left join employeecommision on employeecommision.employeecommision_id = "
    "(select max(slab.employeecommision_id) from employeecommision as slab where "
    "slab.employee_id = desr1.employee_id and slab.item_id = desrdetails1.item_id and "
    "slab.datefrom <= desr1.date and slab.qtyto <= desrdetails1.qtydespout)";

std::string Between(std::string_view column, Date from, Date to) {
  return fmt::format("{} between #{}# and #{}#", column, SqlDateText(from), SqlDateText(to));
}

std::string SalesOf(const DocumentFilter& filter, Date from, Date to) {
  return fmt::format("{}vouchertype1.relatedto = 10 and {} and desr1.deleted = 0",
                     FilterOfDocuments(filter, Vouchertype::kJoined).Conditions(),
                     Between("desr1.date", from, to));
}

// The name of a group. Another report type asks for a column that no table has, and the database
// refuses it.
std::string_view ParentOf(std::int32_t reptype) {
  if (reptype == rtCommission_Initial_Employeewise) return "employee1.employeename";
  return reptype == rtCommission_Initial_Itemwise ? "' '" : "parent";
}

}  // namespace

std::string ComposeCommission(const CommissionArguments& arguments, const DocumentFilter& filter) {
  const bool by_item = arguments.reptype == rtCommission_Initial_Itemwise;
  std::string conditions =
      fmt::format("{} and vouchertype1.subrelatedto <> 43 and {}",
                  SalesOf(filter, arguments.dtFromDate, arguments.dtToDate),
                  Between("desrdetails1.desrdetdate", arguments.dtFromDate, arguments.dtToDate));
  if (arguments.lngId1 != kAllCommission) {
    conditions += fmt::format(" and {} = {}", by_item ? "items1.item_id" : "desr1.employee_id",
                              arguments.lngId1);
  }
  return fmt::format(
      "select {} as Parent,employee1.employee_id as Parent_id,sales.item_id as Item_id,"
      "sales.compercent as compercent,sales.totalsales as TotalSales from "
      "(select desr1.employee_id,desrdetails1.item_id,employeecommision.cpercent as compercent,"
      "isnull(sum(desrdetails1.qtydespout * desrdetails1.price),0)/{} as totalsales from {} "
      "where {} group by desr1.employee_id,desrdetails1.item_id,employeecommision.cpercent) as "
      "sales "
      "inner join employee1 on employee1.employee_id = sales.employee_id "
      "order by {}employee1.employee_id,sales.compercent",
      ParentOf(arguments.reptype), SingleText(arguments.sngScale), kLinesWithSlabs, conditions,
      by_item ? "sales.item_id,employee1.employeename," : "employee1.employeename,sales.item_id,");
}

std::string ComposeCommissionDaily(const CommissionDailyArguments& arguments,
                                   const DocumentFilter& filter) {
  const std::string conditions =
      fmt::format("{} and desr1.employee_id = {} and desrdetails1.item_id = {}",
                  SalesOf(filter, arguments.dtFromDate, arguments.dtToDate),
                  arguments.lngEmployee_Id, arguments.lngItem_id);
  return fmt::format(
      "select desr1.date as Date,ledgernames1.ledgername as Ledgername,desr1.prefix as Prefix,"
      "desr1.desrrefno as Refno,desr1.suffix as Suffix,vouchertype1.vouchertype as Vouchertype,"
      "desr1.desr_id as Desr_id,desr1.related_id as Voucher_id,"
      "desrdetails1.qtydespout as qtysupplied,"
      "desrdetails1.qtydespout * desrdetails1.price as SalesValue,"
      "employeecommision.cpercent as compercent,"
      "desrdetails1.qtydespout * desrdetails1.price * employeecommision.cpercent / 100 as "
      "ComAmount "
      "from {} inner join employee1 on employee1.employee_id = desr1.employee_id "
      "inner join items1 on items1.item_id = desrdetails1.item_id "
      "inner join ledgernames1 on ledgernames1.ledger_id = desr1.ledger_id "
      "where {} order by desr1.date,desr1.desr_id,desrdetails1.desrdetails_id",
      kLinesWithSlabs, conditions);
}

}  // namespace pstolvane1
