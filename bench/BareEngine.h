// The bare engine, as the floor of a report uses it.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <sqlite3.h>
#include <string>

#include "session/data/Error.h"

namespace pstolvane1::bench {

// A file of books with the library's own settings and functions. A failure is a std::runtime_error
// with the engine's words.
class BareEngine {
 public:
  explicit BareEngine(const std::string& path);
  ~BareEngine();
  BareEngine(const BareEngine&) = delete;
  BareEngine& operator=(const BareEngine&) = delete;

  // Steps a SELECT and reads every cell; how many rows it gives.
  std::int64_t Step(const std::string& select);
  [[nodiscard]] sqlite3* Raw() const { return database_; }

 private:
  sqlite3* database_ = nullptr;
  std::optional<Error> failure_;
};

template <typename Work>
double SecondsOf(Work&& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

}  // namespace pstolvane1::bench
