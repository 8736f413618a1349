#include "stock/KeyQuery.h"

#include <fmt/format.h>

#include "movements/GroupQuery.h"

namespace pstolvane1 {

std::string ComposeNamedKeys(const StockArguments& arguments, KeyItems items, std::string_view keys,
                             std::string_view figures) {
  const std::string made = items == KeyItems::kAll ? std::string()
                                                   : fmt::format("ITEMS1.YEAROFCREATION <= {} and ",
                                                                 arguments.bytYearno);
  return fmt::format(
      "select STOCKKEYS.ITEM_ID , STOCKKEYS.GODOWN_ID , STOCKKEYS.BATCH_ID , {0}ITEMS1.ITEMNAME as "
      "ITEMNAME , GODOWN1.GODOWNNAME as GODOWNNAME , BATCHES1.BATCHCODE as BATCHCODE , "
      "ITEMS1.MAINTAINBATCHES , UOM1.UOMNAME as UOMNAME , UOMALT1.UOMNAME as ALTUOMNAME , "
      "ITEMS1.RELATIONFORMULA {1}from ((((( {2} ) as STOCKKEYS "
      "inner join ITEMS1 on ITEMS1.ITEM_ID = STOCKKEYS.ITEM_ID ) "
      "inner join GODOWN1 on GODOWN1.GODOWN_ID = STOCKKEYS.GODOWN_ID ) "
      "inner join UOM1 on UOM1.UOM_ID = ITEMS1.UOM_ID ) "
      "inner join UOM1 as UOMALT1 on UOMALT1.UOM_ID = ITEMS1.ALTERNATEUOM_ID ) "
      "inner join BATCHES1 on BATCHES1.BATCH_ID = STOCKKEYS.BATCH_ID "
      "where {3}ITEMS1.DELETED = 0 and GODOWN1.DELETED = 0 {4}",
      SelectGroup(arguments.tree), figures, keys, made, arguments.condition);
}

}  // namespace pstolvane1
