#include "session/data/RowGroups.h"

#include <string>
#include <utility>

#include "session/data/RecordsetAccess.h"
#include "session/data/RowKeys.h"

namespace pstolvane1 {

namespace {

CellKey KeyOf(const Variant& value) {
  if (value.IsNull()) return {};
  switch (value.Type()) {
    case adBoolean:
      return CellKey::OfWhole(value.ToBoolean().IsSet() ? -1 : 0);
    case adInteger:
    case adBigInt:
      return CellKey::OfWhole(value.ToInt64());
    case adSingle:
    case adDouble:
      return CellKey::OfNumber(value.ToDouble());
    case adCurrency:
      return CellKey::OfMoney(value.ToCurrency());
    case adDate:
      return CellKey::OfDate(value.ToDate());
    case adBSTR:
      return CellKey::OfText(*value.TextIfAny());
    default:
      throw Error(ErrorNumber::kArgumentOutOfRange,
                  "a key is made of plain values; Empty and rowsets are none");
  }
}

}  // namespace

RowGroups::RowGroups(const Recordset& rowset, std::initializer_list<std::string_view> columns)
    : store_(RecordsetAccess::Store(rowset)), columns_(columns.size()) {
  if (columns_ == 0) {
    throw Error(ErrorNumber::kArgumentOutOfRange, "rows are grouped by at least one column");
  }
  std::vector<int> numbers;
  for (const std::string_view name : columns) {
    numbers.push_back(static_cast<int>(rowset.Column(name)));
    if (store_->Column(numbers.back()).type == adChapter) {
      throw Error(ErrorNumber::kArgumentOutOfRange,
                  "rows cannot be grouped by the chapter \"" + std::string(name) + "\"");
    }
  }
  keys_ = std::make_unique<KeyTable>(*store_, std::move(numbers));

  std::vector<std::uint32_t> key_of_row;
  std::vector<std::uint32_t> rows;
  for (const Recordset::Row row : rowset.Rows()) {
    rows.push_back(row.row_);
    key_of_row.push_back(keys_->Add(row.row_));
  }
  starts_.assign(keys_->Count() + std::size_t{1}, 0);
  for (const std::uint32_t key : key_of_row) ++starts_[key + std::size_t{1}];
  for (std::size_t key = 1; key < starts_.size(); ++key) starts_[key] += starts_[key - 1];
  rows_.resize(rows.size());
  std::vector<std::uint32_t> next(starts_.begin(), starts_.end() - 1);
  for (std::size_t i = 0; i < rows.size(); ++i) rows_[next[key_of_row[i]]++] = rows[i];
}

RowGroups::~RowGroups() = default;
RowGroups::RowGroups(RowGroups&&) noexcept = default;
RowGroups& RowGroups::operator=(RowGroups&&) noexcept = default;

RowGroups::Group RowGroups::GroupOf(std::uint32_t number) const {
  if (number == KeyTable::kNone) return {*store_, {}};
  return (*this)[number];
}

void RowGroups::CheckParts(std::size_t count) const {
  if (count == columns_) return;
  throw Error(ErrorNumber::kArgumentOutOfRange,
              "the rows are grouped by " + std::to_string(columns_) + " columns, the key has " +
                  std::to_string(count) + " values");
}

RowGroups::Group RowGroups::Find(std::initializer_list<Variant> key) const {
  CheckParts(key.size());
  std::vector<CellKey> parts;
  parts.reserve(key.size());
  for (const Variant& value : key) parts.push_back(KeyOf(value));
  return GroupOf(keys_->Find(parts));
}

RowGroups::Group RowGroups::Find(const Recordset::Row& row,
                                 std::initializer_list<ColumnHandle> columns) const {
  CheckParts(columns.size());
  std::vector<int> numbers;
  numbers.reserve(columns.size());
  for (const ColumnHandle column : columns) numbers.push_back(static_cast<int>(column));
  return GroupOf(keys_->Find(*row.store_, numbers, row.row_));
}

}  // namespace pstolvane1
