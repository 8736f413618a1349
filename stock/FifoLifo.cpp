#include "stock/FifoLifo.h"

#include <optional>
#include <vector>

#include "movements/GroupQuery.h"
#include "movements/RateQueries.h"
#include "stock/GroupStatement.h"
#include "stock/ItemStatement.h"
#include "valuation/LayerLines.h"

namespace pstolvane1 {
namespace {

constexpr std::int32_t kPeriodBook = 2;

// Where a line stands, the same in the lines of every stock key.
struct LineColumns {
  explicit LineColumns(const Recordset& lines)
      : kind(lines.Column("KIND")),
        sale(lines.Column("SALE")),
        book(lines.Column("BOOK_ID")),
        year(lines.Column("YEARNO")),
        quantity(lines.Column("QUANTITY")),
        amount(lines.Column("AMOUNT")),
        rate(lines.Column("RATE")) {}

  // A line that is nothing to the layers may have no quantity.
  [[nodiscard]] StockLine Read(const Recordset::Row& line) const {
    StockLine read{.kind = static_cast<StockLine::Kind>(line.Int32(kind)),
                   .sale = static_cast<StockLine::Sale>(line.Int32(sale)),
                   .year = line.Int32(year),
                   .in_period = line.Int32(book) == kPeriodBook,
                   .rate = line.Double(rate)};
    if (read.kind != StockLine::Kind::kNothing || !line.IsNull(quantity)) {
      read.quantity = line.Double(quantity);
      read.amount = line.Double(amount);
      read.value = line.Money(amount);
    }
    return read;
  }

  ColumnHandle kind, sale, book, year, quantity, amount, rate;
};

// The lines of one stock key at a time.
class LayerReader {
 public:
  LayerReader(const Recordset& keys, enmValuationMethod method)
      : lines_(keys.Column("CHPTRANS")), method_(method) {}

  StockFigures Value(const Recordset::Row& key) {
    const RecordsetPtr chapter = key.Chapter(lines_);
    if (!columns_) columns_.emplace(*chapter);
    read_.clear();
    layers_.clear();
    for (const Recordset::Row line : chapter->Rows()) {
      read_.push_back(columns_->Read(line));
      layers_.push_back(AsLayer(read_.back()));
    }
    return WalkLayers(layers_, SumSales(read_), method_, [this] {
      years_ = SumYears(read_);
      return std::span<const LayerYear>(years_);
    });
  }

 private:
  ColumnHandle lines_;
  enmValuationMethod method_;
  std::optional<LineColumns> columns_;
  std::vector<StockLine> read_;
  std::vector<LayerLine> layers_;
  std::vector<LayerYear> years_;
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
