#include "monthly/MonthlyWriter.h"

#include <cmath>

#include "monthly/MonthlyColumns.h"
#include "session/RowLoop.h"
#include "session/data/TextFold.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr Currency kZero;

class MonthlyWriter {
 public:
  MonthlyWriter(ReportFrame& frame, const MonthlyForm& form)
      : lines_(CreateMonthlyGrid(form.alt_columns), StyleOf(frame)),
        columns_(MonthlyColumnsOf(form.alt_columns)),
        form_(form),
        alternate_(form.alt_columns && !HasOneUnit(form.units)) {}

  void WriteOpening(const MonthLedger& ledger) {
    lines_.AddLine();
    lines_.Text(columns_.month, "Opening Balance");
    WriteKeys(0, 0, 0);
    if (ledger.before) EmptyMovements();
    WriteSide(columns_.closing, ledger.opening);
    if (form_.raw_figures) WriteRaw(columns_.closing, ledger.opening);
    lines_.Value(columns_.value_opening, ledger.opening.value);
    if (ledger.before) {
      Monthly_WriteProfit(columns_.profit, {.opening = ledger.opening,
                                            .inwards = ledger.before->inwards,
                                            .outwards = ledger.before->outwards,
                                            .closing = ledger.opening});
    }
  }

  void WriteMonth(std::string_view text, const CalendarMonth& month, const MonthFigures& figures,
                  const StockFigure& opening) {
    lines_.AddLine();
    lines_.Text(columns_.month, text);
    WriteKeys(month.month, month.year, month.Key());
    const auto write = [this](const MonthSideColumns& side, const StockFigure& figure) {
      WriteSide(side, figure);
      if (form_.raw_figures) WriteRaw(side, figure);
    };
    write(columns_.inwards, figures.inwards);
    write(columns_.outwards, figures.outwards);
    write(columns_.closing, figures.closing);
    lines_.Value(columns_.value_opening, opening.value);
    Monthly_WriteProfit(columns_.profit, {.opening = opening,
                                          .inwards = figures.inwards,
                                          .outwards = figures.outwards,
                                          .closing = figures.closing});
  }

  // On the line in hand.
  void WriteTotals(const StockFigures& totals) {
    WriteTotal(columns_.inwards, totals.inwards);
    WriteTotal(columns_.outwards, totals.outwards);
    WriteTotal(columns_.closing, totals.closing);
    if (totals.closing.value == kZero) lines_.Text(columns_.closing.total_value, "");
    Monthly_WriteProfit(columns_.total_profit, totals);
  }

  [[nodiscard]] RecordsetPtr Finish() { return lines_.Finish(); }

 private:
  void WriteKeys(int month, int year, std::int32_t key) {
    lines_.Value(columns_.month_id, month);
    lines_.Value(columns_.year_id, year);
    if (form_.month_keys) lines_.Value(columns_.inc_id, key);
  }

  void EmptyMovements() {
    for (const MonthSideColumns* side : {&columns_.inwards, &columns_.outwards}) {
      for (const ColumnHandle column : {side->quantity, side->unit, side->value}) {
        lines_.Text(column, "");
      }
      if (!form_.alt_columns) continue;
      lines_.Text(side->alt_quantity, "");
      lines_.Text(side->alt_unit, "");
    }
  }

  void WriteSide(const MonthSideColumns& side, const StockFigure& figure) {
    if (figure.quantity != 0) {
      lines_.Number(side.quantity, figure.quantity);
      lines_.Text(side.unit, form_.units.unit);
    } else {
      lines_.Text(side.quantity, "");
    }
    if (alternate_) WriteAlternate(side, figure.quantity);
    WriteValue(side.value, figure.value);
  }

  void WriteAlternate(const MonthSideColumns& side, float quantity) {
    if (quantity == 0) return lines_.Text(side.alt_quantity, "");
    lines_.Text(side.alt_quantity,
                "(" + lines_.NumberText(AltQuantity(static_cast<double>(quantity), form_.units)));
    lines_.Text(side.alt_unit, form_.units.alt_unit + ")");
  }

