#include "monthly/MonthlyHuntedRate.h"

#include <fmt/format.h>

#include "monthly/MonthlyKeys.h"
#include "monthly/MonthlyWriter.h"
#include "movements/RateReader.h"
#include "session/mInternationalization.h"
#include "valuation/MonthRates.h"

namespace pstolvane1 {
namespace {

double Of(float single) { return static_cast<double>(single); }

// The quantities of a stock key, the opening first.
class QuantityReader {
 public:
  QuantityReader(const Recordset& rows, const std::vector<CalendarMonth>& months)
      : by_key_(rows.GroupBy({"Item_Id", "Godown_Id", "Batch_Id"})),
        months_(months),
        month_(rows.Column("Inc_Id")),
        in_(rows.Column("QtyIn")),
        value_in_(rows.Column("ValueIn")),
        out_(rows.Column("QtyOut")),
        value_out_(rows.Column("ValueOut")) {}

  [[nodiscard]] const RowGroups& ByKey() const { return by_key_; }

  [[nodiscard]] const std::vector<MonthFigures>& Read(const StockKey& key) {
    read_.assign(months_.size() + 1, {});
    for (const Recordset::Row row :
         by_key_.Find({key.item_id, key.place.godown_id, key.place.batch_id})) {
      const std::size_t place = PlaceOf(row.Int32(month_));
      if (place >= read_.size()) continue;
      read_[place] += {.inwards = {row.Single(in_), row.Money(value_in_)},
                       .outwards = {row.Single(out_), row.Money(value_out_)}};
    }
    return read_;
  }

 private:
  [[nodiscard]] std::size_t PlaceOf(std::int32_t month) const {
    if (month == 0) return 0;
    return PlaceOfMonth(months_, Date::FromYmd(month / 100, month % 100, 1)) + 1;
  }

  RowGroups by_key_;
  const std::vector<CalendarMonth>& months_;
  ColumnHandle month_, in_, value_in_, out_, value_out_;
  std::vector<MonthFigures> read_;
};

class HuntedLedger {
 public:
  HuntedLedger(const ReportFrame& frame, const MonthlyArguments& arguments)
      : method_(arguments.ValuationMethod),
        period_(PeriodOf(arguments)),
        months_(MonthsOf(period_)),
        quantities_(*frame.Rowset(Source::Rs1), months_),
        actual_(*frame.Rowset(Source::rsReport)),
        standard_(*frame.Rowset(Source::Rs2)) {
    ledger_.months.resize(months_.size());
  }
  HuntedLedger(const HuntedLedger&) = delete;
  HuntedLedger& operator=(const HuntedLedger&) = delete;

  [[nodiscard]] std::vector<StockKey> Keys() const { return StockKeysOf({&quantities_.ByKey()}); }

  void Add(const StockKey& key) {
    if (!rates_ || key.item_id != item_id_) {
      rates_.emplace(actual_.Of(key.item_id), standard_.Of(key.item_id), period_, months_);
      item_id_ = key.item_id;
    }
    const std::vector<MonthFigures>& moved = quantities_.Read(key);
    float balance = moved[0].inwards.quantity;
    ledger_.opening += ValueOf(balance, key.place, 0);
    for (std::size_t i = 0; i < months_.size(); ++i) {
      MonthFigures figures = moved[i + 1];
      balance =
          ToSingle(Of(balance) + Of(figures.inwards.quantity) - Of(figures.outwards.quantity));
      figures.closing = ValueOf(balance, key.place, i + 1);
      ledger_.months[i] += figures;
    }
  }

  [[nodiscard]] const MonthLedger& Ledger() const { return ledger_; }

 private:
  [[nodiscard]] StockFigure ValueOf(float balance, const GodownBatch& key,
                                    std::size_t place) const {
    return {balance, ValueAt(Of(balance), rates_->Of(method_, key, place))};
  }

