#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "session/engine/Engines.h"
#include "tests/engine/TestBooks.h"

namespace pstolvane1::sqlite {
namespace {

using testing::AllOf;
using testing::AnyOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kItems =
    "CREATE TABLE Items1 (Item_id INTEGER PRIMARY KEY, ItemName VARCHAR(40));"
    "INSERT INTO Items1 VALUES (1, 'Bolt'), (2, 'Nut');";
constexpr const char* kCount = "whole N: SELECT count(*) FROM Items1";

std::string OpeningError(const std::string& path, milliseconds limit = milliseconds(200)) {
  return ErrorOf([&] { OpenPlain(path, limit); });
}

std::string CannotOpen(const std::string& path, const std::string& why) {
  return "501 The books \"" + path + "\" cannot be opened: " + why + ".";
}

TEST(Opening, AMissingFileIsRefusedAndNotMade) {
  const TestFolder folder;
  const std::string path = folder.File("books.db");
  EXPECT_EQ(OpeningError(path), CannotOpen(path, "there is no such file"));
  EXPECT_FALSE(std::filesystem::exists(path));
  const std::string below = folder.File("none/books.db");
  EXPECT_EQ(OpeningError(below), CannotOpen(below, "there is no such file"));
}

TEST(Opening, WhatIsNoRegularFileIsRefused) {
  const TestFolder folder;
  EXPECT_EQ(OpeningError(folder.Path()), CannotOpen(folder.Path(), "it is a folder"));
  const std::string pipe = folder.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(OpeningError(pipe), CannotOpen(pipe, "it is no regular file"));
  const std::string dangling = folder.File("link");
  std::filesystem::create_symlink(folder.File("nowhere"), dangling);
  EXPECT_EQ(OpeningError(dangling), CannotOpen(dangling, "there is no such file"));
}

TEST(Opening, ALinkToBooksIsFollowed) {
  const TestBooks books(kItems);
  const std::string link = books.Folder().File("link.db");
  std::filesystem::create_symlink(books.Path(), link);
  EXPECT_THAT(Lines(*OpenPlain(link), kCount), ElementsAre("2"));
}

TEST(Opening, AFileThatMayNotBeReadIsRefused) {
  const TestBooks books(kItems);
  std::filesystem::permissions(books.Folder().Path(), std::filesystem::perms::all);
  std::filesystem::permissions(books.Path(), std::filesystem::perms::none);
  EXPECT_EQ(AsNobody([&] { return OpeningError(books.Path()); }),
            CannotOpen(books.Path(), "the file cannot be opened (Permission denied)"));
  std::filesystem::permissions(books.Folder().Path(), std::filesystem::perms::none);
  EXPECT_EQ(AsNobody([&] { return OpeningError(books.Path()); }),
            CannotOpen(books.Path(), "its name cannot be looked up (Permission denied)"));
}

TEST(Opening, AFileOfAnotherKindIsRefused) {
  const TestFolder folder;
  const std::string path = folder.File("books.db");
  constexpr const char* kNoDatabase = "the file is not an SQLite database, or it is encrypted";
  WriteBytes(path, "");
  EXPECT_EQ(OpeningError(path), CannotOpen(path, "the file is empty"));
  WriteBytes(path, "xy");
  EXPECT_EQ(OpeningError(path), CannotOpen(path, kNoDatabase));
  WriteBytes(path, std::string(10000, 'x'));
  EXPECT_EQ(OpeningError(path), CannotOpen(path, kNoDatabase));
  WriteBytes(path, std::string(4096, '\0'));
  EXPECT_EQ(OpeningError(path), CannotOpen(path, kNoDatabase));
  WriteBytes(path, "SQLite format 3");
  EXPECT_EQ(OpeningError(path), CannotOpen(path, kNoDatabase));
}

TEST(Opening, ADatabaseWithoutTablesIsRefused) {
  const TestBooks books("CREATE TABLE x (a INT); DROP TABLE x;");
  EXPECT_EQ(OpeningError(books.Path()),
            CannotOpen(books.Path(), "it holds no tables, so it is no books"));
}

TEST(Opening, AFormatOfTheFutureIsRefused) {
  const TestBooks books(kItems);
  std::string bytes = books.Bytes();
  bytes[19] = 3;
  WriteBytes(books.Path(), bytes);
  EXPECT_EQ(OpeningError(books.Path()),
            CannotOpen(books.Path(), std::string("its file format is newer than SQLite ") +
                                         sqlite3_libversion() + " reads"));
}

TEST(Opening, ATruncatedFileIsRefused) {
  const TestBooks books(std::string(kItems) +
                        "CREATE TABLE big (a TEXT); INSERT INTO big SELECT hex(zeroblob(500)) FROM "
                        "(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                        "100) SELECT i FROM n);");
  const std::string bytes = books.Bytes();
  for (const std::size_t size : {bytes.size() / 2, bytes.size() - 1, std::size_t{4096}}) {
    WriteBytes(books.Path(), bytes.substr(0, size));
    EXPECT_THAT(OpeningError(books.Path()),
                AllOf(StartsWith("501 The books \"" + books.Path() +
                                 "\" cannot be opened: the "
                                 "books are damaged; restore them from a backup ("),
                      AnyOf(HasSubstr("malformed"), HasSubstr("ends in the middle of a page"))))
        << size;
  }
  for (const std::size_t size : {std::size_t{20}, std::size_t{100}, std::size_t{511}}) {
    WriteBytes(books.Path(), bytes.substr(0, size));
    EXPECT_THAT(OpeningError(books.Path()), StartsWith("501 The books ")) << size;
  }
}

// Whatever is broken: an error of this library or right figures, never a crash.
TEST(Opening, DamageAnywhereIsAnErrorOrDoesNotTouchTheFigures) {
  const TestBooks books(
      "PRAGMA page_size = 512;"
      "CREATE TABLE t (id INTEGER PRIMARY KEY, name VARCHAR(40), qty REAL);"
      "CREATE INDEX by_name ON t (name);"
      "INSERT INTO t SELECT i, 'name ' || i, i * 0.5 FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION "
      "ALL SELECT i + 1 FROM n WHERE i < 200) SELECT i FROM n);");
  const std::string good = books.Bytes();
  const char* query = "whole I, text N, real Q: SELECT id, name, qty FROM t ORDER BY name";
  const std::vector<std::string> right = Lines(*OpenPlain(books.Path()), query);
  ASSERT_EQ(right.size(), 200U);
  int errors = 0;
  for (std::size_t at = 0; at < good.size(); at += 37) {
    std::string bad = good;
    for (std::size_t i = at; i < std::min(at + 24, bad.size()); ++i) bad[i] = '\xa5';
    WriteBytes(books.Path(), bad);
    const std::string error = ErrorOf([&] {
      const auto provider = OpenPlain(books.Path());
      static_cast<void>(Lines(*provider, query));
    });
    if (error == "no error") continue;  // the damage lay in a cell's bytes, or in free room
    ++errors;
    EXPECT_THAT(error, AnyOf(StartsWith("501 The books "), StartsWith("-2147217900 "),
                             StartsWith("13 "), StartsWith("6 ")))
        << at;
  }
  EXPECT_GT(errors, 50);
}

TEST(Opening, DamagedPagesAreToldWhenTheyAreRead) {
  const TestBooks books(std::string(kItems) +
                        "CREATE TABLE big (a TEXT); INSERT INTO big SELECT hex(zeroblob(500)) FROM "
                        "(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                        "100) SELECT i FROM n);");
  std::string bytes = books.Bytes();
  for (std::size_t page = 4; page * 4096 < bytes.size(); ++page) {
    for (std::size_t i = 0; i < 16; ++i) bytes[page * 4096 + i] = '\xff';
  }
  WriteBytes(books.Path(), bytes);
  const auto provider = OpenPlain(books.Path());
  EXPECT_EQ(ErrorOf([&] { Lines(*provider, "text A: SELECT a FROM big"); }),
            "-2147217900 while reading the rows: the books are damaged; restore them from a backup "
            "(database disk image is malformed)");
  EXPECT_THAT(Lines(*provider, kCount), ElementsAre("2"));
}

