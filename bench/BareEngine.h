// The bare engine, as the floor of a report uses it.
#pragma once

#include <chrono>
#include <cstdint>
#include <ctime>
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

// What this process has used of the processors, all its threads together.
[[nodiscard]] inline double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}
template <typename Work>
double ProcessorSecondsOf(Work&& work) {
  const double begin = ProcessorSeconds();
  work();
  return ProcessorSeconds() - begin;
}

template <typename Work>
double SecondsOf(Work&& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

}  // namespace pstolvane1::bench
