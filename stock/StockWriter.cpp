#include "stock/StockWriter.h"

#include <cmath>

#include "session/RowLoop.h"
#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

constexpr Currency kZero;
constexpr std::size_t kRuleWidth = 255;

}  // namespace

StockWriter::StockWriter(ReportFrame& frame, const StockArguments& arguments, bool blnItemLines)
    : locale_(frame.Texts()),
      scale_(static_cast<double>(arguments.sngScale)),
      alternate_(arguments.blnAltUom),
      lines_(mStock_Columns(blnItemLines), StyleOf(frame)),
      columns_(StockColumnsOf(blnItemLines)) {}

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
    const auto quantity = static_cast<double>(figure.quantity);
    lines_.Text(side.quantity, NumberText(quantity));
    if (units) lines_.Text(side.unit, units->unit);
    lines_.Text(side.rate, NumberText(RateOf(figure)));
    if (units && alternate_) {
      lines_.Text(side.alt_quantity, AltQuantityText(quantity, *units));
      lines_.Text(side.alt_unit, units->alt_unit);
    }
  }
  if (figure.value != kZero) lines_.Text(side.value, MoneyText(Scaled(figure.value)));
}

double StockWriter::Scaled(double money) const {
  return Quotient(money, scale_, "money is divided by sngScale, which is 0; 1 shows it as it is");
}

std::string StockWriter::AltQuantityText(double quantity, const StockUnits& units) const {
  if (units.relation_formula == 0) {
    throw Error(ErrorNumber::kDivisionByZero,
                "division by zero: the item \"" + units.item +
                    "\" has the RelationFormula 0; mend it in the books, or leave blnAltUom out");
  }
  return NumberText(quantity / static_cast<double>(units.relation_formula));
}

StockWriter::ProfitTwins StockWriter::WriteStockProfit(const StockFigures& figures,
                                                       std::string_view unit) {
  const StockProfit profit = ReckonStockProfit(figures);
  const ProfitTwins twins = WriteProfitTexts(profit, {.gross_profit = columns_.gross_profit,
                                                      .consumption = columns_.consumption,
                                                      .percent = columns_.profit_percent});
  std::string per_unit;
  if (profit.balance != kZero && figures.outwards.quantity != 0) {
    const double of_one =
        Scaled(profit.balance.ToDouble() / static_cast<double>(figures.outwards.quantity));
    per_unit.append("@ ").append(MoneyText(std::fabs(of_one)));
    per_unit.append("/").append(unit.empty() ? "Unit" : unit);
  }
  lines_.Text(columns_.profit_per_unit, per_unit);
  return twins;
}

StockWriter::ProfitTwins StockWriter::WriteProfitTexts(const StockProfit& profit,
                                                       const ProfitColumns& columns) {
  ProfitTwins twins;
  if (profit.balance == kZero) {
    lines_.Text(columns.gross_profit, "");
    lines_.Text(columns.percent, "");
  } else {
    const double gross_profit = Scaled(profit.GrossProfit());
    lines_.Text(columns.gross_profit, MoneyText(gross_profit));
    twins.gross_profit = Currency::FromDouble(gross_profit);
    if (profit.percent != kZero) {
      twins.percent = -profit.percent;
      lines_.Text(columns.percent, NumberText(twins.percent.ToDouble()) + "%");
    }
  }
  if (profit.consumption == kZero) {
    lines_.Text(columns.consumption, "");
  } else {
    const double consumption = Scaled(profit.consumption);
    lines_.Text(columns.consumption, MoneyText(consumption));
    twins.consumption = Currency::FromDouble(consumption);
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
  lines_.Value(side.value_sort, Currency::FromDouble(Scaled(figure.value)));
}

void StockWriter::WriteRule(ColumnHandle marker) { lines_.Rule({marker, kRuleWidth}); }

void StockWriter::AddSpacer() {
  lines_.AddLine();
  lines_.Text(columns_.first, "");
}

void StockWriter::AddRuleLine() {
  AddSpacer();
  WriteRule(columns_.total_line);
}

void StockWriter::WriteTotalValue(ColumnHandle column, Currency value) {
  lines_.Text(column, MoneyText(Scaled(value)));
}

void StockWriter::AddTotalLine(const StockFigures& totals) {
  lines_.AddLine();
  lines_.Text(columns_.first, "Total");
  WriteTotalValue(columns_.opening.total_value, totals.opening.value);
  WriteTotalValue(columns_.inwards.total_value, totals.inwards.value);
  WriteTotalValue(columns_.outwards.total_value, totals.outwards.value);
  WriteTotalValue(columns_.closing.total_value, totals.closing.value);
  WriteRule(columns_.total_line);
  WriteProfitTexts(ReckonStockProfit(totals), {.gross_profit = columns_.total_gross_profit,
                                               .consumption = columns_.total_consumption,
                                               .percent = columns_.total_profit_percent});
  lines_.Text(columns_.profit_per_unit, "");
}

}  // namespace pstolvane1
