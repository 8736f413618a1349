#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <sys/stat.h>

#include "session/books/BooksFile.h"
#include "session/books/Schema.h"
#include "session/books/Writer.h"
#include "session/data/Error.h"
#include "tests/books/BooksOnDisk.h"

namespace pstolvane1::books {
namespace {

using test::Content;
using test::Database;
using test::Folder;
using testing::ElementsAre;
using testing::IsEmpty;

std::string RefusalOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kConnection);
    return error.Description();
  }
  return "no error";
}

TEST(CreateBooks, MakesEmptyBooksWithTheReferenceSchema) {
  const Folder folder;
  CreateBooks(folder.File("new.db"));
  EXPECT_THAT(folder.Names(), ElementsAre("new.db"));
  Database made(folder.File("new.db"));
  Database expected(":memory:");
  expected.Execute(SqliteSchema());
  const std::string list = "SELECT name, sql FROM sqlite_master ORDER BY name";
  EXPECT_EQ(made.Rows(list), expected.Rows(list));
  EXPECT_EQ(made.Whole("SELECT count(*) FROM Desr1"), 0);
}

TEST(CreateBooks, LeavesAnExistingFileAlone) {
  const Folder folder;
  folder.Write("old.db", "not to be lost");
  EXPECT_EQ(RefusalOf([&] { CreateBooks(folder.File("old.db")); }),
            "cannot make the books \"" + folder.File("old.db") +
                "\": the file exists already; choose another name or remove it first");
  EXPECT_EQ(Content(folder.File("old.db")), "not to be lost");
  EXPECT_THAT(folder.Names(), ElementsAre("old.db"));
}

TEST(CreateBooks, TellsWhyAFolderDoesNotTakeThem) {
  const Folder folder;
  EXPECT_EQ(
      RefusalOf([&] { CreateBooks(folder.File("nowhere/new.db")); }),
      "cannot make the books \"" + folder.File("nowhere/new.db") + "\": No such file or directory");
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(CreateBooks, GivesTheFileTheRightsOfTheUsersMask) {
  const Folder folder;
  const mode_t before = umask(027);
  CreateBooks(folder.File("new.db"));
  umask(before);
  struct stat about {};
  ASSERT_EQ(stat(folder.File("new.db").c_str(), &about), 0);
  EXPECT_EQ(about.st_mode & 0777U, 0640U);
}

TEST(MakeBooks, LeavesNothingBehindWhenItsFillingFails) {
  const Folder folder;
  EXPECT_THROW(MakeBooks(folder.File("new.db"),
                         [](Writer& writer) {
                           writer.Execute("INSERT INTO Uom1 VALUES (1, 'Nos')");
                           throw std::runtime_error("half way");
                         }),
               std::runtime_error);
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(MakeBooks, ErrorsNameTheBooksAsTheyWereNamed) {
  const Folder folder;
  EXPECT_EQ(
      RefusalOf([&] {
        MakeBooks(folder.File("new.db"), [](Writer& writer) { writer.Execute("nonsense"); });
      }),
      "cannot write the books \"" + folder.File("new.db") + "\": near \"nonsense\": syntax error");
}

TEST(MakeBooks, DoesNotOverwriteAFileThatAppearedMeanwhile) {
  const Folder folder;
  EXPECT_EQ(RefusalOf([&] {
              MakeBooks(folder.File("new.db"),
                        [&](Writer&) { folder.Write("new.db", "came first"); });
            }),
            "cannot make the books \"" + folder.File("new.db") +
                "\": the file exists already; choose another name or remove it first");
  EXPECT_EQ(Content(folder.File("new.db")), "came first");
  EXPECT_THAT(folder.Names(), ElementsAre("new.db"));
}

TEST(Statement, RefusesARowOfTheWrongLength) {
  const Folder folder;
  MakeBooks(folder.File("new.db"), [](Writer& writer) {
    Statement insert(writer, "Uom1", "Uom_id, UomName");
    EXPECT_THROW(insert.Run(1), Error);
    insert.Run(2, "Set");
  });
  EXPECT_EQ(Database(folder.File("new.db")).Text("SELECT * FROM Uom1"), "2|Set");
}

}  // namespace
}  // namespace pstolvane1::books