TEST(Opening, LockedBooksAreWaitedForAndThenRefused) {
  const TestBooks books(kItems);
  Writer writer(books.Path());
  writer.Run("BEGIN EXCLUSIVE");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(OpeningError(books.Path(), milliseconds(150)),
            CannotOpen(books.Path(),
                       "the books are locked by another program and were not let go "
                       "within the time limit of 0.15 s"));
  EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(150));
  writer.Run("COMMIT");
  EXPECT_EQ(OpeningError(books.Path(), milliseconds(150)), "no error");
}

TEST(Opening, TheFileIsFoundAfterTheProcessHasMovedOn) {
  const TestBooks books(kItems);
  const std::filesystem::path here = std::filesystem::current_path();
  std::filesystem::current_path(books.Folder().Path());
  const auto provider = OpenPlain("books.db");
  std::filesystem::current_path(here);
  const auto first = provider->TakeSnapshot(kNoLimit);
  const auto second = provider->TakeSnapshot(kNoLimit);  // needs a connection of its own
  EXPECT_THAT(Lines(*second, kCount), ElementsAre("2"));
}

TEST(Opening, NamesThatTheEngineWouldReadAsSomethingElseAreFiles) {
  const TestBooks books(kItems);
  const std::string odd = books.Folder().File("file:x?mode=memory");
  std::filesystem::copy_file(books.Path(), odd);
  const std::filesystem::path here = std::filesystem::current_path();
  std::filesystem::current_path(books.Folder().Path());
  EXPECT_THAT(Lines(*OpenPlain("./file:x?mode=memory"), kCount), ElementsAre("2"));
  std::filesystem::current_path(here);
}

