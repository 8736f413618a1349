#include "stock/HuntedRate.h"

#include "movements/GroupQuery.h"
#include "movements/RateQueries.h"
#include "stock/GroupStatement.h"
#include "stock/HuntedRateQuery.h"
#include "stock/HuntedValues.h"
#include "stock/ItemStatement.h"
#include "stock/KeyOrder.h"

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

// The quantities of a key in five columns.
struct QuantityColumns {
  explicit QuantityColumns(const Recordset& rows)
      : opening(rows.Column("QtyOp")),
        in(rows.Column("QtyIn")),
        value_in(rows.Column("ValueIn")),
        out(rows.Column("QtyOut")),
        value_out(rows.Column("ValueOut")) {}

  [[nodiscard]] KeyQuantities Read(const Recordset::Row& row) const {
    // Each line of a key counts in one of them, and is 0 in the two others.
    if (row.IsNull(opening) && row.IsNull(in) && row.IsNull(out)) return {};
    return {.opening = row.Double(opening),
            .closing = row.Double(opening) + row.Double(in) - row.Double(out),
            .inwards = {row.Single(in), row.Money(value_in)},
            .outwards = {row.Single(out), row.Money(value_out)}};
  }

  ColumnHandle opening, in, value_in, out, value_out;
};

ValuedKeys ValueKeys(ReportFrame& frame) {
  const RecordsetPtr keys = frame.Rowset(Source::rsReport);
  const QuantityColumns quantities(*keys);
  const auto values = std::make_shared<HuntedValues>(frame);
  const ColumnHandle item = keys->Column("Item_Id");
  const ColumnHandle godown = keys->Column("Godown_Id");
  const ColumnHandle batch = keys->Column("Batch_Id");
  return {.keys = keys, .rows = KeysInOrder(*keys), .value = [=](const Recordset::Row& key) {
            return values->Value(quantities.Read(key), key.Int64(item),
                                 {key.Int64(godown), key.Int64(batch)});
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
