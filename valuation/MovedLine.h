// A movement of a stock key, as a statement sums it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "session/data/Error.h"

namespace pstolvane1 {

struct MovedLine {
  bool inward = false;      // adds to the stock, otherwise takes from it
  bool enters = false;      // the average: what came in, and openings with their sign
  bool in_opening = false;  // counts in the position before the period
  bool in_closing = false;  // counts in the position at its end
  bool came = false;        // in the period
  bool went = false;        // in the period
  // Without a sign, and nothing where the books tell none. The amount is the quantity at the rate.
  std::optional<double> quantity = {}, amount = {};
};

// A sum's errors, with the figure that it is of.
template <typename Sum>
[[nodiscard]] auto SumOf(std::string_view figure, Sum&& sum) {
  try {
    return sum();
  } catch (const Error& error) {
    throw error.While("summing " + std::string(figure));
  }
}

}  // namespace pstolvane1
