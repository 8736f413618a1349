#include "tests/sql/model/Show.h"

#include <array>
#include <cstdio>

namespace pstolvane1::sql::model {
namespace {

std::string NameOfKind(const Kind& kind) {
  static const std::array<std::string, 10> kNames = {"null",  "text",    "flag",   "whole", "big",
                                                     "money", "decimal", "single", "real",  "date"};
  const std::string& name = kNames.at(static_cast<std::size_t>(kind.type));
  if (kind.type != Type::kDecimal) return name;
  return name + "(" + std::to_string(kind.digits) + "," + std::to_string(kind.places) + ")";
}

std::string ShowExact(Int128 number, int places) {
  std::string digits;
  const bool negative = number < 0;
  for (Int128 rest = negative ? -number : number;
       rest > 0 || digits.size() <= static_cast<std::size_t>(places); rest /= 10) {
    digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(rest % 10)));
  }
  if (places > 0) digits.insert(digits.size() - static_cast<std::size_t>(places), ".");
  return (negative ? "-" : "") + digits;
}

}  // namespace

std::string Show(const Value& value, const Kind& kind) {
  if (value.null) return "null";
  switch (kind.type) {
    case Type::kText:
      return "'" + value.text + "'";
    case Type::kDate:
      return IsoText(value);
    case Type::kSingle:
    case Type::kReal: {
      std::array<char, 40> text{};
      std::snprintf(text.data(), text.size(), "%.12g", value.real);
      return text.data();
    }
    default:
      return ShowExact(value.exact, AsDecimal(kind).places);
  }
}

std::string Show(const Relation& relation) {
  std::string text;
  for (const Column& column : relation.columns) {
    text += (text.empty() ? "" : ", ") + NameOfKind(column.kind);
  }
  text += ": ";
  if (relation.rows.empty()) return text + "no rows";
  for (std::size_t r = 0; r < relation.rows.size(); ++r) {
    if (r > 0) text += " | ";
    for (std::size_t c = 0; c < relation.columns.size(); ++c) {
      text += (c > 0 ? ", " : "") + Show(relation.rows[r][c], relation.columns[c].kind);
    }
  }
  return text;
}

}  // namespace pstolvane1::sql::model
