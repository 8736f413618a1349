#include <fmt/format.h>

#include "pending/FreeQuantity_Initial.h"
#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

struct Side {
  std::string_view id, name;
};
constexpr Side kItem = {"ITEM_ID", "ITEMNAME"};
constexpr Side kParty = {"LEDGER_ID", "LEDGERNAME"};

struct Figure {
  std::string_view source, name;
  bool is_money;
};
constexpr Figure kFigures[] = {
    {"FREE_QTY", "FREEQTY", false},
    {"FREE_VALUE", "FREEVALUE", true},
    {"ACTUAL_QTY", "ACTUALQTY", false},
    {"ACTUAL_VALUE", "ACTUALVALUE", true},
};

constexpr std::string_view kDirections[] = {"INWARDS", "OUTWARDS"};  // by IN_OUT

std::string Sums(const std::string& scale) {
  std::string text;
  for (const Figure& figure : kFigures) {
    for (int in_out = 0; in_out < 2; ++in_out) {
      text += fmt::format(" , SUM ( CASE WHEN IN_OUT = {} THEN {} ELSE 0 END ){} AS {}_{}", in_out,
                          figure.source, figure.is_money ? "/" + scale : "", kDirections[in_out],
                          figure.name);
    }
  }
  return text;
}

// Quantities in the unit of their line, values at its rate.
std::string Lines(const FreeSummaryArguments& arguments) {
  return fmt::format(
      "SELECT LEDGERNAMES1.LEDGERNAME AS LEDGERNAME , LEDGERNAMES1.LEDGER_ID , "
      "ITEMS1.ITEMNAME AS ITEMNAME , ITEMS1.ITEM_ID , {} AS IN_OUT , {} AS FREE_QTY , "
      "{} AS FREE_VALUE , "
      "CASE WHEN DESRDETAILS1.ISALTUNIT = 0 THEN {} ELSE DESRDETAILS1.ALTQTY END AS ACTUAL_QTY , "
      "CASE WHEN DESRDETAILS1.ISALTUNIT = 0 THEN {} * DESRDETAILS1.PRICE "
      "ELSE DESRDETAILS1.ALTQTY * DESRDETAILS1.ALTRATE END AS ACTUAL_VALUE "
      "FROM DESR1 INNER JOIN DESRDETAILS1 ON DESRDETAILS1.DESR_ID = DESR1.DESR_ID "
      "INNER JOIN LEDGERNAMES1 ON LEDGERNAMES1.LEDGER_ID = DESR1.LEDGER_ID "
      "INNER JOIN ITEMS1 ON ITEMS1.ITEM_ID = DESRDETAILS1.ITEM_ID "
      "WHERE {} AND ITEMS1.DELETED = 0",
      kFreeInOut, kFreeQuantity, kFreeValue, kMovedQuantity, kMovedQuantity,
      LiveDocuments(arguments.dtFromDate, arguments.dtToDate));
}

}  // namespace

std::string ComposeFreeQuantity_Initial(const FreeSummaryArguments& arguments) {
  const bool of_item = arguments.of == FreeQuantityOf::kItem;
  const Side& parent = of_item ? kItem : kParty;
  const Side& child = of_item ? kParty : kItem;
  const std::string sums = Sums(SingleText(arguments.sngScale));
  const std::string lines = Lines(arguments);
  if (arguments.blnDetailed) {
    return fmt::format(
        "SELECT {0} AS PARENT , {1} AS PARENT_ID , {2} AS CHILD , {3} AS CHILD_ID{4} "
        "FROM ( {5} ) AS QRY1 GROUP BY {1} , {0} , {3} , {2} ORDER BY {0} , {1} , {2} , {3}",
        parent.name, parent.id, child.name, child.id, sums, lines);
  }
  return fmt::format(
      "SELECT {0} AS PARENT , {1} AS PARENT_ID , '' AS CHILD , 1 AS CHILD_ID{2} "
      "FROM ( {3} ) AS QRY1 GROUP BY {1} , {0} ORDER BY {0} , {1}",
      parent.name, parent.id, sums, lines);
}

}  // namespace pstolvane1
