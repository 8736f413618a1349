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
    "CASE WHEN ISADDED = -1 THEN 1 WHEN ISOPENINGBAL = -1 THEN 2 WHEN ISADDED = 0 AND ISOPENINGBAL "
    "= 0 THEN 3 ELSE 0 END + CASE WHEN ISADDED = 0 AND GODOWNITEM1.DATE <= #{0}#{1} THEN CASE WHEN "
    "GODOWNITEM1.DATE < #{2}# THEN 4 ELSE 8 END ELSE 0 END + CASE WHEN GODOWNITEM1.DATE < #{2}# OR "
    "ISOPENINGBAL = -1 THEN 0 ELSE 16 END";
// The lines of a stock key one after another. Opening lines have neither date nor voucher line: the
// last column settles which comes first.
constexpr std::string_view kOldestFirst =
    "GODOWNITEM1.ITEM_ID ASC , GODOWNITEM1.GODOWN_ID ASC , GODOWNITEM1.BATCH_ID ASC , "
    "Godownitem1.YEARNO ASC , GODOWNITEM1.DATE ASC , DESRDETAILS_ID ASC , GODOWNITEM_ID ASC";
constexpr std::string_view kNewestFirst =
    "GODOWNITEM1.ITEM_ID DESC , GODOWNITEM1.GODOWN_ID DESC , GODOWNITEM1.BATCH_ID DESC , "
    "Godownitem1.YEARNO DESC , GODOWNITEM1.DATE DESC , DESRDETAILS_ID DESC , GODOWNITEM_ID DESC";

struct Texts {
  std::string from, to;
  int year;
  QueryFilter filter;
};

std::string Keys(const Texts& texts) {
  return fmt::format(
      "select distinct GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID from "
      "GODOWNITEM1 {} where {}( GODOWNITEM1.DATE <= #{}# or GODOWNITEM1.ISOPENINGBAL = -1 ) and "
      "GODOWNITEM1.YEARNO <= {}",
      texts.filter.Joins(), texts.filter.Conditions(), texts.to, texts.year);
}

std::string Lines(enmValuationMethod method, const Texts& texts) {
  return fmt::format(
      "SELECT ITEM_ID , GODOWN_ID , BATCH_ID , {0} AS LINE , GODOWNITEM1.YEARNO , CAST ( QTY AS "
      "FLOAT ) AS QUANTITY , GODOWNITEM1.RATE AS RATE from GODOWNITEM1 {1} where {2} ( "
      "GODOWNITEM1.DATE <= #{3}# OR ISOPENINGBAL = -1 ) AND GODOWNITEM1.OPTIONAL = 0 AND "
      "GODOWNITEM1.YEARNO <= {4} ORDER BY {5}",
      fmt::format(kLine, texts.to, texts.filter.Joined(), texts.from), texts.filter.Joins(),
      texts.filter.Conditions(), texts.to, texts.year,
      method == FifoRate ? kOldestFirst : kNewestFirst);
}

}  // namespace

std::string ComposeFifoLifo(const StockArguments& arguments, const DocumentFilter& filter) {
  const Texts texts{.from = SqlDateText(arguments.dtFromDate),
                    .to = SqlDateText(arguments.dtToDate),
                    .year = arguments.bytYearno,
                    .filter = FilterOfMovements(filter, Undated::kKept)};
  return fmt::format(
      "SHAPE {{ {} }} APPEND ( {{ {} }} RELATE ITEM_ID TO ITEM_ID , GODOWN_ID TO GODOWN_ID , "
      "BATCH_ID TO BATCH_ID ) AS CHPTRANS ",
      ComposeNamedKeys(arguments, KeyItems::kMadeByTheYear, Keys(texts)),
      Lines(arguments.ValuationMethod, texts));
}

}  // namespace pstolvane1
