#include "stock/GroupStatement.h"

#include <map>
#include <vector>

#include "movements/GroupRows.h"
#include "session/RowLoop.h"
#include "valuation/GroupTree.h"

namespace pstolvane1 {
namespace {

class GroupStatement {
 public:
  GroupStatement(ReportFrame& frame, const ValuedKeys& valued)
      : frame_(frame),
        valued_(valued),
        arguments_(frame.module.Kept<StockArguments>()),
        item_lines_(arguments_.blnDetailed || arguments_.blnOnlyItems),
        keys_(*valued.keys),
        writer_(frame, arguments_, false) {
    const ColumnHandle group_id = valued.keys->Column(kGroupId);
    for (const Recordset::Row& row : valued.rows) {
      if (!row.IsNull(group_id)) by_group_[row.Int64(group_id)].push_back(row);
    }
  }

  RecordsetPtr Write() {
    const std::vector<StockGroup> groups = ReadGroups(*frame_.Rowset(Source::RsCategory));
    for (const std::size_t place :
         ListGroups(groups, arguments_.lngAny_Id1, arguments_.blnOnlyItems)) {
      WriteGroup(groups[place]);
    }
    writer_.AddRuleLine();
    writer_.AddTotalLine(totals_);
    return writer_.Finish();
  }

 private:
  void WriteGroup(const StockGroup& group) {
    Lines().AddLine();
    Lines().Text(Columns().category_name, group.name);
    Lines().Text(Columns().first, group.name);
    Lines().Value(Columns().category_id, group.id);
    const Bookmark head = Lines().Line();
    sums_ = {};
    bool has_stock = false;
    ForEachSourceRow(frame_, *valued_.keys, by_group_[group.id], [&](const Recordset::Row& row) {
      const std::optional<StockFigures> figures = valued_.value(row);
      if (!figures) return;
      has_stock = true;
      if (!in_item_ || keys_.ItemId(row) != item_id_) {
        CloseItem(group);
        OpenItem(group, row);
      }
      item_sums_ += *figures;
    });
    CloseItem(group);
    if (!has_stock) return;
    Lines().ReturnTo(head);
    // The items under a group differ in their units, so that its line has none.
    writer_.WriteFigures(sums_, nullptr, group.name);
    totals_ += sums_;
    if (arguments_.blnDetailed) {
      writer_.WriteRule(Columns().group_line);
      writer_.AddSpacer();
    }
  }

  void OpenItem(const StockGroup& group, const Recordset::Row& row) {
    in_item_ = true;
    item_id_ = keys_.ItemId(row);
    item_sums_ = {};
    if (!item_lines_) return;
    units_ = keys_.Units(row);
    Lines().AddLine();
    Lines().Text(Columns().item_name, keys_.ItemName(row));
    Lines().Value(Columns().item_id, item_id_);
    Lines().Value(Columns().category_id, group.id);
  }

  void CloseItem(const StockGroup& group) {
    if (!in_item_) return;
    in_item_ = false;
    sums_ += item_sums_;
    if (item_lines_) writer_.WriteFigures(item_sums_, &units_, group.name);
  }

  ReportWriter& Lines() { return writer_.Lines(); }
  const StockColumns& Columns() const { return writer_.Columns(); }

  ReportFrame& frame_;
  const ValuedKeys& valued_;
  StockArguments arguments_;
  bool item_lines_;
  StockKeyColumns keys_;
  std::map<std::int64_t, std::vector<Recordset::Row>> by_group_;
  StockWriter writer_;
  bool in_item_ = false;
  std::int64_t item_id_ = 0;
  StockUnits units_;
  StockFigures item_sums_, sums_, totals_;
};

}  // namespace

RecordsetPtr WriteGroupStatement(ReportFrame& frame, const ValuedKeys& valued) {
  return GroupStatement(frame, valued).Write();
}

}  // namespace pstolvane1
