#include "stock/HuntedRateQuery.h"

#include <fmt/format.h>

#include "movements/QueryFilter.h"
#include "session/mInternationalization.h"
#include "stock/KeyQuery.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kFigures = ", QTYOP , QTYIN , VALUEIN , QTYOUT , VALUEOUT ";
constexpr std::string_view kQuantity = "GODOWNITEM1.QTY";
constexpr std::string_view kValue = "GODOWNITEM1.QTY * GODOWNITEM1.RATE";

struct Keys {
  KeyItems items;
  bool moved_later;  // also those that move after the period alone
};

Keys KeysOf(enmValuationMethod method) {
  if (method == standardrate || method == StandardPrice) return {KeyItems::kMadeByTheYear, false};
  return {KeyItems::kAll, true};
}

// The figures of each key in one pass. Lines behind the period, where they are read, are Null to a
// sum.
std::string Sums(const StockArguments& arguments, const QueryFilter& filter, bool moved_later) {
  const std::string from = SqlDateText(arguments.dtFromDate);
  const std::string in_time =
      fmt::format("( GODOWNITEM1.DATE <= #{}# or GODOWNITEM1.ISOPENINGBAL = -1 )",
                  SqlDateText(arguments.dtToDate));
  const auto sum = [&](const std::string& value) {
    return moved_later ? fmt::format("sum ( CASE WHEN {} THEN {} END )", in_time, value)
                       : fmt::format("sum ( {} )", value);
  };
  const auto in_period = [&](std::string_view sense, std::string_view value) {
    return sum(fmt::format(
        "CASE WHEN GODOWNITEM1.ISADDED = {} and GODOWNITEM1.ISOPENINGBAL = 0 and GODOWNITEM1.DATE "
        ">= #{}# THEN {} ELSE 0 END",
        sense, from, value));
  };
  return fmt::format(
      "select GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID , {} as QTYOP , "
      "{} as QTYIN , {} as VALUEIN , {} as QTYOUT , {} as VALUEOUT from GODOWNITEM1 {} where {}"
      "GODOWNITEM1.OPTIONAL = 0 and GODOWNITEM1.YEARNO <= {}{} group by GODOWNITEM1.ITEM_ID , "
      "GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID",
      sum(fmt::format(
          "CASE WHEN GODOWNITEM1.ISOPENINGBAL = -1 or GODOWNITEM1.DATE < #{}# THEN CASE WHEN "
          "GODOWNITEM1.ISADDED = -1 THEN {} ELSE -{} END ELSE 0 END",
          from, kQuantity, kQuantity)),
      in_period("-1", kQuantity), in_period("-1", kValue), in_period("0", kQuantity),
      in_period("0", kValue), filter.Joins(), filter.Conditions(), arguments.bytYearno,
      moved_later ? "" : " and " + in_time);
}

}  // namespace

std::string ComposeHuntedRate(const StockArguments& arguments, const DocumentFilter& filter) {
  const QueryFilter with_openings = FilterOfMovements(filter, Undated::kKept);
  const Keys keys = KeysOf(arguments.ValuationMethod);
  return ComposeNamedKeys(arguments, keys.items, Sums(arguments, with_openings, keys.moved_later),
                          kFigures);
}

}  // namespace pstolvane1
