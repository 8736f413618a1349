// libpq's own handles, closed when they go out of scope.
#pragma once

#include <memory>

struct pg_conn;
struct pg_result;

namespace pstolvane1::postgres {

struct FinishConnection {
  void operator()(pg_conn* connection) const noexcept;
};
struct ClearResult {
  void operator()(pg_result* result) const noexcept;
};
struct FreeMemory {
  void operator()(char* memory) const noexcept;
};
using NativeConnection = std::unique_ptr<pg_conn, FinishConnection>;
using NativeResult = std::unique_ptr<pg_result, ClearResult>;
using NativeBuffer = std::unique_ptr<char, FreeMemory>;

}  // namespace pstolvane1::postgres
