#include <optional>
#include <vector>

#include "pending/DocumentKinds.h"
#include "pending/PendingDocuments.h"
#include "session/RowLoop.h"
#include "session/data/RowFlag.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("Date"),
    Marker("Heading"),
    Display("Particulars"),
    Display("Ledgername"),
    Display("Particulars1"),
    Display("Itemname"),
    Display("Godown"),
    Display("Batch"),
    Display("VhrType"),
    Display("RefNo"),
    Display("RefNo1"),
    Display("Quantity"),
    Display("PendingQuantity"),
    Display("Quantity1"),
    Display("PendingQuantity1"),
    Display("Rate"),
    Display("Rate1"),
    Display("Amount"),
    Display("Amount1"),
    Key("Desr_Id", adBigInt),
    Key("Voucher_Id", adBigInt),
    Key("RecordNo", adBigInt),
    DateTwin("DateSort"),
    TextTwin("ParticularsSort"),
    TextTwin("VhrTypeSort"),
    NumberTwin("RefNoSort"),
    TextTwin("PrefixSort"),
    TextTwin("SuffixSort"),
    NumberTwin("DummySort"),
};

class PendingReport {
 public:
  explicit PendingReport(ReportFrame& frame)
      : frame_(frame),
        arguments_(frame.module.Kept<PendingArguments>()),
        source_(InOrder(frame, Source::rsReport,
                        "goriginalvouchertype_id, date, desr_id, desrdetails_id, godownitem_id")),
        number_(*source_, "gPrefix", "gRefNo", "gSuffix"),
        writer_(kColumns, StyleOf(frame)) {}

  RecordsetPtr Write() {
    frame_.module.lngRecordNo = 0;
    std::optional<std::int32_t> type;
    const Recordset::RowRange rows = source_->Rows();
    for (auto next = rows.begin(); next != rows.end();) {
      const auto first = next;
      while (++next != rows.end() && AreOfOneLine(*first, *next)) {
      }
      if (TypeOf(*first) != type) {
        type = TypeOf(*first);
        WriteHeading(*type);
      }
      if (!WriteLine({first, next})) break;
    }
    return writer_.Finish();
  }

 private:
  struct PendingRow {
    Recordset::Row row;
    ChainedMovement movement;
  };

  [[nodiscard]] std::int32_t TypeOf(const Recordset::Row& row) const {
    return row.IsNull(type_) ? 0 : row.Int32(type_);
  }

  // A movement without a document, such as an opening one, is a line of its own.
  [[nodiscard]] bool AreOfOneLine(const Recordset::Row& a, const Recordset::Row& b) const {
    const auto same = [&](ColumnHandle key) {
      return !a.IsNull(key) && !b.IsNull(key) && a.Int64(key) == b.Int64(key);
    };
    return TypeOf(a) == TypeOf(b) && same(desr_) && same(line_);
  }

  void WriteHeading(std::int32_t type) {
    writer_.AddSpacer(kColumns.At("Heading"));
    writer_.AddLine();
    const std::string_view heading = HeadingOf(type);
    if (!heading.empty()) writer_.Text(kColumns.At("Heading"), heading);
  }

  // False once the report is cancelled; the line then has the rows that were read.
  bool WriteLine(const Recordset::RowRange& rows) {
    std::vector<PendingRow>& pending = pending_;
    pending.clear();
    float quantity = 0;
    float left = 0;
    const bool goes_on = ForEachSourceRow(frame_, *source_, rows, [&](const Recordset::Row& row) {
      const ChainedMovement movement = Read(row);
      if (!IsPending(movement)) return;
      pending.push_back({row, movement});
      quantity += movement.quantity;
      left += movement.Left();
    });
    const Recordset::Row& first = *rows.begin();
    try {
      WritePending(first, quantity, left);
    } catch (const Error& error) {
      throw WhileWritingRow(error, frame_, first);
    }
    return goes_on;
  }

