// A month ledger at a rate that is hunted for: that of the last purchase or the last sale, the
// standard cost or the standard price.
#pragma once

#include <string>

#include "monthly/MonthlyArguments.h"
#include "session/Launch.h"

namespace pstolvane1 {

// One row a stock key for what was there before the period, opening lines included (month 0), and
// one a key and month of the period: item_id, godown_id, batch_id, qtyin, valuein, qtyout,
// valueout, inc_id.
[[nodiscard]] std::string ComposeMonthlyQuantities(const MonthlyArguments& arguments);
// The lines that give an actual rate, the latest last.
[[nodiscard]] std::string ComposeMonthlyActualRates(const MonthlyArguments& arguments);

// The four methods are one; the method in the arguments tells them apart.
[[nodiscard]] SourceQueries Monthly_HuntedRate(const modStolvane1& module,
                                               const MonthlyArguments& arguments);
[[nodiscard]] RecordsetPtr mMonthly_HuntedRate(ReportFrame& frame);

inline constexpr auto* mMonthly_LastPurchase = &mMonthly_HuntedRate;
inline constexpr auto* mMonthly_LastSale = &mMonthly_HuntedRate;
inline constexpr auto* mMonthly_StandardCost = &mMonthly_HuntedRate;
inline constexpr auto* mMonthly_StandardPrice = &mMonthly_HuntedRate;

}  // namespace pstolvane1
