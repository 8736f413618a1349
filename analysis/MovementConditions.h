// What the queries of the movement analyses have in common. Pure texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "analysis/MovementFigures.h"
#include "session/FilterClauses.h"
#include "session/data/Date.h"

namespace pstolvane1 {

// The money value of a document line whose quantity is that text: the price is per unit or, with
// isaltrate, per alternate unit, and the quantity is in units or, with isaltunit, in alternate
// ones.
[[nodiscard]] std::string LineValue(std::string_view quantity);

// The quantities of a side, as sums of the lines: in, out.
struct MovementQuantities {
  std::string_view in, out;
};
[[nodiscard]] MovementQuantities QuantitiesOf(MovementSide side);

// The tables of the documents' lines, and SetFilter's restrictions on the documents with " and "
// behind each.
inline constexpr std::string_view kMovementTables =
    "desr1 inner join ledgernames1 on ledgernames1.ledger_id = desr1.ledger_id "
    "inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id "
    "inner join items1 on items1.item_id = desrdetails1.item_id "
    "inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id ";
[[nodiscard]] std::string FilterOfAnalysis(const DocumentFilter& filter);
// Sales with their returns, or purchases with theirs.
[[nodiscard]] std::string_view DocumentsOf(MovementSide side);
// " and desr1.date BETWEEN ...".
[[nodiscard]] std::string DatedBetween(Date from, Date to);
// " And ..." of the item state clause; "" without one.
[[nodiscard]] std::string StatesOf(std::string_view strConsiderForSih,
                                   std::string_view strItemstate);

}  // namespace pstolvane1
