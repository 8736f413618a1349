// The values of a rowset's current row, and the rows of a fabricated one.
#include <utility>

#include "session/data/Cells.h"
#include "session/data/RecordsetImpl.h"

namespace pstolvane1 {

Variant Recordset::Collect(std::string_view name) const { return impl_->Current()[name]; }

void Recordset::Collect(std::string_view name, const Variant& value) {
  impl_->Open();
  Set(static_cast<ColumnHandle>(impl_->FindColumn(name)), value);
}

bool Recordset::Row::IsNull(ColumnHandle column) const {
  return IsNullAt({*store_, static_cast<int>(column), row_});
}
std::int32_t Recordset::Row::Int32(ColumnHandle column) const {
  return Int32At({*store_, static_cast<int>(column), row_});
}
std::int64_t Recordset::Row::Int64(ColumnHandle column) const {
  return Int64At({*store_, static_cast<int>(column), row_});
}
float Recordset::Row::Single(ColumnHandle column) const {
  return SingleAt({*store_, static_cast<int>(column), row_});
}
double Recordset::Row::Double(ColumnHandle column) const {
  return DoubleAt({*store_, static_cast<int>(column), row_});
}
Currency Recordset::Row::Money(ColumnHandle column) const {
  return MoneyAt({*store_, static_cast<int>(column), row_});
}
Date Recordset::Row::DateOf(ColumnHandle column) const {
  return DateAt({*store_, static_cast<int>(column), row_});
}
bool Recordset::Row::Flag(ColumnHandle column) const {
  return FlagAt({*store_, static_cast<int>(column), row_});
}
std::string_view Recordset::Row::Text(ColumnHandle column) const {
  return TextAt({*store_, static_cast<int>(column), row_});
}
RecordsetPtr Recordset::Row::Chapter(ColumnHandle column) const {
  return ChapterAt({*store_, static_cast<int>(column), row_});
}

Variant Recordset::Row::operator[](ColumnHandle column) const {
  return ValueAt({*store_, static_cast<int>(column), row_});
}

Variant Recordset::Row::operator[](std::string_view name) const {
  const int column = store_->FindColumn(name);
  if (column < 0) RaiseNoColumn(name, store_->Columns());
  return ValueAt({*store_, column, row_});
}

bool Recordset::IsNull(ColumnHandle column) const { return impl_->Current().IsNull(column); }
std::int32_t Recordset::Int32(ColumnHandle column) const { return impl_->Current().Int32(column); }
std::int64_t Recordset::Int64(ColumnHandle column) const { return impl_->Current().Int64(column); }
float Recordset::Single(ColumnHandle column) const { return impl_->Current().Single(column); }
double Recordset::Double(ColumnHandle column) const { return impl_->Current().Double(column); }
Currency Recordset::Money(ColumnHandle column) const { return impl_->Current().Money(column); }
Date Recordset::DateOf(ColumnHandle column) const { return impl_->Current().DateOf(column); }
bool Recordset::Flag(ColumnHandle column) const { return impl_->Current().Flag(column); }
std::string_view Recordset::Text(ColumnHandle column) const {
  return impl_->Current().Text(column);
}
RecordsetPtr Recordset::Chapter(ColumnHandle column) const {
  return impl_->Current().Chapter(column);
}
Variant Recordset::Value(ColumnHandle column) const { return impl_->Current()[column]; }

RowStore& Recordset::Impl::Writable() {
  RowStore& store = Open().Store();
  if (store.KindOf() == RowStore::Kind::kQuery) {
    throw Error(ErrorNumber::kArgumentOutOfRange, "the rows of a query cannot be written");
  }
  return store;
}

// Notes the column as written before the cell is, so that no index tells the old value.
void Recordset::Impl::BeforeWrite(RowStore& store, int column) {
  if (view->Adding() != RowView::kNone) return;
  if (static_cast<std::size_t>(column) >= store.Columns().size()) return;
  store.Writing(column);
  if (edited.empty()) edited.resize(store.Columns().size());
  edited[static_cast<std::size_t>(column)] = true;
}

void Recordset::Set(ColumnHandle column, const Variant& value) {
  RowStore& store = impl_->Writable();
  const std::uint32_t row = impl_->CurrentRow();
  impl_->BeforeWrite(store, static_cast<int>(column));
  Write(store, static_cast<int>(column), row, value);
}

void Recordset::SetText(ColumnHandle column, std::string_view text) {
  RowStore& store = impl_->Writable();
  const std::uint32_t row = impl_->CurrentRow();
  impl_->BeforeWrite(store, static_cast<int>(column));
  WriteText(store, static_cast<int>(column), row, text);
}

void Recordset::SetFrom(ColumnHandle column, const Row& row, ColumnHandle from) {
  RowStore& store = impl_->Writable();
  const std::uint32_t current = impl_->CurrentRow();
  impl_->BeforeWrite(store, static_cast<int>(column));
  WriteFrom(store, static_cast<int>(column), current,
            {*row.store_, static_cast<int>(from), row.row_});
}

void Recordset::AddNew() {
  RowStore& store = impl_->Writable();
  impl_->Commit();
  impl_->view->Add(store.AddRow());
}

void Recordset::Update() {
  impl_->Writable();
  static_cast<void>(impl_->CurrentRow());
  impl_->Commit();
}

void Recordset::Impl::CommitEdits() {
  RowStore& store = view->Store();
  if (view->Adding() != RowView::kNone) {
    store.Show(view->Adding());
    view->Added();
  } else if (!store.Hidden(view->Row())) {
    store.Changed(view->Row(), edited);
  }
  edited.clear();
}

void Recordset::Delete() {
  RowStore& store = impl_->Writable();
  const std::uint32_t row = impl_->CurrentRow();
  if (impl_->view->Adding() == row) {
    impl_->view->Added();
    return;
  }
  impl_->Commit();
  store.Delete(row);
}

}  // namespace pstolvane1
