#include "stock/StockWriter.h"

#include <cmath>

#include "session/RowLoop.h"

namespace pstolvane1 {
namespace {

constexpr Currency kZero;
constexpr std::size_t kRuleWidth = 255;

}  // namespace

StockWriter::StockWriter(ReportFrame& frame, const StockArguments& arguments, bool blnItemLines)
    : lines_(mStock_Columns(blnItemLines), StyleOf(frame)),
      columns_(StockColumnsOf(blnItemLines)),
      alternate_(arguments.blnAltUom) {}

void StockWriter::WriteFigures(const StockFigures& figures, const StockUnits* units,
                               std::string_view first_text) {
  WriteSide(columns_.opening, figures.opening, units);
  WriteSide(columns_.inwards, figures.inwards, units);
  WriteSide(columns_.outwards, figures.outwards, units);
  WriteSide(columns_.closing, figures.closing, units);
  const ProfitTwins profit = WriteStockProfit(figures, units ? units->unit : "");
  WriteStockSortColumns(figures, units ? units->relation_formula : 0, first_text, profit);
}

void StockWriter::WriteSide(const StockSideColumns& side, const StockFigure& figure,
                            const StockUnits* units) {
  if (figure.quantity != 0) {
    lines_.Number(side.quantity, figure.quantity);
    lines_.Number(side.rate, RateOf(figure));
    if (units) lines_.Text(side.unit, units->unit);
    if (units && alternate_) {
      lines_.Number(side.alt_quantity, AltQuantity(static_cast<double>(figure.quantity), *units));
      lines_.Text(side.alt_unit, units->alt_unit);
    }
  }
  if (figure.value != kZero) lines_.ScaledMoney(side.value, figure.value);
}

StockWriter::ProfitTwins StockWriter::WriteStockProfit(const StockFigures& figures,
                                                       std::string_view unit) {
  const StockProfit profit = ReckonStockProfit(figures);
  const ProfitTwins twins = WriteProfitTexts(profit, {.gross_profit = columns_.gross_profit,
                                                      .consumption = columns_.consumption,
                                                      .percent = columns_.profit_percent});
  text_.clear();
  if (profit.balance != kZero && figures.outwards.quantity != 0) {
    const double of_one =
        lines_.Scaled(profit.balance.ToDouble() / static_cast<double>(figures.outwards.quantity));
    text_ += "@ ";
    lines_.Style().locale.AppendCurrency(std::fabs(of_one), text_);
    text_.append("/").append(unit.empty() ? "Unit" : unit);
  }
  lines_.Text(columns_.profit_per_unit, text_);
  return twins;
}

StockWriter::ProfitTwins StockWriter::WriteProfitTexts(const StockProfit& profit,
                                                       const ProfitColumns& columns) {
  ProfitTwins twins;
  if (profit.balance == kZero) {
    lines_.Text(columns.gross_profit, "");
    lines_.Text(columns.percent, "");
  } else {
    lines_.ScaledMoney(columns.gross_profit, profit.GrossProfit());
    twins.gross_profit = Currency::FromDouble(lines_.Scaled(profit.GrossProfit()));
    if (profit.percent != kZero) {
      twins.percent = -profit.percent;
      lines_.Percent(columns.percent, twins.percent);
    }
  }
  if (profit.consumption == kZero) {
    lines_.Text(columns.consumption, "");
  } else {
    lines_.ScaledMoney(columns.consumption, profit.consumption);
    twins.consumption = Currency::FromDouble(lines_.Scaled(profit.consumption));
  }
  return twins;
}

void StockWriter::WriteStockSortColumns(const StockFigures& figures, float relation_formula,
                                        std::string_view first_text, const ProfitTwins& profit) {
  lines_.Text(columns_.first_sort, first_text);
  const auto twins = [&](const StockSideColumns& side, const StockFigure& figure,
                         const StockSideColumns& without_formula) {
    WriteSideTwins(side, figure, relation_formula, without_formula.alt_quantity_sort);
  };
  twins(columns_.opening, figures.opening, columns_.opening);
  twins(columns_.inwards, figures.inwards, columns_.inwards);
  // Without a formula the zero goes to the opening's twin; that is meant.
  twins(columns_.outwards, figures.outwards, columns_.opening);
  twins(columns_.closing, figures.closing, columns_.closing);
  lines_.Value(columns_.gross_profit_sort, profit.gross_profit);
  lines_.Value(columns_.profit_sort, profit.percent);
  lines_.Value(columns_.consumption_sort, profit.consumption);
}

void StockWriter::WriteSideTwins(const StockSideColumns& side, const StockFigure& figure,
                                 float relation_formula, ColumnHandle alternate_of_no_formula) {
  const auto quantity = static_cast<double>(figure.quantity);
  lines_.Value(side.quantity_sort, figure.quantity);
  if (relation_formula == 0) {
    lines_.Value(alternate_of_no_formula, 0.0F);
  } else {
    lines_.Value(side.alt_quantity_sort,
                 ToSingle(quantity / static_cast<double>(relation_formula)));
  }
  if (figure.quantity != 0) {
    lines_.Value(side.rate_sort, Currency::FromDouble(RateOf(figure)));
  }
  lines_.Value(side.value_sort, Currency::FromDouble(lines_.Scaled(figure.value)));
}

void StockWriter::WriteRule(ColumnHandle marker) { lines_.Rule({marker, kRuleWidth}); }

void StockWriter::AddRuleLine() {
  AddSpacer();
  WriteRule(columns_.total_line);
}

void StockWriter::AddTotalLine(const StockFigures& totals) {
  lines_.AddTotalLine(columns_.first, {columns_.total_line, kRuleWidth});
  lines_.ScaledMoney(columns_.opening.total_value, totals.opening.value);
  lines_.ScaledMoney(columns_.inwards.total_value, totals.inwards.value);
  lines_.ScaledMoney(columns_.outwards.total_value, totals.outwards.value);
  lines_.ScaledMoney(columns_.closing.total_value, totals.closing.value);
  WriteProfitTexts(ReckonStockProfit(totals), {.gross_profit = columns_.total_gross_profit,
                                               .consumption = columns_.total_consumption,
                                               .percent = columns_.total_profit_percent});
  lines_.Text(columns_.profit_per_unit, "");
}

}  // namespace pstolvane1
