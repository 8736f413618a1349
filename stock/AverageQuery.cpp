#include <fmt/format.h>

#include "movements/GroupQuery.h"
#include "movements/QueryFilter.h"
#include "session/mInternationalization.h"
#include "stock/Average.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kKey =
    "GODOWNITEM1.YEARNO , GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID";

// What a line enters the average with: inwards its quantity, an outward opening line negative, any
// other outward line nothing.
constexpr std::string_view kEntering =
    "CASE WHEN isadded = true THEN godownitem1.qty ELSE CASE WHEN godownitem1.isopeningbal = true "
    "THEN -godownitem1.qty ELSE 0 END END";
constexpr std::string_view kQuantity =
    "SUM ( CASE WHEN ISADDED = -1 THEN GODOWNITEM1.QTY ELSE -GODOWNITEM1.QTY END )";

// The figures of the outer query, in its order.
constexpr std::string_view kFigures[] = {"qtybal",
                                         "avgrate",
                                         "totalvalue",
                                         "qtyinforcalculation",
                                         "totalvalueinforcalculation",
                                         "qtyop",
                                         "rateop",
                                         "valueop",
                                         "qtyinforcalculationop",
                                         "totalvalueinforcalculationop",
                                         "qtyin",
                                         "ratein",
                                         "valuein",
                                         "qtyout",
                                         "rateout",
                                         "valueout"};
constexpr std::size_t kClosingAt = 0, kOpeningAt = 5, kPeriodAt = 10;

// The position at a day under the names that begin at a place of kFigures. The rate is rounded to
// money and made positive before it is multiplied, so that the value has the quantity's sign.
std::vector<std::string> PositionExpressions() {
  const std::string entering = fmt::format("SUM ( {} )", kEntering);
  const std::string entering_value = fmt::format("SUM ( ({}) * GODOWNITEM1.RATE )", kEntering);
  const std::string average =
      fmt::format("CASE WHEN {0} <> 0 THEN {1} / {0} ELSE 0 END", entering, entering_value);
  return {std::string(kQuantity), average,
          fmt::format("ABS(CAST( {} AS MONEY)) * {}", average, kQuantity), entering,
          entering_value};
}

std::vector<std::string> PeriodExpressions() {
  std::vector<std::string> expressions;
  for (const std::string_view sense : {"-1", "0"}) {
    const auto sum = [sense](std::string_view of) {
      return fmt::format("SUM ( CASE WHEN ISADDED = {} THEN {} ELSE 0 END )", sense, of);
    };
    const std::string quantity = sum("GODOWNITEM1.QTY");
    const std::string value = sum("GODOWNITEM1.QTY * GODOWNITEM1.RATE");
    expressions.push_back(quantity);
    expressions.push_back(
        fmt::format("CASE WHEN {0} <> 0 THEN {1} / {0} ELSE 0 END", quantity, value));
    expressions.push_back(value);
  }
  return expressions;
}

// One SELECT of the union: its own figures, and 0 in those of the others, which keeps equal rows of
// different branches apart.
std::string Branch(std::size_t first, const std::vector<std::string>& expressions,
                   const QueryFilter& filter, std::string_view days, std::uint8_t bytYearno) {
  std::string text = fmt::format("select {} ", kKey);
  for (std::size_t i = 0; i < std::size(kFigures); ++i) {
    const bool own = i >= first && i < first + expressions.size();
    text += fmt::format(", {} as {} ", own ? expressions[i - first] : "0", kFigures[i]);
  }
  return text + fmt::format(
                    "from godownitem1 {} where {}GODOWNITEM1.OPTIONAL = 0 and GODOWNITEM1.YEARNO < "
                    "{} and {} group by {} ",
                    filter.Joins(), filter.Conditions(), bytYearno + 1, days, kKey);
}

std::string UpTo(std::string_view day) {
  return fmt::format("(GODOWNITEM1.DATE <= #{}# OR GODOWNITEM1.DATE IS NULL)", day);
}

}  // namespace

std::string ComposeAverage(const StockArguments& arguments, const DocumentFilter& filter) {
  const std::string from = SqlDateText(arguments.dtFromDate);
  const std::string to = SqlDateText(arguments.dtToDate);
  const std::string day_before = SqlDateText(Date(arguments.dtFromDate.Serial() - 1));
  const QueryFilter with_openings = FilterOfMovements(filter, Undated::kKept);
  const QueryFilter of_period = FilterOfMovements(filter, Undated::kDropped);
  const std::uint8_t year = arguments.bytYearno;

  std::string sums;
  for (const std::string_view figure : kFigures) sums += fmt::format(" , sum({0}) as {0}", figure);

  const std::vector<std::string> position = PositionExpressions();
  return fmt::format(
      "select GODOWN1.GODOWNNAME as GODOWN , ITEMS1.ITEMNAME as ITEMNAME , BATCHES1.BATCHCODE as "
      "BATCHCODE , ITEMS1.MaintainBatches as MaintainBatches , UOM1.UOMNAME as UOM , "
      "UOMALT.UOMNAME as ALTUOM , ITEMS1.RELATIONFORMULA as RELFORMULA , {}AAA.* from ((((( "
      "select Yearno , ITEM_ID , GODOWN_ID , BATCH_ID{} from ( {}union {}union {}) as BBB "
      "group by Yearno , ITEM_ID , GODOWN_ID , BATCH_ID ) as AAA "
      "inner join GODOWN1 on GODOWN1.GODOWN_ID = AAA.GODOWN_ID and GODOWN1.DELETED = 0 ) "
      "inner join ITEMS1 on ITEMS1.ITEM_ID = AAA.ITEM_ID and ITEMS1.DELETED = 0 ) "
      "inner join UOM1 on UOM1.UOM_ID = ITEMS1.UOM_ID ) "
      "inner join UOM1 AS  UOMALT on UOMALT.UOM_ID = ITEMS1.ALTERNATEUOM_ID ) "
      "inner join BATCHES1 on BATCHES1.BATCH_ID = AAA.BATCH_ID {} order by  Items1.ItemName,  "
      "aaa.item_Id , aaa.godown_Id , aaa.batch_Id ,  aaa.yearno ",
      SelectGroup(arguments.tree), sums,
      Branch(kClosingAt, position, with_openings, UpTo(to), year),
      Branch(kOpeningAt, position, with_openings, UpTo(day_before), year),
      Branch(kPeriodAt, PeriodExpressions(), of_period,
             fmt::format("( GODOWNITEM1.DATE BETWEEN  #{}# AND  #{}# )", from, to), year),
      arguments.condition);
}

}  // namespace pstolvane1
