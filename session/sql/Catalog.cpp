#include "session/sql/Catalog.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "session/sql/Names.h"

namespace pstolvane1::sql {
namespace {

// "Double  Precision (10, 2)" is the word "double precision" with 10 and 2.
struct Declaration {
  std::string word;
  std::array<int, 2> numbers = {0, 0};
  int count = 0;
};

Declaration ReadDeclaration(std::string_view declared) {
  Declaration read;
  const std::size_t parenthesis = std::min(declared.find('('), declared.size());
  for (const char c : FoldedName(declared.substr(0, parenthesis))) {
    const bool blank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
    if (!blank) read.word += c;
    if (blank && !read.word.empty() && read.word.back() != ' ') read.word += ' ';
  }
  if (!read.word.empty() && read.word.back() == ' ') read.word.pop_back();
  std::string_view rest = declared.substr(parenthesis);
  while (read.count < 2) {
    const std::size_t digit = rest.find_first_of("0123456789");
    if (digit == std::string_view::npos) break;
    rest.remove_prefix(digit);
    int& number = read.numbers[static_cast<std::size_t>(read.count)];
    const auto end = std::from_chars(rest.data(), rest.data() + rest.size(), number);
    rest.remove_prefix(static_cast<std::size_t>(end.ptr - rest.data()));
    ++read.count;
  }
  return read;
}

struct Meaning {
  std::string_view word;
  Type type;
};

constexpr Meaning kMeanings[] = {
    {"bit", Type::kFlag},
    {"bool", Type::kFlag},
    {"boolean", Type::kFlag},
    {"yesno", Type::kFlag},
    {"logical", Type::kFlag},
    {"int", Type::kWhole},
    {"integer", Type::kWhole},
    {"mediumint", Type::kWhole},
    {"smallint", Type::kWhole},
    {"tinyint", Type::kWhole},
    {"int2", Type::kWhole},
    {"int4", Type::kWhole},
    {"serial", Type::kWhole},
    {"counter", Type::kWhole},
    {"byte", Type::kWhole},
    {"bigint", Type::kBigWhole},
    {"int8", Type::kBigWhole},
    {"bigserial", Type::kBigWhole},
    {"money", Type::kMoney},
    {"smallmoney", Type::kMoney},
    {"currency", Type::kMoney},
    {"decimal", Type::kMoney},
    {"dec", Type::kMoney},
    {"numeric", Type::kMoney},
    {"real", Type::kSingle},
    {"single", Type::kSingle},
    {"float4", Type::kSingle},
    {"float", Type::kReal},
    {"float8", Type::kReal},
    {"double", Type::kReal},
    {"double precision", Type::kReal},
    {"date", Type::kDate},
    {"datetime", Type::kDate},
    {"datetime2", Type::kDate},
    {"smalldatetime", Type::kDate},
    {"timestamp", Type::kDate},
    {"timestamp without time zone", Type::kDate},
    {"char", Type::kText},
    {"character", Type::kText},
    {"character varying", Type::kText},
    {"varchar", Type::kText},
    {"varying character", Type::kText},
    {"nchar", Type::kText},
    {"native character", Type::kText},
    {"national character", Type::kText},
    {"nvarchar", Type::kText},
    {"text", Type::kText},
    {"ntext", Type::kText},
    {"mediumtext", Type::kText},
    {"longtext", Type::kText},
    {"tinytext", Type::kText},
    {"clob", Type::kText},
    {"memo", Type::kText},
    {"string", Type::kText},
};

}  // namespace

std::string_view NameOf(Type type) {
  switch (type) {
    case Type::kNull:
      return "Null";
    case Type::kText:
      return "text";
    case Type::kFlag:
      return "flag";
    case Type::kWhole:
      return "whole number";
    case Type::kBigWhole:
      return "big whole number";
    case Type::kMoney:
      return "money";
    case Type::kDecimal:
      return "decimal number";
    case Type::kSingle:
      return "single";
    case Type::kReal:
      return "real number";
    case Type::kDate:
      return "date";
  }
  return "";
}

const CatalogColumn* CatalogTable::Find(std::string_view column) const {
  const auto found = std::ranges::find_if(
      columns, [&](const CatalogColumn& one) { return SameName(one.name, column); });
  return found == columns.end() ? nullptr : &*found;
}

std::string_view CatalogTable::UnreadType(std::string_view column) const {
  const auto found =
      std::ranges::find_if(unread, [&](const auto& one) { return SameName(one.first, column); });
  return found == unread.end() ? std::string_view{} : found->second;
}

Catalog::Catalog(std::vector<CatalogTable> tables, Characters characters)
    : tables_(std::move(tables)), characters_(characters) {
  std::ranges::stable_sort(tables_, {},
                           [](const CatalogTable& table) { return FoldedName(table.name); });
}

const CatalogTable* Catalog::Find(std::string_view table) const {
  const std::string folded = FoldedName(table);
  const auto found = std::ranges::lower_bound(
      tables_, folded, {}, [](const CatalogTable& one) { return FoldedName(one.name); });
  return found == tables_.end() || FoldedName(found->name) != folded ? nullptr : &*found;
}

std::optional<CatalogColumn> ColumnOfDeclaration(std::string_view name,
                                                 std::string_view declared_type) {
  const Declaration declared = ReadDeclaration(declared_type);
  const auto* meaning = std::ranges::find(kMeanings, declared.word, &Meaning::word);
  if (meaning == std::end(kMeanings)) return std::nullopt;
  CatalogColumn column;
  column.name = name;
  column.type = meaning->type;
  const auto [first, second] = declared.numbers;
  if (column.type == Type::kText) column.size = first;
  if (column.type == Type::kDate) column.date_has_time = declared.word != "date";
  if (declared.word == "float" && declared.count > 0 && first <= 24) column.type = Type::kSingle;
  // Sized at all, and not as money: what is declared without a size may hold any amount.
  if (column.type == Type::kMoney && declared.count > 0 && second != 4) {
    column.type = Type::kDecimal;
    column.digits = first;
    column.places = second;
  }
  return column;
}

}  // namespace pstolvane1::sql
