// Small random books of a trader in colours.
#pragma once

#include <cstdint>
#include <memory>

#include "golden/SmallBooks.h"

namespace pstolvane1 {

inline constexpr int kTradedItems = 5, kTradedColors = 3, kTradeParties = 4;

// Items 1 to 5 in two categories and two classes, all of them roots, with a batch of each of the
// colours 1 to 3; parties 1 to 4 in two groups and two areas. Undated openings of year 1, and
// documents of two years from 1 April 2003 with one to three lines each, in whole pieces and
// rupees: purchases (type 7), returns of purchases (8, and on the bill itself), sales (10), and
// returns of sales (11, and on the bill itself). Every line moves its item in one colour, out less
// what came back; stock may fall below zero.
[[nodiscard]] std::unique_ptr<golden::SmallBooks> RandomTrade(std::uint32_t seed);

}  // namespace pstolvane1
