#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/data/Error.h"
#include "session/engine/ConnectionString.h"

namespace pstolvane1 {
namespace {

TEST(ConnectionString, APathIsTakenAsItStands) {
  for (const char* path : {"books.db", "/srv/My Books/04-05.db", "../b.db", "C:\\books.db",
                           "a=b.db", "100%.db", "./:memory:", "./file:x", "books?.db"}) {
    const ConnectionTarget target = ReadConnectionString(path);
    EXPECT_EQ(target.engine, EngineKind::kSqlite);
    EXPECT_EQ(target.path, path);
    EXPECT_EQ(target.other_path, "");
  }
}

TEST(ConnectionString, AUrlIsPercentDecoded) {
  struct Case {
    const char* text;
    const char* path;
    const char* other_path;
  };
  for (const Case& each : {
           Case{"sqlite:///books.db", "books.db", "/books.db"},
           Case{"sqlite:////srv/books.db", "/srv/books.db", ""},
           Case{"sqlite:///srv/My%20Books.db", "srv/My Books.db", "/srv/My Books.db"},
           Case{"SQLite:///%61%2Fb%3f%23%25.db", "a/b?#%.db", "/a/b?#%.db"},
           Case{"sqlite:////%E0%A4%95.db", "/\u0915.db", ""},
       }) {
    const ConnectionTarget target = ReadConnectionString(each.text);
    EXPECT_EQ(target.engine, EngineKind::kSqlite);
    EXPECT_EQ(target.path, each.path) << each.text;
    EXPECT_EQ(target.other_path, each.other_path) << each.text;
  }
}

TEST(ConnectionString, OtherEnginesAreTold) {
  for (const char* text : {"postgresql://u:p@h/db", "postgres://h", "host=h dbname=d",
                           " dbname = d", "USER=x", "sslmode=require host=h"}) {
    EXPECT_EQ(ReadConnectionString(text).engine, EngineKind::kPostgresql) << text;
  }
  for (const char* text : {"Driver={SQL Server};Server=x", "DSN=Books;UID=x", " driver = {x}"}) {
    EXPECT_EQ(ReadConnectionString(text).engine, EngineKind::kOdbc) << text;
  }
}

TEST(ConnectionString, AWrongOneIsRefusedInOneSentence) {
  struct Case {
    std::string_view text;
    const char* why;
  };
  for (const Case& each : {
           Case{"",
                "The connection string names no database: write a path, sqlite:///PATH or "
                "a postgresql:// URL."},
           Case{" \t",
                "The connection string names no database: write a path, sqlite:///PATH or "
                "a postgresql:// URL."},
           Case{"sqlite:///",
                "The connection string names no database: write a path, "
                "sqlite:///PATH or a postgresql:// URL."},
           Case{"sqlite://",
                "The connection string's sqlite:// URL names a host, and SQLite's "
                "books are files: write sqlite:///PATH."},
           Case{"sqlite://server/books.db",
                "The connection string's sqlite:// URL names a host, and SQLite's books are files: "
                "write sqlite:///PATH."},
           Case{"sqlite:books.db",
                "The connection string begins with \"sqlite:\" but not with "
                "\"sqlite:///\": write sqlite:///PATH."},
           Case{"sqlite:///b.db?mode=rw",
                "The connection string's sqlite:/// URL takes no "
                "parameters: write a \"?\" of the file's name as %3F."},
           Case{"sqlite:///b%2",
                "The connection string's sqlite:/// URL has a \"%\" that two "
                "hexadecimal digits do not follow: write a \"%\" of the file's "
                "name as %25."},
           Case{"sqlite:///a%00b",
                "The connection string names a file with a zero byte in its "
                "name."},
           Case{std::string_view("a\0b", 3),
                "The connection string names a file with a zero byte "
                "in its name."},
           Case{":memory:",
                "The connection string \":memory:\" names no file of books: write the "
                "path of the file, with ./ before it if the file is really called so."},
           Case{"sqlite:///:memory:",
                "The connection string \":memory:\" names no file of books: write the path of the "
                "file, with ./ before it if the file is really called so."},
           Case{
               "file:b.db?mode=rw",
               "The connection string \"file:b.db?mode=rw\" names no file of books: write the path "
               "of the file, with ./ before it if the file is really called so."},
           Case{
               "mysql://u:secret@h/db",
               "The connection string's scheme \"mysql://\" is of no engine of this library: write "
               "a path, sqlite:///PATH or a postgresql:// URL."},
           Case{"Provider=X;Password=secret",
                "The connection string's keyword \"provider\" is of no engine of this library: "
                "write a path, sqlite:///PATH or a postgresql:// URL."},
       }) {
    try {
      static_cast<void>(ReadConnectionString(each.text));
      ADD_FAILURE() << each.text << " was taken";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kConnection);
      EXPECT_EQ(error.Description(), each.why);
      EXPECT_THAT(error.Description(), testing::Not(testing::HasSubstr("secret")));
    }
  }
}

}  // namespace
}  // namespace pstolvane1
