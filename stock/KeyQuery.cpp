#include "stock/KeyQuery.h"

#include <fmt/format.h>

#include "movements/GroupQuery.h"

namespace pstolvane1 {
namespace {

std::string Keys(const StatementLines& lines) {
  return fmt::format(
      "select distinct GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID{} from "
      "GODOWNITEM1 {} where {}{}",
      lines.by_year ? " , GODOWNITEM1.YEARNO" : "", lines.filter.Joins(), lines.filter.Conditions(),
      lines.in_keys);
}

std::string NamedKeys(const StockArguments& arguments, KeyItems items,
                      const StatementLines& lines) {
  const std::string made = items == KeyItems::kAll ? std::string()
                                                   : fmt::format("ITEMS1.YEAROFCREATION <= {} and ",
                                                                 arguments.bytYearno);
  return fmt::format(
      "select STOCKKEYS.ITEM_ID , STOCKKEYS.GODOWN_ID , STOCKKEYS.BATCH_ID , {0}{1}ITEMS1.ITEMNAME "
      "as ITEMNAME , GODOWN1.GODOWNNAME as GODOWNNAME , BATCHES1.BATCHCODE as BATCHCODE , "
      "ITEMS1.MAINTAINBATCHES , UOM1.UOMNAME as UOMNAME , UOMALT1.UOMNAME as ALTUOMNAME , "
      "ITEMS1.RELATIONFORMULA from ((((( {2} ) as STOCKKEYS "
      "inner join ITEMS1 on ITEMS1.ITEM_ID = STOCKKEYS.ITEM_ID ) "
      "inner join GODOWN1 on GODOWN1.GODOWN_ID = STOCKKEYS.GODOWN_ID ) "
      "inner join UOM1 on UOM1.UOM_ID = ITEMS1.UOM_ID ) "
      "inner join UOM1 as UOMALT1 on UOMALT1.UOM_ID = ITEMS1.ALTERNATEUOM_ID ) "
      "inner join BATCHES1 on BATCHES1.BATCH_ID = STOCKKEYS.BATCH_ID "
      "where {3}ITEMS1.DELETED = 0 and GODOWN1.DELETED = 0 {4}",
      lines.by_year ? "STOCKKEYS.YEARNO , " : "", SelectGroup(arguments.tree), Keys(lines), made,
      arguments.condition);
}

// Documents may have columns of the same names, where a filter joins them.
std::string Lines(const StatementLines& lines) {
  return fmt::format(
      "SELECT GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID , {0} AS LINE , "
      "GODOWNITEM1.YEARNO , CAST ( GODOWNITEM1.QTY AS FLOAT ) AS QUANTITY , {1} from GODOWNITEM1 "
      "{2} where {3}{4} ORDER BY {5}",
      lines.line, lines.worth, lines.filter.Joins(), lines.filter.Conditions(), lines.condition,
      lines.order);
}

}  // namespace

std::string ComposeKeysWithLines(const StockArguments& arguments, KeyItems items,
                                 const StatementLines& lines) {
  return fmt::format(
      "SHAPE {{ {} }} APPEND ( {{ {} }} RELATE ITEM_ID TO ITEM_ID , GODOWN_ID TO GODOWN_ID , "
      "BATCH_ID TO BATCH_ID{} ) AS CHPTRANS ",
      NamedKeys(arguments, items, lines), Lines(lines), lines.by_year ? " , YEARNO TO YEARNO" : "");
}

}  // namespace pstolvane1
