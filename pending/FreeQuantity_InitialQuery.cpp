#include <fmt/format.h>

#include "pending/FreeQuantity_Initial.h"
#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

// Where an id stands in the lines, and the table of its name.
struct Side {
  std::string_view id, of_lines, table, name;
};
constexpr Side kItem = {"ITEM_ID", "DESRDETAILS1.ITEM_ID", "ITEMS1", "ITEMNAME"};
constexpr Side kParty = {"LEDGER_ID", "DESR1.LEDGER_ID", "LEDGERNAMES1", "LEDGERNAME"};

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

// The sums of a key, each of which has a row for each direction.
std::string SumsOfKey() {
  std::string text;
  for (const Figure& figure : kFigures) {
    for (int in_out = 0; in_out < 2; ++in_out) {
      text += fmt::format(" , SUM ( CASE WHEN IN_OUT = {} THEN {} ELSE 0 END ) AS {}_{}", in_out,
                          figure.source, kDirections[in_out], figure.name);
    }
  }
  return text;
}

std::string ScaledSums(const std::string& scale) {
  std::string text;
  for (const Figure& figure : kFigures) {
    for (const std::string_view direction : kDirections) {
      text += fmt::format(" , QRY2.{0}_{1}{2} AS {0}_{1}", direction, figure.name,
                          figure.is_money ? "/" + scale : "");
    }
  }
  return text;
}

// Quantities in the unit of their line, values at its rate, summed by the ids and the direction.
std::string SumsOfLines(const FreeSummaryArguments& arguments, const std::string& ids,
                        const std::string& ids_of_lines) {
  return fmt::format(
      "SELECT {0} , IN_OUT , SUM ( FREE_QTY ) AS FREE_QTY , SUM ( FREE_VALUE ) AS FREE_VALUE , "
      "SUM ( ACTUAL_QTY ) AS ACTUAL_QTY , SUM ( ACTUAL_VALUE ) AS ACTUAL_VALUE FROM ( "
      "SELECT {1} , {2} AS IN_OUT , {3} AS FREE_QTY , {4} AS FREE_VALUE , "
      "CASE WHEN DESRDETAILS1.ISALTUNIT = 0 THEN {5} ELSE DESRDETAILS1.ALTQTY END AS ACTUAL_QTY , "
      "CASE WHEN DESRDETAILS1.ISALTUNIT = 0 THEN {5} * DESRDETAILS1.PRICE "
      "ELSE DESRDETAILS1.ALTQTY * DESRDETAILS1.ALTRATE END AS ACTUAL_VALUE "
      "FROM DESR1 INNER JOIN DESRDETAILS1 ON DESRDETAILS1.DESR_ID = DESR1.DESR_ID "
      "INNER JOIN LEDGERNAMES1 ON LEDGERNAMES1.LEDGER_ID = DESR1.LEDGER_ID "
      "INNER JOIN ITEMS1 ON ITEMS1.ITEM_ID = DESRDETAILS1.ITEM_ID "
      "WHERE {6} AND ITEMS1.DELETED = 0 ) AS LINES1 GROUP BY {0} , IN_OUT",
      ids, ids_of_lines, kFreeInOut, kFreeQuantity, kFreeValue, kMovedQuantity,
      LiveDocuments(arguments.dtFromDate, arguments.dtToDate));
}

std::string JoinOf(const Side& side) {
  return fmt::format("INNER JOIN {0} ON {0}.{1} = QRY2.{1} ", side.table, side.id);
}

}  // namespace

// The lines are summed before the names are joined to the few sums.
std::string ComposeFreeQuantity_Initial(const FreeSummaryArguments& arguments) {
  const bool of_item = arguments.of == FreeQuantityOf::kItem;
  const Side& parent = of_item ? kItem : kParty;
  const Side& child = of_item ? kParty : kItem;
  const bool detailed = arguments.blnDetailed;
  const std::string ids =
      detailed ? fmt::format("{} , {}", parent.id, child.id) : std::string(parent.id);
  const std::string ids_of_lines = detailed
                                       ? fmt::format("{} , {}", parent.of_lines, child.of_lines)
                                       : std::string(parent.of_lines);
  const std::string children = detailed ? fmt::format("{}.{} AS CHILD , QRY2.{} AS CHILD_ID",
                                                      child.table, child.name, child.id)
                                        : "'' AS CHILD , 1 AS CHILD_ID";
  return fmt::format(
      "SELECT {0}.{1} AS PARENT , QRY2.{2} AS PARENT_ID , {3}{4} FROM ( SELECT {5}{6} FROM ( {7} ) "
      "AS QRY1 GROUP BY {5} ) AS QRY2 {8}{9}ORDER BY {0}.{1} , QRY2.{2}{10}",
      parent.table, parent.name, parent.id, children, ScaledSums(SingleText(arguments.sngScale)),
      ids, SumsOfKey(), SumsOfLines(arguments, ids, ids_of_lines), JoinOf(parent),
      detailed ? JoinOf(child) : "",
      detailed ? fmt::format(" , {}.{} , QRY2.{}", child.table, child.name, child.id) : "");
}

}  // namespace pstolvane1
