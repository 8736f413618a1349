#include <array>
#include <fmt/format.h>

#include "pending/FreeQuantity.h"
#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

constexpr std::array<std::string_view, 3> kOptional = {" = 0 ", " = -1 ", " In (0,-1) "};

std::string Conditions(const FreeQuantityArguments& arguments) {
  std::string text = LiveDocuments(arguments.dtFromDate, arguments.dtToDate) + " AND ";
  if (arguments.lngLedger_Id != 0) {
    text += fmt::format(" DESR1.LEDGER_ID = {} AND ", arguments.lngLedger_Id);
  }
  if (arguments.lngItem_id != 0) {
    text += fmt::format(" DESRDETAILS1.ITEM_ID = {} AND ", arguments.lngItem_id);
  }
  const std::uint8_t optional = arguments.bytOptional > 2 ? 0 : arguments.bytOptional;
  return text + fmt::format("DESR1.OPTIONAL{}AND DESRDETAILS1.OPTIONAL = 0 AND {} <> 0",
                            kOptional.at(optional), kFreeQuantity);
}

std::string ComposeLines(const FreeQuantityArguments& arguments, const std::string& conditions) {
  return fmt::format(
      "SELECT DESR1.DATE , LEDGERNAMES1.LEDGERNAME AS LEDGERNAME , VOUCHERTYPE1.VOUCHERTYPE , "
      "DESR1.PREFIX , DESR1.DESRREFNO AS REFNO , DESR1.SUFFIX , DESR1.NARRATION , "
      "DESR1.DESR_ID , DESR1.RELATED_ID AS VOUCHER_ID , {in_out} AS IN_OUT , "
      "{moved} AS ACTUAL_QTY , ({moved} * DESRDETAILS1.PRICE)/{scale} AS ACTUAL_VALUE , "
      "DESRDETAILS1.ALTQTY AS ALTERNATE_QTY , {free} AS FREE_QTY , "
      "({value})/{scale} AS FREE_VALUE , UOM1.UOMNAME , ALTUOM1.UOMNAME AS ALTUOMNAME , "
      "DESRDETAILS1.ACTUALRATE , DESRDETAILS1.ALTRATE , DESRDETAILS1.ISALTUNIT , "
      "DESRDETAILS1.ISALTRATE , DESRDETAILS1.DESRDETAILS_ID , DESR1.OPTIONAL "
      "FROM DESR1 INNER JOIN DESRDETAILS1 ON DESRDETAILS1.DESR_ID = DESR1.DESR_ID "
      "INNER JOIN VOUCHERTYPE1 ON VOUCHERTYPE1.VOUCHERTYPE_ID = DESR1.VOUCHERTYPE_ID "
      "INNER JOIN LEDGERNAMES1 ON LEDGERNAMES1.LEDGER_ID = DESR1.LEDGER_ID "
      "INNER JOIN ITEMS1 ON ITEMS1.ITEM_ID = DESRDETAILS1.ITEM_ID "
      "INNER JOIN UOM1 ON UOM1.UOM_ID = ITEMS1.UOM_ID "
      "INNER JOIN UOM1 AS ALTUOM1 ON ALTUOM1.UOM_ID = ITEMS1.ALTERNATEUOM_ID "
      "WHERE {conditions} AND ITEMS1.DELETED = 0 "
      "ORDER BY DESR1.DATE , DESR1.DESR_ID , DESRDETAILS1.DESRDETAILS_ID",
      fmt::arg("in_out", kFreeInOut), fmt::arg("moved", kMovedQuantity),
      fmt::arg("scale", SingleText(arguments.sngScale)), fmt::arg("free", kFreeQuantity),
      fmt::arg("value", kFreeValue), fmt::arg("conditions", conditions));
}

// Only the movements of lines that can be listed are read.
std::string ComposeGodowns(const std::string& conditions) {
  return fmt::format(
      "SELECT GODOWNITEM1.DESRDETAILS_ID , GODOWNITEM1.QTY , GODOWNITEM1.ALTQTY , "
      "GODOWNITEM1.ISALTUNIT , GODOWN1.GODOWNNAME AS GODOWNNAME , "
      "BATCHES1.BATCHCODE AS BATCHCODE "
      "FROM DESR1 INNER JOIN DESRDETAILS1 ON DESRDETAILS1.DESR_ID = DESR1.DESR_ID "
      "INNER JOIN GODOWNITEM1 ON GODOWNITEM1.DESRDETAILS_ID = DESRDETAILS1.DESRDETAILS_ID "
      "INNER JOIN GODOWN1 ON GODOWN1.GODOWN_ID = GODOWNITEM1.GODOWN_ID "
      "INNER JOIN BATCHES1 ON BATCHES1.BATCH_ID = GODOWNITEM1.BATCH_ID "
      "WHERE {} AND GODOWN1.DELETED = 0 ORDER BY GODOWNITEM1.GODOWNITEM_ID",
      conditions);
}

}  // namespace

std::string ComposeFreeQuantity(const FreeQuantityArguments& arguments) {
  const std::string conditions = Conditions(arguments);
  std::string lines = ComposeLines(arguments, conditions);
  if (!arguments.blnDetailed) return lines;
  return fmt::format(
      "SHAPE {{ {} }} APPEND ( {{ {} }} RELATE DESRDETAILS_ID TO DESRDETAILS_ID ) AS CHPGODDETS",
      lines, ComposeGodowns(conditions));
}

}  // namespace pstolvane1
