#include "tests/sql/model/Tables.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sqlite3.h>
#include <sstream>
#include <stdexcept>

namespace pstolvane1::sql::model {
namespace {

struct Declared {
  const char* name;
  const char* type;
  Kind kind;
};

const Kind kFlag{Type::kFlag};
const Kind kWhole{Type::kWhole};
const Kind kMoney{Type::kMoney};
const Kind kDay{.type = Type::kDate, .timed = false};
const Kind kMoment{.type = Type::kDate};

Kind TextOf(int size) { return {.type = Type::kText, .size = size}; }

Value ValueOf(const std::string& text, const Kind& kind) {
  if (text == "null") return {};
  switch (kind.type) {
    case Type::kText:
      return Value::Text(text);
    case Type::kSingle:
    case Type::kReal:
      return Value::Real(std::stod(text));
    case Type::kDate:
      return DateFromText(text);
    default: {
      const int places = AsDecimal(kind).places;
      return Value::Exact(static_cast<Int128>(std::llround(
          std::strtold(text.c_str(), nullptr) * static_cast<long double>(PowerOfTen(places)))));
    }
  }
}

// Each row is one line of values with "|" between them.
Table MakeTable(const char* name, const std::vector<Declared>& declared, const char* lines) {
  Table table{name, {}, {}};
  for (const Declared& column : declared) {
    table.declarations.emplace_back(column.type);
    table.content.columns.push_back({name, column.name, column.kind});
  }
  std::istringstream input(lines);
  for (std::string line; std::getline(input, line);) {
    std::istringstream cells(line + "|");
    Row row;
    for (std::string cell; std::getline(cells, cell, '|');) {
      row.push_back(ValueOf(cell, declared.at(row.size()).kind));
    }
    if (row.size() != declared.size()) throw std::logic_error("a row of another width: " + line);
    table.content.rows.push_back(std::move(row));
  }
  return table;
}

Table MakeSales() {
  return MakeTable("Sales",
                   {{"Id", "INTEGER", kWhole},
                    {"Flag", "BIT", kFlag},
                    {"Whole", "INTEGER", kWhole},
                    {"Money", "DECIMAL(19,4)", kMoney},
                    {"Single", "REAL", {Type::kSingle}},
                    {"Day", "DATE", kDay},
                    {"Letters", "VARCHAR(10)", TextOf(10)}},
                   "1|1|7|12.34|0.25|2003-12-31|Abc\n"
                   "2|0|-7|-12.34|-0.25|2004-01-01|aBC\n"
                   "3|1|0|0.0001|0|2004-03-31|abc  \n"
                   "4|null|3|0.1|1.5|2004-04-01|B\n"
                   "5|0|null|0.2|-3.75|null|\n"
                   "6|1|-3|null|10|2004-12-31| b\n"
                   "7|0|2|99.9999|null|2005-01-01|null\n"
                   "8|1|7|-0.0001|0.25|2003-12-31|xyz9\n");
}

Table MakeBills() {
  return MakeTable("Bills",
                   {{"Id", "INTEGER", kWhole},
                    {"Sale_Id", "INTEGER", kWhole},
                    {"Flag", "BIT", kFlag},
                    {"Large", "BIGINT", {Type::kBigWhole}},
                    {"Amount", "MONEY", kMoney},
                    {"Real", "DOUBLE", {Type::kReal}},
                    {"Moment", "DATETIME", kMoment},
                    {"Note", "VARCHAR(20)", TextOf(20)}},
                   "1|1|1|5|12.34|0.25|2003-12-31 00:00:00|ABC\n"
                   "2|1|0|-5|100|-2.5|2003-12-31 23:59:59|x Y\n"
                   "3|2|null|3000000000|0.3|1000000|2004-01-01 00:00:00|x y \n"
                   "4|9|1|0|-7.7777|0|null|null\n"
                   "5|null|0|null|null|null|2004-12-31 12:30:00|10%\n"
                   "6|3|1|7|0.0001|3|2004-02-29 00:00:00|b\n"
                   "7|8|0|2|5|0.5|2005-01-01 06:00:00|\n");
}

Table MakeTerms() {
  return MakeTable("Terms",
                   {{"Id", "INTEGER", kWhole},
                    {"Flag", "BIT", kFlag},
                    {"Number", "DECIMAL(12,5)", {Type::kDecimal, 12, 5}},
                    {"Whole", "INTEGER", kWhole},
                    {"Day", "DATE", kDay},
                    {"Letters", "VARCHAR(5)", TextOf(5)}},
                   "1|0|0.1|1|2003-12-31|a\n"
                   "2|1|0.2|-1|2004-12-31|A \n"
                   "3|1|-1.5|20|null|_b\n"
                   "8|0|null|7|2004-02-29|null\n"
                   "12|null|123.456|null|2004-01-01|AbC\n");
}

std::string Literal(const Value& value, const Kind& kind) {
  if (value.null) return "NULL";
  switch (kind.type) {
    case Type::kText:
      return "'" + value.text + "'";
    case Type::kDate:
      return "'" + IsoText(value) + "'";
    case Type::kFlag:
    case Type::kWhole:
    case Type::kBigWhole:
      return std::to_string(static_cast<long long>(value.exact));
    default: {
      char text[40];
      std::snprintf(text, sizeof text, "%.15g", ToDouble(value, kind));
      return text;
    }
  }
}

std::string ScriptOf(const Table& table) {
  const std::vector<Column>& columns = table.content.columns;
  std::string script = "CREATE TABLE " + table.name + " (";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    script += (i > 0 ? ", " : "") + columns[i].name + " " + table.declarations[i];
  }
  script += ");";
  for (const Row& row : table.content.rows) {
    script += "INSERT INTO " + table.name + " VALUES (";
    for (std::size_t i = 0; i < row.size(); ++i) {
      script += (i > 0 ? ", " : "") + Literal(row[i], columns[i].kind);
    }
    script += ");";
  }
  return script;
}

std::string PostgresType(const Kind& kind) {
  switch (kind.type) {
    case Type::kText:
      return "varchar(" + std::to_string(kind.size) + ")";
    case Type::kFlag:
      return "boolean";
    case Type::kWhole:
      return "int";
    case Type::kBigWhole:
      return "bigint";
    case Type::kMoney:
      return "numeric(19,4)";
    case Type::kDecimal:
      return "numeric(" + std::to_string(kind.digits) + "," + std::to_string(kind.places) + ")";
    case Type::kSingle:
      return "single";
    case Type::kDate:
      return kind.timed ? "timestamp" : "date";
    default:
      return "float8";
  }
}

}  // namespace

