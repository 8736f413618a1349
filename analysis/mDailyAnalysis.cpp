#include "analysis/DailyAnalysis.h"
#include "session/RowLoop.h"
#include "session/data/RowGroups.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

// The columns of areas are there so that a host binds these days and the analysis to one layout.
constexpr ReportLayout kColumns = {
    Display("Particulars"),
    Display("Ledgername"),
    Display("Itemname"),
    Display("Parent"),
    Display("Parentname"),
    Key("Id", adBigInt),
    Display("Child"),
    Display("Date"),
    Display("QtyOut"),
    Display("QtyOutUom"),
    Display("QtyIn"),
    Display("QtyInUom"),
    Display("Balance"),
    Display("Average"),
    Display("RetPerc"),
    Display("GrpQtyOut"),
    Display("GrpQtyIn"),
    Display("GrpBalance"),
    Display("GrpAverage"),
    Display("GrpRetPerc"),
    Display("TotalQtyOut"),
    Display("TotalQtyIn"),
    Display("TotalBalance"),
    Display("TotalAverage"),
    Display("TotalRetPerc"),
    Display("Total"),
    Marker("Line"),
    Display("IdPar"),
    Display("IdChild"),
    Display("Par"),
    ReportColumn{"ParticularsSort", adVarChar, 255, adFldDefault},
    QuantityTwin("QtyInSort"),
    QuantityTwin("QtyOutSort"),
    QuantityTwin("BalanceSort"),
    QuantityTwin("AverageSort"),
    QuantityTwin("RetPercSort"),
    MoneyTwin("ValueSort"),
    NumberTwin("DummySort"),
    ReportColumn{"Particulars1Sort", adVarChar, 255, adFldDefault},
    QuantityTwin("QtyIn1Sort"),
    QuantityTwin("QtyOut1Sort"),
    QuantityTwin("Balance1Sort"),
    QuantityTwin("Average1Sort"),
    QuantityTwin("RetPerc1Sort"),
    MoneyTwin("Value1Sort"),
    Display("AreaName"),
    Display("GrpQtyInArea"),
    Display("GrpValueInArea"),
    Display("GrpQtyOutArea"),
    Display("GrpValueOutArea"),
    Display("GrpRetPercArea"),
    Display("GrpBalanceArea"),
    Display("GrpAverageArea"),
    TextTwin("AreaNameSort"),
    Display("Value"),
    Display("GrpValue"),
    Display("GrpValueArea"),
    Display("TotalValue"),
};

constexpr RuleColumn kRule = kColumns.Rule("Line", 85);

struct SourceColumns {
  SourceColumns(const Recordset& source, bool by_item)
      : name(source.Column(by_item ? "Itemname" : "PartyName")),
        id(source.Column(by_item ? "item_id" : "ledger_id")),
        date(source.Column("date")),
        out(source.Column("quantityout")),
        in(source.Column("quantityin")),
        value(source.Column("value")) {}

  ColumnHandle name, id, date, out, in, value;
};

// Quantities add up as 32-bit floats, values exactly.
struct DaySums {
  MovementSums quantities;
  Currency value;

  void Add(const MovementFigures& day, double day_value) {
    quantities.Add(day);
    value += Currency::FromDouble(day_value);
  }
};

class Days {
 public:
  Days(ReportFrame& frame, const DailyArguments& arguments, bool by_item, const Recordset& source)
      : arguments_(arguments),
        by_item_(by_item),
        days_(DaysOf(arguments.dtFromDate, arguments.dtToDate)),
        numbered_(frame.module.blnDetailed),
        locale_(frame.Texts()),
        from_(source, by_item),
        writer_(kColumns, StyleOf(frame)) {}

  void WriteGroup(const RowGroups::Group& rows) {
    sums_ = {};
    AddGroup(rows.First());
    for (const Recordset::Row row : rows) AddDay(row);
    CloseGroup();
    writer_.AddSpacer(kColumns.At("Total"), numbered_ ? counter_ + 1 : ReportWriter::kNoNumber);
  }

  RecordsetPtr Finish() {
    const MovementFigures figures = report_.quantities.Figures();
    writer_.AddSpacer(kColumns.At("Total"), counter_ + 1);
    writer_.Rule(kRule);
    writer_.AddTotalLine(kColumns.At("Total"), kRule, counter_ + 2);
    writer_.Number(kColumns.At("TotalQtyIn"), figures.in);
    writer_.Number(kColumns.At("TotalQtyOut"), figures.out);
    writer_.Text(kColumns.At("TotalValue"), ValueText(report_.value));
    writer_.Number(kColumns.At("TotalBalance"), BalanceOf(arguments_.side, figures));
    writer_.Number(kColumns.At("TotalAverage"), BalanceOf(arguments_.side, figures) / days_);
    if (const auto returned = ReturnedPercent(arguments_.side, figures)) {
      writer_.Number(kColumns.At("TotalRetPerc"), *returned);
    }
    return writer_.Finish();
  }

 private:
  [[nodiscard]] std::string ValueText(const Variant& value) const {
    return writer_.MoneyText(writer_.Scaled(value));
  }

