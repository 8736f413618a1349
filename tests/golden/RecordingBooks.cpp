#include "RecordingBooks.h"

#include "session/engine/Engines.h"

namespace pstolvane1::golden {
namespace {

class RecordingSnapshot final : public Snapshot {
 public:
  RecordingSnapshot(std::shared_ptr<RecordingBooks> books, std::shared_ptr<Snapshot> snapshot)
      : books_(std::move(books)), snapshot_(std::move(snapshot)) {}

  [[nodiscard]] std::shared_ptr<Cursor> Run(std::string_view select,
                                            std::chrono::milliseconds time_limit) override {
    books_->Ran(select);
    return snapshot_->Run(select, time_limit);
  }
  void Cancel() noexcept override { snapshot_->Cancel(); }

 private:
  std::shared_ptr<RecordingBooks> books_;
  std::shared_ptr<Snapshot> snapshot_;
};

class RecordingProvider final : public Provider {
 public:
  RecordingProvider(std::shared_ptr<RecordingBooks> books, std::shared_ptr<Provider> provider)
      : books_(std::move(books)), provider_(std::move(provider)) {}

  [[nodiscard]] std::shared_ptr<Snapshot> TakeSnapshot(
      std::chrono::milliseconds time_limit) override {
    return std::make_shared<RecordingSnapshot>(books_, provider_->TakeSnapshot(time_limit));
  }
  [[nodiscard]] std::vector<ColumnInfo> Describe(std::string_view select) override {
    return provider_->Describe(select);
  }
  [[nodiscard]] std::string Translate(std::string_view select) override {
    return provider_->Translate(select);
  }
  void Cancel() noexcept override { provider_->Cancel(); }

 private:
  std::shared_ptr<RecordingBooks> books_;
  std::shared_ptr<Provider> provider_;
};

}  // namespace

ConnectionMaker RecordingBooks::Maker() {
  return [books = shared_from_this()] {
    return Connection::New(
        [books](const std::string& connection_string, std::chrono::milliseconds time_limit) {
          return std::make_shared<RecordingProvider>(books,
                                                     OpenDatabase(connection_string, time_limit));
        });
  };
}

std::vector<std::string> RecordingBooks::Selects() const {
  const std::lock_guard lock(mutex_);
  return selects_;
}

void RecordingBooks::Ran(std::string_view select) {
  const std::lock_guard lock(mutex_);
  selects_.emplace_back(select);
}

}  // namespace pstolvane1::golden
