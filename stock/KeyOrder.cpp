#include "stock/KeyOrder.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <tuple>

#include "session/data/TextFold.h"

namespace pstolvane1 {
namespace {

struct Key {
  std::int64_t item_id, godown_id, batch_id, year;
  Recordset::Row row;

  friend bool operator<(const Key& a, const Key& b) {
    return std::tie(a.item_id, a.godown_id, a.batch_id, a.year) <
           std::tie(b.item_id, b.godown_id, b.batch_id, b.year);
  }
};

std::vector<Key> KeysById(const Recordset& keys) {
  const ColumnHandle item = keys.Column("Item_Id");
  const ColumnHandle godown = keys.Column("Godown_Id");
  const ColumnHandle batch = keys.Column("Batch_Id");
  const bool has_year = keys.HasColumn("YearNo");
  const ColumnHandle year = has_year ? keys.Column("YearNo") : item;
  std::vector<Key> read;
  read.reserve(static_cast<std::size_t>(keys.RecordCount()));
  for (const Recordset::Row row : keys.Rows()) {
    read.push_back({.item_id = row.Int64(item),
                    .godown_id = row.Int64(godown),
                    .batch_id = row.Int64(batch),
                    .year = has_year ? row.Int64(year) : 0,
                    .row = row});
  }
  // An engine that sums in the order of an index gives them so.
  if (!std::ranges::is_sorted(read, std::less<>())) std::ranges::sort(read, std::less<>());
  return read;
}

// A name is text, but for an alias that stands for a number, a flag or a day.
struct Name {
  bool known = false;
  double number = 0;
  std::string_view text = {};

  friend bool operator==(const Name& a, const Name& b) = default;
  friend bool operator<(const Name& a, const Name& b) {
    if (a.known != b.known) return b.known;
    if (a.number != b.number) return a.number < b.number;
    return CompareFoldedIgnoringTrailingBlanks(a.text, b.text) < 0;
  }
};

Name NameAt(const Recordset::Row& row, ColumnHandle column, DataType type) {
  if (row.IsNull(column)) return {};
  switch (type) {
    case adBSTR:
    case adVarChar:
      return {.known = true, .text = row.Text(column)};
    case adBoolean:
      return {.known = true, .number = row.Flag(column) ? 1.0 : 0.0};
    case adDate:
      return {.known = true, .number = row.DateOf(column).Elapsed()};
    default:
      return {.known = true, .number = row.Double(column)};
  }
}

// Keys of one item under one name, side by side.
struct Item {
  Name name;
  std::vector<Key>::const_iterator first, last;
};

}  // namespace

std::vector<Recordset::Row> KeysInOrder(const Recordset& keys) {
  const std::vector<Key> by_id = KeysById(keys);
  const ColumnHandle name = keys.Column("ItemName");
  const DataType type = keys.Columns()[static_cast<std::size_t>(name)].type;
  std::vector<Item> items;
  for (auto first = by_id.begin(); first != by_id.end(); first = items.back().last) {
    const Name shown = NameAt(first->row, name, type);
    const auto last = std::find_if(first, by_id.end(), [&](const Key& key) {
      return key.item_id != first->item_id || !(NameAt(key.row, name, type) == shown);
    });
    items.push_back({shown, first, last});
  }
  std::ranges::stable_sort(items, std::less<>(), &Item::name);
  std::vector<Recordset::Row> rows;
  rows.reserve(by_id.size());
  for (const Item& item : items) {
    for (auto key = item.first; key != item.last; ++key) rows.push_back(key->row);
  }
  return rows;
}

}  // namespace pstolvane1