  // A line with nothing left is not there, but its number is taken. The godowns of one whose
  // quantities cancel out stay, and that is meant.
  void WritePending(const Recordset::Row& first, float quantity, float left) {
    const bool has_godowns = arguments_.blnDetailed && !pending_.empty();
    if (left == 0 && !has_godowns) return writer_.SkipNumber();
    writer_.AddLine();
    const Bookmark line = writer_.Line();
    WriteDocument(first);
    if (left != 0) {
      writer_.Value(kColumns.At("RecordNo"), ++frame_.module.lngRecordNo);
      writer_.Quantity(kColumns.At("Quantity"), quantity, first.Text(unit_));
      writer_.Quantity(kColumns.At("PendingQuantity"), left, first.Text(unit_));
    }
    if (has_godowns) {
      for (const PendingRow& each : pending_) WriteGodown(each);
    }
    if (left != 0) return;
    writer_.ReturnTo(line);
    writer_.RemoveLine();
  }

  void WriteDocument(const Recordset::Row& row) {
    const bool of_item = arguments_.of == PendingOf::kItem;
    writer_.Date(kColumns.Twinned("Date"), row[date_]);
    writer_.Copy(kColumns.Twinned("Particulars"), row, of_item ? ledger_ : item_);
    writer_.Copy(kColumns.At("Ledgername"), row, ledger_);
    writer_.Copy(kColumns.At("Itemname"), row, item_);
    writer_.Copy(kColumns.Twinned("VhrType"), row, vouchertype_);
    writer_.DocumentNumber(kColumns.DocumentNumber("RefNo"), row, number_,
                           ReportWriter::NullParts::kBecomeEmpty);
    WriteRate(kColumns.At("Rate"), row);
    writer_.Copy(kColumns.At("Desr_Id"), row, desr_);
    writer_.Copy(kColumns.At("Voucher_Id"), row, voucher_);
  }

  void WriteGodown(const PendingRow& pending) {
    const Recordset::Row& row = pending.row;
    writer_.AddSubLine();
    writer_.Copy(kColumns.At("Godown"), row, godown_);
    if (IsSet(row, maintains_batches_)) writer_.Copy(kColumns.At("Batch"), row, batch_);
    writer_.Quantity(kColumns.At("Quantity1"), pending.movement.quantity, row.Text(unit_));
    writer_.Quantity(kColumns.At("PendingQuantity1"), pending.movement.Left(), row.Text(unit_));
    WriteRate(kColumns.At("Rate1"), row);
  }

  void WriteRate(ColumnHandle to, const Recordset::Row& row) {
    if (!row.IsNull(rate_)) writer_.Rate(to, row[rate_], row.Text(unit_));
  }

  [[nodiscard]] ChainedMovement Read(const Recordset::Row& row) const {
    return {.type = TypeOf(row),
            .executed_type = row.Int32(executed_type_),
            .optional = IsSet(row, optional_),
            .quantity = row.Single(quantity_),
            .executed = row.Single(executed_)};
  }

  [[nodiscard]] ColumnHandle Column(std::string_view name) const { return source_->Column(name); }

  ReportFrame& frame_;
  const PendingArguments arguments_;
  const RecordsetPtr source_;
  const ColumnHandle date_ = Column("Date"), desr_ = Column("Desr_Id"), voucher_ = Column("Vhr_Id"),
                     line_ = Column("DesrDetails_Id"), type_ = Column("GOriginalVouchertype_id"),
                     executed_type_ = Column("RelatedVoucherType_Id"),
                     optional_ = Column("Optional"), quantity_ = Column("Qty"),
                     executed_ = Column("Sum1"), vouchertype_ = Column("Vouchertype"),
                     ledger_ = Column("Ledgername"), item_ = Column("Itemname"),
                     maintains_batches_ = Column("MaintainBatches"), unit_ = Column("UomName"),
                     rate_ = Column("Rate"), godown_ = Column("GodownName"),
                     batch_ = Column("BatchCode");
  const DocumentNumberSource number_;
  ReportWriter writer_;
  std::vector<PendingRow> pending_;  // of the line in hand
};

}  // namespace

RecordsetPtr mPending(ReportFrame& frame) { return PendingReport(frame).Write(); }

}  // namespace pstolvane1
