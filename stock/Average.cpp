#include "stock/Average.h"

#include "movements/GroupQuery.h"
#include "movements/RateQueries.h"
#include "movements/RateReader.h"
#include "stock/AverageColumns.h"
#include "stock/AverageYears.h"
#include "stock/GroupStatement.h"
#include "stock/ItemStatement.h"
#include "stock/KeyOrder.h"
#include "valuation/UnpricedStock.h"

namespace pstolvane1 {
namespace {

SourceQuery Positions(const modStolvane1& module, const StockArguments& arguments) {
  return {Source::rsReport, ComposeAverage(arguments, module.filter), GroupSwap(arguments.tree)};
}
SourceQuery Costs(const modStolvane1& module, const StockArguments& arguments) {
  return {Source::Rs1,
          ComposeStandardRates(StandardRates::kCosts, module.strToDateText, arguments.bytYearno)};
}

// A first year has nothing to fold. What it has in stock that nothing priced came into is valued
// at the last standard cost.
class FirstYear {
 public:
  explicit FirstYear(ReportFrame& frame, const RecordsetPtr& source)
      : figures_(*source),
        item_id_(source->Column("Item_Id")),
        entering_(source->Column("QtyInForCalculation")),
        standards_(*frame.Rowset(Source::Rs1)),
        period_{DayOf(frame.module.dtFromDate), DayOf(frame.module.dtToDate)} {}

  StockFigures Value(const Recordset::Row& row) {
    const StockFigures figures = figures_.Read(row);
    if (row.Single(entering_) != 0) return figures;
    return ValueUnpricedStock(figures, standards_.Of(row.Int64(item_id_)),
                              {.period = period_, .carried_year = {}});
  }

 private:
  AverageColumns figures_;
  ColumnHandle item_id_, entering_;
  StandardRateReader standards_;
  StockPeriod period_;
};

ValuedKeys ValueKeys(ReportFrame& frame) {
  if (frame.module.bytYearno <= 1) {
    const RecordsetPtr source = frame.Rowset(Source::rsReport);
    const auto first_year = std::make_shared<FirstYear>(frame, source);
    return {.keys = source,
            .rows = KeysInOrder(*source),
            .value = [first_year](const Recordset::Row& row) { return first_year->Value(row); }};
  }
  const RecordsetPtr folded = mStock_MergeYears(frame);
  return {.keys = folded,
          .rows = {folded->Rows().begin(), folded->Rows().end()},
          .value = [figures = AverageColumns(*folded)](const Recordset::Row& row) {
            return figures.Read(row);
          }};
}

}  // namespace

SourceQueries StockDetails_Item_Avg(const modStolvane1& module, const StockArguments& arguments) {
  return {Positions(module, arguments), Costs(module, arguments)};
}

SourceQueries StockDetails_Group_Avg(const modStolvane1& module, const StockArguments& arguments) {
  return {{Source::RsCategory, ComposeGroupQuery(arguments.tree)},
          Positions(module, arguments),
          Costs(module, arguments)};
}

RecordsetPtr mStock_Avg(ReportFrame& frame) { return WriteItemStatement(frame, ValueKeys(frame)); }

RecordsetPtr mStockGroup_Avg(ReportFrame& frame) {
  return WriteGroupStatement(frame, ValueKeys(frame));
}

}  // namespace pstolvane1
