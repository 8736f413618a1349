// Sessions that wait for their next use, and what was learnt of the tables.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "session/engine/postgres/ColumnCheck.h"
#include "session/engine/postgres/Database.h"
#include "session/sql/Catalog.h"

namespace pstolvane1::postgres {

// Shared by the provider and by the states that are held, because those bring their sessions back
// when they end, whether or not the provider is still there. Any thread.
class Pool {
 public:
  explicit Pool(Settings settings) : settings_(std::move(settings)) {}

  // A session that nobody uses, or a new one. Error 501, told with the name of the books, when the
  // server cannot be reached.
  [[nodiscard]] std::unique_ptr<Database> Take(Watch& watch);
  void Give(std::unique_ptr<Database> database) noexcept;

  [[nodiscard]] std::shared_ptr<const sql::Catalog> Catalog(const std::string& version) const;
  [[nodiscard]] std::shared_ptr<const sql::Catalog> LastCatalog() const;
  void Keep(std::shared_ptr<const sql::Catalog> catalog, const std::string& version);

  // Of the last state in which columns were looked through.
  [[nodiscard]] SoundColumns& Sound() { return sound_; }

 private:
  const Settings settings_;
  mutable std::mutex mutex_;
  std::vector<std::unique_ptr<Database>> idle_;
  std::shared_ptr<const sql::Catalog> catalog_;
  std::string version_;
  SoundColumns sound_;
};

}  // namespace pstolvane1::postgres
