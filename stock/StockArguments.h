// What a stock statement is asked for.
#pragma once

#include <cstdint>
#include <string>

#include "session/ValuationReports.h"
#include "session/data/Date.h"

namespace pstolvane1 {

struct StockArguments {
  StockTree tree = StockTree::kItem;
  std::uint8_t bytYearno = 0;  // rows of all years up to it are read
  Date dtFromDate, dtToDate;
  enmValuationMethod ValuationMethod = AverageRate;
  std::int32_t lngAny_Id1 = -1;  // the group whose tree is listed, -1 for the whole
  bool blnDetailed = false;
  bool blnAltUom = false;
  float sngScale = 1;
  bool blnOnlyItems = false;
  std::string condition = {};  // on items, with " And " in front, or ""
};

}  // namespace pstolvane1
