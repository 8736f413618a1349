#include "session/books/CheckBooks.h"

#include <algorithm>

#include "session/books/Checks.h"
#include "session/books/Schema.h"
#include "session/data/Error.h"

namespace pstolvane1::books {
namespace {

std::string PathOf(const std::string& connection) {
  constexpr std::string_view kScheme = "sqlite:///";
  if (connection.starts_with(kScheme)) return connection.substr(kScheme.size());
  if (const auto scheme = connection.find("://"); scheme != std::string::npos) {
    throw Error(ErrorNumber::kConnection, "only books on SQLite can be checked, not on \"" +
                                              connection.substr(0, scheme) + "\"");
  }
  return connection;
}

}  // namespace

std::string_view NameOf(Severity severity) {
  constexpr std::string_view kNames[] = {"error", "warning", "hint"};
  return kNames[static_cast<std::size_t>(severity)];
}

std::string Counted(long long count, std::string_view one, std::string_view many) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

std::vector<Finding> CheckBooks(const std::string& connection) {
  const std::string path = PathOf(connection);
  Reader books(path);
  if (std::ranges::none_of(Tables(), [&](const Table& table) {
        return books.Understands("SELECT 1 FROM " + std::string(table.name));
      })) {
    throw Error(ErrorNumber::kConnection,
                "\"" + path + "\" holds no books: it has none of their tables");
  }
  Findings findings;
  const bool complete = CheckTables(books, findings);
  CheckReferences(books, complete, findings);
  CheckValues(books, complete, findings);
  CheckRules(books, complete, findings);
  CheckYears(books, complete, findings);
  CheckTrees(books, complete, findings);
  CheckIndexes(books, findings);
  std::ranges::stable_sort(findings, {}, &Finding::severity);
  return findings;
}

}  // namespace pstolvane1::books
