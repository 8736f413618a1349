// One call of a function of the library by a statement of the engine.
#pragma once

#include <cstdint>
#include <new>
#include <optional>
#include <sqlite3.h>
#include <string>
#include <string_view>

#include "session/data/Error.h"

namespace pstolvane1::sqlite {

// Arguments count from 0 and are not Null. Errors thrown by a function's body end the statement.
class Call {
 public:
  Call(sqlite3_context* context, sqlite3_value** values) : context_(context), values_(values) {}

  [[nodiscard]] bool IsWhole(int at) const {
    return sqlite3_value_type(values_[at]) == SQLITE_INTEGER;
  }
  // An integer, or a real that is one; else error 13.
  [[nodiscard]] std::int64_t Whole(int at) const;
  // An integer or a real; error 13 for a text.
  [[nodiscard]] double Number(int at) const;
  // A small number of the emitter's own: a count of bits, places or characters.
  [[nodiscard]] int Setting(int at) const { return sqlite3_value_int(values_[at]); }
  // Numbers give their text. Valid until the function returns.
  [[nodiscard]] std::string_view Text(int at) const;

  void Return(std::int64_t number) { sqlite3_result_int64(context_, number); }
  // Error 6 for NaN.
  void Return(double number);
  void Return(std::string_view text) {
    sqlite3_result_text64(context_, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
  void ReturnArgument(int at) { sqlite3_result_value(context_, values_[at]); }

  [[nodiscard]] sqlite3_context* Context() const { return context_; }

 private:
  sqlite3_context* context_;
  sqlite3_value** values_;
};

// Error 6 and 13 of the functions: "1e+30 is out of range for money", "\"abc\" is not a number".
[[noreturn]] void ThrowOutOfRange(std::string_view value, std::string_view for_what);
[[noreturn]] void ThrowNot(std::string_view value, std::string_view what);
[[noreturn]] void ThrowDivisionByZero();

// The statement fails with the error.
void KeepError(sqlite3_context* context, const Error& error) noexcept;

// Runs the body of a step of the engine; an exception becomes the statement's failure, and the
// error is kept where the connection told RegisterFunctions to keep it.
template <typename Body>
void Guarded(sqlite3_context* context, Body&& body) noexcept {
  try {
    body();
  } catch (const Error& error) {
    KeepError(context, error);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  }
}

// A function that gives Null when one of its arguments is Null, as the engine calls it.
template <void (*Body)(Call&)>
void Scalar(sqlite3_context* context, int count, sqlite3_value** values) {
  for (int i = 0; i < count; ++i) {
    if (sqlite3_value_type(values[i]) == SQLITE_NULL) return;  // the result is Null
  }
  Guarded(context, [&] {
    Call call(context, values);
    Body(call);
  });
}

struct ScalarFunction {
  std::string_view name;
  int arity;
  void (*call)(sqlite3_context*, int, sqlite3_value**);
};
struct AggregateFunction {
  std::string_view name;
  int arity;
  void (*step)(sqlite3_context*, int, sqlite3_value**);
  void (*result)(sqlite3_context*);
};

}  // namespace pstolvane1::sqlite
