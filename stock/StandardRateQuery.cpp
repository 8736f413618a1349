#include "stock/StandardRateQuery.h"

#include <fmt/format.h>

#include "movements/GroupQuery.h"
#include "movements/QueryFilter.h"
#include "session/mInternationalization.h"

namespace pstolvane1 {

std::string ComposeStandardRate(const StockArguments& arguments, const DocumentFilter& filter) {
  const std::string from = SqlDateText(arguments.dtFromDate);
  const QueryFilter with_openings = FilterOfMovements(filter, Undated::kKept);
  const auto in_period = [&from](std::string_view sense, std::string_view sum) {
    return fmt::format(
        "sum ( CASE WHEN isadded = {} and isopeningbal = 0 and Godownitem1.Date >= #{}# THEN {} "
        "ELSE 0 END )",
        sense, from, sum);
  };
  constexpr std::string_view kQuantity = "godownitem1.qty";
  constexpr std::string_view kValue = "godownitem1.qty * godownitem1.rate";
  constexpr std::string_view kKey =
      "godownitem1.item_Id , godownitem1.godown_id , godownitem1.batch_Id";
  return fmt::format(
      "select items1.itemname as itemname , godown1.godownname as godownname , batches1.batchcode "
      "as batchcode , items1.maintainbatches , uom1.uomname as uomname , uomalt1.uomname as "
      "altuomname , items1.relationformula , {0}{1} , sum ( CASE WHEN isopeningbal = -1 or "
      "Godownitem1.Date < #{2}# THEN CASE WHEN isadded = -1 THEN qty ELSE -qty END ELSE 0 END ) as "
      "qtyop ,   {3} as qtyin ,  {4} as qtyinvalue ,  {5} as qtyout ,  {6} as qtyoutvalue from "
      "((((( godownitem1 inner join items1 on items1.item_id = godownitem1.item_id ) "
      "inner join godown1 on godown1.godown_id = godownitem1.godown_id ) "
      "inner join uom1 on uom1.uom_id = items1.uom_id ) "
      "inner join uom1 as uomalt1 on uomalt1.uom_id = items1.alternateuom_id ) "
      "inner join batches1 on batches1.batch_id = godownitem1.batch_id ) {7} where {8}"
      "items1.yearofcreation <= {9} and ( godownitem1.date <= #{10}# or isopeningbal = -1 ) and "
      "godownitem1.optional = 0  and godownitem1.yearno <= {9} and items1.deleted = 0 and "
      "godown1.deleted = 0 {11} group by {1} , {12}items1.itemname , godown1.godownname , "
      "batches1.batchcode , items1.maintainbatches , uom1.uomname , uomalt1.uomname , "
      "items1.relationformula  Order By Items1.ItemName , {1}",
      SelectGroup(arguments.tree), kKey, from, in_period("-1", kQuantity), in_period("-1", kValue),
      in_period("0", kQuantity), in_period("0", kValue), with_openings.Joins(),
      with_openings.Conditions(), arguments.bytYearno, SqlDateText(arguments.dtToDate),
      arguments.condition, GroupByGroup(arguments.tree));
}

}  // namespace pstolvane1
