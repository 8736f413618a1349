// Runs the queries of a plan on one state of the books.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include "session/data/BooksState.h"
#include "session/data/Chunk.h"
#include "session/data/FetchStop.h"
#include "session/data/Pulse.h"
#include "session/data/ShapePlan.h"

namespace pstolvane1 {

// Used by one thread, or by several at a time where the engine reads side by side. The first call
// may wait for a lock on the books.
class QueryReader {
 public:
  // The rows of the first chunk where nobody asks for a number: room for the many small results
  // without the room of a whole chunk.
  static constexpr std::size_t kSmallChunk = 256;

  // The pulse beats while queries are read; it may be null and must outlive the reader.
  QueryReader(std::shared_ptr<BooksState> state, std::chrono::milliseconds time_limit,
              std::shared_ptr<FetchStop> stop, Pulse* pulse = nullptr);

  // Reads all rows of a query into chunks with the columns given, which begin with the query's own,
  // and hands each over when it is full or the last. The first has first_rows rows. Error
  // -2147217900 when a statement fails or the fetch is stopped, told with what was being read.
  void Read(const shape::QueryPlan& query, const std::vector<ColumnInfo>& columns,
            std::size_t first_rows, const std::function<void(Chunk)>& take) const;

  [[nodiscard]] bool ReadsSideBySide() const noexcept { return state_->ReadsSideBySide(); }
  // Ends what other threads read.
  void Stop() const noexcept { stop_->Stop(); }
  // Error -2147217900 once the fetch was stopped.
  void CheckNotStopped() const { stop_->Check(); }

 private:
  void ReadChunks(const shape::QueryPlan& query, const std::vector<ColumnInfo>& columns,
                  std::size_t first_rows, const std::function<void(Chunk)>& take) const;

  std::shared_ptr<BooksState> state_;
  std::chrono::milliseconds time_limit_;
  std::shared_ptr<FetchStop> stop_;
  Pulse* pulse_;
};

}  // namespace pstolvane1
