// How far a report is, as the host is told. Pure arithmetic.
#pragma once

#include <cstdint>

namespace pstolvane1 {

// The percentage only rises, up to a ceiling, over all reports of a session: 20 while a report
// fetches, 60 while its lines are written. It is never reset; the first step of the next report
// brings it down to the ceiling of 20.
//
// 4 rows: each row's step is 60 / 4 = 15, so after fetching (20) the rows give 35, 50, 60, 60.
struct Progress {
  float sngFetchPercent = 0;
  float sngFetchCeiling = 20;

  // A step of lngRange / lngCount, of 1 where lngCount is 0. Gives the percentage, rounded half to
  // even. Error 6 outside 0 to 255, which only a count or range below 0 can lead to.
  std::uint8_t Step(std::int32_t lngCount, std::int32_t lngRange);
  // Where it stands, without a step.
  [[nodiscard]] std::uint8_t Percent() const;
};

}  // namespace pstolvane1
