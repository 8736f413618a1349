#include <fmt/format.h>
#include <utility>

#include "movements/GroupQuery.h"
#include "movements/QueryFilter.h"
#include "session/mInternationalization.h"
#include "stock/Average.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kKey =
    "GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID , GODOWNITEM1.YEARNO";

// What a line counts in the position with, and what it enters the average with: inwards its
// quantity, an outward opening line negative, any other outward line nothing. A sum takes Null for
// nothing, and costs an engine less than adding zeros.
constexpr std::string_view kMoved =
    "CASE WHEN ISADDED = -1 THEN GODOWNITEM1.QTY ELSE -GODOWNITEM1.QTY END";
constexpr std::string_view kEntering =
    "CASE WHEN ISADDED = -1 THEN GODOWNITEM1.QTY WHEN GODOWNITEM1.ISOPENINGBAL = -1 THEN "
    "-GODOWNITEM1.QTY END";

// A sum of the lines that meet a condition, or of all lines; never Null.
std::string Sum(std::string_view name, std::string_view value, std::string_view condition) {
  return condition.empty() ? fmt::format(" , ISNULL ( SUM ( {} ) , 0 ) as {}", value, name)
                           : fmt::format(" , ISNULL ( SUM ( CASE WHEN {} THEN {} END ) , 0 ) as {}",
                                         condition, value, name);
}

// The sums of a position. Its names end in "op" for the opening.
std::string PositionSums(std::string_view quantity, std::string_view op,
                         std::string_view condition) {
  return Sum(quantity, kMoved, condition) +
         Sum(fmt::format("qtyinforcalculation{}", op), kEntering, condition) +
         Sum(fmt::format("totalvalueinforcalculation{}", op),
             fmt::format("( {} ) * GODOWNITEM1.RATE", kEntering), condition);
}

// The sums of what moved in the period.
std::string PeriodSums(std::string_view days) {
  std::string sums;
  for (const auto& [side, sense] : {std::pair("in", "-1"), std::pair("out", "0")}) {
    const std::string condition = fmt::format("ISADDED = {} and {}", sense, days);
    sums += Sum(fmt::format("qty{}", side), "GODOWNITEM1.QTY", condition) +
            Sum(fmt::format("value{}", side), "GODOWNITEM1.QTY * GODOWNITEM1.RATE", condition);
  }
  return sums;
}

// A position's value. The rate is rounded to money and made positive before it is multiplied, so
// that the value has the quantity's sign.
std::string Valued(std::string_view op, std::string_view quantity, std::string_view value_name) {
  return fmt::format(
      " , ABS(CAST( CASE WHEN AAA.qtyinforcalculation{0} <> 0 THEN "
      "AAA.totalvalueinforcalculation{0} / AAA.qtyinforcalculation{0} ELSE 0 END AS MONEY)) * "
      "AAA.{1} as {2}",
      op, quantity, value_name);
}

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
  const std::string days =
      fmt::format("GODOWNITEM1.DATE BETWEEN #{}# AND #{}#{}", SqlDateText(arguments.dtFromDate),
                  SqlDateText(arguments.dtToDate), with_openings.Joined());
  return fmt::format(
      "select GODOWN1.GODOWNNAME as GODOWN , ITEMS1.ITEMNAME as ITEMNAME , BATCHES1.BATCHCODE as "
      "BATCHCODE , ITEMS1.MaintainBatches as MaintainBatches , UOM1.UOMNAME as UOM , "
      "UOMALT.UOMNAME as ALTUOM , ITEMS1.RELATIONFORMULA as RELFORMULA , {}AAA.*{}{} "
      "from ((((( select {}{}{}{} from GODOWNITEM1 {} where {}"
      "GODOWNITEM1.OPTIONAL = 0 and GODOWNITEM1.YEARNO < {} and {} group by {} ) as AAA "
      "inner join GODOWN1 on GODOWN1.GODOWN_ID = AAA.GODOWN_ID and GODOWN1.DELETED = 0 ) "
      "inner join ITEMS1 on ITEMS1.ITEM_ID = AAA.ITEM_ID and ITEMS1.DELETED = 0 ) "
      "inner join UOM1 on UOM1.UOM_ID = ITEMS1.UOM_ID ) "
      "inner join UOM1 AS  UOMALT on UOMALT.UOM_ID = ITEMS1.ALTERNATEUOM_ID ) "
      "inner join BATCHES1 on BATCHES1.BATCH_ID = AAA.BATCH_ID {}",
      SelectGroup(arguments.tree), Valued("", "qtybal", "totalvalue"),
      Valued("op", "qtyop", "valueop"), kKey, PositionSums("qtybal", "", turned ? up_to : ""),
      PositionSums("qtyop", "op", before), PeriodSums(days), with_openings.Joins(),
      with_openings.Conditions(), arguments.bytYearno + 1, turned ? before : up_to, kKey,
      arguments.condition);
}

}  // namespace pstolvane1
