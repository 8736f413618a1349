// Stock in layers: first in first out, last in first out.
#pragma once

#include <string>

#include "session/Launch.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// A shape command: one row an item, godown and batch with names and units, by item name, and under
// a tree ItemCategory_Id. Its chapters: CHPTRANS, its lines in walking order (QTYIN, QTYOUT, RATE,
// VALUEIN, VALUEOUT, BOOK_ID 1 before the period and 2 in it); CHPSALES, at most one row
// (TOTALSALESBEFOREDATE, TOTALSALESBETWEENDATE); CHPYEARLYAVG, a row a year and book (QTYIN,
// VALUEIN, QTYOUT, YEARNO, Book_Id). Not normalised.
[[nodiscard]] std::string ComposeFifoLifo(const StockArguments& arguments,
                                          const DocumentFilter& filter);

[[nodiscard]] SourceQueries StockDetails_Item_FifoLifo(const modStolvane1& module,
                                                       const StockArguments& arguments);
[[nodiscard]] SourceQueries StockDetails_Group_FifoLifo(const modStolvane1& module,
                                                        const StockArguments& arguments);
[[nodiscard]] RecordsetPtr mStock_FifoLifo(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mStockGroup_FifoLifo(ReportFrame& frame);

}  // namespace pstolvane1
