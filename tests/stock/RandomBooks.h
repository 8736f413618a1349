// Small random books of a shop that never sells what it has not.
#pragma once

#include <cstdint>
#include <memory>
#include <random>

#include "golden/SmallBooks.h"

namespace pstolvane1 {

struct RandomShop {
  int years = 1;
  int least_rate = 5, most_rate = 40;  // of purchases
};

// Three items in three godowns, in two categories, two classes and no batches of their own. Dated
// movements of every year from 1 April 2003, bought (type 7) and sold (type 10) in whole pieces,
// and openings without a date in the first year. Within its godown an item is never below 0. Each
// dated movement has a document of its own, and the yearly totals hold the same.
[[nodiscard]] std::unique_ptr<golden::SmallBooks> RandomBooks(std::uint32_t seed,
                                                              const RandomShop& shop = {});

}  // namespace pstolvane1
