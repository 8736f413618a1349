// The stock keys of a statement with their names.
#pragma once

#include <string>
#include <string_view>

#include "stock/StockArguments.h"

namespace pstolvane1 {

// Which items a statement lists.
enum class KeyItems { kAll, kMadeByTheYear };

// One row for each row of keys, a SELECT that gives ITEM_ID, GODOWN_ID and BATCH_ID and each key
// once, if its item and godown are not deleted: the ids, under a tree ItemCategory_Id, ITEMNAME,
// GODOWNNAME, BATCHCODE, MAINTAINBATCHES, UOMNAME, ALTUOMNAME, RELATIONFORMULA, and the figures of
// keys, named with a comma in front of each. In no order: see KeyOrder. The names are joined to the
// keys, which are few beside the movements.
[[nodiscard]] std::string ComposeNamedKeys(const StockArguments& arguments, KeyItems items,
                                           std::string_view keys, std::string_view figures = {});

}  // namespace pstolvane1
