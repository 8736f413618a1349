#include "monthly/MonthlySimpleAverage.h"

#include <fmt/format.h>

#include "monthly/MonthlyKeys.h"
#include "monthly/MonthlyWriter.h"
#include "session/data/RowGroups.h"
#include "session/mInternationalization.h"

namespace pstolvane1 {
namespace {

double Of(float single) { return static_cast<double>(single); }

// Sales leave the rate as it is, and what entered it as well.
struct RunningRate {
  StockFigure entered;
  float gone = 0;
  Currency value;  // of what is left; stays where nothing entered

  void Add(const MonthFigures& moved) {
    entered += moved.inwards;
    gone = ToSingle(Of(gone) + Of(moved.outwards.quantity));
    if (entered.quantity == 0) return;
    const double rate = entered.value.ToDouble() / Of(entered.quantity);
    value = ValueAt(rate, Of(Left().quantity));
  }
  [[nodiscard]] StockFigure Left() const {
    return {ToSingle(Of(entered.quantity) - Of(gone)), value};
  }
  // What went out before the period is forgotten: the rate starts from what was left.
  void BeginPeriod() { *this = {.entered = Left(), .gone = 0, .value = value}; }
};

class SimpleLedger {
 public:
  SimpleLedger(const Recordset& rows, const MonthlyArguments& arguments)
      : months_(MonthsOf(PeriodOf(arguments))),
        by_item_(rows.GroupBy({"Item_Id"})),
        month_(rows.Column("Inc_Id")),
        in_(rows.Column("QtyIn")),
        value_in_(rows.Column("ValueIn")),
        out_(rows.Column("QtyOut")),
        value_out_(rows.Column("ValueOut")) {
    ledger_.months.resize(months_.size());
  }

  void AddItem(std::int64_t item_id) { Add(by_item_.Find({item_id})); }
  void AddAll() {
    for (const RowGroups::Group item : by_item_) Add(item);
  }

  [[nodiscard]] const MonthLedger& Ledger() const { return ledger_; }
  [[nodiscard]] std::size_t RowsOfMonths() const { return rows_of_months_; }

 private:
  void Add(const RowGroups::Group& item) {
    std::vector<MonthFigures> moved(months_.size() + 1);
    for (const Recordset::Row row : item) {
      const std::size_t place = PlaceOf(row.Int32(month_));
      if (place > 0) ++rows_of_months_;
      moved[place] += {.inwards = {row.Single(in_), row.Money(value_in_)},
                       .outwards = {row.Single(out_), row.Money(value_out_)}};
    }
    RunningRate rate;
    rate.Add(moved[0]);
    ledger_.opening += rate.Left();
    rate.BeginPeriod();
    for (std::size_t i = 0; i < months_.size(); ++i) {
      MonthFigures figures = moved[i + 1];
      rate.Add(figures);
      figures.closing = rate.Left();
      ledger_.months[i] += figures;
    }
  }

  [[nodiscard]] std::size_t PlaceOf(std::int32_t month) const {
    if (month == 0) return 0;
    return PlaceOfMonth(months_, Date::FromYmd(month / 100, month % 100, 1)) + 1;
  }

  std::vector<CalendarMonth> months_;
  RowGroups by_item_;
  ColumnHandle month_, in_, value_in_, out_, value_out_;
  MonthLedger ledger_;
  std::size_t rows_of_months_ = 0;
};

MonthlyForm FormOf(const MonthlyArguments& arguments, const Recordset& items) {
  if (!IsOfOneItem(arguments)) {
    return {
        .units = {}, .alt_columns = arguments.blnAltUom, .raw_figures = true, .month_keys = true};
  }
  const StockUnits units = ReadMonthlyUnits(arguments, items);
  return {.units = units, .alt_columns = arguments.blnAltUom && !HasOneUnit(units)};
}

}  // namespace

std::string ComposeMonthlySimple(const MonthlyArguments& arguments, Date dtBooksFrom) {
  const QueryPart opened = ItemsOf(arguments, "itemdetailsasledger.item_id", Below::kNothing);
  const QueryPart items = ItemsOf(arguments, "desrdetails1.item_id", Below::kNothing);
  const std::string from = SqlDateText(arguments.dtFromDate);
  const std::string month = MonthKeyOf("desrdetails1.desrdetdate");
  const std::string sums =
      "isnull(sum( desrdetails1.qtydespin ),0) as qtyin , isnull(sum( desrdetails1.qtydespin * "
      "desrdetails1.price ),0) as valuein , isnull(sum( desrdetails1.qtydespout ),0) as qtyout , "
      "isnull(sum( desrdetails1.qtydespout * desrdetails1.price ),0) as valueout";
  const std::string lines = fmt::format(
      "from desrdetails1 inner join desr1 on desr1.desr_id = desrdetails1.desr_id{} where {} and "
      "desrdetails1.affectstock = true and desr1.deleted = 0 and desrdetails1.yearno = {}",
      items.joins, items.condition, arguments.bytYearno);
  return fmt::format(
      "select itemdetailsasledger.item_id , 0 as inc_id , "
      "isnull(itemdetailsasledger.openingquantity,0) as qtyin , "
      "isnull(itemdetailsasledger.openingvalue,0) as valuein , 0 as qtyout , 0 as valueout from "
      "itemdetailsasledger{0} where {1} and itemdetailsasledger.yearno = {2} union all select "
      "desrdetails1.item_id , 0 as inc_id , {3} {4} and desrdetails1.desrdetdate >= '{5}' and "
      "desrdetails1.desrdetdate < '{6}' group by desrdetails1.item_id union all select "
      "desrdetails1.item_id , {7} as inc_id , {3} {4} and desrdetails1.desrdetdate between '{6}' "
      "and '{8}' group by desrdetails1.item_id , {7} ",
      opened.joins, opened.condition, arguments.bytYearno, sums, lines, SqlDateText(dtBooksFrom),
      from, month, SqlDateText(arguments.dtToDate));
}

SourceQueries Monthly_SimpleAvg(const modStolvane1& module, const MonthlyArguments& arguments) {
  return {{Source::rsReport, ComposeMonthlySimple(arguments, module.dtBooksFrom)},
          {Source::rsItems, ComposeMonthlyItems(arguments)}};
}

RecordsetPtr mMonthly_SimpleAvg(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<MonthlyArguments>();
  const RecordsetPtr items = frame.Rowset(Source::rsItems);
  const RecordsetPtr rows = frame.Rowset(Source::rsReport);
  SimpleLedger ledger(*rows, arguments);
  ledger.AddAll();
  EndPasses(frame, rows->RecordCount(), ledger.RowsOfMonths());
  return WriteMonthLedger(frame, arguments, ledger.Ledger(), FormOf(arguments, *items));
}

RecordsetPtr mMonthly_SimpleAvgGrouped(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<MonthlyArguments>();
  const RecordsetPtr items = frame.Rowset(Source::rsItems);
  const ColumnHandle item_id = items->Column("Item_Id");
  SimpleLedger ledger(*frame.Rowset(Source::rsReport), arguments);
  for (const Recordset::Row row : items->Rows()) {
    ledger.AddItem(row.Int64(item_id));
    EndPasses(frame, items->RecordCount(), 1);
  }
  return WriteMonthLedger(frame, arguments, ledger.Ledger(), FormOf(arguments, *items));
}

}  // namespace pstolvane1
