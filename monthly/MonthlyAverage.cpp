#include "monthly/MonthlyAverage.h"

#include <fmt/format.h>

#include "monthly/MonthlyKeys.h"
#include "monthly/MonthlyWriter.h"
#include "movements/RateReader.h"
#include "session/mInternationalization.h"
#include "valuation/MonthAverage.h"

namespace pstolvane1 {
namespace {

constexpr std::int32_t kPeriodBook = 2;

class BalanceReader {
 public:
  explicit BalanceReader(const Recordset& rows)
      : by_key_(rows.GroupBy({"Item_Id", "Godown_Id", "Batch_Id"})),
        year_(rows.Column("Year_Id")),
        balance_(rows.Column("QtyBal")),
        entering_(rows.Column("QtyIn")),
        value_(rows.Column("ValueIn")),
        openings_(rows.Column("OpQtyForCal")) {}

  [[nodiscard]] const RowGroups& ByKey() const { return by_key_; }

  void AddTo(MonthAverage& average, const StockKey& key) const {
    for (const Recordset::Row row :
         by_key_.Find({key.item_id, key.place.godown_id, key.place.batch_id})) {
      average.AddYear({.year = row.Int32(year_),
                       .balance = row.Double(balance_),
                       .entering = row.Double(entering_),
                       .entering_value = row.Double(value_),
                       .opening_balance = row.IsNull(openings_)
                                              ? std::nullopt
                                              : std::optional(row.Double(openings_))});
    }
  }

 private:
  RowGroups by_key_;
  ColumnHandle year_, balance_, entering_, value_, openings_;
};

class MovementReader {
 public:
  explicit MovementReader(const Recordset& rows)
      : by_key_(rows.GroupBy({"Item_Id", "Godown_Id", "Batch_Id"})),
        book_(rows.Column("Book_Id")),
        month_(rows.Column("Inc_Id")),
        in_(rows.Column("QtyIn")),
        value_in_(rows.Column("QtyInValue")),
        out_(rows.Column("QtyOut")),
        value_out_(rows.Column("QtyOutValue")) {}

  [[nodiscard]] const RowGroups& ByKey() const { return by_key_; }

  // The months' figures, none before the period; the others go into the average.
  [[nodiscard]] std::vector<std::pair<std::int32_t, MonthFigures>> Read(MonthAverage& average,
                                                                        const StockKey& key) const {
    std::vector<std::pair<std::int32_t, MonthFigures>> months;
    for (const Recordset::Row row :
         by_key_.Find({key.item_id, key.place.godown_id, key.place.batch_id})) {
      const StockFigure inwards{row.Single(in_), row.Money(value_in_)};
      const StockFigure outwards{row.Single(out_), row.Money(value_out_)};
      if (row.Int32(book_) == kPeriodBook) {
        months.emplace_back(row.Int32(month_),
                            MonthFigures{.inwards = inwards, .outwards = outwards});
      } else {
        average.AddBefore(inwards, outwards);
      }
    }
    return months;
  }

 private:
  RowGroups by_key_;
  ColumnHandle book_, month_, in_, value_in_, out_, value_out_;
};

// One stock key after the other, each from its balances to the last month.
class AverageLedger {
 public:
  AverageLedger(const ReportFrame& frame, const MonthlyArguments& arguments)
      : period_(PeriodOf(arguments)),
        months_(MonthsOf(period_)),
        balances_(*frame.Rowset(Source::rsReport)),
        movements_(*frame.Rowset(Source::Rs1)),
        costs_(*frame.Rowset(Source::Rs2)) {
    ledger_.months.resize(months_.size());
  }

  void AddAll() {
    for (const StockKey& key : StockKeysOf({&balances_.ByKey(), &movements_.ByKey()})) Add(key);
  }

  [[nodiscard]] const MonthLedger& Ledger() const { return ledger_; }

 private:
  void Add(const StockKey& key) {
    MonthAverage average(costs_.Of(key.item_id));
    balances_.AddTo(average, key);
    const auto moved = movements_.Read(average, key);
    ledger_.opening += average.Position();
    ledger_.opening.value += average.UnpricedOpening(period_.from);
    auto next = moved.begin();
    for (std::size_t i = 0; i < months_.size(); ++i) {
      MonthFigures figures;
      for (; next != moved.end() && next->first <= months_[i].Key(); ++next) {
        average.AddMonth(next->second.inwards, next->second.outwards);
        figures += next->second;
      }
      figures.closing = average.Position();
      figures.closing.value += average.UnpricedMonth(months_[i]);
      ledger_.months[i] += figures;
    }
  }

