#include <fmt/format.h>

#include "analysis/MovementAnalysis.h"
#include "analysis/MovementConditions.h"
#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

// The value of the lines with a quantity in that column.
std::string ValueOfLines(std::string_view column, std::string_view quantity) {
  return fmt::format(
      "case when sum(desrdetails1.{0}) = 0 then 0 else sum(case when desrdetails1.{0} = 0 then 0 "
      "else {1} end) end",
      column, LineValue(quantity));
}

// Per unit of what the lines moved; returns have no part in it.
std::string RateOfLines(std::string_view column) {
  return fmt::format(
      "case when sum(desrdetails1.{0}) = 0 then 0 else ({1}) / sum(desrdetails1.{0}) end", column,
      ValueOfLines(column, "desrdetails1.billedqty"));
}

// What came back to a seller has a value; what went back to a supplier has none. Both are meant.
std::string ValueIn(MovementSide side) {
  std::string text = ValueOfLines("qtydespin", "desrdetails1.billedqty");
  if (side == MovementSide::kSales) {
    text += " + " + ValueOfLines("qtyreturned", "desrdetails1.qtyreturned");
  }
  return text;
}

std::string Conditions(const MovementArguments& arguments, const MovementGrouping& grouping,
                       const DocumentFilter& filter) {
  const std::string one =
      arguments.IsOne() ? fmt::format("{}{}", grouping.one, arguments.lngId) : std::string();
  return fmt::format(
      "{}{}{}{} and desr1.deleted = 0 {} and DESRDETAILS1.OPTIONAL = (CASE WHEN "
      "vouchertype1.relatedto = 20 THEN 0 ELSE desrdetails1.optional END) ",
      FilterOfAnalysis(filter), DocumentsOf(arguments.side), one,
      StatesOf(arguments.strConsiderForSih, arguments.strItemstate),
      DatedBetween(arguments.dtFromDate, arguments.dtToDate));
}

std::string_view WithoutName(std::string_view key) { return key.substr(0, key.find(" as ")); }

}  // namespace

std::string ComposeMovements(const MovementArguments& arguments, const DocumentFilter& filter) {
  static constexpr MovementGrouping kNone{};
  const auto* found = FindMovementGrouping(arguments.side, arguments.reptype);
  const MovementGrouping& grouping = found ? *found : kNone;
  const MovementQuantities quantities = QuantitiesOf(arguments.side);
  const std::string text = fmt::format(
      "select items1.itemname as itemname,uom1.uomname as uom,aaa.*,{names} from ( "
      "select items1.item_id as item_id,{key},{in} as qtyin,{rate_in} as ratein,"
      "{value_in} as valuein,{out} as qtyout,{rate_out} as rateout,{value_out} as valueout from "
      "{lines}{join}where {conditions}group by items1.item_id,{by} ) as aaa "
      "inner join items1 on items1.item_id = aaa.item_id "
      "left join uom1 on uom1.uom_id = items1.uom_id {tables}order by {order}",
      fmt::arg("names", grouping.names), fmt::arg("key", grouping.key),
      fmt::arg("in", quantities.in), fmt::arg("rate_in", RateOfLines("qtydespin")),
      fmt::arg("value_in", ValueIn(arguments.side)), fmt::arg("out", quantities.out),
      fmt::arg("rate_out", RateOfLines("qtydespout")),
      fmt::arg("value_out", ValueOfLines("qtydespout", "desrdetails1.billedqty")),
      fmt::arg("lines", kMovementTables), fmt::arg("join", grouping.join),
      fmt::arg("conditions", Conditions(arguments, grouping, filter)),
      fmt::arg("by", WithoutName(grouping.key)), fmt::arg("tables", grouping.tables),
      fmt::arg("order", grouping.order));
  return ReplaceAll(LowerCase(text), "first", "");
}

}  // namespace pstolvane1
