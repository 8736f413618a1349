// Writes the lines of a stock statement.
#pragma once

#include <string>
#include <string_view>

#include "movements/StockKeyColumns.h"
#include "session/ReportFrame.h"
#include "session/rowset/ReportWriter.h"
#include "stock/StockArguments.h"
#include "stock/StockColumns.h"
#include "valuation/StockFigures.h"

namespace pstolvane1 {

// Belongs to one row builder. Formats in the session's locale, divides money by sngScale (error 11
// for a scale of 0) and fills the alternate columns where blnAltUom asks for them (error 11 where
// the item's RelationFormula is 0).
class StockWriter {
 public:
  StockWriter(ReportFrame& frame, const StockArguments& arguments, bool blnItemLines);

  const StockColumns& Columns() const { return columns_; }
  ReportWriter& Lines() { return lines_; }

  // Fills the line in hand: the four sides, the profit and the twins. A zero quantity leaves its
  // texts empty, and so does a zero value. first_text goes into the first column's twin, so that a
  // sort on it keeps a block together. Without units the line is of mixed items: it shows none, and
  // no alternate quantities.
  void WriteFigures(const StockFigures& figures, const StockUnits* units,
                    std::string_view first_text);
  // A line of 255 "_" in the marker column of the line in hand.
  void WriteRule(ColumnHandle marker);

  // Nothing but an empty first column.
  void AddSpacer();
  void AddRuleLine();
  void AddTotalLine(const StockFigures& totals);
  [[nodiscard]] RecordsetPtr Finish() { return lines_.Finish(); }

 private:
  // What the profit leaves for its twins, scaled.
  struct ProfitTwins {
    Currency gross_profit, percent, consumption;
  };
  struct ProfitColumns {
    ColumnHandle gross_profit, consumption, percent;
  };
  [[nodiscard]] ProfitTwins WriteStockProfit(const StockFigures& figures, std::string_view unit);
  ProfitTwins WriteProfitTexts(const StockProfit& profit, const ProfitColumns& columns);
  void WriteStockSortColumns(const StockFigures& figures, float relation_formula,
                             std::string_view first_text, const ProfitTwins& profit);
  void WriteSide(const StockSideColumns& side, const StockFigure& figure, const StockUnits* units);
  void WriteSideTwins(const StockSideColumns& side, const StockFigure& figure,
                      float relation_formula, ColumnHandle alternate_of_no_formula);
  void WriteTotalValue(ColumnHandle column, Currency value);

  [[nodiscard]] double Scaled(double money) const;
  [[nodiscard]] double Scaled(Currency money) const { return Scaled(money.ToDouble()); }
  [[nodiscard]] std::string AltQuantityText(double quantity, const StockUnits& units) const;
  [[nodiscard]] std::string MoneyText(double value) const { return locale_.FormatCurrency(value); }
  [[nodiscard]] std::string NumberText(double value) const { return locale_.FormatNumber(value); }

  const Locale& locale_;
  double scale_;
  bool alternate_;
  ReportWriter lines_;
  const StockColumns& columns_;
};

}  // namespace pstolvane1
