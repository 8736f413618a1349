#include "session/engine/WrongValue.h"

#include <fmt/format.h>

namespace pstolvane1 {
namespace {

std::string_view WhatItIsNot(sql::Type type) {
  switch (type) {
    case sql::Type::kFlag:
      return "a flag";
    case sql::Type::kWhole:
    case sql::Type::kBigWhole:
      return "a whole number";
    case sql::Type::kMoney:
      return "an amount of money";
    case sql::Type::kDate:
      return "a date";
    case sql::Type::kText:
      return "a text";
    default:
      return "a number";
  }
}

}  // namespace

Error WrongValue(const TableColumn& where, std::string_view shown) {
  return {ErrorNumber::kTypeMismatch, fmt::format("{}.{} holds {}, which is not {}", where.table,
                                                  where.column, shown, WhatItIsNot(where.type))};
}

}  // namespace pstolvane1
