#include "stock/ItemStatement.h"

#include "session/RowLoop.h"

namespace pstolvane1 {
namespace {

class ItemStatement {
 public:
  ItemStatement(ReportFrame& frame, const ValuedKeys& valued)
      : frame_(frame),
        valued_(valued),
        detailed_(frame.module.blnDetailed),
        keys_(*valued.keys),
        writer_(frame, frame.module.Kept<StockArguments>(), true) {}

  RecordsetPtr Write() {
    ForEachSourceRow(frame_, *valued_.keys, valued_.rows, [this](const Recordset::Row& row) {
      const std::optional<StockFigures> figures = valued_.value(row);
      if (!figures) return;
      if (!in_item_ || keys_.ItemId(row) != item_id_) {
        CloseItem();
        OpenItem(row);
      }
      if (detailed_) WriteKey(row, *figures);
      sums_ += *figures;
    });
    CloseItem();
    if (valued_.block_end == BlockEnd::kRuleLine && written_) writer_.AddSpacer();
    writer_.AddRuleLine();
    writer_.AddTotalLine(totals_);
    return writer_.Finish();
  }

 private:
  void OpenItem(const Recordset::Row& row) {
    const bool rule_lines = valued_.block_end == BlockEnd::kRuleLine;
    if (detailed_ && written_ && !rule_lines) writer_.AddSpacer();
    if (!detailed_ && rule_lines) {
      Lines().AddLine(1);  // such items are one class, and sort among themselves
    } else {
      Lines().AddLine();
    }
    if (detailed_ && rule_lines) Lines().SkipNumber();
    in_item_ = written_ = true;
    item_id_ = keys_.ItemId(row);
    item_name_ = keys_.ItemName(row);
    units_ = keys_.Units(row);
    sums_ = {};
    header_ = Lines().Line();
    Lines().Text(Columns().item_name, item_name_);
    Lines().Value(Columns().item_id, item_id_);
  }

  void WriteKey(const Recordset::Row& row, const StockFigures& figures) {
    Lines().AddLine();
    Lines().Text(Columns().godown, keys_.GodownText(row));
    Lines().Value(Columns().godown_id, keys_.GodownId(row));
    Lines().Value(Columns().batch_id, keys_.BatchId(row));
    Lines().Value(Columns().item_id, item_id_);
    Lines().Text(Columns().parent_name, item_name_);
    writer_.WriteFigures(figures, &units_, item_name_);
  }

  void CloseItem() {
    if (!in_item_) return;
    in_item_ = false;
    Lines().ReturnTo(header_);
    writer_.WriteFigures(sums_, &units_, item_name_);
    totals_ += sums_;
    if (!detailed_) return;
    if (valued_.block_end == BlockEnd::kRuleLine) {
      writer_.AddRuleLine();
      writer_.AddSpacer();
    } else if (sums_.closing.quantity != 0) {
      writer_.WriteRule(Columns().group_line);
    }
  }

  ReportWriter& Lines() { return writer_.Lines(); }
  const StockColumns& Columns() const { return writer_.Columns(); }

  ReportFrame& frame_;
  const ValuedKeys& valued_;
  bool detailed_;
  StockKeyColumns keys_;
  StockWriter writer_;
  bool in_item_ = false;
  bool written_ = false;
  std::int64_t item_id_ = 0;
  std::string item_name_;
  StockUnits units_;
  Bookmark header_{};
  StockFigures sums_, totals_;
};

}  // namespace

RecordsetPtr WriteItemStatement(ReportFrame& frame, const ValuedKeys& valued) {
  return ItemStatement(frame, valued).Write();
}

}  // namespace pstolvane1
