// Reading books for checking them.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/sql/Catalog.h"

namespace pstolvane1::books {

struct Column;
struct Index;
struct Table;

struct DeclaredColumn {
  std::string name;
  std::string declared;           // its type as the books spell it
  std::optional<sql::Type> type;  // what that is to the dialect; nothing where it is nothing
};

struct DeclaredIndex {
  std::string name;
  std::string columns;  // in small letters, as "a,b,c"
  // How many of its first columns give rows in the dialect's order, from either end.
  std::size_t in_order;
};

// One state of one company's books, read by one thread. It cannot write. Errors are 501 with the
// engine's words.
class Reader {
 public:
  using Row = std::vector<std::optional<std::string>>;

  virtual ~Reader() = default;

  // What both the dialect and SQLite understand.
  [[nodiscard]] virtual std::vector<Row> Select(const std::string& select) = 0;
  // Whether the query names only what is there.
  [[nodiscard]] virtual bool Understands(const std::string& select) = 0;
  // Every table whose rows lie here, by name; views and the engine's own are none.
  [[nodiscard]] virtual std::vector<std::string> TableNames() = 0;
  // Of a table or a view, any case; none when there is no such thing.
  [[nodiscard]] virtual std::vector<DeclaredColumn> ColumnsIn(const Table& table) = 0;
  // Whether it is a table whose rows lie here, which can have an index.
  [[nodiscard]] virtual bool IsTable(const Table& table) = 0;
  // Indexes over a part of the rows do not count.
  [[nodiscard]] virtual std::vector<DeclaredIndex> IndexesIn(const Table& table) = 0;
  // The columns that IndexesIn tells of an index that serves as this one does.
  [[nodiscard]] virtual std::string Serving(const Table& table, const Index& index) const = 0;

  // What the engine's own check finds wrong with the file that holds the books, a few lines at
  // most; never anything on a server, which looks after its files itself.
  [[nodiscard]] virtual std::vector<std::string> Damage() = 0;
  // Whether any value may stand in a column, whatever its type.
  [[nodiscard]] virtual bool KeepsAnyValue() const = 0;
  // The month of a date, counted from the year 0.
  [[nodiscard]] virtual std::string MonthOf(const std::string& date) const = 0;

  // The statements that would mend the books, ended by ";".
  [[nodiscard]] virtual std::string CreateTable(const Table& table) const = 0;
  // One of the same name with other columns goes first.
  [[nodiscard]] virtual std::string MakeIndex(const Table& table, const Index& index) = 0;
  [[nodiscard]] virtual std::string AddColumn(const Table& table, const Column& column) const = 0;
  [[nodiscard]] virtual std::string TypeOf(const Column& column) const = 0;

  // How messages call the books.
  [[nodiscard]] virtual const std::string& Name() const = 0;
};

// Error 501 when the books cannot be opened.
[[nodiscard]] std::unique_ptr<Reader> ReadFile(const std::string& path);
[[nodiscard]] std::unique_ptr<Reader> ReadServer(const std::string& connection_string);

[[nodiscard]] std::string InSmallLetters(std::string_view text);

}  // namespace pstolvane1::books
