// What the free quantity reports mean by a line's free goods, as parts of their query texts.
//
// The free quantity of a line is what was moved less what was billed, in the unit of the line: 12
// Nos despatched and 10 billed leave 2 free; 3 Boxes despatched and 2 billed leave 1, valued at the
// rate of a box.
#pragma once

#include <string>
#include <string_view>

#include "session/data/Date.h"

namespace pstolvane1 {

// What a free quantity report is about: an item, or a party.
enum class FreeQuantityOf { kItem, kParty };

// On Desrdetails1. 0 is a line that comes in, 1 one that goes out.
inline constexpr std::string_view kFreeInOut =
    "CASE WHEN DESRDETAILS1.QTYDESPIN = 0 THEN 1 ELSE 0 END";
// In the main unit.
inline constexpr std::string_view kMovedQuantity =
    "(DESRDETAILS1.QTYDESPIN + DESRDETAILS1.QTYDESPOUT)";
inline constexpr std::string_view kFreeQuantity =
    "CASE WHEN DESRDETAILS1.ISALTUNIT = 0 "
    "THEN (DESRDETAILS1.QTYDESPIN + DESRDETAILS1.QTYDESPOUT) - DESRDETAILS1.BILLEDQTY "
    "ELSE DESRDETAILS1.ALTQTY - DESRDETAILS1.BILLEDQTY END";
inline constexpr std::string_view kFreeValue =
    "CASE WHEN DESRDETAILS1.ISALTUNIT = 0 "
    "THEN ((DESRDETAILS1.QTYDESPIN + DESRDETAILS1.QTYDESPOUT) - DESRDETAILS1.BILLEDQTY) * "
    "DESRDETAILS1.PRICE "
    "ELSE (DESRDETAILS1.ALTQTY - DESRDETAILS1.BILLEDQTY) * DESRDETAILS1.ALTRATE END";

// The condition on Desr1 that both reports share: live documents of the period.
[[nodiscard]] std::string LiveDocuments(Date from, Date to);

}  // namespace pstolvane1
