// One SELECT is read and written out once, for its columns and its rows together.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/data/Connection.h"
#include "session/data/Error.h"
#include "session/data/Recordset.h"
#include "session/engine/Translations.h"
#include "tests/engine/CountedTranslator.h"
#include "tests/engine/TestBooks.h"

namespace pstolvane1 {
namespace {

using testing::ElementsAre;

std::shared_ptr<const sql::Catalog> SomeCatalog() {
  return std::make_shared<sql::Catalog>(std::vector<sql::CatalogTable>{});
}

TEST(Translations, ATextIsTranslatedOnceForACatalog) {
  CountedTranslator counted(PlainText);
  Translations translations(counted.Translate());
  const auto catalog = SomeCatalog();
  const auto first = translations.Of("whole A: SELECT 1", catalog);
  EXPECT_EQ(translations.Of("whole A: SELECT 1", catalog), first);
  EXPECT_EQ(translations.Of("whole A: SELECT 2", catalog)->text, "SELECT 2");
  EXPECT_THAT(counted.Texts(), ElementsAre("whole A: SELECT 1", "whole A: SELECT 2"));
  EXPECT_NE(translations.Of("whole A: SELECT 1", SomeCatalog()), first) << "another catalog";
}

TEST(Translations, WhatFailsIsAskedForAgain) {
  int calls = 0;
  Translations translations([&](std::string_view, const sql::Catalog&) -> sql::Translation {
    ++calls;
    throw Error(ErrorNumber::kQueryRefused, "refused");
  });
  const auto catalog = SomeCatalog();
  for (int i = 0; i < 2; ++i) EXPECT_THROW((void)translations.Of("x", catalog), Error);
  EXPECT_EQ(calls, 2);
}

TEST(Translations, TheOldestIsForgotten) {
  CountedTranslator counted(PlainText);
  Translations translations(counted.Translate());
  const auto catalog = SomeCatalog();
  const auto text = [](std::size_t i) { return "whole A: SELECT " + std::to_string(i); };
  for (std::size_t i = 0; i <= Translations::kKept; ++i) (void)translations.Of(text(i), catalog);
  (void)translations.Of(text(1), catalog);
  EXPECT_EQ(counted.Texts().size(), Translations::kKept + 1);
  (void)translations.Of(text(0), catalog);
  EXPECT_EQ(counted.Texts().size(), Translations::kKept + 2);
}

TEST(Translations, ARowsetOfAFileHasItsTextTranslatedOnce) {
  sqlite::TestBooks books("CREATE TABLE t(id INTEGER); INSERT INTO t VALUES (1), (2)");
  CountedTranslator counted(sql::TranslateForSqlite);
  const auto connection = Connection::New([&](const std::string&, milliseconds limit) {
    return std::make_shared<sqlite::SqliteProvider>(books.Path(), limit, counted.Translate());
  });
  connection->Open(books.Path());
  EXPECT_THAT(TextsTranslatedFor(counted, connection),
              ElementsAre(kTwoQueries[0], kTwoQueries[1], kTwoQueries[0], kTwoQueries[1]));
  books.Write("ALTER TABLE t ADD COLUMN more INTEGER");
  EXPECT_THAT(TextsTranslatedFor(counted, connection),
              ElementsAre(kTwoQueries[0], kTwoQueries[1], kTwoQueries[0], kTwoQueries[1]))
      << "of the schema that the books have now";
}

}  // namespace
}  // namespace pstolvane1
