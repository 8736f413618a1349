#include <optional>

#include "analysis/Commission.h"
#include "movements/HostItems.h"
#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("ParticularsDisp"),  Display("Particulars"),
    Display("Parent"),           Display("Child"),
    Display("Parent_Id"),        Display("Child_Id"),
    Display("Parentname"),       Display("Sales"),
    Display("Commission"),       Display("GrpSales"),
    Display("GrpCommission"),    Display("TotalSales"),
    Display("TotalCommission"),  Marker("Line"),
    TextTwin("ParticularsSort"), TextTwin("Particulars1Sort"),
    MoneyTwin("SalesSort"),      MoneyTwin("CommissionSort"),
    NumberTwin("DummySort"),
};

constexpr RuleColumn kGroupRule = kColumns.Rule("Line", 40);
constexpr RuleColumn kRule = kColumns.Rule("Line", 85);

struct SourceColumns {
  explicit SourceColumns(const Recordset& source)
      : parent(source.Column("Parent")),
        parent_id(source.Column("Parent_id")),
        item_id(source.Column("Item_id")),
        percent(source.Column("compercent")),
        sales(source.Column("TotalSales")) {}

  ColumnHandle parent, parent_id, item_id, percent, sales;
};

struct CommissionSums {
  Currency sales, commission;

  void Add(Currency more_sales, float more_commission) {
    sales += more_sales;
    commission += Currency::FromDouble(static_cast<double>(more_commission));
  }
};

// Error 3021 for an item that the host has left out.
Variant NameOf(const HostItems& items, const Variant& item_id) {
  const std::optional<Recordset::Row> item = items.Find(item_id);
  if (item) return (*item)[items.Name()];
  throw Error(ErrorNumber::kNoCurrentRecord,
              "recitem has no item " + (item_id.IsNull() ? "Null" : item_id.ToText()));
}

class Commissions {
 public:
  Commissions(ReportFrame& frame, const CommissionArguments& arguments, const Recordset& source)
      : by_item_(arguments.reptype == rtCommission_Initial_Itemwise),
        detailed_(arguments.blnDetailed),
        all_(arguments.lngId1 == kAllCommission),
        items_(frame),
        from_(source),
        writer_(kColumns, StyleOf(frame)) {}

  void WriteRow(const Recordset::Row& row) {
    const Variant id = row[by_item_ ? from_.item_id : from_.parent_id];
    const std::string id_text = id.IsNull() ? "-1" : id.ToText();
    if (group_id_ != id_text) {
      CloseGroup();
      group_id_ = id_text;
      group_name_ = by_item_ ? NameOf(items_, id) : row[from_.parent];
      sums_ = {};
      if (all_) AddGroup();
    }
    const double sales = row.Double(from_.sales);
    const float commission =
        row.IsNull(from_.percent) ? 0 : static_cast<float>(sales * row.Double(from_.percent) / 100);
    if (detailed_) AddItem(row, commission);
    sums_.Add(Currency::FromDouble(sales), commission);
    report_.Add(Currency::FromDouble(sales), commission);
  }

  RecordsetPtr Finish() {
    CloseGroup();
    writer_.AddSpacer(kColumns.At("ParticularsDisp"), counter_ + 1);
    writer_.Rule(kRule);
    writer_.AddTotalLine(kColumns.At("Parent"), kRule, counter_ + 1);
    writer_.Text(kColumns.At("ParticularsDisp"), "");
    writer_.Money(kColumns.At("TotalSales"), report_.sales);
    writer_.Money(kColumns.At("TotalCommission"), report_.commission);
    return writer_.Finish();
  }

 private:
  // In summary the counter is 1 behind every group line; that is meant.
  void AddGroup() {
    writer_.AddLine(counter_ + 1);
    counter_ = detailed_ ? counter_ + 2 : 1;
    head_ = writer_.Line();
    if (detailed_) {
      writer_.Value(kColumns.At("Parent"), group_name_);
    } else {
      writer_.Value(kColumns.Twinned("Particulars"), group_name_);
    }
    writer_.Value(kColumns.At("ParticularsDisp"), group_name_);
    writer_.Text(kColumns.At("Parent_Id"), *group_id_);
  }

  // By item as well a line below an item names the item again, and not the employee; that is meant.
  void AddItem(const Recordset::Row& row, float commission) {
    writer_.AddLine(counter_);
    writer_.Copy(kColumns.At("ParticularsSort"), row, from_.parent);
    if (row.IsNull(from_.item_id)) {
      writer_.Text(kColumns.At("Child_Id"), "-1");
    } else {
      WriteItemName(NameOf(items_, row[from_.item_id]));
      writer_.Text(kColumns.At("Child_Id"), row[from_.item_id].ToText());
    }
    writer_.Text(kColumns.At("Parent_Id"), *group_id_);
    writer_.Value(kColumns.At("Parentname"), group_name_);
    writer_.Money(kColumns.Twinned("Sales"), row[from_.sales]);
    writer_.Money(kColumns.Twinned("Commission"), commission);
  }

  void WriteItemName(const Variant& name) {
    const std::string text = name.IsNull() ? std::string() : name.ToText();
    writer_.Text(kColumns.At("Child"), text);
    writer_.Text(kColumns.At("ParticularsDisp"), all_ ? "  " + text : text);
    writer_.Text(kColumns.At("Particulars1Sort"), text);
    if (!all_) writer_.Text(kColumns.Twinned("Particulars"), text);
  }

  void CloseGroup() {
    if (!group_id_ || !all_) return;
    writer_.ReturnTo(head_);
    if (!detailed_) {
      writer_.Money(kColumns.Twinned("Sales"), sums_.sales);
      writer_.Money(kColumns.Twinned("Commission"), sums_.commission);
      return;
    }
    writer_.Money(kColumns.At("GrpSales"), sums_.sales);
    writer_.Money(kColumns.At("GrpCommission"), sums_.commission);
    writer_.Rule(kGroupRule);
    writer_.AddSpacer(kColumns.At("ParticularsDisp"), counter_ + 1);
  }

  bool by_item_, detailed_, all_;
  HostItems items_;
  SourceColumns from_;
  ReportWriter writer_;
  std::int64_t counter_ = 0;
  std::optional<std::string> group_id_;  // of the group in hand
  Variant group_name_;
  Bookmark head_{};
  CommissionSums sums_, report_;
};

}  // namespace

RecordsetPtr mCommission_Initial(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<CommissionArguments>();
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  Commissions commissions(frame, arguments, *source);
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { commissions.WriteRow(row); });
  return commissions.Finish();
}

}  // namespace pstolvane1
