#include <fmt/format.h>

#include "movements/GroupQuery.h"
#include "movements/QueryFilter.h"
#include "session/mInternationalization.h"
#include "stock/FifoLifo.h"

namespace pstolvane1 {
namespace {

// Opening lines have no date; an outward one is a negative layer and no sale.
constexpr std::string_view kQuantityIn =
    "CASE WHEN ISADDED = -1 OR ISOPENINGBAL = -1 THEN CASE WHEN ISADDED = -1 THEN QTY ELSE -QTY "
    "END ELSE 0 END";
constexpr std::string_view kQuantityOut =
    "CASE WHEN ISADDED = 0 AND ISOPENINGBAL = 0  THEN QTY ELSE 0 END";
constexpr std::string_view kValueIn =
    "CASE WHEN ISADDED = -1 OR ISOPENINGBAL = -1 THEN CASE WHEN ISADDED = -1 THEN QTY* "
    "Godownitem1.RATE ELSE -QTY* Godownitem1.RATE END ELSE 0 END";
constexpr std::string_view kRelate =
    "RELATE ITEM_ID TO ITEM_ID , GODOWN_ID TO GODOWN_ID , BATCH_ID TO BATCH_ID ";
// Opening lines have neither date nor voucher line: the last column settles which comes first.
constexpr std::string_view kOldestFirst =
    "Godownitem1.YEARNO ASC , GODOWNITEM1.DATE ASC , DESRDETAILS_ID ASC , GODOWNITEM_ID ASC";
constexpr std::string_view kNewestFirst =
    "Godownitem1.YEARNO DESC , GODOWNITEM1.DATE DESC , DESRDETAILS_ID DESC , GODOWNITEM_ID DESC";

struct Texts {
  std::string from, to;
  int year;
  QueryFilter with_openings, dated;
  std::string book;
};

std::string Parent(const StockArguments& arguments, const Texts& texts) {
  const std::string group = GroupByGroup(arguments.tree);
  return fmt::format(
      "SELECT GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID , "
      "{}ITEMS1.ITEMNAME as Itemname , "
      "GODOWN1.GODOWNNAME as Godownname , BATCHES1.BATCHCODE as BatchCode , "
      "ITEMS1.MaintainBatches , UOM1.UOMNAME as Uomname , UOMALT1.UOMNAME as ALTUOMNAME , "
      "ITEMS1.RelationFormula from (((( ITEMS1 Inner Join GodownItem1 on GODOWNITEM1.ITEM_ID = "
      "ITEMS1.ITEM_ID ) inner join GODOWN1 on GODOWN1.GODOWN_ID = GODOWNITEM1.GODOWN_ID ) "
      "inner join UOM1 on UOM1.UOM_ID = ITEMS1.UOM_ID ) "
      "inner join UOM1 AS UOMALT1 on UOMALT1.UOM_ID = ITEMS1.ALTERNATEUOM_ID ) "
      "inner join BATCHES1 on BATCHES1.BATCH_ID = GODOWNITEM1.BATCH_ID {} "
      "WHERE {}Items1.YearOfCreation <= {}  and ( GODOWNITEM1.Date <= #{}# OR "
      "GODOWNITEM1.ISOPENINGBAL = -1 ) "
      "and GODOWNITEM1.YEARNO <= {} and ITEMS1.DELETED = 0 AND GODOWN1.DELETED = "
      "FALSE {} group by GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID , "
      "{}ITEMS1.ITEMNAME , "
      "GODOWN1.GODOWNNAME , BATCHES1.BATCHCODE , ITEMS1.MaintainBatches , UOM1.UOMNAME , "
      "UOMALT1.UOMNAME , ITEMS1.RelationFormula Order By Items1.ItemName , "
      "GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID ",
      SelectGroup(arguments.tree), texts.with_openings.Joins(), texts.with_openings.Conditions(),
      texts.year, texts.to, texts.year, arguments.condition, group);
}

std::string Lines(enmValuationMethod method, const Texts& texts) {
  return fmt::format(
      "SELECT ITEM_ID , GODOWN_ID , BATCH_ID , {0} AS QTYIN , {1} AS QTYOUT , GODOWNITEM1.RATE AS "
      "RATE , ({0}) * GODOWNITEM1.RATE AS VALUEIN , ({1}) * GODOWNITEM1.RATE AS VALUEOUT , "
      "GODOWNITEM1.YEARNO , GODOWNITEM1.DATE , DESRDETAILS_ID , ISOPENINGBAL , {2} AS BOOK_ID "
      "from GODOWNITEM1 {3} where {4} ( GODOWNITEM1.DATE <= #{5}# OR ISOPENINGBAL = -1 ) AND "
      "GODOWNITEM1.OPTIONAL = 0  AND GODOWNITEM1.YEARNO <= {6} ORDER BY {7}",
      kQuantityIn, kQuantityOut, texts.book, texts.with_openings.Joins(),
      texts.with_openings.Conditions(), texts.to, texts.year,
      method == FifoRate ? kOldestFirst : kNewestFirst);
}

std::string Sales(const Texts& texts) {
  return fmt::format(
      "SELECT ITEM_ID , GODOWN_ID , BATCH_ID , SUM ( CASE WHEN GODOWNITEM1.DATE < #{0}# THEN QTY "
      "ELSE 0 END ) AS TOTALSALESBEFOREDATE , SUM ( CASE WHEN GODOWNITEM1.DATE >= #{0}# THEN QTY "
      "ELSE 0 END ) AS TOTALSALESBETWEENDATE from GODOWNITEM1 {1} where {2}GODOWNITEM1.DATE <= "
      "#{3}#  AND ISADDED = 0  AND GODOWNITEM1.OPTIONAL = 0 AND GODOWNITEM1.YEARNO <= {4} "
      "GROUP BY ITEM_ID , GODOWN_ID , BATCH_ID ",
      texts.from, texts.dated.Joins(), texts.dated.Conditions(), texts.to, texts.year);
}

std::string Years(const Texts& texts) {
  return fmt::format(
      "SELECT ITEM_ID , GODOWN_ID , BATCH_ID , GODOWNITEM1.YEARNO , {0} AS BOOK_ID , SUM ( {1} ) "
      "AS QTYIN , SUM ( {2} ) AS VALUEIN , SUM ( {3} ) AS QTYOUT from GODOWNITEM1 {4} where {5} ( "
      "GODOWNITEM1.DATE <= #{6}# OR ISOPENINGBAL = -1 ) AND GODOWNITEM1.OPTIONAL = 0  AND "
      "GODOWNITEM1.YEARNO <= {7} GROUP BY GODOWNITEM1.YEARNO , {0} , ITEM_ID , GODOWN_ID , "
      "BATCH_ID ",
      texts.book, kQuantityIn, kValueIn, kQuantityOut, texts.with_openings.Joins(),
      texts.with_openings.Conditions(), texts.to, texts.year);
}

}  // namespace

std::string ComposeFifoLifo(const StockArguments& arguments, const DocumentFilter& filter) {
  Texts texts{.from = SqlDateText(arguments.dtFromDate),
              .to = SqlDateText(arguments.dtToDate),
              .year = arguments.bytYearno,
              .with_openings = FilterOfMovements(filter, Undated::kKept),
              .dated = FilterOfMovements(filter, Undated::kDropped),
              .book = {}};
  texts.book = fmt::format(
      "CASE WHEN GODOWNITEM1.DATE < #{}# OR ISOPENINGBAL = -1  THEN 1 ELSE 2 END", texts.from);
  return fmt::format(
      "SHAPE {{ {} }} APPEND ( {{ {} }} {}) AS CHPTRANS , ( {{ {} }} {}) AS CHPSALES , ( {{ {} }} "
      "{}) AS CHPYEARLYAVG ",
      Parent(arguments, texts), Lines(arguments.ValuationMethod, texts), kRelate, Sales(texts),
      kRelate, Years(texts), kRelate);
}

}  // namespace pstolvane1
