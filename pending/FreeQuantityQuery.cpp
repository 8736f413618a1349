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

// A line's movements stand beside it, so that it is found once; one in a godown or of a batch that
// is not there has no ids.
constexpr std::string_view kGodownColumns =
    " , GODOWN1.GODOWN_ID , BATCHES1.BATCH_ID , GODOWN1.GODOWNNAME AS GODOWNNAME , "
    "BATCHES1.BATCHCODE AS BATCHCODE , GODOWNITEM1.QTY AS GODOWN_QTY , "
    "GODOWNITEM1.ALTQTY AS GODOWN_ALTQTY , GODOWNITEM1.ISALTUNIT AS GODOWN_ISALTUNIT";
constexpr std::string_view kGodowns =
    "LEFT JOIN GODOWNITEM1 ON GODOWNITEM1.DESRDETAILS_ID = DESRDETAILS1.DESRDETAILS_ID "
    "LEFT JOIN GODOWN1 ON GODOWN1.GODOWN_ID = GODOWNITEM1.GODOWN_ID AND GODOWN1.DELETED = 0 "
    "LEFT JOIN BATCHES1 ON BATCHES1.BATCH_ID = GODOWNITEM1.BATCH_ID ";

}  // namespace

std::string ComposeFreeQuantity(const FreeQuantityArguments& arguments) {
  const bool detailed = arguments.blnDetailed;
  return fmt::format(
      "SELECT DESR1.DATE , LEDGERNAMES1.LEDGERNAME AS LEDGERNAME , VOUCHERTYPE1.VOUCHERTYPE , "
      "DESR1.PREFIX , DESR1.DESRREFNO AS REFNO , DESR1.SUFFIX , DESR1.NARRATION , "
      "DESR1.DESR_ID , DESR1.RELATED_ID AS VOUCHER_ID , {in_out} AS IN_OUT , "
      "{moved} AS ACTUAL_QTY , ({moved} * DESRDETAILS1.PRICE)/{scale} AS ACTUAL_VALUE , "
      "DESRDETAILS1.ALTQTY AS ALTERNATE_QTY , {free} AS FREE_QTY , "
      "({value})/{scale} AS FREE_VALUE , UOM1.UOMNAME , ALTUOM1.UOMNAME AS ALTUOMNAME , "
      "DESRDETAILS1.ACTUALRATE , DESRDETAILS1.ALTRATE , DESRDETAILS1.ISALTUNIT , "
      "DESRDETAILS1.ISALTRATE , DESRDETAILS1.DESRDETAILS_ID , DESR1.OPTIONAL{godown_columns} "
      "FROM DESR1 INNER JOIN DESRDETAILS1 ON DESRDETAILS1.DESR_ID = DESR1.DESR_ID "
      "INNER JOIN VOUCHERTYPE1 ON VOUCHERTYPE1.VOUCHERTYPE_ID = DESR1.VOUCHERTYPE_ID "
      "INNER JOIN LEDGERNAMES1 ON LEDGERNAMES1.LEDGER_ID = DESR1.LEDGER_ID "
      "INNER JOIN ITEMS1 ON ITEMS1.ITEM_ID = DESRDETAILS1.ITEM_ID "
      "INNER JOIN UOM1 ON UOM1.UOM_ID = ITEMS1.UOM_ID "
      "INNER JOIN UOM1 AS ALTUOM1 ON ALTUOM1.UOM_ID = ITEMS1.ALTERNATEUOM_ID {godowns}"
      "WHERE {conditions} AND ITEMS1.DELETED = 0 "
      "ORDER BY DESR1.DATE , DESR1.DESR_ID , DESRDETAILS1.DESRDETAILS_ID{of_line}",
      fmt::arg("in_out", kFreeInOut), fmt::arg("moved", kMovedQuantity),
      fmt::arg("scale", SingleText(arguments.sngScale)), fmt::arg("free", kFreeQuantity),
      fmt::arg("value", kFreeValue), fmt::arg("godown_columns", detailed ? kGodownColumns : ""),
      fmt::arg("godowns", detailed ? kGodowns : ""), fmt::arg("conditions", Conditions(arguments)),
      fmt::arg("of_line", detailed ? " , GODOWNITEM1.GODOWNITEM_ID" : ""));
}

}  // namespace pstolvane1
