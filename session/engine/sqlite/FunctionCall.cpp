#include "session/engine/sqlite/FunctionCall.h"

#include <cmath>
#include <fmt/format.h>

namespace pstolvane1::sqlite {

std::int64_t Call::Whole(int at) const {
  sqlite3_value* value = values_[at];
  if (sqlite3_value_type(value) == SQLITE_INTEGER) return sqlite3_value_int64(value);
  const double number = Number(at);
  if (number != std::trunc(number)) ThrowNot(fmt::format("{}", number), "a whole number");
  constexpr double kLimit = 9223372036854775808.0;
  if (number < -kLimit || number >= kLimit) {
    ThrowOutOfRange(fmt::format("{}", number), "a whole number");
  }
  return static_cast<std::int64_t>(number);
}

double Call::Number(int at) const {
  sqlite3_value* value = values_[at];
  const int type = sqlite3_value_type(value);
  if (type != SQLITE_INTEGER && type != SQLITE_FLOAT) {
    ThrowNot("\"" + std::string(Text(at)) + "\"", "a number");
  }
  return sqlite3_value_double(value);
}

std::string_view Call::Text(int at) const {
  const unsigned char* text = sqlite3_value_text(values_[at]);
  if (text == nullptr) return {};
  return {static_cast<const char*>(static_cast<const void*>(text)),
          static_cast<std::size_t>(sqlite3_value_bytes(values_[at]))};
}

void Call::Return(double number) {
  if (!std::isfinite(number)) ThrowOutOfRange("a result", "a number");
  sqlite3_result_double(context_, number);
}

void ThrowOutOfRange(std::string_view value, std::string_view for_what) {
  throw Error(ErrorNumber::kOverflow, fmt::format("{} is out of range for {}", value, for_what));
}

void ThrowNot(std::string_view value, std::string_view what) {
  throw Error(ErrorNumber::kTypeMismatch, fmt::format("{} is not {}", value, what));
}

void ThrowDivisionByZero() { throw Error(ErrorNumber::kDivisionByZero, "division by zero"); }

void KeepError(sqlite3_context* context, const Error& error) noexcept {
  try {
    *static_cast<std::optional<Error>*>(sqlite3_user_data(context)) = error;
    sqlite3_result_error(context, error.what(), -1);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

}  // namespace pstolvane1::sqlite
