#include <optional>

#include "analysis/ItemWise_DlyBkup.h"
#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("Particulars"),
    Display("Inwards"),
    Display("Outwards"),
    Display("Closing"),
    Display("TotParticulars"),
    Display("TotInwards"),
    Display("TotOutwards"),
    Display("TotClosing"),
    DateTwin("DateSort"),
    QuantityTwin("InwardsSort"),
    QuantityTwin("OutwardsSort"),
    QuantityTwin("ClosingSort"),
    TextTwin("HeadSort"),
    Marker("Line"),
    Marker("Head"),
    ReportColumn{"DummySort", adBigInt, 255, adFldDefault},
};

constexpr RuleColumn kRule = kColumns.Rule("Line", 200);

enum : std::int64_t { kHead = 0, kOpening = 1, kDay = 2, kClosing = 3 };

// Added up as 32-bit floats.
struct Quantities {
  float inwards = 0, outwards = 0;

  [[nodiscard]] float Closing() const { return inwards - outwards; }
  void Add(const Quantities& day) {
    inwards += day.inwards;
    outwards += day.outwards;
  }
};

struct SourceColumns {
  explicit SourceColumns(const Recordset& source)
      : inwards(source.Column("Inwards")),
        outwards(source.Column("Outwards")),
        date(source.Column("Date")),
        item_id(source.Column("Item_id")),
        item_name(source.Column("ItemName")) {}

  ColumnHandle inwards, outwards, date, item_id, item_name;
};

class Breakup {
 public:
  Breakup(ReportFrame& frame, const Recordset& source)
      : from_(source), writer_(kColumns, StyleOf(frame)) {}

  void WriteDay(const Recordset::Row& row) {
    const std::int64_t item_id = row.Int64(from_.item_id);
    if (item_id_ != item_id) {
      CloseItem();
      BeginItem(row);
      item_id_ = item_id;
    }
    const Quantities day{.inwards = static_cast<float>(row.Double(from_.inwards)),
                         .outwards = static_cast<float>(row.Double(from_.outwards))};
    if (row.IsNull(from_.date)) {
      writer_.AddLine(kOpening);
      writer_.Text(kColumns.At("Particulars"), "Op. Bal");
      opening_ = day;
    } else {
      writer_.AddLine(kDay);
      writer_.Date(kColumns.At("Particulars"), row[from_.date]);
    }
    writer_.Copy(kColumns.At("DateSort"), row, from_.date);
    writer_.Copy(kColumns.At("HeadSort"), row, from_.item_name);
    writer_.Number(kColumns.Twinned("Inwards"), day.inwards);
    writer_.Number(kColumns.Twinned("Outwards"), day.outwards);
    report_.Add(day);
    item_.Add(day);
    writer_.Number(kColumns.Twinned("Closing"), item_.Closing());
  }

  // The opening stands in the closing total, and in the two others it does not.
  RecordsetPtr Finish() {
    CloseItem();
    writer_.AddRuleLine(kRule, kClosing);
    writer_.AddLine(kClosing);
    writer_.Text(kColumns.At("TotParticulars"), "Total");
    writer_.Number(kColumns.At("TotInwards"), report_.inwards - opening_.inwards);
    writer_.Number(kColumns.At("TotOutwards"), report_.outwards - opening_.outwards);
    writer_.Number(kColumns.At("TotClosing"), report_.Closing());
    writer_.AddRuleLine(kRule, kClosing);
    return writer_.Finish();
  }

 private:
  void BeginItem(const Recordset::Row& row) {
    item_ = {};
    writer_.AddLine(kHead);
    head_ = writer_.Line();
    writer_.Copy(kColumns.Twinned("Head"), row, from_.item_name);
  }

  void CloseItem() {
    if (!item_id_) return;
    writer_.ReturnTo(head_);
    writer_.Number(kColumns.At("Inwards"), item_.inwards);
    writer_.Number(kColumns.At("Outwards"), item_.outwards);
    writer_.Number(kColumns.At("Closing"), item_.Closing());
  }

  SourceColumns from_;
  ReportWriter writer_;
  std::optional<std::int64_t> item_id_;  // of the item in hand
  Bookmark head_{};
  Quantities item_, report_, opening_;
};

}  // namespace

RecordsetPtr mItemwise_DlyBreakup(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  Breakup breakup(frame, *source);
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { breakup.WriteDay(row); });
  return breakup.Finish();
}

}  // namespace pstolvane1
