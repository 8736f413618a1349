#include <cmath>

#include "analysis/Colorwise.h"
#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Marker("Head"),
    Display("Date"),
    Display("Particulars"),
    Display("VhrType"),
    Display("RefNo"),
    Display("Inwards"),
    Display("Outwards"),
    Display("TotInwards"),
    Display("TotOutwards"),
    Key("Desr_Id", adBigInt),
    Key("Voucher_Id", adBigInt),
    Marker("Line"),
    DateTwin("DateSort"),
    TextTwin("ParticularsSort"),
    TextTwin("VhrTypeSort"),
    NumberTwin("RefNoSort"),
    TextTwin("PrefixSort"),
    TextTwin("SuffixSort"),
    QuantityTwin("InwardsSort"),
    QuantityTwin("OutwardsSort"),
    NumberTwin("DummySort"),
};

constexpr RuleColumn kRule = kColumns.Rule("Line", 120);

enum : std::int64_t {
  kOpening = 1,
  kSpacer = 2,
  kVoucher = 3,
  kRuleLine = 4,
  kCurrent = 5,
  kClosing = 6
};

struct SourceColumns {
  explicit SourceColumns(const Recordset& source)
      : date(source.Column("Date")),
        party(source.Column("Ledgername")),
        type(source.Column("VhrType")),
        number(source),
        inwards(source.Column("Inwards")),
        outwards(source.Column("Outwards")),
        desr_id(source.Column("Desr_Id")),
        voucher_id(source.Column("Voucher_Id")) {}

  ColumnHandle date, party, type;
  DocumentNumberSource number;
  ColumnHandle inwards, outwards, desr_id, voucher_id;
};

class Vouchers {
 public:
  Vouchers(ReportFrame& frame, const ColorOpening& opening, const Recordset& source)
      : from_(source),
        unit_(opening.unit),
        balance_(opening.quantity),
        writer_(kColumns, StyleOf(frame)) {}

  void WriteOpening() {
    AddBalance("Opening Balance", kOpening);
    WriteBalance(kColumns.At("Inwards"), kColumns.At("Outwards"));
    writer_.AddSpacer(kColumns.At("Head"), kSpacer);
  }

  void WriteVoucher(const Recordset::Row& row) {
    writer_.AddLine(kVoucher);
    writer_.Date(kColumns.Twinned("Date"), row[from_.date]);
    writer_.Copy(kColumns.Twinned("Particulars"), row, from_.party);
    writer_.Copy(kColumns.Twinned("VhrType"), row, from_.type);
    writer_.DocumentNumber(kColumns.DocumentNumber("RefNo"), row, from_.number);
    writer_.Copy(kColumns.At("Desr_Id"), row, from_.desr_id);
    writer_.Copy(kColumns.At("Voucher_Id"), row, from_.voucher_id);
    const float inwards = row.Single(from_.inwards);
    const float outwards = row.Single(from_.outwards);
    Write(kColumns.At("Inwards"), inwards);
    Write(kColumns.At("Outwards"), std::abs(outwards));
    writer_.Value(kColumns.At("InwardsSort"), inwards);
    writer_.Value(kColumns.At("OutwardsSort"), outwards);
    inwards_ += inwards;
    outwards_ += outwards;
    balance_ += inwards;
    balance_ -= outwards;
  }

  RecordsetPtr Finish() {
    writer_.AddRuleLine(kRule, kRuleLine);
    writer_.AddLine(kCurrent);
    writer_.Text(kColumns.At("Head"), "Current Balance");
    Write(kColumns.At("TotInwards"), inwards_);
    Write(kColumns.At("TotOutwards"), std::abs(outwards_));
    AddBalance("Closing Balance", kClosing);
    return writer_.Finish();
  }

 private:
  void AddBalance(std::string_view head, std::int64_t number) {
    writer_.AddLine(number);
    writer_.Text(kColumns.At("Head"), head);
    WriteBalance(kColumns.At("TotInwards"), kColumns.At("TotOutwards"));
  }

  // What is missing stands among the outwards, without its sign.
  void WriteBalance(ColumnHandle above, ColumnHandle below) {
    Write(balance_ < 0 ? below : above, std::abs(balance_));
  }

  void Write(ColumnHandle to, float quantity) {
    if (quantity != 0) writer_.Quantity(to, quantity, unit_);
  }

  SourceColumns from_;
  std::string unit_;
  float balance_, inwards_ = 0, outwards_ = 0;
  ReportWriter writer_;
};

}  // namespace

RecordsetPtr mColorwise_Daily(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::Rs2);
  Vouchers vouchers(frame, ReadColorOpening(frame), *source);
  vouchers.WriteOpening();
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { vouchers.WriteVoucher(row); });
  return vouchers.Finish();
}

}  // namespace pstolvane1
