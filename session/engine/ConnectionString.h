// Which engine and which database a connection string names.
#pragma once

#include <string>
#include <string_view>

namespace pstolvane1 {

enum class EngineKind { kSqlite, kPostgresql, kOdbc };

[[nodiscard]] std::string_view NameOf(EngineKind engine);  // "SQLite", "PostgreSQL", "ODBC"

struct ConnectionTarget {
  EngineKind engine = EngineKind::kSqlite;
  // Of SQLite: the file, relative to the working directory unless it begins with "/".
  std::string path;
  // Of SQLite: the file that is meant where there is none at path; empty when nothing else can be
  // meant. "sqlite:///srv/books.db" is srv/books.db below the working directory, as in other
  // programs' URLs of this form, and else /srv/books.db, as URLs are read elsewhere.
  std::string other_path;
};

// Reads one of
//   PATH                                  SQLite; any text that is none of the forms below
//   sqlite:///PATH                        SQLite; percent-decoded; sqlite:////PATH is absolute
//   postgresql://... or host=... dbname=...   PostgreSQL
//   Driver={...};... or DSN=...;...           ODBC
// A path that looks like another form is written with "./" before it. In-memory databases
// (":memory:") and "file:" names hold no books and are refused. Error 501 with one sentence for a
// text that names no database; it never repeats a text that may hold a password.
[[nodiscard]] ConnectionTarget ReadConnectionString(std::string_view text);

// The same, but error 501 for an engine that this build does not have.
[[nodiscard]] ConnectionTarget TargetOf(std::string_view text);

// The file of SQLite that is meant: path, or other_path where there is one and none at path.
[[nodiscard]] std::string FileOf(const ConnectionTarget& target);

}  // namespace pstolvane1
