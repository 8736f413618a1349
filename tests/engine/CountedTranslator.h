// A translator that notes what it is asked for.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "session/data/Connection.h"
#include "session/data/Recordset.h"
#include "session/engine/Translations.h"

namespace pstolvane1 {

// Texts come without the blanks in front that keep their place in a longer one. What it hands out
// must not outlive it.
class CountedTranslator {
 public:
  explicit CountedTranslator(Translator translate) : translate_(std::move(translate)) {}

  [[nodiscard]] Translator Translate() {
    return [this](std::string_view select, const sql::Catalog& catalog) {
      {
        const std::lock_guard lock(mutex_);
        texts_.emplace_back(select.substr(select.find_first_not_of(' ')));
      }
      return translate_(select, catalog);
    };
  }
  [[nodiscard]] std::vector<std::string> Texts() const { return texts_; }
  void Clear() { texts_.clear(); }

 private:
  const Translator translate_;
  std::mutex mutex_;
  std::vector<std::string> texts_;
};

inline constexpr const char* kTwoQueries[] = {"SELECT id FROM t", "SELECT id * 2 AS twice FROM t"};

// Opens a rowset of each of the two queries and one of a shape command of both, all of the table
// t(id), and gives what was translated for it: the command's own are other texts.
inline std::vector<std::string> TextsTranslatedFor(CountedTranslator& counted,
                                                   const std::shared_ptr<Connection>& connection) {
  counted.Clear();
  const std::string shape = std::string("SHAPE {") + kTwoQueries[0] + "} APPEND ({" +
                            kTwoQueries[1] + "} RELATE id TO twice) AS more";
  for (const std::string& source :
       {std::string(kTwoQueries[0]), std::string(kTwoQueries[1]), shape}) {
    Recordset::New()->Open(source, connection);
  }
  return counted.Texts();
}

}  // namespace pstolvane1
