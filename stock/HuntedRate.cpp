#include "stock/HuntedRate.h"

#include <optional>

#include "movements/GroupQuery.h"
#include "movements/RateQueries.h"
#include "stock/GroupStatement.h"
#include "stock/HuntedRateQuery.h"
#include "stock/HuntedValues.h"
#include "stock/ItemStatement.h"
#include "stock/KeyOrder.h"
#include "stock/SummedLines.h"
#include "valuation/KeySums.h"

namespace pstolvane1 {
namespace {

SourceQuery Keys(const modStolvane1& module, const StockArguments& arguments) {
  return {Source::rsReport, ComposeHuntedRate(arguments, module.filter), GroupSwap(arguments.tree)};
}
SourceQuery Standards(const modStolvane1& module, const StockArguments& arguments) {
  return {Source::Rs1, ComposeStandardRates(StandardRatesOf(arguments.ValuationMethod),
                                            module.strToDateText, arguments.bytYearno)};
}
SourceQuery Actuals(const modStolvane1& module, const StockArguments& arguments) {
  return {Source::Rs2,
          ComposeActualRates(arguments.ValuationMethod, module.strToDateText, arguments.bytYearno)};
}

// The lines of one stock key at a time.
class KeyReader {
 public:
  KeyReader(const ReportFrame& frame, const Recordset& keys)
      : lines_(keys.Column("CHPTRANS")),
        item_(keys.Column("Item_Id")),
        godown_(keys.Column("Godown_Id")),
        batch_(keys.Column("Batch_Id")),
        values_(frame) {}

  StockFigures Value(const Recordset::Row& key) {
    const RecordsetPtr lines = key.Chapter(lines_);
    if (!columns_) columns_.emplace(*lines);
    KeySums sums;
    for (const Recordset::Row line : lines->Rows()) sums.Add(columns_->Read(line));
    return values_.Value(sums.Quantities(), key.Int64(item_),
                         {key.Int64(godown_), key.Int64(batch_)});
  }

 private:
  ColumnHandle lines_, item_, godown_, batch_;
  HuntedValues values_;
  std::optional<SummedLineColumns> columns_;
};

ValuedKeys ValueKeys(ReportFrame& frame) {
  const RecordsetPtr keys = frame.Rowset(Source::rsReport);
  const auto reader = std::make_shared<KeyReader>(frame, *keys);
  return {.keys = keys, .rows = KeysInOrder(*keys), .value = [reader](const Recordset::Row& key) {
            return reader->Value(key);
          }};
}

}  // namespace

SourceQueries StockDetails_Item_HuntedRate(const modStolvane1& module,
                                           const StockArguments& arguments) {
  return {Standards(module, arguments), Actuals(module, arguments), Keys(module, arguments)};
}

SourceQueries StockDetails_Group_HuntedRate(const modStolvane1& module,
                                            const StockArguments& arguments) {
  return {Standards(module, arguments),
          Actuals(module, arguments),
          {Source::RsCategory, ComposeGroupQuery(arguments.tree)},
          Keys(module, arguments)};
}

RecordsetPtr mStock_HuntedRate(ReportFrame& frame) {
  return WriteItemStatement(frame, ValueKeys(frame));
}

RecordsetPtr mStockGroup_HuntedRate(ReportFrame& frame) {
  return WriteGroupStatement(frame, ValueKeys(frame));
}

}  // namespace pstolvane1
