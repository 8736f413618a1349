// What a rowset is made of; for the files that implement it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "session/data/Recordset.h"
#include "session/data/RowStore.h"
#include "session/data/RowView.h"

namespace pstolvane1 {

// A fetch that runs beside the thread of its rowset. The rowset owns it; the last owner to go ends
// it.
class RunningFetch {
 public:
  virtual ~RunningFetch() = default;
  // Ends it; no event follows. On the rowset's thread.
  virtual void Cancel() noexcept = 0;
  // Waits for the rows that are still to come and appends them; its events come later all the same.
  // The error that it ended with. On the rowset's thread.
  [[nodiscard]] virtual std::optional<Error> TakeAll() = 0;
};

// Error 3265 with the name and the columns of the rowset.
[[noreturn]] void RaiseNoColumn(std::string_view name, const std::vector<ColumnInfo>& columns);

struct Recordset::Impl {
  // The columns of a fabricated rowset, as appended. They stay when it is closed.
  std::vector<ColumnInfo> appended;

  // Set while the rowset is open.
  std::optional<RowView> view;

  // The columns of the current row that were written since the last Update. Empty when none was.
  std::vector<bool> edited;

  // The source.
  std::shared_ptr<Connection> connection;
  std::shared_ptr<RunningFetch> fetch;  // null when none runs
  // Raised about once a second while the fetch has no rows yet, on the rowset's thread; may be
  // null.
  std::function<void(Recordset& self)> fetch_waits;
  std::int32_t initial_fetch_size = 50;

  // Error 3704 when closed.
  RowView& Open() {
    if (!view) RaiseNotOpen();
    return *view;
  }
  const RowView& Open() const {
    if (!view) RaiseNotOpen();
    return *view;
  }
  [[noreturn]] static void RaiseNotOpen();

  // The current row; error 3704 or 3021 where there is none.
  [[nodiscard]] std::uint32_t CurrentRow() const {
    const RowView& open = Open();
    if (!open.HasRow()) RaiseNoRow(open);
    return open.Row();
  }
  [[noreturn]] static void RaiseNoRow(const RowView& view);
  [[nodiscard]] Row Current() const {
    const std::uint32_t row = CurrentRow();
    return {view->Store(), row};
  }

  // The column of that name, also of a rowset that is not open yet; error 3265.
  [[nodiscard]] int FindColumn(std::string_view name) const;
  [[nodiscard]] const std::vector<ColumnInfo>& Columns() const;

  // The rows, for writing. Error 3704, 3001 for those of a query.
  RowStore& Writable();
  void BeforeWrite(RowStore& store, int column);
  // Makes what was written of the current row known to all rowsets on the rows. Before every move.
  void Commit() {
    if (!edited.empty() || view->Adding() != RowView::kNone) CommitEdits();
  }
  void CommitEdits();
};

}  // namespace pstolvane1
