#include "session/engine/sqlite/Functions.h"

#include <array>
#include <sqlite3.h>
#include <string>

#include "session/data/TextFold.h"
#include "session/engine/sqlite/ColumnCheck.h"
#include "session/sql/SqliteFunctions.h"

namespace pstolvane1::sqlite {
namespace {

// Innocuous, so that a view of the books may use LIKE and the collation although its schema is not
// trusted.
constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

int Collate(void* /*unused*/, int a_size, const void* a, int b_size, const void* b) {
  return CompareFoldedIgnoringTrailingBlanks(
      {static_cast<const char*>(a), static_cast<std::size_t>(a_size)},
      {static_cast<const char*>(b), static_cast<std::size_t>(b_size)});
}

void Require(int code) {
  if (code != SQLITE_OK) throw Error(ErrorNumber::kConnection, sqlite3_errstr(code));
}

}  // namespace

void RegisterFunctions(sqlite3* database, std::optional<Error>& failure) {
  for (const auto functions : {NumberFunctions(), ConversionFunctions(), DateFunctions(),
                               TextFunctions(), ColumnCheckFunctions()}) {
    for (const ScalarFunction& function : functions) {
      Require(sqlite3_create_function_v2(database, std::string(function.name).c_str(),
                                         function.arity, kFlags, &failure, function.call, nullptr,
                                         nullptr, nullptr));
    }
  }
  for (const AggregateFunction& function : AggregateFunctions()) {
    Require(sqlite3_create_function_v2(database, std::string(function.name).c_str(), function.arity,
                                       kFlags, &failure, nullptr, function.step, function.result,
                                       nullptr));
  }
  Require(sqlite3_create_collation_v2(database, std::string(sql::kTextCollation).c_str(),
                                      SQLITE_UTF8, nullptr, Collate, nullptr));
}

}  // namespace pstolvane1::sqlite