  enmValuationMethod method_;
  StockPeriod period_;
  std::vector<CalendarMonth> months_;
  QuantityReader quantities_;
  ActualRateReader actual_;
  StandardRateReader standard_;
  std::int64_t item_id_ = 0;
  std::optional<MonthRates> rates_;
  MonthLedger ledger_;
};

// The standard price looks at the documents of both sides.
std::string RateCondition(enmValuationMethod method) {
  if (method != StandardPrice) return ActualRateCondition(method);
  return "godownitem1.goriginalvouchertype_id in (7,14,10,15,0) and ";
}

std::int32_t OpeningsIn(const Recordset& quantities) {
  const ColumnHandle month = quantities.Column("Inc_Id");
  std::int32_t openings = 0;
  for (const Recordset::Row row : quantities.Rows()) openings += row.Int32(month) == 0 ? 1 : 0;
  return openings;
}

// The last sale reads costs alone, so that its search for a price finds none; that is meant.
StandardRates StandardsOf(enmValuationMethod method) {
  return method == StandardPrice ? StandardRates::kAll : StandardRates::kCosts;
}

}  // namespace

std::string ComposeMonthlyQuantities(const MonthlyArguments& arguments) {
  const QueryPart subject = MovementsOf(arguments);
  const std::string from = SqlDateText(arguments.dtFromDate);
  const std::string month = MonthKeyOf("godownitem1.date");
  const std::string lines =
      fmt::format("from godownitem1{}{} where godownitem1.optional = 0 and {} and {}",
                  subject.joins, kUnitJoins, subject.condition, kYear);
  const auto sum = [](std::string_view added, std::string_view of) {
    return fmt::format("sum ( CASE WHEN isadded = {} THEN {} ELSE 0 END )", added, of);
  };
  constexpr std::string_view kQuantity = "godownitem1.qty";
  constexpr std::string_view kValue = "godownitem1.qty * godownitem1.rate";
  return fmt::format(
      "select {0} , sum ( CASE WHEN isadded = -1 THEN godownitem1.qty ELSE -godownitem1.qty END ) "
      "as qtyin , 0 as valuein , 0 as qtyout , 0 as valueout , 0 as inc_id {1} <= {2} and ( "
      "godownitem1.date < #{3}# or godownitem1.isopeningbal = -1 ) "
      "group by {0} union all select {0} , {4} as qtyin , {5} as valuein , {6} as qtyout , {7} as "
      "valueout , {8} as inc_id {1} = {2} and ( godownitem1.date between "
      "#{3}# and #{9}# ) group by {0} , {8} ",
      kStockKey, lines, arguments.bytYearno, from, sum("-1", kQuantity), sum("-1", kValue),
      sum("0", kQuantity), sum("0", kValue), month, SqlDateText(arguments.dtToDate));
}

std::string ComposeMonthlyActualRates(const MonthlyArguments& arguments) {
  const QueryPart subject = MovementsOf(arguments);
  return fmt::format(
      "select {0} , godownitem1.rate , godownitem1.isopeningbal , godownitem1.isadded , "
      "godownitem1.date from godownitem1{1} where {2}godownitem1.optional = 0 and {3} and ( "
      "godownitem1.date <= #{4}# or godownitem1.isopeningbal = -1 ) and {6} <= {5} "
      "order by items1.item_id , godownitem1.yearno , godownitem1.date , "
      "godownitem1.godownitem_id , godownitem1.godown_id , godownitem1.batch_id ",
      kStockKey, subject.joins, RateCondition(arguments.ValuationMethod), subject.condition,
      SqlDateText(arguments.dtToDate), arguments.bytYearno, kYear);
}

SourceQueries Monthly_HuntedRate(const modStolvane1& /*module*/,
                                 const MonthlyArguments& arguments) {
  return {
      {Source::Rs1, ComposeMonthlyQuantities(arguments)},
      {Source::rsReport, ComposeMonthlyActualRates(arguments)},
      {Source::rsItems, ComposeMonthlyItems(arguments)},
      {Source::Rs2, ComposeMonthlyStandards(arguments, StandardsOf(arguments.ValuationMethod))}};
}

RecordsetPtr mMonthly_HuntedRate(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<MonthlyArguments>();
  const RecordsetPtr items = frame.Rowset(Source::rsItems);
  HuntedLedger ledger(frame, arguments);
  const std::int32_t openings = OpeningsIn(*frame.Rowset(Source::Rs1));
  EndPasses(frame, openings, static_cast<std::size_t>(openings));
  const std::vector<StockKey> keys = ledger.Keys();
  for (const StockKey& key : keys) {
    ledger.Add(key);
    EndPasses(frame, static_cast<std::int32_t>(keys.size()), ledger.Ledger().months.size());
  }
  return WriteMonthLedger(
      frame, arguments, ledger.Ledger(),
      {.units = ReadMonthlyUnits(arguments, *items), .alt_columns = arguments.blnAltUom});
}

}  // namespace pstolvane1
