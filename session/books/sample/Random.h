// The sample books' source of chance.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>

namespace pstolvane1::books::sample {

// The same numbers on every platform: the engine is fixed by the standard, the distributions of the
// library are not, so the few that are needed stand here. An expression draws once at most: a
// compiler is free in which order it takes two operands or arguments.
class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}

  // A whole number from low to high, both included.
  std::int64_t Range(std::int64_t low, std::int64_t high) {
    const auto span = static_cast<std::uint64_t>(high - low) + 1;
    return low + static_cast<std::int64_t>(engine_() % span);
  }
  [[nodiscard]] bool Chance(int percent) { return Range(1, 100) <= percent; }
  // A place below count; the first places come up more often than the last, as goods do that sell.
  std::size_t Popular(std::size_t count) {
    const auto low = static_cast<std::size_t>(Range(0, static_cast<std::int64_t>(count) - 1));
    const auto other = static_cast<std::size_t>(Range(0, static_cast<std::int64_t>(count) - 1));
    return low < other ? low : other;
  }
  template <typename Sequence>
  decltype(auto) Pick(Sequence&& all) {
    const auto last = static_cast<std::int64_t>(std::size(all)) - 1;
    return all[static_cast<std::size_t>(Range(0, last))];
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace pstolvane1::books::sample
