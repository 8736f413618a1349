#include "session/data/AsyncFetch.h"

#include <algorithm>
#include <limits>
#include <new>
#include <string_view>

#include "session/data/Background.h"
#include "session/data/OutOfMemory.h"
#include "session/data/QueryReader.h"
#include "session/data/RecordsetAccess.h"
#include "session/data/ShapeJoiner.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kDoing = "fetching the rows";
constexpr std::chrono::seconds kBetweenSigns{1};

std::optional<Error> ErrorOf(const std::exception_ptr& failure) {
  try {
    if (failure) std::rethrow_exception(failure);
    return std::nullopt;
  } catch (const Error& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return OutOfMemory(kDoing);
  } catch (const std::exception& error) {
    return Error(ErrorNumber::kQueryRefused, error.what());
  }
}

}  // namespace

class AsyncFetch::Handle final : public RunningFetch {
 public:
  explicit Handle(std::shared_ptr<AsyncFetch> fetch) : fetch_(std::move(fetch)) {}
  ~Handle() override { fetch_->Cancel(); }
  void Cancel() noexcept override { fetch_->Cancel(); }
  std::optional<Error> TakeAll() override { return fetch_->TakeAll(); }

 private:
  std::shared_ptr<AsyncFetch> fetch_;
};

AsyncFetch::AsyncFetch(const RecordsetPtr& rowset, std::shared_ptr<FetchStop> stop)
    : rowset_(rowset), queue_(MessageQueue::OfThisThread()), stop_(std::move(stop)) {}

std::shared_ptr<RunningFetch> AsyncFetch::Start(const RecordsetPtr& rowset, shape::Plan plan,
                                                std::shared_ptr<BooksState> state,
                                                std::chrono::milliseconds time_limit,
                                                std::size_t first_rows,
                                                std::shared_ptr<FetchStop> stop) {
  const std::shared_ptr<AsyncFetch> fetch(new AsyncFetch(rowset, std::move(stop)));
  auto handle = std::make_shared<Handle>(fetch);
  RunBeside([fetch, plan = std::make_shared<const shape::Plan>(std::move(plan)),
             state = std::move(state), time_limit, first_rows,
             completed = MessageQueue::Message([fetch] { fetch->Complete(); })]() mutable {
    fetch->Run(*plan, std::move(state), time_limit, first_rows, completed);
  });
  return handle;
}

void AsyncFetch::Run(const shape::Plan& plan, std::shared_ptr<BooksState> state,
                     std::chrono::milliseconds time_limit, std::size_t first_rows,
                     const MessageQueue::Message& completed) noexcept {
  std::exception_ptr failure;
  try {
    Fetch(plan, std::move(state), time_limit, first_rows);
  } catch (...) {
    failure = std::current_exception();
  }
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
    failure_ = std::move(failure);
  }
  changed_.notify_one();
  PostOnceThereIsRoom(*queue_, completed);
}

void AsyncFetch::Fetch(const shape::Plan& plan, std::shared_ptr<BooksState> state,
                       std::chrono::milliseconds time_limit, std::size_t first_rows) {
  Pulse pulse(kBetweenSigns, [this] { TellThatItWaits(); });
  QueryReader reader(std::move(state), time_limit, stop_, &pulse);
  if (plan.IsQueryAlone()) {
    reader.Read(*plan.query, plan.columns, first_rows,
                [this](Chunk chunk) { HandOver(std::move(chunk)); });
    return;
  }
  const std::shared_ptr<RowStore> joined = shape::Join(plan, reader, first_rows);
  {
    const std::lock_guard lock(mutex_);
    for (int column = 0; column < static_cast<int>(plan.columns.size()); ++column) {
      if (joined->Chapters(column)) chapters_.emplace_back(column, joined->Chapters(column));
    }
  }
  for (Chunk& chunk : joined->TakeChunks()) HandOver(std::move(chunk));
}

void AsyncFetch::HandOver(Chunk chunk) {
  {
    const std::lock_guard lock(mutex_);
    stop_->Check();
    any_rows_ = true;
    on_their_way_.push_back(std::move(chunk));
  }
  changed_.notify_one();
  queue_->Post([self = shared_from_this()] { self->TellChunk(); });
}

void AsyncFetch::TellThatItWaits() {
  {
    const std::lock_guard lock(mutex_);
    if (any_rows_) return;
  }
  queue_->Post([self = shared_from_this()] {
    const RecordsetPtr rowset = self->LiveRowset();
    if (!rowset || self->handed_over_ > 0) return;
    if (const auto handler = RecordsetAccess::ImplOf(*rowset).fetch_waits) handler(*rowset);
  });
}

void AsyncFetch::Cancel() noexcept {
  live_ = false;
  stop_->Stop();
  std::list<Chunk> dropped;
  const std::lock_guard lock(mutex_);
  dropped.swap(on_their_way_);
}

RecordsetPtr AsyncFetch::LiveRowset() const { return live_ ? rowset_.lock() : nullptr; }

std::optional<Error> AsyncFetch::TakeAll() {
  const RecordsetPtr rowset = LiveRowset();
  if (!rowset) return std::nullopt;
  for (;;) {
    {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [this] { return ended_ || !on_their_way_.empty(); });
      if (on_their_way_.empty()) break;
    }
    TakeChunk(*rowset);
    if (lost_) break;
  }
  return Failure();
}

std::optional<Error> AsyncFetch::Failure() const {
  if (lost_) return OutOfMemory(kDoing);
  return ErrorOf(failure_);  // nobody writes it any more
}

void AsyncFetch::TakeChapters(Recordset& rowset) {
  JoinedChapters chapters;
  {
    const std::lock_guard lock(mutex_);
    chapters.swap(chapters_);
  }
  for (const auto& [column, rows] : chapters) {
    RecordsetAccess::Store(rowset)->SetChapters(column, rows);
  }
}

void AsyncFetch::TakeChunk(Recordset& rowset) {
  TakeChapters(rowset);
  std::optional<Chunk> chunk;
  {
    const std::lock_guard lock(mutex_);
    if (on_their_way_.empty()) return;
    chunk.emplace(std::move(on_their_way_.front()));
    on_their_way_.pop_front();
  }
  handed_over_ += static_cast<std::uint32_t>(chunk->RowCount());
  try {
    RecordsetAccess::Store(rowset)->Append(std::move(*chunk));
  } catch (const std::bad_alloc&) {
    lost_ = true;
    stop_->Stop();
  }
}

void AsyncFetch::TellChunk() {
  const RecordsetPtr rowset = LiveRowset();  // stays while its handler runs
  if (!rowset) return;
  TakeChunk(*rowset);  // unless the rowset has waited for it
  if (lost_) return;
  constexpr std::uint32_t kMost = std::numeric_limits<std::int32_t>::max();
  const auto rows = static_cast<std::int32_t>(std::min(handed_over_, kMost));
  if (const auto handler = rowset->FetchProgress) handler(rows, rows, adStatusOK, *rowset);
}

void AsyncFetch::Complete() {
  const RecordsetPtr rowset = LiveRowset();
  if (!rowset) return;
  TakeChapters(*rowset);
  RecordsetAccess::ImplOf(*rowset).fetch.reset();
  const std::optional<Error> error = Failure();
  if (const auto handler = rowset->FetchComplete) {
    handler(error ? &*error : nullptr, error ? adStatusErrorsOccurred : adStatusOK, *rowset);
  }
}

}  // namespace pstolvane1
