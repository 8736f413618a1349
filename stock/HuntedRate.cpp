#include "stock/HuntedRate.h"

#include "session/Launch.h"
#include "stock/GroupStatement.h"
#include "stock/HuntedValues.h"
#include "stock/ItemStatement.h"
#include "stock/LastRateQuery.h"
#include "stock/StandardRateQuery.h"
#include "stock/StockQueries.h"

namespace pstolvane1 {
namespace {

bool AtStandard(enmValuationMethod method) {
  return method == standardrate || method == StandardPrice;
}

// Costs are hunted among costs alone.
StandardRates StandardsOf(enmValuationMethod method) {
  return method == LastPurchaseRate || method == standardrate ? StandardRates::kCosts
                                                              : StandardRates::kAll;
}

// rsReport takes strSQL, Rs1 strSQL2 and Rs2 strSQL3.
void Compose(ReportFrame& frame, const StockArguments& arguments) {
  modStolvane1& module = frame.module;
  const bool standard = AtStandard(arguments.ValuationMethod);
  module.strSQL = ForTree(frame.Normalise(standard ? ComposeStandardRate(arguments, module.filter)
                                                   : ComposeLastRate(arguments, module.filter)),
                          arguments.tree);
  module.strSQL2 = frame.Normalise(ComposeStandardRates(StandardsOf(arguments.ValuationMethod),
                                                        module.strToDateText, arguments.bytYearno));
  module.strSQL3 = frame.Normalise(standard ? ComposeStandardRateRows(arguments)
                                            : ComposeLastRateRows(arguments));
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

StockRows Rows(ReportFrame& frame) {
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

RecordsetPtr StockDetails_Item_HuntedRate(ReportFrame& frame, const StockArguments& arguments) {
  Compose(frame, arguments);
  const modStolvane1& module = frame.module;
  return Launch(frame, arguments.blnReport, kFetch,
                {{Source::Rs1, module.strSQL2},
                 {Source::Rs2, module.strSQL3},
                 {Source::rsReport, module.strSQL}},
                &mStock_HuntedRate);
}

RecordsetPtr StockDetails_Group_HuntedRate(ReportFrame& frame, const StockArguments& arguments) {
  Compose(frame, arguments);
  modStolvane1& module = frame.module;
  module.strSQL4 = frame.Normalise(ComposeGroupQuery(arguments.tree));
  return Launch(frame, arguments.blnReport, kFetch,
                {{Source::Rs1, module.strSQL2},
                 {Source::Rs2, module.strSQL3},
                 {Source::RsCategory, module.strSQL4},
                 {Source::rsReport, module.strSQL}},
                &mStockGroup_HuntedRate);
}

RecordsetPtr mStock_HuntedRate(ReportFrame& frame) {
  return WriteItemStatement(frame, Rows(frame));
}

RecordsetPtr mStockGroup_HuntedRate(ReportFrame& frame) {
  return WriteGroupStatement(frame, Rows(frame));
}

}  // namespace pstolvane1
