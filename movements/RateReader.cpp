#include "movements/RateReader.h"

#include "session/data/RowFlag.h"

namespace pstolvane1 {
namespace {

// A row without a rate is one of rate 0.
double RateAt(const Recordset::Row& row, ColumnHandle column) {
  return row.IsNull(column) ? 0 : row.Double(column);
}

}  // namespace

StandardRateReader::StandardRateReader(const Recordset& rows)
    : by_item_(rows.GroupBy({"Item_Id"})),
      rate_(rows.Column("Rate")),
      from_(rows.Column("DateFrom")),
      to_(rows.Column("DateTo")),
      year_(rows.Column("YearNo")),
      sale_(rows.Column("SaleOrPurchase")) {}

std::span<const StandardRate> StandardRateReader::Of(std::int64_t item_id) {
  if (item_id_ == item_id) return rates_;
  rates_.clear();
  for (const Recordset::Row row : by_item_.Find({item_id})) {
    if (row.IsNull(to_) || row.IsNull(sale_)) continue;  // never ends; neither a cost nor a price
    rates_.push_back({.rate = RateAt(row, rate_),
                      .from = row.IsNull(from_) ? kNeverBegins : row.DateOf(from_),
                      .to = row.DateOf(to_),
                      .year = row.IsNull(year_) ? 0 : row.Int32(year_),
                      .sale = row.Flag(sale_)});
  }
  item_id_ = item_id;
  return rates_;
}

ActualRateReader::ActualRateReader(const Recordset& rows)
    : by_item_(rows.GroupBy({"Item_Id"})),
      rate_(rows.Column("Rate")),
      date_(rows.Column("Date")),
      opening_(rows.Column("IsOpeningBal")),
      godown_id_(rows.Column("Godown_Id")),
      batch_id_(rows.Column("Batch_Id")) {
  if (rows.HasColumn("IsAdded")) added_ = rows.Column("IsAdded");
}

// Rows that do not tell are inward lines all of them.
std::optional<bool> ActualRateReader::AddedAt(const Recordset::Row& row) const {
  if (!added_) return true;
  if (row.IsNull(*added_)) return std::nullopt;
  return row.Flag(*added_);
}

std::span<const ActualRate> ActualRateReader::Of(std::int64_t item_id) {
  if (item_id_ == item_id) return rates_;
  rates_.clear();
  for (const Recordset::Row row : by_item_.Find({item_id})) {
    rates_.push_back({.rate = RateAt(row, rate_),
                      .date = row.IsNull(date_) ? std::nullopt : std::optional(row.DateOf(date_)),
                      .opening = IsSet(row, opening_),
                      .added = AddedAt(row),
                      .godown_id = row.IsNull(godown_id_) ? 0 : row.Int64(godown_id_),
                      .batch_id = row.IsNull(batch_id_) ? 0 : row.Int64(batch_id_)});
  }
  item_id_ = item_id;
  return rates_;
}

}  // namespace pstolvane1
