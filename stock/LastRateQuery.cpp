#include "stock/LastRateQuery.h"

#include <fmt/format.h>

#include "movements/GroupQuery.h"
#include "movements/QueryFilter.h"
#include "session/mInternationalization.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kKey =
    "GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID";

std::string Keys(const StockArguments& arguments, const QueryFilter& filter) {
  return fmt::format(
      "select {0} , {1}ITEMS1.ITEMNAME as ITEMNAME , GODOWN1.GODOWNNAME as GODOWNNAME , "
      "BATCHES1.BATCHCODE as BatchCode , ITEMS1.MaintainBatches , UOM1.UOMNAME as UOMNAME , "
      "UOMALT1.UOMNAME as ALTUOMNAME , ITEMS1.RELATIONFORMULA from (((( ITEMS1 INNER JOIN "
      "GODOWNITEM1 on GODOWNITEM1.ITEM_ID = ITEMS1.ITEM_ID ) "
      "inner join GODOWN1 on GODOWN1.GODOWN_ID = GODOWNITEM1.GODOWN_ID ) "
      "inner join UOM1 on UOM1.UOM_ID = ITEMS1.UOM_ID ) "
      "inner join UOM1 AS UOMALT1 on UOMALT1.UOM_ID = ITEMS1.ALTERNATEUOM_ID ) "
      "inner join BATCHES1 on BATCHES1.BATCH_ID = GODOWNITEM1.BATCH_ID {2} where {3} "
      "ITEMS1.DELETED = 0 AND GODOWN1.DELETED = FALSE AND GODOWNITEM1.OPTIONAL = 0 AND "
      "GODOWNITEM1.YEARNO <= {4} {5} group by {0} , {6}ITEMS1.ITEMNAME , GODOWN1.GODOWNNAME , "
      "BATCHES1.BATCHCODE , ITEMS1.MaintainBatches , UOM1.UOMNAME , UOMALT1.UOMNAME , "
      "ITEMS1.RELATIONFORMULA  Order By Items1.Itemname , {0} ",
      kKey, SelectGroup(arguments.tree), filter.Joins(), filter.Conditions(), arguments.bytYearno,
      arguments.condition, GroupByGroup(arguments.tree));
}

std::string Quantities(const StockArguments& arguments, const QueryFilter& filter) {
  const std::string from = SqlDateText(arguments.dtFromDate);
  const auto in_period = [&from](std::string_view sense, std::string_view sum) {
    return fmt::format(
        "sum ( CASE WHEN GODOWNITEM1.DATE >= #{}# AND GODOWNITEM1.ISOPENINGBAL = 0 and ISADDED = "
        "{} THEN {} ELSE 0 END )",
        from, sense, sum);
  };
  constexpr std::string_view kQuantity = "GODOWNITEM1.QTY";
  constexpr std::string_view kValue = "GODOWNITEM1.QTY * GODOWNITEM1.RATE";
  return fmt::format(
      "select {0} , sum ( CASE WHEN GODOWNITEM1.DATE < #{1}# OR GODOWNITEM1.ISOPENINGBAL = -1 THEN "
      "CASE WHEN ISADDED = -1 THEN GODOWNITEM1.QTY ELSE -GODOWNITEM1.QTY END ELSE 0 END ) as QTYOP "
      ", {2} as QTYIN , {3} as VALUEIN , {4} as QTYOUT , {5} as VALUEOUT from GODOWNITEM1 {6} "
      "where {7} GODOWNITEM1.OPTIONAL = 0 and ( GODOWNITEM1.DATE <= #{8}# OR "
      "GODOWNITEM1.ISOPENINGBAL = -1 ) and GODOWNITEM1.YEARNO <= {9} group by {0}",
      kKey, from, in_period("-1", kQuantity), in_period("-1", kValue), in_period("0", kQuantity),
      in_period("0", kValue), filter.Joins(), filter.Conditions(), SqlDateText(arguments.dtToDate),
      arguments.bytYearno);
}

}  // namespace

std::string ComposeLastRate(const StockArguments& arguments, const DocumentFilter& filter) {
  const QueryFilter with_openings = FilterOfMovements(filter, Undated::kKept);
  return fmt::format(
      "SHAPE {{ {} }} APPEND ( {{ {} }} RELATE ITEM_ID TO ITEM_ID , GODOWN_ID TO GODOWN_ID , "
      "BATCH_ID TO BATCH_ID ) AS CHPQTY ",
      Keys(arguments, with_openings), Quantities(arguments, with_openings));
}

}  // namespace pstolvane1
