#include "stock/SimpleAverage.h"

#include "movements/GroupQuery.h"
#include "session/data/RowGroups.h"
#include "stock/GroupStatement.h"
#include "stock/ItemStatement.h"
#include "valuation/StockPeriod.h"

namespace pstolvane1 {
namespace {

// The yearly totals know nothing of documents, so that any filter of them needs the lines.
bool IsWholeYear(const modStolvane1& module) {
  const DocumentFilter& filter = module.filter;
  return filter.strVouchertypeFilter.empty() && filter.strSubgroupFilter.empty() &&
         filter.OptNo <= 1 && DayOf(module.dtFromDate) == DayOf(module.dtBooksFrom) &&
         DayOf(module.dtToDate) == DayOf(module.dtBooksTo);
}

SourceQuery YearTotals(const modStolvane1& module, const StockArguments& arguments) {
  return {Source::rsReport,
          IsWholeYear(module)
              ? ComposeSimpleAverageYear(arguments.bytYearno)
              : ComposeSimpleAveragePeriod(arguments, module.dtBooksFrom, module.filter)};
}
SourceQuery Items(const StockArguments& arguments) {
  return {Source::rsItems, ComposeSimpleAverageItems(arguments), GroupSwap(arguments.tree)};
}

// The totals of the year or period, by item.
class Totals {
 public:
  explicit Totals(const Recordset& totals)
      : by_item_(totals.GroupBy({"Item_Id"})),
        opening_(totals, "Opening"),
        inwards_(totals, "Inwards"),
        outwards_(totals, "Outwards"),
        closing_(totals, "Closing") {}

  // Nothing for an item that nothing is told of.
  std::optional<StockFigures> Value(std::int64_t item_id) const {
    const RowGroups::Group found = by_item_.Find({item_id});
    if (found.Empty()) return std::nullopt;
    const Recordset::Row row = found.First();
    const StockFigures figures{.opening = opening_.Read(row),
                               .inwards = inwards_.Read(row),
                               .outwards = outwards_.Read(row),
                               .closing = closing_.Read(row)};
    return figures == StockFigures() ? std::nullopt : std::optional(figures);
  }

 private:
  struct Side {
    Side(const Recordset& totals, const std::string& name)
        : quantity(totals.Column("Qty_" + name)), value(totals.Column("Value_" + name)) {}
    [[nodiscard]] StockFigure Read(const Recordset::Row& row) const {
      return {row.Single(quantity), row.Money(value)};
    }
    ColumnHandle quantity, value;
  };
  RowGroups by_item_;
  Side opening_, inwards_, outwards_, closing_;
};

// From clones: a fetch that was left over may set the builder off a second time while the first one
// yields, and each closes the sources.
ValuedKeys ValueKeys(ReportFrame& frame) {
  const RecordsetPtr items = frame.Rowset(Source::rsItems)->Clone(adLockUnspecified);
  const RecordsetPtr year = frame.Rowset(Source::rsReport)->Clone(adLockUnspecified);
  const auto totals = std::make_shared<Totals>(*year);
  return {.keys = items,
          .rows = {items->Rows().begin(), items->Rows().end()},
          .value = [totals, id = items->Column("Item_Id")](const Recordset::Row& item) {
            return totals->Value(item.Int64(id));
          }};
}

}  // namespace

SourceQueries StockDetails_Item_SimpleAvg(const modStolvane1& module,
                                          const StockArguments& arguments) {
  return {YearTotals(module, arguments), Items(arguments)};
}

SourceQueries StockDetails_Group_SimpleAvg(const modStolvane1& module,
                                           const StockArguments& arguments) {
  return {YearTotals(module, arguments),
          Items(arguments),
          {Source::RsCategory, ComposeGroupQuery(arguments.tree)}};
}

RecordsetPtr mStock_SimpleAvg(ReportFrame& frame) {
  RecordsetPtr report = WriteItemStatement(frame, ValueKeys(frame));
  for (const Source source : {Source::rsItems, Source::rsReport}) {
    if (frame.Rowset(source)->State() != adStateClosed) frame.Rowset(source)->Close();
  }
  return report;
}

RecordsetPtr mStockGroup_SimpleAvg(ReportFrame& frame) {
  return WriteGroupStatement(frame, ValueKeys(frame));
}

}  // namespace pstolvane1
