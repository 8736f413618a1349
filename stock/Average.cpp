#include "stock/Average.h"

#include <optional>
#include <vector>

#include "movements/GroupQuery.h"
#include "movements/RateQueries.h"
#include "movements/RateReader.h"
#include "stock/GroupStatement.h"
#include "stock/ItemStatement.h"
#include "stock/KeyOrder.h"
#include "stock/SummedLines.h"
#include "valuation/AverageYears.h"

namespace pstolvane1 {
namespace {

SourceQuery Positions(const modStolvane1& module, const StockArguments& arguments) {
  return {Source::rsReport, ComposeAverage(arguments, module.filter), GroupSwap(arguments.tree)};
}
SourceQuery Costs(const modStolvane1& module, const StockArguments& arguments) {
  return {Source::Rs1,
          ComposeStandardRates(StandardRates::kCosts, module.strToDateText, arguments.bytYearno)};
}

// The lines of one stock key at a time, year by year.
class AverageReader {
 public:
  AverageReader(ReportFrame& frame, const Recordset& keys)
      : lines_(keys.Column("CHPTRANS")),
        item_id_(keys.Column("Item_Id")),
        standards_(*frame.Rowset(Source::Rs1)),
        period_{DayOf(frame.module.dtFromDate), DayOf(frame.module.dtToDate)},
        first_year_(IsFirstYear(frame.module.bytYearno)) {}

  StockFigures Value(const Recordset::Row& key) {
    SumYears(*key.Chapter(lines_));
    const std::span<const StandardRate> costs = standards_.Of(key.Int64(item_id_));
    return first_year_ ? FiguresOfFirstYear(years_.front(), costs, period_)
                       : mStock_MergeYears(years_, costs, period_);
  }

 private:
  void SumYears(const Recordset& lines) {
    if (!columns_) columns_.emplace(lines);
    years_.clear();
    for (const Recordset::Row line : lines.Rows()) {
      const std::int32_t year = columns_->Year(line);
      if (years_.empty() || years_.back().Year() != year) years_.emplace_back(year);
      years_.back().Add(columns_->Read(line));
    }
  }

  ColumnHandle lines_, item_id_;
  StandardRateReader standards_;
  StockPeriod period_;
  bool first_year_;
  std::optional<SummedLineColumns> columns_;
  std::vector<AverageYearSums> years_;
};

ValuedKeys ValueKeys(ReportFrame& frame) {
  const RecordsetPtr keys = frame.Rowset(Source::rsReport);
  const auto reader = std::make_shared<AverageReader>(frame, *keys);
  return {.keys = keys, .rows = KeysInOrder(*keys), .value = [reader](const Recordset::Row& key) {
            return reader->Value(key);
          }};
}

}  // namespace

bool IsFirstYear(std::uint8_t bytYearno) { return bytYearno <= 1; }

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