  void AddGroup(const Recordset::Row& row) {
    writer_.AddLine(numbered_ ? counter_ + 1 : ReportWriter::kNoNumber);
    if (numbered_) counter_ += 2;
    head_ = writer_.Line();
    name_ = row[from_.name];
    id_ = row.Int64(from_.id);
    writer_.Value(kColumns.At("Parent"), name_);
    writer_.Value(by_item_ ? kColumns.At("Itemname") : kColumns.At("Ledgername"), name_);
    writer_.Value(kColumns.At("Id"), id_);
    writer_.Value(kColumns.At("Par"), name_);
    writer_.Text(kColumns.At("IdChild"), "0");
    // Purchases know the group by its id here, sales do not; both are meant.
    writer_.Value(kColumns.At("IdPar"), IsSales() ? std::int64_t{0} : id_);
  }

  void AddDay(const Recordset::Row& row) {
    const MovementFigures figures{.in = row.IsNull(from_.in) ? 0 : row.Double(from_.in),
                                  .out = row.IsNull(from_.out) ? 0 : row.Double(from_.out)};
    const double value = row.IsNull(from_.value) ? 0 : row.Double(from_.value);
    const std::string date = writer_.DateText(row[from_.date]);
    writer_.AddLine(numbered_ ? counter_ : ReportWriter::kNoNumber);
    writer_.Text(kColumns.At("Child"), date);
    writer_.Text(kColumns.At("Date"), date);
    writer_.Text(
        kColumns.At("Particulars1Sort"),
        arguments_.blnUseLongDate ? locale_.FormatGeneralDate(row.DateOf(from_.date)) : date);
    writer_.NumberOrBlank(kColumns.At("QtyOut"), figures.out);
    writer_.NumberOrBlank(kColumns.At("QtyIn"), figures.in);
    writer_.Value(kColumns.At("QtyOut1Sort"), figures.out);
    writer_.Value(kColumns.At("QtyIn1Sort"), figures.in);
    writer_.Text(kColumns.At("Value"), value == 0 ? std::string() : ValueText(value));
    // Only purchases scale the twin; that is meant.
    writer_.Value(kColumns.At("Value1Sort"),
                  Currency::FromDouble(IsSales() ? value : writer_.Scaled(value)));
    writer_.Text(kColumns.At("Balance"), "");
    writer_.Text(kColumns.At("Average"), "");
    if (const auto returned = ReturnedPercent(arguments_.side, figures)) {
      writer_.Number(kColumns.Twinned("RetPerc").shown, *returned);
      writer_.Value(kColumns.At("RetPerc1Sort"), *returned);
    }
    writer_.Value(kColumns.At("Parentname"), name_);
    writer_.Value(kColumns.At("Id"), id_);
    writer_.Text(kColumns.At("Par"), "  " + date);
    writer_.Value(kColumns.At("IdPar"), id_);
    writer_.Text(kColumns.At("IdChild"), "1");
    sums_.Add(figures, value);
    report_.Add(figures, value);
  }

  // A zero leaves its cell empty.
  void CloseGroup() {
    const MovementFigures figures = sums_.quantities.Figures();
    const double balance = BalanceOf(arguments_.side, figures);
    writer_.ReturnTo(head_);
    if (figures.in != 0) writer_.Number(kColumns.At("GrpQtyIn"), figures.in);
    if (figures.out != 0) writer_.Number(kColumns.At("GrpQtyOut"), figures.out);
    if (sums_.value != Currency()) writer_.Text(kColumns.At("GrpValue"), ValueText(sums_.value));
    if (balance != 0) {
      writer_.Number(kColumns.At("GrpBalance"), balance);
      writer_.Number(kColumns.At("GrpAverage"), balance / days_);
    }
    if (const auto returned = ReturnedPercent(arguments_.side, figures)) {
      writer_.Number(kColumns.At("GrpRetPerc"), *returned);
    }
    writer_.Rule(kRule);
  }

  [[nodiscard]] bool IsSales() const { return arguments_.side == MovementSide::kSales; }

  const DailyArguments arguments_;
  bool by_item_;
  double days_;
  bool numbered_;
  const Locale& locale_;
  SourceColumns from_;
  ReportWriter writer_;
  std::int64_t counter_ = 0;
  Bookmark head_{};
  Variant name_;
  std::int64_t id_ = 0;
  DaySums sums_, report_;
};

RecordsetPtr Write(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<DailyArguments>();
  const bool by_item = FindDailyGrouping(arguments.side, arguments.reptype)->by_item;
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  const RowGroups groups = source->GroupBy({by_item ? "item_id" : "ledger_id"});
  Days days(frame, arguments, by_item, *source);
  ForEachGroup(frame, groups, [&](const RowGroups::Group& rows) { days.WriteGroup(rows); });
  return days.Finish();
}

}  // namespace

RecordsetPtr mCustomerItemDaily_Analysis(ReportFrame& frame) { return Write(frame); }

RecordsetPtr mMovement_PurchaseReturns_DailyAnalysis(ReportFrame& frame) { return Write(frame); }

}  // namespace pstolvane1
