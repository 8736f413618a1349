#include "stock/FifoLifo.h"

#include <optional>
#include <vector>

#include "movements/GroupQuery.h"
#include "movements/RateQueries.h"
#include "session/data/Error.h"
#include "stock/GroupStatement.h"
#include "stock/ItemStatement.h"
#include "stock/KeyOrder.h"
#include "valuation/LayerLines.h"

namespace pstolvane1 {
namespace {

// The parts of LINE.
constexpr std::uint32_t kKindBits = 3;
constexpr unsigned kSaleShift = 2;
constexpr std::uint32_t kPeriodBit = 16;

Currency AsMoney(double amount) {
  try {
    return Currency::FromDouble(amount);
  } catch (const Error& error) {
    throw error.While("reading the amount of a line");
  }
}

// Where a line stands, the same in the lines of every stock key.
struct LineColumns {
  explicit LineColumns(const Recordset& lines)
      : line(lines.Column("LINE")),
        year(lines.Column("YEARNO")),
        quantity(lines.Column("QUANTITY")),
        rate(lines.Column("RATE")) {}

  ColumnHandle line, year, quantity, rate;
};

// Without its year. A line that is nothing to the layers may have no quantity.
StockLine ReadLine(const Recordset::Row& row, const LineColumns& columns) {
  const auto parts = static_cast<std::uint32_t>(row.Int32(columns.line));
  StockLine read{.kind = static_cast<StockLine::Kind>(parts & kKindBits),
                 .sale = static_cast<StockLine::Sale>(parts >> kSaleShift & kKindBits),
                 .in_period = (parts & kPeriodBit) != 0,
                 .rate = row.Double(columns.rate)};
  if (read.kind != StockLine::Kind::kNothing || !row.IsNull(columns.quantity)) {
    read.quantity = row.Double(columns.quantity);
    read.amount = read.quantity * read.rate;
    read.value = AsMoney(read.amount);
  }
  return read;
}

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
      read_.push_back(ReadLine(line, *columns_));
      layers_.push_back(AsLayer(read_.back()));
    }
    return WalkLayers(layers_, SumSales(read_), method_, [&] {
      years_ = YearsOf(*chapter);
      return std::span<const LayerYear>(years_);
    });
  }

 private:
  // Few keys need them.
  std::vector<LayerYear> YearsOf(const Recordset& chapter) {
    auto line = read_.begin();
    for (const Recordset::Row row : chapter.Rows()) line++->year = row.Int32(columns_->year);
    return SumYears(read_);
  }

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
          .rows = KeysInOrder(*keys),
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
