#include "stock/Average.h"

#include "session/Launch.h"
#include "stock/AverageColumns.h"
#include "stock/AverageYears.h"
#include "stock/GroupStatement.h"
#include "stock/ItemStatement.h"
#include "stock/RateRows.h"
#include "stock/StockQueries.h"

namespace pstolvane1 {
namespace {

void Compose(ReportFrame& frame, const StockArguments& arguments) {
  modStolvane1& module = frame.module;
  module.strSQL =
      ForTree(frame.Normalise(ComposeAverage(arguments, module.filter)), arguments.tree);
  module.strSQL2 = frame.Normalise(
      ComposeStandardRates(StandardRates::kCosts, module.strToDateText, arguments.bytYearno));
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
        from_(DayOf(frame.module.dtFromDate)),
        to_(DayOf(frame.module.dtToDate)) {}

  StockFigures Value(const Recordset::Row& row) {
    StockFigures figures = figures_.Read(row);
    if (row.Single(entering_) != 0) return figures;
    const std::span<const StandardRate> rates = standards_.Of(row.Int64(item_id_));
    const auto value = [&](StockFigure& figure, auto&& test) {
      if (figure.value != Currency() || figure.quantity == 0) return;
      if (const StandardRate* found = LastRate(rates, test)) {
        figure.value = ValueAt(static_cast<double>(figure.quantity), found->rate);
      }
    };
    value(figures.closing, [this](const StandardRate& rate) { return rate.to <= to_; });
    value(figures.opening, [this](const StandardRate& rate) { return rate.from < from_; });
    return figures;
  }

 private:
  AverageColumns figures_;
  ColumnHandle item_id_, entering_;
  StandardRateRows standards_;
  Date from_, to_;
};

StockRows Rows(ReportFrame& frame) {
  if (frame.module.bytYearno <= 1) {
    const RecordsetPtr source = frame.Rowset(Source::rsReport);
    const auto first_year = std::make_shared<FirstYear>(frame, source);
    return {.keys = source,
            .value = [first_year](const Recordset::Row& row) { return first_year->Value(row); }};
  }
  const RecordsetPtr folded = mStock_MergeYears(frame);
  return {.keys = folded, .value = [figures = AverageColumns(*folded)](const Recordset::Row& row) {
            return figures.Read(row);
          }};
}

}  // namespace

RecordsetPtr StockDetails_Item_Avg(ReportFrame& frame, const StockArguments& arguments) {
  Compose(frame, arguments);
  return Launch(frame, arguments.blnReport, kFetch,
                {{Source::rsReport, frame.module.strSQL}, {Source::Rs1, frame.module.strSQL2}},
                &mStock_Avg);
}

RecordsetPtr StockDetails_Group_Avg(ReportFrame& frame, const StockArguments& arguments) {
  Compose(frame, arguments);
  frame.module.strSQL3 = frame.Normalise(ComposeGroupQuery(arguments.tree));
  return Launch(frame, arguments.blnReport, kFetch,
                {{Source::RsCategory, frame.module.strSQL3},
                 {Source::rsReport, frame.module.strSQL},
                 {Source::Rs1, frame.module.strSQL2}},
                &mStockGroup_Avg);
}

RecordsetPtr mStock_Avg(ReportFrame& frame) { return WriteItemStatement(frame, Rows(frame)); }

RecordsetPtr mStockGroup_Avg(ReportFrame& frame) { return WriteGroupStatement(frame, Rows(frame)); }

}  // namespace pstolvane1
