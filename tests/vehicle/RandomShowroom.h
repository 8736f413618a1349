// Small random books of a showroom, and what stands in them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "golden/SmallBooks.h"
#include "session/data/Currency.h"

namespace pstolvane1 {

// Bought in 2003-04, and sold in it if it has a buyer.
struct ShowroomVehicle {
  std::string chassis, buyer;
  int purchase_number = 0;
  Currency amount, paid;  // of the sale
  bool optional = false, deleted = false, audited = false;

  [[nodiscard]] bool IsSold() const { return !buyer.empty(); }
};
// A line of a service bill of 2003-04.
struct TaxedLine {
  int bill = 0;
  Currency amount, tax;
  bool deleted = false;  // its bill
};

struct Showroom {
  std::vector<ShowroomVehicle> vehicles;
  std::vector<TaxedLine> lines;  // those with a tax, in their order
  std::unique_ptr<golden::SmallBooks> books;
};
// Ten to thirty vehicles, each bought on a bill of its own, and five to twenty service bills of one
// to four lines. A deleted sale is audited.
[[nodiscard]] Showroom RandomShowroom(std::uint32_t seed);

}  // namespace pstolvane1
