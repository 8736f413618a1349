// Movements in a test's own words.
#pragma once

#include "valuation/MovedLine.h"

namespace pstolvane1 {

// Bought and sold in the period.
inline MovedLine Bought(double quantity, double rate) {
  return {.inward = true,
          .enters = true,
          .in_closing = true,
          .came = true,
          .quantity = quantity,
          .amount = quantity * rate};
}
inline MovedLine Sold(double quantity, double rate) {
  return {.in_closing = true, .went = true, .quantity = quantity, .amount = quantity * rate};
}
// The same before it.
inline MovedLine Before(MovedLine line) {
  line.in_opening = true;
  line.came = line.went = false;
  return line;
}
// An opening line that takes from the stock.
inline MovedLine Owed(double quantity, double rate) {
  MovedLine line = Before(Sold(quantity, rate));
  line.enters = true;
  return line;
}
inline MovedLine WithoutQuantity(MovedLine line) {
  line.quantity = line.amount = {};
  return line;
}
inline MovedLine WithoutRate(MovedLine line) {
  line.amount = {};
  return line;
}

}  // namespace pstolvane1
