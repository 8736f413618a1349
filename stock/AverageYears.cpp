#include "stock/AverageYears.h"

#include <optional>

#include "movements/GroupRows.h"
#include "movements/RateReader.h"
#include "stock/AverageColumns.h"
#include "stock/KeyOrder.h"
#include "stock/ValuedKeys.h"
#include "valuation/AverageFold.h"
#include "valuation/UnpricedStock.h"

namespace pstolvane1 {
namespace {

// The columns of the folded rows that are carried over as they stand.
constexpr std::string_view kTexts[] = {"Itemname", "Godown", "BatchCode", "Uom", "AltUom"};
constexpr std::string_view kKeys[] = {"Item_Id", "Godown_Id", "Batch_Id"};

RecordsetPtr NewFoldedRows(bool with_group) {
  RecordsetPtr rows = Recordset::New();
  const auto append = [&](std::string_view name, DataType type) {
    rows->Fields().Append(name, type, 0, adFldIsNullable);
  };
  for (const std::string_view name : kTexts) append(name, adBSTR);
  append("MaintainBatches", adBoolean);
  append("RelFormula", adSingle);
  for (const std::string_view name : kKeys) append(name, adBigInt);
  if (with_group) append(kGroupId, adBigInt);
  for (const std::string_view name : {"QtyBal", "QtyOp", "QtyIn", "QtyOut"}) append(name, adSingle);
  for (const std::string_view name : {"TotalValue", "ValueOp", "ValueIn", "ValueOut"}) {
    append(name, adCurrency);
  }
  rows->Open();
  return rows;
}

// A column of the source and the one of the folded rows that takes its values.
struct Carried {
  ColumnHandle from, to;
};

class YearFolding {
 public:
  YearFolding(ReportFrame& frame, const RecordsetPtr& source)
      : source_(source),
        standards_(*frame.Rowset(Source::Rs1)),
        period_{DayOf(frame.module.dtFromDate), DayOf(frame.module.dtToDate)},
        folded_(NewFoldedRows(source->HasColumn(kGroupId))),
        figures_(*source),
        year_(source->Column("YearNo")),
        entering_(source->Column("QtyInForCalculation")),
        entering_value_(source->Column("TotalValueInForCalculation")),
        entering_op_(source->Column("QtyInForCalculationOp")),
        entering_value_op_(source->Column("TotalValueInForCalculationOp")),
        to_figures_(*folded_) {
    for (const std::string_view name : kKeys) key_.push_back(Both(name));
    for (const std::string_view name : kTexts) carried_.push_back(Both(name));
    for (const std::string_view name : {"MaintainBatches", "RelFormula"}) {
      carried_.push_back(Both(name));
    }
    carried_.insert(carried_.end(), key_.begin(), key_.end());
    if (source->HasColumn(kGroupId)) carried_.push_back(Both(kGroupId));
    for (const std::string_view name : {"QtyIn", "ValueIn", "QtyOut", "ValueOut"}) {
      last_year_.push_back(Both(name));
    }
  }

  RecordsetPtr Fold() {
    std::optional<Recordset::Row> last;
    for (const Recordset::Row& row : KeysInOrder(*source_)) {
      if (last && SameKey(*last, row)) {
        AddYear(row);
      } else {
        EndKey();
        BeginKey(row);
      }
      last = row;
    }
    EndKey();
    if (last) folded_->MoveFirst();
    return folded_;
  }

 private:
  [[nodiscard]] Carried Both(std::string_view name) const {
    return {source_->Column(name), folded_->Column(name)};
  }
  [[nodiscard]] bool SameKey(const Recordset::Row& a, const Recordset::Row& b) const {
    for (const Carried& part : key_) {
      if (a.Int64(part.from) != b.Int64(part.from)) return false;
    }
    return true;
  }

  void BeginKey(const Recordset::Row& row) {
    folded_->AddNew();
    Carry(carried_, row);
    Carry(last_year_, row);
    StockFigures year = figures_.Read(row);
    if (row.Single(entering_) == 0) {
      year = ValueUnpricedStock(year, standards_.Of(row.Int64(key_[0].from)),
                                {.period = period_, .carried_year = row.Int32(year_)});
    }
    opening_.emplace(year.opening, AverageBase::kSumsAllYears);
    closing_.emplace(year.closing, AverageBase::kRestartsEachYear);
  }

  void AddYear(const Recordset::Row& row) {
    const StockFigures year = figures_.Read(row);
    closing_->AddYear({.quantity = year.closing.quantity,
                       .value = year.closing.value,
                       .entering_quantity = row.Single(entering_),
                       .entering_value = row.Money(entering_value_)});
    opening_->AddYear({.quantity = year.opening.quantity,
                       .value = year.opening.value,
                       .entering_quantity = row.Single(entering_op_),
                       .entering_value = row.Money(entering_value_op_)});
    Carry(last_year_, row);  // only the last year's stands
  }

  void EndKey() {
    if (!closing_) return;
    WritePosition(closing_->Position(), to_figures_.qtybal, to_figures_.total_value);
    WritePosition(opening_->Position(), to_figures_.qtyop, to_figures_.value_op);
    folded_->Update();
  }

  void WritePosition(const StockFigure& position, ColumnHandle quantity, ColumnHandle value) {
    folded_->Set(quantity, position.quantity);
    folded_->Set(value, position.value);
  }

  void Carry(const std::vector<Carried>& columns, const Recordset::Row& row) {
    for (const Carried& column : columns) folded_->SetFrom(column.to, row, column.from);
  }

  RecordsetPtr source_;
  StandardRateReader standards_;
  StockPeriod period_;
  RecordsetPtr folded_;
  AverageColumns figures_;
  ColumnHandle year_, entering_, entering_value_, entering_op_, entering_value_op_;
  AverageColumns to_figures_;
  std::vector<Carried> key_, carried_, last_year_;
  std::optional<AverageFold> opening_, closing_;
};

}  // namespace

RecordsetPtr mStock_MergeYears(ReportFrame& frame) {
  return YearFolding(frame, frame.Rowset(Source::rsReport)).Fold();
}

}  // namespace pstolvane1
