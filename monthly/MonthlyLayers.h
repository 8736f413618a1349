// A month ledger in layers: first in first out, last in first out.
#pragma once

#include <string>

#include "monthly/MonthlyArguments.h"
#include "session/Launch.h"

namespace pstolvane1 {

// Each movement up to the last day, by stock key, and in a key by year, day and voucher line:
// item_id, godown_id, batch_id, qty, rate, isopeningbal, isadded, yearno, date, and the units uom,
// altuom, relformula.
[[nodiscard]] std::string ComposeMonthlyLayers(const MonthlyArguments& arguments);

[[nodiscard]] SourceQueries Monthly_Layers(const modStolvane1& module,
                                           const MonthlyArguments& arguments);
[[nodiscard]] RecordsetPtr mMonthly_Layers(ReportFrame& frame);

// The two methods are one; the method in the arguments tells them apart.
inline constexpr auto* mMonthly_Fifo = &mMonthly_Layers;
inline constexpr auto* mMonthly_Lifo = &mMonthly_Layers;

}  // namespace pstolvane1
