#include "stock/FifoLifo.h"

#include <algorithm>

#include "movements/GroupQuery.h"
#include "movements/RateQueries.h"
#include "stock/GroupStatement.h"
#include "stock/ItemStatement.h"
#include "valuation/Layers.h"

namespace pstolvane1 {
namespace {

constexpr std::int32_t kPeriodBook = 2;

// The lines, sales and years of one stock key at a time.
class LayerReader {
 public:
  LayerReader(const Recordset& keys, enmValuationMethod method)
      : lines_(keys.Column("CHPTRANS")),
        sales_(keys.Column("CHPSALES")),
        years_(keys.Column("CHPYEARLYAVG")),
        method_(method) {}

  StockFigures Value(const Recordset::Row& key) {
    ReadLines(*key.Chapter(lines_));
    const LayerSales sales = ReadSales(*key.Chapter(sales_));
    return WalkLayers(read_lines_, sales, method_, [&] { return ReadYears(*key.Chapter(years_)); });
  }

 private:
  void ReadLines(const Recordset& chapter) {
    const ColumnHandle in = chapter.Column("QTYIN"), out = chapter.Column("QTYOUT");
    const ColumnHandle value_in = chapter.Column("VALUEIN"), value_out = chapter.Column("VALUEOUT");
    const ColumnHandle rate = chapter.Column("RATE"), book = chapter.Column("BOOK_ID");
    read_lines_.clear();
    for (const Recordset::Row line : chapter.Rows()) {
      read_lines_.push_back({.in = line.Single(in),
                             .out = line.Single(out),
                             .value_in = line.Money(value_in),
                             .value_out = line.Money(value_out),
                             .rate = line.Double(rate),
                             .in_period = line.Int32(book) == kPeriodBook});
    }
  }

  // A key without sales has no row.
  static LayerSales ReadSales(const Recordset& chapter) {
    if (chapter.Eof()) return {};
    return {.before = chapter.Single(chapter.Column("TOTALSALESBEFOREDATE")),
            .within = chapter.Single(chapter.Column("TOTALSALESBETWEENDATE"))};
  }

  std::span<const LayerYear> ReadYears(Recordset& chapter) {
    chapter.Sort("YearNo, Book_Id");
    const ColumnHandle in = chapter.Column("QTYIN"), out = chapter.Column("QTYOUT");
    const ColumnHandle value_in = chapter.Column("VALUEIN"), book = chapter.Column("BOOK_ID");
    read_years_.clear();
    for (const Recordset::Row year : chapter.Rows()) {
      read_years_.push_back({.in = year.Single(in),
                             .out = year.Single(out),
                             .value_in = year.Money(value_in),
                             .in_period = year.Int32(book) == kPeriodBook});
    }
    return read_years_;
  }

  ColumnHandle lines_, sales_, years_;
  enmValuationMethod method_;
  std::vector<LayerLine> read_lines_;
  std::vector<LayerYear> read_years_;
};

SourceQuery Keys(const modStolvane1& module, const StockArguments& arguments) {
  return {Source::rsReport, ComposeFifoLifo(arguments, module.filter), GroupSwap(arguments.tree)};
}

ValuedKeys ValueKeys(ReportFrame& frame) {
  const RecordsetPtr keys = frame.Rowset(Source::rsReport);
  const auto reader = std::make_shared<LayerReader>(*keys, frame.module.ValuationMethod);
  return {.keys = keys,
          .value = [reader](const Recordset::Row& key) { return reader->Value(key); },
          .block_end = BlockEnd::kRuleLine};
}

}  // namespace

SourceQueries StockDetails_Item_FifoLifo(const modStolvane1& module,
                                         const StockArguments& arguments) {
  // The row awaits two fetches: the standard costs are opened as well, and not read.
  return {Keys(module, arguments),
          {Source::Rs1,
           ComposeStandardRates(StandardRates::kCosts, module.strToDateText, arguments.bytYearno)}};
}

SourceQueries StockDetails_Group_FifoLifo(const modStolvane1& module,
                                          const StockArguments& arguments) {
  return {Keys(module, arguments), {Source::RsCategory, ComposeGroupQuery(arguments.tree)}};
}

RecordsetPtr mStock_FifoLifo(ReportFrame& frame) {
  return WriteItemStatement(frame, ValueKeys(frame));
}

RecordsetPtr mStockGroup_FifoLifo(ReportFrame& frame) {
  return WriteGroupStatement(frame, ValueKeys(frame));
}

}  // namespace pstolvane1
