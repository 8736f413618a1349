// Several rowsets opened in one go.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "session/data/Connection.h"
#include "session/data/Recordset.h"

namespace pstolvane1 {

struct RowsetQuery {
  RecordsetPtr rowset;
  std::string_view source;
};

// Opens each rowset as Recordset::Open does, with all of its rows, in their order. Where the engine
// reads side by side their rows are read at the same time. The first error in this order is raised;
// the rowsets behind it stay closed.
void OpenTogether(const std::shared_ptr<Connection>& connection,
                  std::span<const RowsetQuery> queries);

}  // namespace pstolvane1
