#include "FakeBooks.h"

#include "session/data/Pulse.h"

namespace pstolvane1 {
namespace {

void Write(Chunk& chunk, std::size_t column, std::size_t row, DataType type, const Variant& value) {
  if (value.IsNull() || value.IsEmpty()) return;
  switch (type) {
    case adInteger:
      return chunk.Set(column, row, value.ToInt32());
    case adBigInt:
      return chunk.Set(column, row, value.ToInt64());
    case adSingle:
      return chunk.Set(column, row, value.ToSingle());
    case adDouble:
      return chunk.Set(column, row, value.ToDouble());
    case adCurrency:
      return chunk.Set(column, row, value.ToCurrency().TenThousandths());
    case adDate:
      return chunk.Set(column, row, value.ToDate().Serial());
    case adBoolean:
      return chunk.Set(column, row, value.ToBoolean().Raw());
    default:
      return chunk.SetText(column, row, value.ToText());
  }
}

class FakeCursor final : public Cursor {
 public:
  FakeCursor(std::shared_ptr<FakeBooks> books, FakeTable table)
      : books_(std::move(books)), table_(std::move(table)) {}

  [[nodiscard]] const std::vector<ColumnInfo>& Columns() const override { return table_.columns; }

  std::size_t Read(Chunk& chunk) override {
    if (table_.held) books_->WaitForRelease(cancelled_);
    if (cancelled_) throw Error(ErrorNumber::kQueryRefused, "the statement was cancelled");
    std::size_t added = 0;
    for (; !chunk.Full() && next_ < table_.rows.size(); ++next_, ++added) {
      const std::size_t row = chunk.AddRow();
      for (std::size_t column = 0; column < table_.columns.size(); ++column) {
        Write(chunk, column, row, table_.columns[column].type, table_.rows[next_][column]);
      }
    }
    if (next_ == table_.rows.size() && table_.failure) throw *table_.failure;
    return added;
  }

  void Cancel() noexcept override {
    cancelled_ = true;
    books_->WakeAll();
  }

 private:
  std::shared_ptr<FakeBooks> books_;
  FakeTable table_;
  std::size_t next_ = 0;
  std::atomic<bool> cancelled_ = false;
};

class FakeSnapshot final : public Snapshot {
 public:
  explicit FakeSnapshot(std::shared_ptr<FakeBooks> books) : books_(std::move(books)) {}

  [[nodiscard]] std::shared_ptr<Cursor> Run(std::string_view select,
                                            std::chrono::milliseconds) override {
    FakeTable table = books_->Find(select);
    books_->Ran(select);
    auto cursor = std::make_shared<FakeCursor>(books_, std::move(table));
    const std::lock_guard lock(mutex_);
    running_.push_back(cursor);
    return cursor;
  }
  void Cancel() noexcept override {
    const std::lock_guard lock(mutex_);
    for (const auto& running : running_) {
      if (const auto cursor = running.lock()) cursor->Cancel();
    }
  }

 private:
  std::shared_ptr<FakeBooks> books_;
  std::mutex mutex_;
  std::vector<std::weak_ptr<Cursor>> running_;
};

class FakeProvider final : public Provider {
 public:
  explicit FakeProvider(std::shared_ptr<FakeBooks> books) : books_(std::move(books)) {}

  [[nodiscard]] std::shared_ptr<Snapshot> TakeSnapshot(std::chrono::milliseconds) override {
    books_->TookSnapshot();
    auto snapshot = std::make_shared<FakeSnapshot>(books_);
    const std::lock_guard lock(mutex_);
    snapshots_.push_back(snapshot);
    return snapshot;
  }
  [[nodiscard]] std::vector<ColumnInfo> Describe(std::string_view select) override {
    return books_->Find(select).columns;
  }
  [[nodiscard]] std::string Translate(std::string_view select) override {
    return std::string(select);
  }
  void Cancel() noexcept override {
    const std::lock_guard lock(mutex_);
    for (const auto& taken : snapshots_) {
      if (const auto snapshot = taken.lock()) snapshot->Cancel();
    }
  }

 private:
  std::shared_ptr<FakeBooks> books_;
  std::mutex mutex_;
  std::vector<std::weak_ptr<Snapshot>> snapshots_;
};

}  // namespace

void FakeBooks::Answer(const std::string& part, FakeTable table) {
  const std::lock_guard lock(mutex_);
  tables_[part] = std::move(table);
}

void FakeBooks::Release() {
  {
    const std::lock_guard lock(mutex_);
    released_ = true;
  }
  released_changed_.notify_all();
}

void FakeBooks::OpenFails(std::string description) {
  const std::lock_guard lock(mutex_);
  open_failure_ = std::move(description);
}

void FakeBooks::OpenHolds() {
  const std::lock_guard lock(mutex_);
  open_holds_ = true;
}

std::vector<std::string> FakeBooks::Queries() const {
  const std::lock_guard lock(mutex_);
  return queries_;
}

std::vector<std::string> FakeBooks::ConnectionStrings() const {
  const std::lock_guard lock(mutex_);
  return connection_strings_;
}

int FakeBooks::Snapshots() const {
  const std::lock_guard lock(mutex_);
  return snapshots_;
}

ConnectionMaker FakeBooks::Maker() {
  return [books = shared_from_this()] {
    return Connection::New(
        [books](const std::string& connection_string, std::chrono::milliseconds) {
          return books->Open(connection_string);
        });
  };
}

std::shared_ptr<Provider> FakeBooks::Open(const std::string& connection_string) {
  std::unique_lock lock(mutex_);
  connection_strings_.push_back(connection_string);
  if (open_holds_) released_changed_.wait(lock, [this] { return released_; });
  if (!open_failure_.empty()) throw Error(ErrorNumber::kConnection, open_failure_);
  return std::make_shared<FakeProvider>(shared_from_this());
}

FakeTable FakeBooks::Find(std::string_view select) const {
  const std::lock_guard lock(mutex_);
  const FakeTable* found = nullptr;
  std::size_t length = 0;
  for (const auto& [part, table] : tables_) {
    if (part.size() >= length && select.find(part) != std::string_view::npos) {
      found = &table;
      length = part.size();
    }
  }
  if (found == nullptr) {
    throw Error(ErrorNumber::kQueryRefused, "no table answers: " + std::string(select));
  }
  if (found->refusal) throw *found->refusal;
  return *found;
}

void FakeBooks::Ran(std::string_view select) {
  const std::lock_guard lock(mutex_);
  queries_.emplace_back(select);
}

// The wait is polled, as a cancel does not take the lock.
void FakeBooks::WaitForRelease(const std::atomic<bool>& cancelled) const {
  std::unique_lock lock(mutex_);
  while (!released_ && !cancelled) {
    Pulse::Feel();
    released_changed_.wait_for(lock, std::chrono::milliseconds(2));
  }
}

void FakeBooks::TookSnapshot() {
  const std::lock_guard lock(mutex_);
  ++snapshots_;
}

FakeTable LedgerAmounts(std::vector<std::vector<Variant>> rows) {
  return {.columns = {{.name = "amount", .type = adCurrency},
                      {.name = "ledger_id", .type = adInteger},
                      {.name = "ledgername", .type = adVarChar, .defined_size = 50}},
          .rows = std::move(rows)};
}

}  // namespace pstolvane1
