// A rowset's rows fetched beside its thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "session/data/BooksState.h"
#include "session/data/Error.h"
#include "session/data/FetchStop.h"
#include "session/data/MessageLoop.h"
#include "session/data/Pulse.h"
#include "session/data/Recordset.h"
#include "session/data/RecordsetImpl.h"
#include "session/data/RowStore.h"
#include "session/data/ShapePlan.h"

namespace pstolvane1 {

// A thread of its own reads the plan's queries and hands the rows over in whole chunks, one message
// each, then says that it is at the end; the rowset's thread appends them while it pumps and raises
// FetchProgress per chunk and FetchComplete once. As long as there are no rows the rowset is told
// once a second that it waits. The rows of a shape command are handed over when
// all are joined. The reading thread runs ahead of a rowset's thread that does not pump.
//
// Who holds what: the reading thread and its messages hold this object, the rowset holds a Handle,
// and this object holds the rowset weakly. So a rowset that goes takes its fetch with it, and
// whatever is still on its way is dropped when it arrives. The state of the books is let go before
// the end is told.
class AsyncFetch : public std::enable_shared_from_this<AsyncFetch> {
 public:
  // Begins at once; error -2147217900 when no thread can be started. The first chunk has first_rows
  // rows. The rowset must be open, with the plan's columns, before this thread pumps again.
  [[nodiscard]] static std::shared_ptr<RunningFetch> Start(const RecordsetPtr& rowset,
                                                           shape::Plan plan,
                                                           std::shared_ptr<BooksState> state,
                                                           std::chrono::milliseconds time_limit,
                                                           std::size_t first_rows,
                                                           std::shared_ptr<FetchStop> stop);

 private:
  class Handle;
  using JoinedChapters = std::vector<std::pair<int, std::shared_ptr<const ChapterRows>>>;

  AsyncFetch(const RecordsetPtr& rowset, std::shared_ptr<FetchStop> stop);

  // On the reading thread.
  void Run(const shape::Plan& plan, std::shared_ptr<BooksState> state,
           std::chrono::milliseconds time_limit, std::size_t first_rows,
           const MessageQueue::Message& completed) noexcept;
  void Fetch(const shape::Plan& plan, std::shared_ptr<BooksState> state,
             std::chrono::milliseconds time_limit, std::size_t first_rows);
  void HandOver(Chunk chunk);
  void TellThatItWaits();

  // On the rowset's thread.
  void Cancel() noexcept;
  [[nodiscard]] RecordsetPtr LiveRowset() const;
  std::optional<Error> TakeAll();
  [[nodiscard]] std::optional<Error> Failure() const;
  void TakeChapters(Recordset& rowset);
  // The next that is on its way, if any. The fetch has failed where there is no room for it.
  void TakeChunk(Recordset& rowset);
  void TellChunk();
  void Complete();

  const std::weak_ptr<Recordset> rowset_;
  const std::shared_ptr<MessageQueue> queue_;
  const std::shared_ptr<FetchStop> stop_;

  std::mutex mutex_;
  std::condition_variable changed_;
  bool any_rows_ = false;
  JoinedChapters chapters_;  // before the rows that they belong to
  std::list<Chunk> on_their_way_;
  bool ended_ = false;
  std::exception_ptr failure_;  // that it ended with

  // Of the rowset's thread.
  bool live_ = true;
  bool lost_ = false;  // rows for which there was no room
  std::uint32_t handed_over_ = 0;
};

}  // namespace pstolvane1
