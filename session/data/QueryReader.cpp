#include "session/data/QueryReader.h"

#include <algorithm>
#include <utility>

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

bool SameColumns(const std::vector<ColumnInfo>& a, const std::vector<ColumnInfo>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const ColumnInfo& x, const ColumnInfo& y) {
                      return x.name == y.name && x.type == y.type;
                    });
}

}  // namespace

QueryReader::QueryReader(std::shared_ptr<BooksState> state, std::chrono::milliseconds time_limit,
                         std::shared_ptr<FetchStop> stop, Pulse* pulse)
    : state_(std::move(state)), time_limit_(time_limit), stop_(std::move(stop)), pulse_(pulse) {}

void QueryReader::Read(const shape::QueryPlan& query, const std::vector<ColumnInfo>& columns,
                       std::size_t first_rows, const std::function<void(Chunk)>& take) const {
  try {
    ReadChunks(query, columns, first_rows, take);
  } catch (const Error& error) {
    stop_->Check();  // the engine's words for a statement that was cancelled say less
    if (query.doing.empty()) throw;
    throw error.While(query.doing);
  }
}

void QueryReader::ReadChunks(const shape::QueryPlan& query, const std::vector<ColumnInfo>& columns,
                             std::size_t first_rows, const std::function<void(Chunk)>& take) const {
  const Pulse::AtWork at_work(pulse_);
  stop_->Check();
  const std::shared_ptr<Snapshot> snapshot = state_->Take(*stop_);
  stop_->Check();
  if (!snapshot) throw Error(ErrorNumber::kObjectNotSet, "the engine gave no state of the books");
  const std::shared_ptr<Cursor> cursor = snapshot->Run(query.select, time_limit_);
  if (!cursor) throw Error(ErrorNumber::kObjectNotSet, "the engine gave no rows");
  const FetchStop::Running running(*stop_, cursor);
  if (!SameColumns(cursor->Columns(), query.columns)) {
    throw Error(
        ErrorNumber::kQueryRefused,
        "the tables of the books were changed while the connection was open: connect again");
  }
  for (std::size_t room = first_rows;; room = Chunk::kRows) {
    Chunk chunk(columns, room);
    cursor->Read(chunk);
    const bool more = chunk.Full();
    if (chunk.RowCount() > 0) take(std::move(chunk));
    if (!more) return;
    stop_->Check();
  }
}

}  // namespace pstolvane1
