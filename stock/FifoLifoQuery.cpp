#include <fmt/format.h>

#include "movements/QueryFilter.h"
#include "session/mInternationalization.h"
#include "stock/FifoLifo.h"
#include "stock/KeyQuery.h"

namespace pstolvane1 {
namespace {

// What a line is, in one number: cells are what a line costs. Its kind in StockLine, 4 times its
// sale, and 16 in the period. Opening lines have no date; an outward one is a negative layer and no
// sale.
constexpr std::string_view kLine =
    "CASE WHEN GODOWNITEM1.ISADDED = -1 THEN 1 WHEN GODOWNITEM1.ISOPENINGBAL = -1 THEN 2 WHEN "
    "GODOWNITEM1.ISADDED = 0 AND GODOWNITEM1.ISOPENINGBAL = 0 THEN 3 ELSE 0 END + CASE WHEN "
    "GODOWNITEM1.ISADDED = 0 AND GODOWNITEM1.DATE <= #{0}#{1} THEN CASE WHEN GODOWNITEM1.DATE < "
    "#{2}# THEN 4 ELSE 8 END ELSE 0 END + CASE WHEN GODOWNITEM1.DATE < #{2}# OR "
    "GODOWNITEM1.ISOPENINGBAL = -1 THEN 0 ELSE 16 END";
// The lines of a stock key one after another. Opening lines have neither date nor voucher line: the
// last column settles which comes first.
constexpr std::string_view kOldestFirst =
    "GODOWNITEM1.ITEM_ID ASC , GODOWNITEM1.GODOWN_ID ASC , GODOWNITEM1.BATCH_ID ASC , "
    "GODOWNITEM1.YEARNO ASC , GODOWNITEM1.DATE ASC , GODOWNITEM1.DESRDETAILS_ID ASC , "
    "GODOWNITEM1.GODOWNITEM_ID ASC";
constexpr std::string_view kNewestFirst =
    "GODOWNITEM1.ITEM_ID DESC , GODOWNITEM1.GODOWN_ID DESC , GODOWNITEM1.BATCH_ID DESC , "
    "GODOWNITEM1.YEARNO DESC , GODOWNITEM1.DATE DESC , GODOWNITEM1.DESRDETAILS_ID DESC , "
    "GODOWNITEM1.GODOWNITEM_ID DESC";

}  // namespace

std::string ComposeFifoLifo(const StockArguments& arguments, const DocumentFilter& filter) {
  const std::string from = SqlDateText(arguments.dtFromDate);
  const std::string to = SqlDateText(arguments.dtToDate);
  const std::string in_keys = fmt::format(
      "( GODOWNITEM1.DATE <= #{}# or GODOWNITEM1.ISOPENINGBAL = -1 ) and GODOWNITEM1.YEARNO <= {}",
      to, arguments.bytYearno);
  const QueryFilter with_openings = FilterOfMovements(filter, Undated::kKept);
  return ComposeKeysWithLines(
      arguments, KeyItems::kMadeByTheYear,
      {.filter = with_openings,
       .order = arguments.ValuationMethod == FifoRate ? kOldestFirst : kNewestFirst,
       .in_keys = in_keys,
       .condition = in_keys + " and GODOWNITEM1.OPTIONAL = 0",
       .line = fmt::format(kLine, to, with_openings.Joined(), from),
       .worth = "GODOWNITEM1.RATE AS RATE"});
}

}  // namespace pstolvane1
