// The queries of the rates that stock is valued at: standard ones, and those of actual movements.
// Pure texts, not normalised.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/enmValuationMethod.h"

namespace pstolvane1 {

// Dates come as SqlDateText gives them. All years up to bytYearno are read.

enum class StandardRates { kCosts, kAll };

// The standard rates that a method searches: costs alone for LastPurchaseRate and standardrate.
[[nodiscard]] StandardRates StandardRatesOf(enmValuationMethod method);

// The rows of Standardrate1 that end by a day, the one in force last.
[[nodiscard]] std::string ComposeStandardRates(StandardRates which, std::string_view to,
                                               std::uint8_t bytYearno);

// Which lines of Godownitem1 give an actual rate to a method that hunts for its rate, with " and "
// behind: opening lines, and those of the documents that the method looks at. Those are purchases,
// inward lines alone, for LastPurchaseRate and standardrate, and sales for the two others.
[[nodiscard]] std::string ActualRateCondition(enmValuationMethod method);

// Those lines up to a day, the latest last: item_id, godown_id, batch_id, rate, isopeningbal,
// yearno, date, and isadded where the method looks at lines of both senses. The latest is that of
// the last year for the last purchase and the last sale, and that of the last day for the others.
[[nodiscard]] std::string ComposeActualRates(enmValuationMethod method, std::string_view to,
                                             std::uint8_t bytYearno);

}  // namespace pstolvane1
