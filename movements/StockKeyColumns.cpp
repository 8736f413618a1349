#include "movements/StockKeyColumns.h"

#include <string_view>

#include "session/data/Error.h"
#include "session/data/RowFlag.h"

namespace pstolvane1 {
namespace {

std::optional<ColumnHandle> IfThere(const Recordset& keys, std::string_view name) {
  return keys.HasColumn(name) ? std::optional(keys.Column(name)) : std::nullopt;
}

}  // namespace

double AltQuantity(double quantity, const StockUnits& units) {
  if (units.relation_formula == 0) {
    throw Error(ErrorNumber::kDivisionByZero,
                "division by zero: the item \"" + units.item +
                    "\" has the RelationFormula 0; mend it in the books, or leave blnAltUom out");
  }
  return quantity / static_cast<double>(units.relation_formula);
}

std::string NameText(const Recordset::Row& row, ColumnHandle column) {
  const Variant name = row[column];
  return name.IsNull() ? std::string() : name.ToText();
}

StockKeyColumns::StockKeyColumns(const Recordset& keys)
    : item_id_(keys.Column("Item_Id")),
      item_name_(keys.Column("ItemName")),
      unit_(keys.Column("UomName")),
      alt_unit_(keys.Column("AltUomName")),
      relation_formula_(keys.Column("RelationFormula")),
      godown_(IfThere(keys, "GodownName")),
      godown_id_(IfThere(keys, "Godown_Id")),
      batch_(IfThere(keys, "BatchCode")),
      batch_id_(IfThere(keys, "Batch_Id")),
      maintain_batches_(IfThere(keys, "MaintainBatches")) {}

StockUnits StockKeyColumns::Units(const Recordset::Row& row) const {
  return {.item = NameText(row, item_name_),
          .unit = std::string(row.Text(unit_)),
          .alt_unit = std::string(row.Text(alt_unit_)),
          .relation_formula = row.IsNull(relation_formula_) ? 0 : row.Single(relation_formula_)};
}

std::string StockKeyColumns::GodownText(const Recordset::Row& row) const {
  std::string text;
  if (godown_) text = NameText(row, *godown_);
  const bool has_batches = maintain_batches_ && IsSet(row, *maintain_batches_);
  if (has_batches && batch_) text.append("    ").append(NameText(row, *batch_));
  return text;
}

std::int64_t StockKeyColumns::GodownId(const Recordset::Row& row) const {
  return godown_id_ ? row.Int64(*godown_id_) : 0;
}

std::int64_t StockKeyColumns::BatchId(const Recordset::Row& row) const {
  return batch_id_ ? row.Int64(*batch_id_) : 0;
}

}  // namespace pstolvane1
