// A sum of floats that does not depend on the order in which they come.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace pstolvane1 {

// Keeps what each addition loses (Neumaier), how much was added in all, and the largest of it. A
// block of zeros is a sum without numbers.
struct SureSum {
  // A number that is finite.
  void Add(double value) {
    const double next = sum + value;
    lost += std::fabs(sum) >= std::fabs(value) ? (sum - next) + value : (value - next) + sum;
    sum = next;
    size += std::fabs(value);
    largest = std::max(largest, std::fabs(value));
    ++count;
  }

  // To the figures that do not depend on the order, the 13th of the sum of sizes: what came in as
  // 0.1 and 0.2 and went out as 0.3 is gone. One number alone stays what it is. 0 without numbers.
  // The engines' texts reckon the same.
  [[nodiscard]] double Result() const;

  double sum = 0, lost = 0, size = 0, largest = 0;
  std::int64_t count = 0;
};

}  // namespace pstolvane1
