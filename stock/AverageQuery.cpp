#include <fmt/format.h>

#include "movements/QueryFilter.h"
#include "session/mInternationalization.h"
#include "stock/Average.h"
#include "stock/KeyQuery.h"
#include "stock/SummedLines.h"

namespace pstolvane1 {
namespace {

std::string UpTo(std::string_view day) {
  return fmt::format("(GODOWNITEM1.DATE <= #{}# OR GODOWNITEM1.DATE IS NULL)", day);
}

}  // namespace

// One pass over the movements of all years up to the report's.
std::string ComposeAverage(const StockArguments& arguments, const DocumentFilter& filter) {
  const Date day_before(arguments.dtFromDate.Serial() - 1);
  // In a period that is turned round the opening reaches beyond the closing.
  const bool turned = arguments.dtToDate < day_before;
  const std::string up_to = UpTo(SqlDateText(arguments.dtToDate));
  const std::string before = UpTo(SqlDateText(day_before));
  const QueryFilter with_openings = FilterOfMovements(filter, Undated::kKept);
  const std::string lines =
      fmt::format("GODOWNITEM1.OPTIONAL = 0 and GODOWNITEM1.YEARNO < {} and {}",
                  arguments.bytYearno + 1, turned ? before : up_to);
  return ComposeKeysWithLines(
      arguments, KeyItems::kAll,
      {.filter = with_openings,
       .order = kByKeyAndYear,
       .in_keys = lines,
       .condition = lines,
       .line = ComposeSummedLine(
           {.average = "GODOWNITEM1.ISADDED = -1 or GODOWNITEM1.ISOPENINGBAL = -1",
            .opening = before,
            .closing = turned ? up_to : std::string(),
            .period = fmt::format("GODOWNITEM1.DATE BETWEEN #{}# AND #{}#{}",
                                  SqlDateText(arguments.dtFromDate),
                                  SqlDateText(arguments.dtToDate), with_openings.Joined())}),
       .worth = kAmount,
       .by_year = IsFirstYear(arguments.bytYearno)});
}

}  // namespace pstolvane1
