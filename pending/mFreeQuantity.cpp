#include <optional>

#include "pending/FreeQuantity.h"
#include "session/RowLoop.h"
#include "session/data/RowFlag.h"
#include "session/data/RowGroups.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kShown = {
    Marker("Head"),
    Display("Date"),
    Display("Particulars"),
    Display("VhrType"),
    Display("RefNo"),
    Display("ActualQty"),
    Display("FreeQty"),
    Display("Rate"),
    Display("ActualValue"),
    Display("FreeValue"),
    Display("Narration"),
    Display("Godown"),
    Display("Batch"),
    Display("GodownQty"),
    Key("Desr_Id"),
    Key("Voucher_Id"),
    Display("Optional"),
    Key("RecordNo", adBigInt),
    DateTwin("DateSort"),
    TextTwin("ParticularsSort"),
    TextTwin("VhrTypeSort"),
    NumberTwin("RefNoSort"),
    TextTwin("PrefixSort"),
    TextTwin("SuffixSort"),
    QuantityTwin("ActualQtySort"),
    QuantityTwin("FreeQtySort"),
    MoneyTwin("RateSort"),
    MoneyTwin("ActualValueSort"),
    MoneyTwin("FreeValueSort"),
};

// The party report's twin of Optional has other attributes; that is meant.
constexpr ReportColumn kItemOptionalTwin = TextTwin("OptionalSort");
constexpr ReportColumn kPartyOptionalTwin = {"OptionalSort", adVarChar, 255, adFldDefault};

constexpr ReportLayout kColumns =
    Join(kShown, ReportLayout{kItemOptionalTwin, NumberTwin("DummySort")});
constexpr ReportLayout kPartyColumns =
    Join(kShown, ReportLayout{kPartyOptionalTwin, NumberTwin("DummySort")});

struct Pass {
  std::int32_t in_out;
  std::string_view head;
};
constexpr Pass kPasses[] = {{0, "Inwards:"}, {1, "Outwards:"}};

// The movement beside a line.
struct GodownColumns {
  explicit GodownColumns(const Recordset& source)
      : godown_id(source.Column("Godown_Id")),
        batch_id(source.Column("Batch_Id")),
        godown(source.Column("GodownName")),
        batch(source.Column("BatchCode")),
        quantity(source.Column("Godown_Qty")),
        alternate_quantity(source.Column("Godown_AltQty")),
        is_alternate(source.Column("Godown_IsAltUnit")) {}
  ColumnHandle godown_id, batch_id, godown, batch, quantity, alternate_quantity, is_alternate;
};

class FreeQuantityReport {
 public:
  explicit FreeQuantityReport(ReportFrame& frame)
      : frame_(frame),
        arguments_(frame.module.Kept<FreeQuantityArguments>()),
        source_(frame.Rowset(Source::rsReport)),
        number_(*source_),
        writer_(arguments_.of == FreeQuantityOf::kItem ? kColumns : kPartyColumns, Style(frame)) {
    if (arguments_.blnDetailed) godowns_.emplace(*source_);
  }

  RecordsetPtr Write() {
    frame_.module.lngRecordNo = 0;
    const RowGroups lines = source_->GroupBy({"DesrDetails_Id"});
    frame_.lngFetchTotal = static_cast<std::int32_t>(lines.Count());
    for (const Pass& pass : kPasses) WriteSide(pass, lines);
    return writer_.Finish();
  }

 private:
  static CellStyle Style(ReportFrame& frame) {
    CellStyle style = StyleOf(frame);
    style.pass_over_errors = true;
    return style;
  }

  // A cancel ends a side after the line in hand.
  void WriteSide(const Pass& pass, const RowGroups& lines) {
    bool is_first = true;
    for (const RowGroups::Group& line : lines) {
      if (line.First().Int32(in_out_) != pass.in_out) continue;
      if (is_first) WriteHead(pass);
      is_first = false;
      try {
        WriteLine(line);
      } catch (const Error& error) {
        throw WhileWritingRow(error, frame_, line.First());
      }
      if (!frame_.EndPass()) return;
    }
  }

  void WriteHead(const Pass& pass) {
    if (has_side_) writer_.AddSpacer(kColumns.At("Head"));
    has_side_ = true;
    writer_.AddLine();
    writer_.Text(kColumns.At("Head"), pass.head);
  }

