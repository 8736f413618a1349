#include <cmath>
#include <optional>

#include "analysis/Colorwise.h"
#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("ParticularsDisp"),  Display("Particulars"),
    Display("Parent"),           Display("Child"),
    Display("Opening"),          Display("Inwards"),
    Display("Outwards"),         Display("Closing"),
    Display("GrpOpening"),       Display("GrpInwards"),
    Display("GrpOutwards"),      Display("GrpClosing"),
    Display("TotOpening"),       Display("TotInwards"),
    Display("TotOutwards"),      Display("TotClosing"),
    Key("Parent_Id", adBigInt),  Key("Child_Id", adBigInt),
    Display("Parentname"),       Marker("Line"),
    TextTwin("ParticularsSort"), QuantityTwin("OpeningSort"),
    QuantityTwin("InwardsSort"), QuantityTwin("OutwardsSort"),
    QuantityTwin("ClosingSort"), NumberTwin("DummySort"),
};

constexpr RuleColumn kRule = kColumns.Rule("Line", 120);

enum : std::int64_t { kRuleLine = 1, kTotalLine = 2 };

// Added up as 32-bit floats.
struct Figures {
  float opening = 0, inwards = 0, outwards = 0, closing = 0;

  void Add(const Figures& more) {
    opening += more.opening;
    inwards += more.inwards;
    outwards += more.outwards;
    closing += more.closing;
  }
};

// Where the four figures of a line stand.
struct FigureTargets {
  Target opening, inwards, outwards, closing;
};

constexpr FigureTargets kFigures = {kColumns.Twinned("Opening"), kColumns.Twinned("Inwards"),
                                    kColumns.Twinned("Outwards"), kColumns.Twinned("Closing")};
constexpr FigureTargets kGroup = {kColumns.At("GrpOpening"), kColumns.At("GrpInwards"),
                                  kColumns.At("GrpOutwards"), kColumns.At("GrpClosing")};
constexpr FigureTargets kReport = {kColumns.At("TotOpening"), kColumns.At("TotInwards"),
                                   kColumns.At("TotOutwards"), kColumns.At("TotClosing")};

struct SourceColumns {
  explicit SourceColumns(const Recordset& source)
      : parent(source.Column("Parent")),
        parent_id(source.Column("Parent_Id")),
        unit(source.Column("UomName")),
        child(source.Column("Child")),
        child_id(source.Column("Child_Id")),
        opening(source.Column("Opening")),
        inwards(source.Column("Inwards")),
        outwards(source.Column("Outwards")) {}

  [[nodiscard]] Figures FiguresOf(const Recordset::Row& row) const {
    const double closing = row.Double(opening) + row.Double(inwards) - row.Double(outwards);
    return {.opening = row.Single(opening),
            .inwards = row.Single(inwards),
            .outwards = row.Single(outwards),
            .closing = static_cast<float>(closing)};
  }

  ColumnHandle parent, parent_id, unit, child, child_id, opening, inwards, outwards;
};

class Colors {
 public:
  Colors(ReportFrame& frame, const Recordset& source)
      : from_(source), writer_(kColumns, StyleOf(frame)) {}

  void WriteColor(const Recordset::Row& row) {
    const std::int64_t item_id = row.Int64(from_.parent_id);
    if (item_id_ != item_id) {
      CloseItem();
      BeginItem(row);
      item_id_ = item_id;
    }
    const Figures figures = from_.FiguresOf(row);
    writer_.AddLine();
    writer_.Copy(kColumns.At("ParticularsDisp"), row, from_.child);
    writer_.Copy(kColumns.At("Particulars"), row, from_.child);
    writer_.Copy(kColumns.At("Child"), row, from_.child);
    writer_.Copy(kColumns.At("Child_Id"), row, from_.child_id);
    writer_.Copy(kColumns.At("Parent_Id"), row, from_.parent_id);
    writer_.Copy(kColumns.At("Parentname"), row, from_.parent);
    WriteFigures(kFigures, figures);
    item_.Add(figures);
    report_.Add(figures);
  }

  RecordsetPtr Finish() {
    CloseItem();
    writer_.AddRuleLine(kRule, kRuleLine);
    writer_.AddTotalLine(kColumns.At("Parent"), kRule, kTotalLine);
    // Items of several units have none in common.
    unit_.reset();
    WriteFigures(kReport, report_);
    return writer_.Finish();
  }

 private:
  void BeginItem(const Recordset::Row& row) {
    item_ = {};
    unit_ = row.Text(from_.unit);
    writer_.AddLine();
    head_ = writer_.Line();
    writer_.Copy(kColumns.At("ParticularsDisp"), row, from_.parent);
    writer_.Copy(kColumns.Twinned("Particulars"), row, from_.parent);
    writer_.Copy(kColumns.At("Parent"), row, from_.parent);
    writer_.Copy(kColumns.At("Parent_Id"), row, from_.parent_id);
  }

  void CloseItem() {
    if (!item_id_) return;
    writer_.ReturnTo(head_);
    WriteFigures(kGroup, item_);
    WriteFigures(kFigures, item_);
    writer_.Rule(kRule);
  }

  void WriteFigures(const FigureTargets& to, const Figures& figures) {
    Write(to.opening, figures.opening, figures.opening);
    Write(to.inwards, figures.inwards, figures.inwards);
    Write(to.outwards, figures.outwards, std::abs(figures.outwards));
    Write(to.closing, figures.closing, figures.closing);
  }

  void Write(Target to, float quantity, float shown) {
    if (to.twin != Target::kNone) writer_.Value(to.twin, quantity);
    if (quantity == 0) return;
    if (unit_) {
      writer_.Quantity(to.shown, shown, *unit_);
    } else {
      writer_.Number(to.shown, shown);
    }
  }

  SourceColumns from_;
  ReportWriter writer_;
  std::optional<std::int64_t> item_id_;  // of the item in hand
  std::optional<std::string> unit_;
  Bookmark head_{};
  Figures item_, report_;
};

}  // namespace

RecordsetPtr mColorwise_Initial(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  Colors colors(frame, *source);
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { colors.WriteColor(row); });
  return colors.Finish();
}

}  // namespace pstolvane1