// --- Write-ahead books

TEST(WriteAheadBooks, AreReadWhileNobodyHasThemOpen) {
  const TestBooks books(std::string("PRAGMA journal_mode = WAL;") + kItems);
  EXPECT_THAT(Lines(*OpenPlain(books.Path()), kCount), ElementsAre("2"));
}

TEST(WriteAheadBooks, AreReadInAFolderThatMayBeReadOnlyWhileAWriterHasThemOpen) {
  const TestBooks books(std::string("PRAGMA journal_mode = WAL;") + kItems);
  Writer writer(books.Path());
  writer.Run("INSERT INTO Items1 VALUES (3, 'Washer')");
  using std::filesystem::perms;
  std::filesystem::permissions(books.Folder().Path(),
                               perms::owner_all | perms::others_read | perms::others_exec);
  for (const char* end : {"", "-wal", "-shm"}) {
    std::filesystem::permissions(books.Path() + end,
                                 perms::owner_read | perms::owner_write | perms::others_read);
  }
  // The row that only the write-ahead file has is seen.
  EXPECT_EQ(AsNobody([&] { return Lines(*OpenPlain(books.Path()), kCount).at(0); }), "3");
}

TEST(WriteAheadBooks, AreRefusedWhereTheirIndexCannotBeMade) {
  const TestBooks books(std::string("PRAGMA journal_mode = WAL;") + kItems);
  using std::filesystem::perms;
  ASSERT_FALSE(std::filesystem::exists(books.Path() + "-shm"));
  std::filesystem::permissions(books.Folder().Path(), perms::owner_read | perms::owner_exec |
                                                          perms::others_read | perms::others_exec);
  std::filesystem::permissions(books.Path(), perms::owner_read | perms::others_read);
  EXPECT_EQ(AsNobody([&] { return OpeningError(books.Path()); }),
            CannotOpen(books.Path(),
                       "the books are in write-ahead mode, and the files of that mode beside them "
                       "can be neither read nor made; let this program write to their folder, or "
                       "set the books to another journal mode"));
}

TEST(Opening, AJournalThatAWriterLeftIsToldAndNotTouched) {
  const TestBooks books(std::string(kItems) + "CREATE TABLE big (a TEXT);");
  const std::string copy = books.Folder().File("broken.db");
  {
    Writer writer(books.Path());
    writer.Run(
        "PRAGMA cache_size = 2; PRAGMA cache_spill = 2; BEGIN;"
        "INSERT INTO big SELECT hex(zeroblob(2000)) FROM (WITH RECURSIVE n(i) AS (SELECT 1 "
        "UNION ALL SELECT i + 1 FROM n WHERE i < 200) SELECT i FROM n);"
        "UPDATE Items1 SET ItemName = 'half done';");
    // As the files lie when the power goes.
    std::filesystem::copy_file(books.Path(), copy);
    std::filesystem::copy_file(books.Path() + "-journal", copy + "-journal");
    writer.Run("ROLLBACK");
  }
  const std::string bytes = BytesOf(copy);
  EXPECT_THAT(OpeningError(copy),
              StartsWith("501 The books \"" + copy +
                         "\" cannot be opened: a program broke off while it was writing to the "
                         "books; open them once with that program, so that they are put right"));
  EXPECT_EQ(BytesOf(copy), bytes);
  Writer(copy).Run("SELECT count(*) FROM Items1");
  EXPECT_THAT(Lines(*OpenPlain(copy), "text N: SELECT ItemName FROM Items1 ORDER BY 1"),
              ElementsAre("Bolt", "Nut"));
}

}  // namespace
}  // namespace pstolvane1::sqlite
