// The engine for SQLite's books, as a connection uses it.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "session/data/Provider.h"
#include "session/engine/Watch.h"
#include "session/engine/sqlite/Database.h"
#include "session/engine/sqlite/Snapshot.h"

namespace pstolvane1::sqlite {

// Keeps a few connections to one file, so that a state of the books costs no opening, and the
// catalog of its tables for as long as the schema stays the same. Snapshots may outlive it.
class SqliteProvider final : public Provider {
 public:
  // Error 501 when the file cannot be opened as a database: "The books \"FILE\" cannot be opened:
  // ...". Never makes a file.
  SqliteProvider(const std::string& path, std::chrono::milliseconds time_limit,
                 Translator translate = sql::TranslateForSqlite);

  [[nodiscard]] std::shared_ptr<Snapshot> TakeSnapshot(
      std::chrono::milliseconds time_limit) override;
  [[nodiscard]] std::vector<ColumnInfo> Describe(std::string_view select) override;
  [[nodiscard]] std::string Translate(std::string_view select) override;
  [[nodiscard]] bool ReadsSideBySide() const noexcept override { return true; }
  void Cancel() noexcept override;

 private:
  class Pool;

  // A further connection that has looked at the data, or null.
  [[nodiscard]] std::unique_ptr<Database> Looking();

  [[nodiscard]] std::shared_ptr<const sql::Translation> TranslateNow(std::string_view select);

  const std::string path_;  // absolute, so that it stays the same file when the process moves on
  const std::shared_ptr<Translations> translations_;
  const std::shared_ptr<CancelSignal> cancel_;
  const std::shared_ptr<Pool> pool_;
};

}  // namespace pstolvane1::sqlite
