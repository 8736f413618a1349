#include "valuation/AverageFold.h"

#include <cmath>

namespace pstolvane1 {

void AverageFold::AddYear(const AverageYear& year) {
  const auto quantity = static_cast<double>(year.quantity);
  const auto entering = static_cast<double>(year.entering_quantity);
  position_.quantity = ToSingle(static_cast<double>(position_.quantity) + quantity);
  base_quantity_ = ToSingle(static_cast<double>(base_quantity_) + entering);
  base_value_ += year.entering_value;
  if (base_quantity_ != 0) {
    const double rate = std::fabs(base_value_.ToDouble() / static_cast<double>(base_quantity_));
    position_.value = ValueAt(static_cast<double>(position_.quantity), rate);
  }
  if (base_ == AverageBase::kRestartsEachYear) {
    base_quantity_ = ToSingle(static_cast<double>(base_quantity_) - (entering - quantity));
    base_value_ = position_.value;
  }
}

}  // namespace pstolvane1
