#include "valuation/StockPeriod.h"

namespace pstolvane1 {

Date DayOf(Date date) {
  const Date::Parts parts = date.ToParts();
  return Date::FromYmd(parts.year, parts.month, parts.day);
}

}  // namespace pstolvane1
