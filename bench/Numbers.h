// What the benchmarks' books are counted out with.
#pragma once

#include <cstdint>
#include <fmt/format.h>
#include <string>

namespace pstolvane1::bench {

// The head of a statement that reads the numbers from 1 to count as n.
inline std::string Numbers(std::int64_t count) {
  return fmt::format(
      "WITH RECURSIVE numbers(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM numbers WHERE n < {}) ",
      count);
}

}  // namespace pstolvane1::bench
