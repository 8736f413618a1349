#include "session/engine/postgres/PostgresProvider.h"

#include <utility>

#include "session/data/OutOfMemory.h"
#include "session/engine/postgres/Cells.h"

namespace pstolvane1::postgres {

PostgresProvider::PostgresProvider(std::string_view connection_string,
                                   std::chrono::milliseconds time_limit, Translator translate)
    : translations_(std::make_shared<Translations>(std::move(translate))),
      cancel_(std::make_shared<CancelSignal>()),
      pool_(std::make_shared<Pool>(Settings(connection_string))) {
  try {
    static_cast<void>(TakeState(time_limit));
  } catch (const Error& error) {
    if (error.Number() == ErrorNumber::kOutOfMemory) throw;
    throw Error(ErrorNumber::kConnection, error.Description());
  }
}

std::shared_ptr<HeldState> PostgresProvider::TakeState(std::chrono::milliseconds time_limit) {
  Watch watch(time_limit, {cancel_.get()});
  return std::make_shared<HeldState>(pool_, cancel_, watch);
}

std::shared_ptr<Snapshot> PostgresProvider::TakeSnapshot(std::chrono::milliseconds time_limit) {
  try {
    return std::make_shared<PostgresSnapshot>(TakeState(time_limit), translations_);
  } catch (const Error& error) {
    if (error.Number() != ErrorNumber::kConnection) throw;
    throw Error(ErrorNumber::kQueryRefused, error.Description());
  }
}

// A name that is not known may be of a table that was made since the tables were read.
std::shared_ptr<const sql::Translation> PostgresProvider::TranslateNow(std::string_view select) {
  const std::shared_ptr<const sql::Catalog> known = pool_->LastCatalog();
  try {
    return translations_->Of(select, known);
  } catch (const Error&) {
    constexpr std::chrono::milliseconds kHardlyAnything{1000};
    std::shared_ptr<const sql::Catalog> now;
    try {
      now = TakeState(kHardlyAnything)->catalog;
    } catch (const Error&) {
      now = known;
    }
    if (now == known) throw;
    return translations_->Of(select, now);
  }
}

std::vector<ColumnInfo> PostgresProvider::Describe(std::string_view select) {
  return ColumnsOf(TranslateNow(select)->columns);
}

std::string PostgresProvider::Translate(std::string_view select) {
  return TranslateNow(select)->text;
}

void PostgresProvider::Cancel() noexcept { cancel_->Raise(); }

}  // namespace pstolvane1::postgres