  void WriteValue(ColumnHandle column, Currency value) {
    if (value != kZero) {
      lines_.ScaledMoney(column, value);
    } else {
      lines_.Text(column, "");
    }
  }

  void WriteRaw(const MonthSideColumns& side, const StockFigure& figure) {
    lines_.Value(side.raw_quantity, figure.quantity);
    lines_.Value(side.raw_value, figure.value);
  }

  void WriteTotal(const MonthSideColumns& side, const StockFigure& total) {
    if (total.quantity != 0) {
      lines_.Number(side.total_quantity, total.quantity);
      lines_.Text(side.total_unit, form_.units.unit);
    }
    if (total.value != kZero) lines_.ScaledMoney(side.total_value, total.value);
  }

  // A month that sold nothing and has no profit shows none; a loss without a sale is none, and that
  // is meant.
  void Monthly_WriteProfit(const MonthProfitColumns& to, const StockFigures& figures) {
    const StockProfit profit = ReckonStockProfit(figures);
    const float sold = figures.outwards.quantity;
    if (profit.balance >= kZero && sold <= 0) {
      for (const ColumnHandle column : {to.consumption, to.gross_profit, to.per_unit, to.percent}) {
        lines_.Text(column, "");
      }
      return;
    }
    lines_.ScaledMoney(to.gross_profit, profit.GrossProfit());
    if (profit.percent != kZero) lines_.Percent(to.percent, -profit.percent);
    lines_.Text(to.per_unit, sold != 0 ? PerUnit(profit.balance, sold) : std::string());
    WriteValue(to.consumption,
               profit.consumption < kZero ? -profit.consumption : profit.consumption);
  }

  [[nodiscard]] std::string PerUnit(Currency balance, float sold) const {
    const double of_one = lines_.Scaled(std::fabs(balance.ToDouble() / static_cast<double>(sold)));
    const std::string& unit = form_.units.unit;
    return "@ " + lines_.MoneyText(of_one) + "/" + (unit.empty() ? "Unit" : unit);
  }

  ReportWriter lines_;
  const MonthlyColumns& columns_;
  const MonthlyForm& form_;
  bool alternate_;
};

}  // namespace

StockPeriod PeriodOf(const MonthlyArguments& arguments) {
  return {DayOf(arguments.dtFromDate), DayOf(arguments.dtToDate)};
}

bool HasOneUnit(const StockUnits& units) { return EqualFolded(units.unit, units.alt_unit); }

void EndPasses(ReportFrame& frame, std::int32_t progress_total, std::size_t passes) {
  frame.lngFetchTotal = progress_total;
  for (; passes > 0; --passes) {
    const bool session_is_gone = !frame.EndPass() && !frame.blnCancelFetching.IsTrue();
    frame.cut_short = false;
    if (session_is_gone) return;
  }
}

RecordsetPtr WriteMonthLedger(ReportFrame& frame, const MonthlyArguments& arguments,
                              const MonthLedger& ledger, const MonthlyForm& form) {
  const StockPeriod period = PeriodOf(arguments);
  const std::vector<CalendarMonth> months = MonthsOf(period);
  MonthlyWriter writer(frame, form);
  writer.WriteOpening(ledger);
  StockFigures totals{.opening = ledger.opening, .closing = ledger.opening};
  for (std::size_t i = 0; i < ledger.months.size(); ++i) {
    const MonthFigures& figures = ledger.months[i];
    writer.WriteMonth(MonthText(frame.Texts().MonthName(months[i].month), months[i], period),
                      months[i], figures, totals.closing);
    totals.inwards += figures.inwards;
    totals.outwards += figures.outwards;
    totals.closing = figures.closing;
  }
  writer.WriteTotals(totals);
  return writer.Finish();
}

}  // namespace pstolvane1
