// The order in which a statement lists its stock keys.
#pragma once

#include <vector>

#include "session/data/Recordset.h"

namespace pstolvane1 {

// The rows of a rowset with the columns ITEMNAME, ITEM_ID, GODOWN_ID, BATCH_ID and, if there are
// several years of a key, YEARNO: by the item's name, in which case and blanks at the end do not
// count and Null comes first, then by the ids and the year. An engine would sort all cells of the
// rows. They are good as long as the rowset is open.
[[nodiscard]] std::vector<Recordset::Row> KeysInOrder(const Recordset& keys);

}  // namespace pstolvane1
