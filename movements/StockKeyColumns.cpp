#include "movements/StockKeyColumns.h"

#include <initializer_list>

#include "session/data/Error.h"
#include "session/data/RowFlag.h"

namespace pstolvane1 {
namespace {

std::optional<ColumnHandle> FirstOf(const Recordset& keys,
                                    std::initializer_list<std::string_view> names) {
  for (const std::string_view name : names) {
    if (keys.HasColumn(name)) return keys.Column(name);
  }
  return std::nullopt;
}

ColumnHandle OneOf(const Recordset& keys, std::string_view name, std::string_view other) {
  return keys.Column(keys.HasColumn(name) ? name : other);
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
      unit_(OneOf(keys, "Uom", "UomName")),
      alt_unit_(OneOf(keys, "AltUom", "AltUomName")),
      relation_formula_(OneOf(keys, "RelFormula", "RelationFormula")),
      godown_(FirstOf(keys, {"Godown", "GodownName"})),
      godown_id_(FirstOf(keys, {"Godown_Id"})),
      batch_(FirstOf(keys, {"BatchCode"})),
      batch_id_(FirstOf(keys, {"Batch_Id"})),
      maintain_batches_(FirstOf(keys, {"MaintainBatches"})) {}

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
