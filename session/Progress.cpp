#include "session/Progress.h"

#include <algorithm>
#include <cmath>

#include "session/data/Error.h"

namespace pstolvane1 {

std::uint8_t Progress::Step(std::int32_t lngCount, std::int32_t lngRange) {
  const float step =
      lngCount == 0 ? 1.0F : static_cast<float>(static_cast<double>(lngRange) / lngCount);
  sngFetchPercent += step;
  if (sngFetchPercent > sngFetchCeiling) sngFetchPercent = sngFetchCeiling;
  return Percent();
}

std::uint8_t Progress::Percent() const {
  const float rounded = std::nearbyint(std::min(sngFetchPercent, sngFetchCeiling));
  if (!(rounded >= 0 && rounded <= 255)) {
    throw Error(ErrorNumber::kOverflow, "the percentage of a report does not fit into a byte");
  }
  return static_cast<std::uint8_t>(rounded);
}

}  // namespace pstolvane1
