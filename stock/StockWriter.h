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

// Writes what is the statements' own into the lines of a ReportWriter. Belongs to one row builder.
// Shown money is divided by sngScale (error 11 for a scale of 0). The alternate columns are filled
// where blnAltUom asks for them (error 11 where the item's RelationFormula is 0).
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
  // 255 "_" in a marker column of the line in hand.
  void WriteRule(ColumnHandle marker);

  void AddSpacer() { lines_.AddSpacer(columns_.first); }
  void AddRuleLine();
  void AddTotalLine(const StockFigures& totals);
  [[nodiscard]] RecordsetPtr Finish() { return lines_.Finish(); }

 private:
  // The profit's values for its twins, scaled.
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

  ReportWriter lines_;
  const StockColumns& columns_;
  bool alternate_;
  std::string text_;  // of a cell that is made of several texts
};

}  // namespace pstolvane1
