// The way into a rowset for the fetch and the joiner of shape commands.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "session/data/Recordset.h"
#include "session/data/RecordsetImpl.h"
#include "session/data/RowStore.h"

namespace pstolvane1 {

struct RecordsetAccess {
  // A new open rowset over all rows of a store, at the first one.
  [[nodiscard]] static RecordsetPtr Over(std::shared_ptr<RowStore> store);
  // Over the rows listed, in ascending order; owner keeps the list alive and unchanged. Costs the
  // same for any number of rows.
  [[nodiscard]] static RecordsetPtr Over(std::shared_ptr<RowStore> store,
                                         std::span<const std::uint32_t> rows,
                                         std::shared_ptr<const void> owner);

  // Opens a closed rowset over a store, at the first row when there is one. Error 3001 when it is
  // open. More rows come with RowStore::Append; while they come the caller sets Impl::fetch, which
  // State() tells and Close() cancels.
  static void Attach(Recordset& rowset, std::shared_ptr<RowStore> store);

  // The rows of an open rowset; error 3704.
  [[nodiscard]] static const std::shared_ptr<RowStore>& Store(const Recordset& rowset);

  // Connection, running fetch, "Initial Fetch Size", appended columns.
  [[nodiscard]] static Recordset::Impl& ImplOf(Recordset& rowset) { return *rowset.impl_; }
};

}  // namespace pstolvane1
