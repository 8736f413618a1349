// The engine for books on a PostgreSQL server, as a connection uses it.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Provider.h"
#include "session/engine/Watch.h"
#include "session/engine/postgres/Pool.h"
#include "session/engine/postgres/Snapshot.h"

namespace pstolvane1::postgres {

// Keeps a few sessions, so that a state of the books costs no connecting, and the catalog of the
// tables for as long as it stays the same. Snapshots may outlive it.
class PostgresProvider final : public Provider {
 public:
  // Error 501 when the server cannot be reached or does not serve: "The books \"NAME\" on
  // \"HOST\" cannot be opened: ...", with the server's own words.
  PostgresProvider(std::string_view connection_string, std::chrono::milliseconds time_limit,
                   Translator translate = sql::TranslateForPostgres);

  [[nodiscard]] std::shared_ptr<Snapshot> TakeSnapshot(
      std::chrono::milliseconds time_limit) override;
  [[nodiscard]] std::vector<ColumnInfo> Describe(std::string_view select) override;
  [[nodiscard]] std::string Translate(std::string_view select) override;
  [[nodiscard]] bool ReadsSideBySide() const noexcept override { return true; }
  void Cancel() noexcept override;

 private:
  [[nodiscard]] std::shared_ptr<HeldState> TakeState(std::chrono::milliseconds time_limit);
  [[nodiscard]] std::shared_ptr<const sql::Translation> TranslateNow(std::string_view select);

  const std::shared_ptr<Translations> translations_;
  const std::shared_ptr<CancelSignal> cancel_;
  const std::shared_ptr<Pool> pool_;
};

}  // namespace pstolvane1::postgres