  // The rows of a line differ in their movements alone.
  void WriteLine(const RowGroups::Group& line) {
    const Recordset::Row row = line.First();
    writer_.AddLine();
    writer_.Value(kColumns.At("RecordNo"), ++frame_.module.lngRecordNo);
    writer_.Copy(kColumns.At("Desr_Id"), row, desr_);
    writer_.Copy(kColumns.At("Voucher_Id"), row, voucher_);
    writer_.Date(kColumns.Twinned("Date"), row[date_]);
    writer_.Copy(kColumns.Twinned("Particulars"), row, ledger_);
    writer_.Copy(kColumns.Twinned("VhrType"), row, type_);
    writer_.DocumentNumber(kColumns.DocumentNumber("RefNo"), row, number_);
    WriteFigures(row);
    writer_.Text(kColumns.Twinned("Optional"), IsSet(row, optional_) ? "Opt" : "");
    if (godowns_) WriteGodowns(line);
    if (arguments_.blnShowNarration) WriteNarration(row);
  }

  void WriteFigures(const Recordset::Row& row) {
    const bool alternate = IsSet(row, is_alternate_unit_);
    const std::string_view unit = row.Text(alternate ? alternate_unit_ : unit_);
    writer_.Quantity(kColumns.Twinned("ActualQty"), row[alternate ? alternate_ : actual_], unit);
    writer_.Quantity(kColumns.Twinned("FreeQty"), row[free_], unit);
    const bool alternate_rate = IsSet(row, is_alternate_rate_);
    writer_.Rate(kColumns.Twinned("Rate"), row[alternate_rate ? alternate_rate_ : rate_],
                 row.Text(alternate_rate ? alternate_unit_ : unit_));
    writer_.Money(kColumns.Twinned("ActualValue"), row[actual_value_]);
    writer_.Money(kColumns.Twinned("FreeValue"), row[free_value_]);
  }

  void WriteGodowns(const RowGroups::Group& line) {
    for (const Recordset::Row& row : line) {
      if (row.IsNull(godowns_->godown_id) || row.IsNull(godowns_->batch_id)) continue;
      const bool alternate = IsSet(row, godowns_->is_alternate);
      writer_.AddSubLine();
      writer_.Copy(kColumns.At("Godown"), row, godowns_->godown);
      writer_.Copy(kColumns.At("Batch"), row, godowns_->batch);
      writer_.Quantity(kColumns.At("GodownQty"),
                       row[alternate ? godowns_->alternate_quantity : godowns_->quantity],
                       row.Text(alternate ? alternate_unit_ : unit_));
    }
  }

  void WriteNarration(const Recordset::Row& row) {
    if (row.Text(narration_).empty()) return;
    writer_.AddSubLine();
    writer_.Copy(kColumns.At("Narration"), row, narration_);
  }

  [[nodiscard]] ColumnHandle Column(std::string_view name) const { return source_->Column(name); }

  ReportFrame& frame_;
  const FreeQuantityArguments arguments_;
  const RecordsetPtr source_;
  const ColumnHandle desr_ = Column("Desr_Id"), voucher_ = Column("Voucher_Id"),
                     date_ = Column("Date"), ledger_ = Column("LedgerName"),
                     type_ = Column("VoucherType"), narration_ = Column("Narration"),
                     optional_ = Column("Optional"), actual_ = Column("Actual_Qty"),
                     alternate_ = Column("Alternate_Qty"), free_ = Column("Free_Qty"),
                     actual_value_ = Column("Actual_Value"), free_value_ = Column("Free_Value"),
                     unit_ = Column("UomName"), alternate_unit_ = Column("AltUomName"),
                     rate_ = Column("ActualRate"), alternate_rate_ = Column("AltRate"),
                     is_alternate_unit_ = Column("IsAltUnit"),
                     is_alternate_rate_ = Column("IsAltRate"), in_out_ = Column("In_Out");
  const DocumentNumberSource number_;
  std::optional<GodownColumns> godowns_;
  ReportWriter writer_;
  bool has_side_ = false;
};

}  // namespace

RecordsetPtr mFreeQuantity(ReportFrame& frame) { return FreeQuantityReport(frame).Write(); }

}  // namespace pstolvane1
