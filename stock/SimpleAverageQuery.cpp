#include <fmt/format.h>

#include "movements/GroupQuery.h"
#include "movements/QueryFilter.h"
#include "session/mInternationalization.h"
#include "stock/SimpleAverage.h"

namespace pstolvane1 {
namespace {

struct TotalNames {
  std::string_view quantity_opening, value_opening, quantity_in, value_in, quantity_out;
};

std::string Closing(const TotalNames& names) {
  return fmt::format(
      "( {0} + {1} - {2} ) as QTY_CLOSING , CASE WHEN ( {0} + {1} ) = 0   THEN 0 ELSE (( {3} + {4} "
      ") / ( {0} + {1}  )) * ( {0} + {1} - {2} ) END as VALUE_CLOSING",
      names.quantity_opening, names.quantity_in, names.quantity_out, names.value_opening,
      names.value_in);
}

}  // namespace

std::string ComposeSimpleAverageItems(const StockArguments& arguments) {
  return fmt::format(
      "select  {}ITEMS1.ITEM_ID , ITEMS1.ITEMNAME AS ITEMNAME , UOM1.UOMNAME , UOMALT1.UOMNAME AS "
      "ALTUOMNAME , ITEMS1.RELATIONFORMULA       from (( ITEMS1 inner join UOM1 on "
      "UOM1.UOM_ID = ITEMS1.UOM_ID ) inner join UOM1 AS UOMALT1 on UOMALT1.UOM_ID = "
      "ITEMS1.ALTERNATEUOM_ID ) Where YearofCreation <= {} AND ITEM_ID <= ( SELECT MAX(ITEM_ID) "
      "FROM ITEMDETAILSASLEDGER ) AND ITEMS1.DELETED = 0 {} order by Items1.ItemName , "
      "ITEMS1.ITEM_ID",
      SelectGroup(arguments.tree), arguments.bytYearno, arguments.condition);
}

std::string ComposeSimpleAverageYear(std::uint8_t bytYearno) {
  return fmt::format(
      "select ITEM_ID , OPENINGQUANTITY as QTY_OPENING , OPENINGVALUE as VALUE_OPENING , "
      "TOTALPURCHASEQUANTITY as QTY_INWARDS , TOTALPURCHASEVALUE as VALUE_INWARDS , "
      "TOTALSALESQUANTITY as QTY_OUTWARDS , TOTALSALESVALUE as VALUE_OUTWARDS , {} from "
      "ITEMDETAILSASLEDGER WHERE YEARNO = {}",
      Closing({.quantity_opening = "OPENINGQUANTITY",
               .value_opening = "OPENINGVALUE",
               .quantity_in = "TOTALPURCHASEQUANTITY",
               .value_in = "TOTALPURCHASEVALUE",
               .quantity_out = "TOTALSALESQUANTITY"}),
      bytYearno);
}

std::string ComposeSimpleAveragePeriod(const StockArguments& arguments, Date year_from,
                                       const DocumentFilter& filter) {
  const QueryFilter documents = FilterOfDocuments(filter);
  const std::string lines = fmt::format(
      "from DESRDETAILS1 INNER JOIN DESR1 ON DESRDETAILS1.DESR_ID = DESR1.DESR_ID {} where {}"
      "DESRDETAILS1.AFFECTSTOCK = TRUE AND DESR1.OPTIONAL = FALSE AND DESR1.DELETED = FALSE ",
      documents.Joins(), documents.Conditions());
  const std::string from = SqlDateText(arguments.dtFromDate);
  return fmt::format(
      "SELECT QRY1.* , {0} from ( select ITEM_ID , SUM ( QTY_OP ) as QTY_OPENING , SUM ( QTY_OP ) "
      "* CASE WHEN SUM(QTY_CAL) = 0 THEN 0 ELSE ( SUM ( QTY_VALUE ) / SUM ( QTY_CAL ) ) END as "
      "VALUE_OPENING , SUM ( QTY_IN ) as QTY_INWARDS , SUM ( VALUE_IN ) as VALUE_INWARDS , SUM ( "
      "QTY_OUT ) as QTY_OUTWARDS , SUM ( VALUE_OUT ) as VALUE_OUTWARDS from ( "
      "select ITEM_ID , OPENINGQUANTITY as QTY_CAL , OPENINGVALUE as QTY_VALUE , OPENINGQUANTITY "
      "as QTY_OP , 0 as QTY_IN , 0 as VALUE_IN , 0 as QTY_OUT , 0 as VALUE_OUT from "
      "ITEMDETAILSASLEDGER where YEARNO = {1} "
      "union select DESRDETAILS1.ITEM_ID , SUM ( DESRDETAILS1.QTYDESPIN ) as QTY_CAL , SUM ( "
      "DESRDETAILS1.QTYDESPIN * DESRDETAILS1.PRICE ) as QTY_VALUE , SUM ( DESRDETAILS1.QTYDESPIN - "
      "DESRDETAILS1.QTYDESPOUT ) as QTY_OP , 0 as QTY_IN , 0 as VALUE_IN , 0 as QTY_OUT , 0 as "
      "VALUE_OUT {2}and ( DESRDETAILS1.DESRDETDATE >= '{3}' AND DESRDETAILS1.DESRDETDATE < '{4}'  "
      ")  AND DESRDETAILS1.YEARNO = {1} group by DESRDETAILS1.ITEM_ID "
      "union select DESRDETAILS1.ITEM_ID , 0 as QTY_CAL , 0 as QTY_VALUE , 0 as QTY_OP , SUM ( "
      "DESRDETAILS1.QTYDESPIN ) as QTY_IN , SUM ( DESRDETAILS1.QTYDESPIN * DESRDETAILS1.PRICE ) as "
      "VALUE_IN , SUM ( DESRDETAILS1.QTYDESPOUT ) as QTY_OUT , SUM ( DESRDETAILS1.QTYDESPOUT * "
      "DESRDETAILS1.PRICE ) as VALUE_OUT {2}and ( DESRDETAILS1.DESRDETDATE BETWEEN  '{4}' AND "
      "'{5}'  ) group by DESRDETAILS1.ITEM_ID ) as QRY2 group by ITEM_ID ) as QRY1 ",
      Closing({.quantity_opening = "QTY_OPENING",
               .value_opening = "VALUE_OPENING",
               .quantity_in = "QTY_INWARDS",
               .value_in = "VALUE_INWARDS",
               .quantity_out = "QTY_OUTWARDS"}),
      arguments.bytYearno, lines, SqlDateText(year_from), from, SqlDateText(arguments.dtToDate));
}

}  // namespace pstolvane1