  StockPeriod period_;
  std::vector<CalendarMonth> months_;
  BalanceReader balances_;
  MovementReader movements_;
  StandardRateReader costs_;
  MonthLedger ledger_;
};

// The months are walked until the last or a cancel: those that were reached. The standard rates are
// the progress total, which is meant.
std::size_t WalkMonths(ReportFrame& frame, std::size_t months) {
  frame.lngFetchTotal = frame.Rowset(Source::Rs2)->RecordCount();
  std::size_t walked = 0;
  while (walked < months) {
    ++walked;
    if (!frame.EndPass()) break;
  }
  return walked;
}

}  // namespace

std::string ComposeMonthlyBalances(const MonthlyArguments& arguments, Date dtBooksFrom) {
  const QueryPart subject = MovementsOf(arguments);
  constexpr std::string_view kEntering =
      "CASE WHEN isadded = true THEN godownitem1.qty ELSE CASE WHEN godownitem1.isopeningbal = "
      "true THEN -godownitem1.qty ELSE 0 END END";
  const std::string_view first_year = arguments.bytYearno == 1 ? "=" : "";
  return fmt::format(
      "select {0} , godownitem1.yearno as year_id , sum ( CASE WHEN isadded = true THEN "
      "godownitem1.qty ELSE -godownitem1.qty END ) as qtybal , sum ( {1} ) as qtyin , sum ( ( {1} "
      ") * godownitem1.rate ) as valuein , sum ( CASE WHEN godownitem1.isopeningbal = -1 THEN CASE "
      "WHEN isadded = true THEN godownitem1.qty ELSE -godownitem1.qty END END ) as opqtyforcal "
      "from godownitem1{2}{8} where godownitem1.optional = 0 and {9} <= {3} and {4} "
      "and ( godownitem1.date <{5} #{6}# or godownitem1.date is null ) {7}group by {0} , "
      "godownitem1.yearno order by {0} , godownitem1.yearno ",
      kStockKey, kEntering, subject.joins, arguments.bytYearno, subject.condition, first_year,
      SqlDateText(dtBooksFrom),
      arguments.bytYearno == 1 ? "and godownitem1.isopeningbal = true " : "", kUnitJoins, kYear);
}

std::string ComposeMonthlyMovements(const MonthlyArguments& arguments, Date dtBooksFrom) {
  const QueryPart subject = MovementsOf(arguments);
  const std::string from = SqlDateText(arguments.dtFromDate);
  const std::string book = fmt::format("CASE WHEN godownitem1.date < #{}# THEN 1 ELSE 2 END", from);
  const std::string month = MonthKeyOf("godownitem1.date");
  const auto sum = [](std::string_view added, std::string_view of) {
    return fmt::format("sum ( CASE WHEN isadded = {} THEN {} ELSE 0 END )", added, of);
  };
  constexpr std::string_view kQuantity = "godownitem1.qty";
  constexpr std::string_view kValue = "godownitem1.qty * godownitem1.rate";
  return fmt::format(
      "select {0} , {1} as book_id , {2} as inc_id , {3} as qtyin , {4} as qtyinvalue , {5} as "
      "qtyout , {6} as qtyoutvalue from godownitem1{7}{13} where {8} and {14} = {9} and "
      "godownitem1.isopeningbal = 0 and godownitem1.optional = 0 and ( ( godownitem1.date >= "
      "#{10}# and godownitem1.date < #{11}# ) or ( godownitem1.date >= #{11}# and godownitem1.date "
      "<= #{12}# ) ) group by {0} , {1} , {2} order by {0} , {1} , {2} ",
      kStockKey, book, month, sum("true", kQuantity), sum("true", kValue), sum("false", kQuantity),
      sum("false", kValue), subject.joins, subject.condition, arguments.bytYearno,
      SqlDateText(dtBooksFrom), from, SqlDateText(arguments.dtToDate), kUnitJoins, kYear);
}

SourceQueries Monthly_Avg(const modStolvane1& module, const MonthlyArguments& arguments) {
  return {{Source::rsReport, ComposeMonthlyBalances(arguments, module.dtBooksFrom)},
          {Source::rsItems, ComposeMonthlyItems(arguments)},
          {Source::Rs1, ComposeMonthlyMovements(arguments, module.dtBooksFrom)},
          {Source::Rs2, ComposeMonthlyStandards(arguments, StandardRates::kCosts)}};
}

RecordsetPtr mMonthly_Avg(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<MonthlyArguments>();
  const RecordsetPtr items = frame.Rowset(Source::rsItems);
  AverageLedger average(frame, arguments);
  average.AddAll();
  MonthLedger ledger = average.Ledger();
  ledger.months.resize(WalkMonths(frame, ledger.months.size()));
  return WriteMonthLedger(frame, arguments, ledger,
                          {.units = ReadMonthlyUnits(arguments, *items),
                           .alt_columns = arguments.blnAltUom,
                           .raw_figures = true});
}

}  // namespace pstolvane1
