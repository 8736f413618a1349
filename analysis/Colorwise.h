// Quantities of items by colour, which an item has through its batches: per colour, a colour month
// by month, and the vouchers behind a month.
#pragma once

#include <cstdint>
#include <string>

#include "session/FilterClauses.h"
#include "session/ReportFrame.h"

namespace pstolvane1 {

struct ColorwiseArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  std::int32_t lngItem_id = 0;  // above 0 the one item
  std::string strItemstate, strConsiderForSih;
};

struct ColorMonthsArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  std::int32_t lngItem_id = 0;
  std::string lngColor_Id;  // stands in the queries as it is
};

struct ColorDaysArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  std::int32_t lngItem_id = 0;
  std::string lngColor_Id;
  std::string strRefSeperator = "/";
  bool blnUseLongDate = false;
};

// In all of them movements of voucher types 18 and 25 and optional ones do not count, and a row
// without a date passes the filter. None is normalised.

// One row an item and colour that it has a batch of, if anything moved: parent (the item),
// parent_id, uomname, child (the colour), child_id, opening, inwards, outwards. By item and colour.
[[nodiscard]] std::string ComposeColors(const ColorwiseArguments& arguments,
                                        const DocumentFilter& filter);
// uomname and opening, the quantity before the period; no row where the item has no batch of the
// colour.
[[nodiscard]] std::string ComposeColorOpening(const ColorMonthsArguments& arguments,
                                              const DocumentFilter& filter);
// One row a month of the period: inc_id, inwards, outwards.
[[nodiscard]] std::string ComposeColorMonths(const ColorMonthsArguments& arguments,
                                             const DocumentFilter& filter);
// One row a movement of the period whose document has a party, by date and keys.
[[nodiscard]] std::string ComposeColorDays(const ColorMonthsArguments& arguments,
                                           const DocumentFilter& filter);

// The one item and colour before the period. Error 3021 where the item has no batch of the colour.
struct ColorOpening {
  std::string unit;
  float quantity = 0;
};
[[nodiscard]] ColorOpening ReadColorOpening(ReportFrame& frame);

// Each needs nothing but the rows that its report has fetched, and mColorwise_Monthly its period.
[[nodiscard]] RecordsetPtr mColorwise_Initial(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mColorwise_Monthly(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mColorwise_Daily(ReportFrame& frame);

RecordsetPtr Colorwise_Initial(ReportFrame& frame, const ColorwiseArguments& arguments,
                               Boolean blnReport);
RecordsetPtr Colorwise_Monthly(ReportFrame& frame, const ColorMonthsArguments& arguments,
                               Boolean blnReport);
RecordsetPtr Colorwise_Daily(ReportFrame& frame, const ColorDaysArguments& arguments,
                             Boolean blnReport);

}  // namespace pstolvane1
