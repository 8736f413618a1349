// Neither emitter knows a report or the books: under other names of all tables and columns each
// query text of the reports is written the same, but for the names.
#include <cctype>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "session/sql/Names.h"
#include "session/sql/Translate.h"
#include "tests/sql/ReportQueryFiles.h"
#include "tests/sql/SqliteBooks.h"

namespace pstolvane1::sql {
namespace {

constexpr std::string_view kOther = "other_";

std::string Other(std::string_view name) { return std::string(kOther).append(name); }

// The reference schema, whose rows are ordered by their keys.
std::vector<CatalogTable> Tables() {
  std::vector<CatalogTable> tables = ReferenceCatalog().Tables();
  for (CatalogTable& table : tables) table.row_order = {table.columns.at(0).name};
  return tables;
}

std::vector<CatalogTable> OtherTables() {
  std::vector<CatalogTable> tables = Tables();
  for (CatalogTable& table : tables) {
    table.name = Other(table.name);
    for (CatalogColumn& column : table.columns) column.name = Other(column.name);
    for (std::string& name : table.row_order) name = Other(name);
  }
  return tables;
}

class Names {
 public:
  Names() {
    for (const CatalogTable& table : Tables()) {
      known_.insert(FoldedName(table.name));
      for (const CatalogColumn& column : table.columns) known_.insert(FoldedName(column.name));
    }
  }

  // The text with the other names; where the names are quoted, no word outside of quotes is one.
  [[nodiscard]] std::string Replaced(std::string_view text, bool quoted) const {
    std::string replaced;
    char within = 0;
    for (std::size_t i = 0; i < text.size();) {
      if (within != '\'' && IsLetter(text[i])) {
        std::size_t end = i;
        while (end < text.size() && IsLetter(text[end])) ++end;
        const std::string word(text.substr(i, end - i));
        const bool is_name = quoted == (within == '"') && known_.contains(FoldedName(word));
        replaced += is_name ? Other(word) : word;
        i = end;
        continue;
      }
      if (within == 0 && (text[i] == '\'' || text[i] == '"')) {
        within = text[i];
      } else if (text[i] == within) {
        within = 0;
      }
      replaced += text[i++];
    }
    return replaced;
  }

 private:
  static bool IsLetter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
  }

  std::set<std::string> known_;
};

using Translator = Translation (*)(std::string_view, const Catalog&);

class OtherNames : public testing::TestWithParam<Translator> {};

TEST_P(OtherNames, ChangeNothingElseInTheTextsOfTheReports) {
  const Names names;
  const Catalog catalog(Tables());
  const Catalog other(OtherTables());
  std::size_t selects = 0;
  for (const std::filesystem::path& file : QueryFiles(false)) {
    SCOPED_TRACE(file);
    for (std::string select : SelectsOf(file)) {
      while (select.starts_with("--")) select.erase(0, select.find('\n') + 1);
      ++selects;
      const std::string written = GetParam()(select, catalog).text;
      EXPECT_EQ(GetParam()(names.Replaced(select, false), other).text,
                names.Replaced(written, true));
    }
  }
  EXPECT_GT(selects, 250U);
}

INSTANTIATE_TEST_SUITE_P(Emitters, OtherNames,
                         testing::Values(&TranslateForSqlite, &TranslateForPostgres),
                         [](const auto& emitter) {
                           return std::string(emitter.index == 0 ? "Sqlite" : "Postgres");
                         });

TEST(OtherNamesOfATest, StandForNamesAlone) {
  const Names names;
  EXPECT_EQ(
      names.Replaced("select qty from GodownItem1 g where prefix = 'qty' and x.Date > 1", false),
      "select other_qty from other_GodownItem1 g where other_prefix = 'qty' and "
      "x.other_Date > 1");
  EXPECT_EQ(names.Replaced("SELECT \"g\".\"Qty\"::date, DATE 'rate' AS \"Date\"", true),
            "SELECT \"g\".\"other_Qty\"::date, DATE 'rate' AS \"other_Date\"");
}

}  // namespace
}  // namespace pstolvane1::sql
