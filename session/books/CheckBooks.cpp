#include "session/books/CheckBooks.h"

#include <algorithm>
#include <iterator>

#include "session/books/Checks.h"
#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "session/engine/ConnectionString.h"

namespace pstolvane1::books {
std::string_view NameOf(Severity severity) {
  constexpr std::string_view kNames[] = {"error", "warning", "hint"};
  return kNames[static_cast<std::size_t>(severity)];
}

std::string Counted(long long count, std::string_view one, std::string_view many) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

std::string InSmallLetters(std::string_view text) {
  std::string small(text);
  std::ranges::transform(small, small.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return small;
}

namespace {

// True when the file is damaged.
bool CheckFile(Reader& books, Findings& findings) {
  const std::vector<std::string> damage = books.Damage();
  for (const std::string& words : damage) {
    findings.push_back({Severity::kError,
                        "The file is damaged (" + words + "): restore the books from a backup.",
                        ""});
  }
  return !damage.empty();
}

// What is looked at, in this order, for whoever waits.
struct Stage {
  std::string_view name;
  void (*check)(Reader& books, bool complete, Findings& findings);
};
constexpr Stage kStages[] = {
    {"references", &CheckReferences},
    {"values",
     [](Reader& books, bool complete, Findings& findings) {
       if (books.KeepsAnyValue()) CheckValues(books, complete, findings);
     }},
    {"rules", &CheckRules},
    {"years", &CheckYears},
    {"trees", &CheckTrees},
    {"indexes",
     [](Reader& books, bool /*complete*/, Findings& findings) { CheckIndexes(books, findings); }},
};

void CheckContent(Reader& books, const CheckProgress& progress, Findings& findings) {
  const bool complete = CheckTables(books, findings);
  constexpr auto kSteps = static_cast<double>(std::size(kStages)) + 1;
  double done = 1;
  for (const Stage& stage : kStages) {
    if (progress) progress(stage.name, done++ / kSteps);
    stage.check(books, complete, findings);
  }
}

std::unique_ptr<Reader> ReaderOf(const std::string& connection) {
  const ConnectionTarget target = TargetOf(connection);
  return target.engine == EngineKind::kPostgresql ? ReadServer(connection)
                                                  : ReadFile(FileOf(target));
}

}  // namespace

std::vector<Finding> CheckBooks(const std::string& connection, const CheckProgress& progress) {
  const std::unique_ptr<Reader> reader = ReaderOf(connection);
  Reader& books = *reader;
  if (std::ranges::none_of(Tables(), [&](const Table& table) {
        return books.Understands("SELECT 1 FROM " + std::string(table.name));
      })) {
    throw Error(ErrorNumber::kConnection,
                books.Name() + " holds no books: it has none of their tables");
  }
  Findings findings;
  if (progress) progress("the file", 0);
  const bool damaged = CheckFile(books, findings);
  try {
    CheckContent(books, progress, findings);
  } catch (const Error&) {
    if (!damaged) throw;  // else what cannot be read has been told
  }
  std::ranges::stable_sort(findings, {}, &Finding::severity);
  return findings;
}

std::vector<Finding> CheckUnread(const std::string& connection) {
  Findings findings;
  CheckUnread(*ReaderOf(connection), findings);
  return findings;
}

}  // namespace pstolvane1::books
