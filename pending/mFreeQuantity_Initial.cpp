#include <array>

#include "pending/FreeQuantity_Initial.h"
#include "session/RowLoop.h"
#include "session/data/RowGroups.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("Particulars1"),
    Display("Particulars2"),
    Display("Inwards_ActualQty"),
    Display("Inwards_ActualValue"),
    Display("Inwards_FreeQty"),
    Display("Inwards_FreeValue"),
    Display("Outwards_ActualQty"),
    Display("Outwards_ActualValue"),
    Display("Outwards_FreeQty"),
    Display("Outwards_FreeValue"),
    Display("Parent_Id"),
    Display("Child_Id"),
    Display("Parent"),
    Display("Child"),
    Marker("GrpLine"),
    Marker("TotalLine"),
};

constexpr RuleColumn kGroupRule = kColumns.Rule("GrpLine", 80);
constexpr RuleColumn kTotalRule = kColumns.Rule("TotalLine", 160);
constexpr std::string_view kIndent = "     ";
// Sums may mix units, so that none of them is named.
constexpr std::string_view kUnit = "Units";

// A quantity and its value, under the same names in the source and in the report.
struct Figure {
  std::string_view quantity_name, value_name;
  ColumnHandle quantity, value;
};
consteval Figure FigureOf(std::string_view quantity, std::string_view value) {
  return {quantity, value, kColumns.At(quantity), kColumns.At(value)};
}
constexpr std::array kFigures = {
    FigureOf("Inwards_ActualQty", "Inwards_ActualValue"),
    FigureOf("Inwards_FreeQty", "Inwards_FreeValue"),
    FigureOf("Outwards_ActualQty", "Outwards_ActualValue"),
    FigureOf("Outwards_FreeQty", "Outwards_FreeValue"),
};

struct Amounts {
  float quantity = 0;
  Currency value;
};
using Sums = std::array<Amounts, kFigures.size()>;

void AddTo(Sums& sums, const Sums& more) {
  for (std::size_t i = 0; i < sums.size(); ++i) {
    sums.at(i).quantity += more.at(i).quantity;
    sums.at(i).value += more.at(i).value;
  }
}

class FreeSummary {
 public:
  explicit FreeSummary(ReportFrame& frame)
      : frame_(frame),
        detailed_(frame.module.Kept<FreeSummaryArguments>().blnDetailed),
        source_(frame.Rowset(Source::rsReport)),
        writer_(kColumns, StyleOf(frame)) {
    for (std::size_t i = 0; i < kFigures.size(); ++i) {
      columns_.at(i) = {source_->Column(kFigures.at(i).quantity_name),
                        source_->Column(kFigures.at(i).value_name)};
    }
  }

  RecordsetPtr Write() {
    for (const RowGroups::Group& rows : source_->GroupBy({"Parent_Id"})) {
      if (!WriteGroup(rows)) break;
    }
    writer_.AddRuleLine(kTotalRule);
    writer_.AddTotalLine(kColumns.At("Particulars1"), kTotalRule);
    WriteSums(total_);
    return writer_.Finish();
  }

 private:
  // False once the report is cancelled.
  bool WriteGroup(const RowGroups::Group& rows) {
    writer_.AddLine();
    writer_.Copy(kColumns.At("Particulars1"), rows.First(), parent_);
    WriteParent(rows.First());
    const Bookmark head = writer_.Line();
    Sums sums;
    const bool goes_on = ForEachSourceRow(frame_, *source_, rows, [&](const Recordset::Row& row) {
      const Sums amounts = Read(row);
      AddTo(sums, amounts);
      AddTo(total_, amounts);
      if (detailed_) WriteChild(row, amounts);
    });
    writer_.ReturnTo(head);
    if (detailed_) writer_.Rule(kGroupRule);
    WriteSums(sums);
    if (detailed_) writer_.AddSpacer(kGroupRule.column);
    return goes_on;
  }

  void WriteParent(const Recordset::Row& row) {
    writer_.Copy(kColumns.At("Parent"), row, parent_);
    writer_.Copy(kColumns.At("Parent_Id"), row, parent_id_);
  }

  void WriteChild(const Recordset::Row& row, const Sums& amounts) {
    writer_.AddLine();
    writer_.Text(kColumns.At("Particulars1"), "");
    WriteParent(row);
    writer_.Text(kColumns.At("Particulars2"), std::string(kIndent).append(row.Text(child_)));
    writer_.Copy(kColumns.At("Child"), row, child_);
    writer_.Copy(kColumns.At("Child_Id"), row, child_id_);
    for (std::size_t i = 0; i < kFigures.size(); ++i) {
      writer_.QuantityOrBlank(kFigures.at(i).quantity, amounts.at(i).quantity, kUnit);
      writer_.MoneyOrBlank(kFigures.at(i).value, amounts.at(i).value);
    }
  }

  // Values are shown as plain numbers here, other than on the lines of children; that is meant.
  void WriteSums(const Sums& sums) {
    for (std::size_t i = 0; i < kFigures.size(); ++i) {
      writer_.QuantityOrBlank(kFigures.at(i).quantity, sums.at(i).quantity, kUnit);
      writer_.NumberOrBlank(kFigures.at(i).value, sums.at(i).value);
    }
  }

  [[nodiscard]] Sums Read(const Recordset::Row& row) const {
    Sums amounts;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      amounts.at(i) = {row.Single(columns_.at(i).quantity), row.Money(columns_.at(i).value)};
    }
    return amounts;
  }

  struct SourceColumns {
    ColumnHandle quantity, value;
  };

  ReportFrame& frame_;
  const bool detailed_;
  const RecordsetPtr source_;
  const ColumnHandle parent_ = source_->Column("Parent"), parent_id_ = source_->Column("Parent_Id"),
                     child_ = source_->Column("Child"), child_id_ = source_->Column("Child_Id");
  std::array<SourceColumns, kFigures.size()> columns_{};
  ReportWriter writer_;
  Sums total_;
};

}  // namespace

RecordsetPtr mFreeQuantity_Initial(ReportFrame& frame) { return FreeSummary(frame).Write(); }

}  // namespace pstolvane1