std::string PostgresScript(const std::vector<Table>& tables) {
  std::string script = "CREATE DOMAIN single AS float8;";
  for (const Table& table : tables) {
    const std::vector<Column>& columns = table.content.columns;
    script += "CREATE TABLE \"" + table.name + "\" (";
    for (std::size_t i = 0; i < columns.size(); ++i) {
      script += (i > 0 ? ", \"" : "\"") + columns[i].name + "\" " + PostgresType(columns[i].kind);
    }
    script += ");";
    for (const Row& row : table.content.rows) {
      script += "INSERT INTO \"" + table.name + "\" VALUES (";
      for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string literal = Literal(row[i], columns[i].kind);
        const bool flag = columns[i].kind.type == Type::kFlag && !row[i].null;
        script += (i > 0 ? ", " : "") + (flag ? "'" + literal + "'" : literal);
      }
      script += ");";
    }
  }
  return script;
}

const std::vector<Table>& SmallTables() {
  static const std::vector<Table> tables = {MakeSales(), MakeBills(), MakeTerms()};
  return tables;
}

void WriteSqliteFile(const std::string& path, const std::vector<Table>& tables) {
  sqlite3* raw = nullptr;
  const int opened = sqlite3_open(path.c_str(), &raw);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> file(raw, sqlite3_close);
  if (opened != SQLITE_OK) throw std::runtime_error("cannot create " + path);
  for (const Table& table : tables) {
    if (sqlite3_exec(raw, ScriptOf(table).c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw std::runtime_error(table.name + ": " + sqlite3_errmsg(raw));
    }
  }
}

}  // namespace pstolvane1::sql::model
