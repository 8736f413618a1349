#include <cmath>

#include "analysis/Colorwise.h"
#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"
#include "valuation/Months.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("Particulars"),   Display("Month"),         Display("Inwards"),
    Display("Outwards"),      Display("Closing"),       Display("TotInwards"),
    Display("TotOutwards"),   Display("TotClosing"),    Key("Month_Id", adBigInt),
    Key("Year_Id", adBigInt), Key("Inc_Id", adBigInt),  Marker("Line"),
    Display("InwardsChart"),  Display("OutwardsChart"), Display("ClosingChart"),
};

constexpr RuleColumn kRule = kColumns.Rule("Line", 120);

// A quantity as it is shown, and the bare number for a chart.
struct ChartedColumn {
  ColumnHandle shown, chart;
};

constexpr ChartedColumn kInwards = {kColumns.At("Inwards"), kColumns.At("InwardsChart")};
constexpr ChartedColumn kOutwards = {kColumns.At("Outwards"), kColumns.At("OutwardsChart")};
constexpr ChartedColumn kClosing = {kColumns.At("Closing"), kColumns.At("ClosingChart")};

// Added up as 32-bit floats.
struct MonthQuantities {
  float inwards = 0, outwards = 0;
};

class MovedMonths {
 public:
  explicit MovedMonths(const Recordset& source)
      : by_month_(source.GroupBy({"Inc_Id"})),
        inwards_(source.Column("Inwards")),
        outwards_(source.Column("Outwards")) {}

  [[nodiscard]] MonthQuantities Of(const CalendarMonth& month) const {
    const RowGroups::Group rows = by_month_.Find({month.Key()});
    if (rows.Empty()) return {};
    return {.inwards = rows.First().Single(inwards_), .outwards = rows.First().Single(outwards_)};
  }

 private:
  RowGroups by_month_;
  ColumnHandle inwards_, outwards_;
};

class ColorMonths {
 public:
  ColorMonths(ReportFrame& frame, const ColorOpening& opening)
      : unit_(opening.unit), closing_(opening.quantity), writer_(kColumns, StyleOf(frame)) {}

  void WriteOpening() {
    writer_.AddLine();
    writer_.Text(kColumns.At("Particulars"), "Opening Balance");
    const float quantity = std::abs(closing_);
    const ChartedColumn& side = closing_ < 0 ? kOutwards : kInwards;
    Write(side.shown, quantity);
    Chart(side, quantity);
    Write(kColumns.At("TotClosing"), closing_);
  }

  void WriteMonth(const CalendarMonth& month, std::string_view text, const MonthQuantities& moved) {
    writer_.AddLine();
    writer_.Text(kColumns.At("Month"), text);
    writer_.Value(kColumns.At("Month_Id"), month.month);
    writer_.Value(kColumns.At("Year_Id"), month.year);
    writer_.Value(kColumns.At("Inc_Id"), month.Key());
    WriteMoved(kInwards, moved.inwards);
    WriteMoved(kOutwards, std::abs(moved.outwards));
    period_.inwards += moved.inwards;
    period_.outwards += moved.outwards;
    closing_ += moved.inwards;
    closing_ -= moved.outwards;
    Write(kClosing.shown, closing_);
    Chart(kClosing, closing_);
  }

  RecordsetPtr Finish() {
    writer_.AddRuleLine(kRule);
    writer_.AddLine();
    Write(kColumns.At("TotInwards"), period_.inwards);
    Write(kColumns.At("TotOutwards"), std::abs(period_.outwards));
    Write(kColumns.At("TotClosing"), closing_);
    return writer_.Finish();
  }

 private:
  void Write(ColumnHandle to, float quantity) {
    if (quantity != 0) writer_.Quantity(to, quantity, unit_);
  }
  void Chart(const ChartedColumn& to, float quantity) {
    writer_.Text(to.chart, Variant(quantity).ToText());
  }
  void WriteMoved(const ChartedColumn& to, float quantity) {
    Write(to.shown, quantity);
    if (quantity != 0) Chart(to, quantity);
  }

  std::string unit_;
  float closing_;
  MonthQuantities period_;
  ReportWriter writer_;
};

}  // namespace

RecordsetPtr mColorwise_Monthly(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<ColorMonthsArguments>();
  const StockPeriod period{DayOf(arguments.dtFromDate), DayOf(arguments.dtToDate)};
  const std::vector<CalendarMonth> months = MonthsOf(period);
  const MovedMonths moved(*frame.Rowset(Source::Rs2));
  ColorMonths report(frame, ReadColorOpening(frame));
  report.WriteOpening();
  frame.lngFetchTotal = static_cast<std::int32_t>(months.size());
  for (const CalendarMonth& month : months) {
    report.WriteMonth(month, MonthText(frame.Texts().MonthName(month.month), month, period),
                      moved.Of(month));
    if (!frame.EndPass()) break;
  }
  return report.Finish();
}

}  // namespace pstolvane1
