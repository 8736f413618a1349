#include <algorithm>
#include <optional>
#include <vector>

#include "analysis/ItemWise_DlyBkup.h"
#include "session/RowLoop.h"
#include "session/data/RowGroups.h"
#include "session/data/SureSum.h"
#include "session/data/TextFold.h"
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

using Rows = std::vector<Recordset::Row>;

constexpr std::int64_t kNoItem = 0;

// The source's days as they are told: items by name and key, the days of each by date, and what
// lies before the period as a row of no item with an empty name. An engine would sort each row by
// its name; here the items alone are sorted.
class ToldDays {
 public:
  ToldDays(const Recordset& source, const SourceColumns& from) {
    const auto is_earlier = [&](const Recordset::Row& a, const Recordset::Row& b) {
      return a.DateOf(from.date) < b.DateOf(from.date);
    };
    for (const RowGroups::Group& rows : source.GroupBy({"Item_id"})) {
      Rows days;
      for (const Recordset::Row row : rows) {
        (row.IsNull(from.date) ? undated_ : days).push_back(row);
      }
      if (days.empty()) continue;
      if (!std::is_sorted(days.begin(), days.end(), is_earlier)) {
        std::sort(days.begin(), days.end(), is_earlier);
      }
      const Recordset::Row first = days.front();
      items_.push_back({.name = NameIn(first, from.item_name),
                        .id = first.Int64(from.item_id),
                        .days = std::move(days)});
    }
    if (!undated_.empty()) {
      items_.insert(items_.begin(), {.name = "", .id = kNoItem, .days = {undated_.front()}});
    }
    std::stable_sort(items_.begin(), items_.end());
  }

  [[nodiscard]] Rows InOrder() const {
    Rows rows;
    for (const Item& item : items_) rows.insert(rows.end(), item.days.begin(), item.days.end());
    return rows;
  }
  // The rows of what lies before the period, of which only the first is among those in order.
  [[nodiscard]] const Rows& Undated() const { return undated_; }

 private:
  struct Item {
    std::optional<std::string_view> name;  // Null stands first
    std::int64_t id;
    Rows days;

    bool operator<(const Item& other) const {
      if (!name || !other.name) return name == other.name ? id < other.id : !name;
      const int order = CompareFoldedIgnoringTrailingBlanks(*name, *other.name);
      return order == 0 ? id < other.id : order < 0;
    }
  };

  static std::optional<std::string_view> NameIn(const Recordset::Row& row, ColumnHandle name) {
    if (row.IsNull(name)) return std::nullopt;
    return row.Text(name);
  }

  std::vector<Item> items_;
  Rows undated_;
};

class Breakup {
 public:
  Breakup(ReportFrame& frame, const Recordset& source)
      : from_(source), days_(source, from_), writer_(kColumns, StyleOf(frame)) {}

  [[nodiscard]] Rows InOrder() const { return days_.InOrder(); }

  void WriteDay(const Recordset::Row& row) {
    const bool dated = !row.IsNull(from_.date);
    const std::int64_t item_id = dated ? row.Int64(from_.item_id) : kNoItem;
    if (item_id_ != item_id) {
      CloseItem();
      item_ = {};
      item_id_ = item_id;
      writer_.AddLine(kHead);
      head_ = writer_.Line();
      WriteName(kColumns.Twinned("Head"), row);
    }
    const Quantities day = dated ? QuantitiesOf(row) : Opening();
    if (dated) {
      writer_.AddLine(kDay);
      writer_.Date(kColumns.At("Particulars"), row[from_.date]);
    } else {
      writer_.AddLine(kOpening);
      writer_.Text(kColumns.At("Particulars"), "Op. Bal");
      opening_ = day;
    }
    writer_.Copy(kColumns.At("DateSort"), row, from_.date);
    WriteName(kColumns.At("HeadSort"), row);
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
  [[nodiscard]] Quantities QuantitiesOf(const Recordset::Row& row) const {
    return {.inwards = static_cast<float>(row.Double(from_.inwards)),
            .outwards = static_cast<float>(row.Double(from_.outwards))};
  }

  // Of what lies before the period.
  [[nodiscard]] Quantities Opening() const {
    return {.inwards = OpeningIn(from_.inwards), .outwards = OpeningIn(from_.outwards)};
  }

  // Null counts as nothing beside a quantity, and alone is error 94.
  [[nodiscard]] float OpeningIn(ColumnHandle quantity) const {
    SureSum sum;
    for (const Recordset::Row& row : days_.Undated()) {
      if (!row.IsNull(quantity)) sum.Add(row.Double(quantity));
    }
    return static_cast<float>(sum.count > 0 ? sum.Result()
                                            : days_.Undated().front().Double(quantity));
  }

  void WriteName(Target to, const Recordset::Row& row) {
    if (row.IsNull(from_.date)) {
      writer_.Text(to, "");
    } else {
      writer_.Copy(to, row, from_.item_name);
    }
  }

  void CloseItem() {
    if (!item_id_) return;
    writer_.ReturnTo(head_);
    writer_.Number(kColumns.At("Inwards"), item_.inwards);
    writer_.Number(kColumns.At("Outwards"), item_.outwards);
    writer_.Number(kColumns.At("Closing"), item_.Closing());
  }

  SourceColumns from_;
  ToldDays days_;
  ReportWriter writer_;
  std::optional<std::int64_t> item_id_;  // of the item in hand
  Bookmark head_{};
  Quantities item_, report_, opening_;
};

}  // namespace

RecordsetPtr mItemwise_DlyBreakup(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  Breakup breakup(frame, *source);
  ForEachSourceRow(frame, *source, breakup.InOrder(),
                   [&](const Recordset::Row& row) { breakup.WriteDay(row); });
  return breakup.Finish();
}

}  // namespace pstolvane1
