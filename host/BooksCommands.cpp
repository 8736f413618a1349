#include "host/BooksCommands.h"

#include <algorithm>
#include <fmt/format.h>
#include <string_view>
#include <vector>

#include "host/ProgressBar.h"
#include "host/Terminal.h"
#include "session/books/BooksFile.h"
#include "session/books/CheckBooks.h"
#include "session/books/CopyBooks.h"
#include "session/books/ImportBooks.h"
#include "session/books/SampleBooks.h"
#include "session/engine/ConnectionString.h"
#include "session/engine/Engines.h"

namespace pstolvane1::host {
namespace {

// A file's path as it was typed, a server's books without a password.
std::string Named(const std::string& connection) {
  const bool file = ReadConnectionString(connection).engine == EngineKind::kSqlite;
  return file ? connection : NameOfDatabase(connection);
}

std::string RowsOf(const std::vector<books::ImportedTable>& tables) {
  std::string text;
  for (const books::ImportedTable& table : tables) {
    text += fmt::format("{:<24}{:>10} rows\n", table.table, table.rows);
  }
  return text;
}

}  // namespace

void CreateBooksFile(const std::string& path) {
  books::CreateBooks(path);
  Show(fmt::format("Empty books: {}\n", Named(path)));
}

void SampleBooksFile(const std::string& path, std::int64_t movements, std::uint64_t seed) {
  {
    ProgressBar bar;
    books::SampleBooks(path, movements, seed,
                       [&bar](std::string_view stage, std::int64_t done, std::int64_t total) {
                         bar.Show(static_cast<double>(done) / static_cast<double>(total), stage);
                       });
  }
  Show(fmt::format("Sample books with {} movements: {}\n", movements, Named(path)));
}

void ImportBooksFile(const std::string& path, const std::string& folder) {
  Show(RowsOf(books::ImportBooks(path, folder)));
}

void CopyBooksTo(const std::string& from, const std::string& to) {
  Show(RowsOf(books::CopyBooks(from, to)));
}

bool CheckBooksAt(const std::string& connection_string) {
  const std::vector<books::Finding> findings = books::CheckBooks(connection_string);
  std::string text;
  for (const books::Finding& finding : findings) {
    text += fmt::format("{}: {}\n", books::NameOf(finding.severity), finding.sentence);
    if (!finding.remedy.empty()) text += fmt::format("    {}\n", finding.remedy);
  }
  Show(findings.empty() ? "Nothing is missing or odd.\n" : text);
  return std::none_of(findings.begin(), findings.end(), [](const books::Finding& finding) {
    return finding.severity == books::Severity::kError;
  });
}

}  // namespace pstolvane1::host
