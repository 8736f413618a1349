#include "stock/HuntedRateQuery.h"

#include <fmt/format.h>

#include "movements/QueryFilter.h"
#include "session/mInternationalization.h"
#include "stock/KeyQuery.h"
#include "stock/SummedLines.h"

namespace pstolvane1 {
namespace {

struct Keys {
  KeyItems items;
  bool moved_later;  // also those that move after the period alone
};

Keys KeysOf(enmValuationMethod method) {
  if (method == standardrate || method == StandardPrice) return {KeyItems::kMadeByTheYear, false};
  return {KeyItems::kAll, true};
}

}  // namespace

std::string ComposeHuntedRate(const StockArguments& arguments, const DocumentFilter& filter) {
  const std::string from = SqlDateText(arguments.dtFromDate);
  const std::string of_the_years =
      fmt::format("GODOWNITEM1.OPTIONAL = 0 and GODOWNITEM1.YEARNO <= {}", arguments.bytYearno);
  const std::string in_time =
      fmt::format("{} and ( GODOWNITEM1.DATE <= #{}# or GODOWNITEM1.ISOPENINGBAL = -1 )",
                  of_the_years, SqlDateText(arguments.dtToDate));
  const Keys keys = KeysOf(arguments.ValuationMethod);
  return ComposeKeysWithLines(
      arguments, keys.items,
      {.filter = FilterOfMovements(filter, Undated::kKept),
       .order = kByKeyAndYear,
       .in_keys = keys.moved_later ? of_the_years : in_time,
       .condition = in_time,
       .line = ComposeSummedLine(
           {.average = {},
            .opening =
                fmt::format("GODOWNITEM1.ISOPENINGBAL = -1 or GODOWNITEM1.DATE < #{}#", from),
            .closing = {},
            .period =
                fmt::format("GODOWNITEM1.ISOPENINGBAL = 0 and GODOWNITEM1.DATE >= #{}#", from)}),
       .worth = kAmount});
}

}  // namespace pstolvane1
