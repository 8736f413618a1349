#include "stock/HuntedRate.h"

#include "movements/GroupQuery.h"
#include "movements/RateQueries.h"
#include "stock/GroupStatement.h"
#include "stock/HuntedValues.h"
#include "stock/ItemStatement.h"
#include "stock/LastRateQuery.h"
#include "stock/StandardRateQuery.h"

namespace pstolvane1 {
namespace {

bool AtStandard(enmValuationMethod method) {
  return method == standardrate || method == StandardPrice;
}

SourceQuery Keys(const modStolvane1& module, const StockArguments& arguments) {
  return {Source::rsReport,
          AtStandard(arguments.ValuationMethod) ? ComposeStandardRate(arguments, module.filter)
                                                : ComposeLastRate(arguments, module.filter),
          GroupSwap(arguments.tree)};
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
  QuantityColumns(const Recordset& rows, std::string_view value_in_name,
                  std::string_view value_out_name)
      : opening(rows.Column("QtyOp")),
        in(rows.Column("QtyIn")),
        value_in(rows.Column(value_in_name)),
        out(rows.Column("QtyOut")),
        value_out(rows.Column(value_out_name)) {}

  template <typename Row>
  [[nodiscard]] KeyQuantities Read(const Row& row) const {
    return {.opening = row.Double(opening),
            .closing = row.Double(opening) + row.Double(in) - row.Double(out),
            .inwards = {row.Single(in), row.Money(value_in)},
            .outwards = {row.Single(out), row.Money(value_out)}};
  }

  ColumnHandle opening, in, value_in, out, value_out;
};

// A key's quantities stand in its row, or in the one row of its chapter, which may be missing.
KeyQuantities InRow(const Recordset& keys, const Recordset::Row& key) {
  return QuantityColumns(keys, "QtyInValue", "QtyOutValue").Read(key);
}
KeyQuantities InChapter(const Recordset& keys, const Recordset::Row& key) {
  const RecordsetPtr chapter = key.Chapter(keys.Column("CHPQTY"));
  if (chapter->Eof()) return {};
  return QuantityColumns(*chapter, "ValueIn", "ValueOut").Read(*chapter);
}

ValuedKeys ValueKeys(ReportFrame& frame) {
  const RecordsetPtr keys = frame.Rowset(Source::rsReport);
  const auto quantities = AtStandard(frame.module.ValuationMethod) ? &InRow : &InChapter;
  const auto values = std::make_shared<HuntedValues>(frame);
  const ColumnHandle item = keys->Column("Item_Id");
  const ColumnHandle godown = keys->Column("Godown_Id");
  const ColumnHandle batch = keys->Column("Batch_Id");
  return {.keys = keys, .value = [=](const Recordset::Row& key) {
            return values->Value(quantities(*keys, key), key.Int64(item),
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
