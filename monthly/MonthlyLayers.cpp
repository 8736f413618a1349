#include "monthly/MonthlyLayers.h"

#include <fmt/format.h>

#include "monthly/MonthlyKeys.h"
#include "monthly/MonthlyWriter.h"
#include "session/data/RowFlag.h"
#include "session/data/RowGroups.h"
#include "session/mInternationalization.h"
#include "valuation/MonthLayers.h"

namespace pstolvane1 {
namespace {

class LineReader {
 public:
  explicit LineReader(const Recordset& rows)
      : quantity_(rows.Column("Qty")),
        rate_(rows.Column("Rate")),
        opening_(rows.Column("IsOpeningBal")),
        added_(rows.Column("IsAdded")),
        year_(rows.Column("YearNo")),
        date_(rows.Column("Date")) {}

  [[nodiscard]] std::span<const MonthLayerLine> Read(const RowGroups::Group& key) {
    lines_.clear();
    for (const Recordset::Row row : key) {
      lines_.push_back(
          {.quantity = row.IsNull(quantity_) ? 0 : row.Single(quantity_),
           .rate = row.IsNull(rate_) ? 0 : row.Double(rate_),
           .added = IsSet(row, added_),
           .opening = IsSet(row, opening_),
           .year = row.IsNull(year_) ? 0 : row.Int32(year_),
           .date = row.IsNull(date_) ? std::nullopt : std::optional(row.DateOf(date_))});
    }
    return lines_;
  }

 private:
  ColumnHandle quantity_, rate_, opening_, added_, year_, date_;
  std::vector<MonthLayerLine> lines_;
};

}  // namespace

// A group is always taken alone: that is meant.
std::string ComposeMonthlyLayers(const MonthlyArguments& arguments) {
  const QueryPart subject = MovementsOf(arguments, Below::kNothing);
  // On every line, as the ledger has one source: a group, which has many lines, does without.
  const std::string_view units = IsOfOneItem(arguments)
                                     ? " , uom1.uomname as uom , uomalt.uomname as altuom , "
                                       "items1.relationformula as relformula"
                                     : "";
  return fmt::format(
      "select {0} , godownitem1.qty , godownitem1.rate , godownitem1.isopeningbal , "
      "godownitem1.isadded , godownitem1.yearno , godownitem1.date{1} from godownitem1{2}{3} where "
      "{4} and {5} <= {6} and ( godownitem1.date <= #{7}# or godownitem1.isopeningbal = -1 ) and "
      "godownitem1.optional = 0 order by {0} , godownitem1.yearno , godownitem1.date , "
      "godownitem1.desrdetails_id , godownitem1.godownitem_id ",
      kStockKey, units, subject.joins, kUnitJoins, subject.condition, kYear, arguments.bytYearno,
      SqlDateText(arguments.dtToDate));
}

SourceQueries Monthly_Layers(const modStolvane1& /*module*/, const MonthlyArguments& arguments) {
  return {{Source::rsReport, ComposeMonthlyLayers(arguments)}};
}

RecordsetPtr mMonthly_Layers(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<MonthlyArguments>();
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  const StockPeriod period = PeriodOf(arguments);
  const std::vector<CalendarMonth> months = MonthsOf(period);
  LineReader reader(*source);
  MonthLayers layers(arguments.ValuationMethod, arguments.bytYearno, period, months);
  const RowGroups keys = source->GroupBy({"Item_Id", "Godown_Id", "Batch_Id"});
  const auto count = static_cast<std::int32_t>(keys.Count());
  for (const RowGroups::Group key : keys) {
    layers.AddKey(reader.Read(key));
    EndPasses(frame, count, 1);
  }
  // Last in first out counts the lines of its ledger once more.
  if (arguments.ValuationMethod == LifoRate) EndPasses(frame, count, months.size() + 1);
  return WriteMonthLedger(
      frame, arguments, layers.Ledger(),
      {.units = ReadMonthlyUnits(arguments, *source), .alt_columns = arguments.blnAltUom});
}

}  // namespace pstolvane1
