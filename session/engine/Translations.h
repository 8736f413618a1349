// What the front end makes of a SELECT, made once for its columns and its rows.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "session/sql/Catalog.h"
#include "session/sql/Translate.h"

namespace pstolvane1 {

// Turns a SELECT of the dialect into an engine's text.
using Translator = std::function<sql::Translation(std::string_view, const sql::Catalog&)>;

// Remembers the last translations of one database, those of a report with all its queries. Shared
// by the database and its states; any thread.
class Translations {
 public:
  // Beyond that many the oldest is forgotten.
  static constexpr std::size_t kKept = 16;

  explicit Translations(Translator translate) : translate_(std::move(translate)) {}

  // Another catalog object is another catalog, whatever is in it. Error as the translator's, and
  // what fails is not remembered.
  [[nodiscard]] std::shared_ptr<const sql::Translation> Of(
      std::string_view select, const std::shared_ptr<const sql::Catalog>& catalog);

  // The translator alone, for what is not a report's text.
  [[nodiscard]] const Translator& Translate() const { return translate_; }

 private:
  struct Known {
    std::string select;
    std::shared_ptr<const sql::Catalog> catalog;
    std::shared_ptr<const sql::Translation> translation;
  };

  const Translator translate_;
  std::mutex mutex_;
  std::deque<Known> known_;  // oldest first
};

}  // namespace pstolvane1
