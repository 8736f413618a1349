// Where a rowset stands.
#include <limits>

#include "session/data/RecordsetImpl.h"

namespace pstolvane1 {
namespace {

[[noreturn]] void RaiseRowGone() {
  throw Error(ErrorNumber::kNoCurrentRecord, "the row of the bookmark is gone");
}

}  // namespace

void Recordset::MoveFirst() {
  RowView& view = impl_->Open();
  impl_->Commit();
  view.First();
}

void Recordset::MoveLast() {
  RowView& view = impl_->Open();
  impl_->Commit();
  view.Last();
}

void Recordset::MoveNext() {
  RowView& view = impl_->Open();
  impl_->Commit();
  if (!view.Next()) impl_->RaiseNoRow(view);
}

void Recordset::MovePrevious() {
  RowView& view = impl_->Open();
  impl_->Commit();
  if (!view.Previous()) impl_->RaiseNoRow(view);
}

bool Recordset::Bof() const { return impl_->Open().Bof(); }
bool Recordset::Eof() const { return impl_->Open().Eof(); }

pstolvane1::Bookmark Recordset::Bookmark() const {
  return static_cast<pstolvane1::Bookmark>(impl_->CurrentRow());
}

void Recordset::Bookmark(pstolvane1::Bookmark position) {
  RowView& view = impl_->Open();
  impl_->Commit();
  const auto row = static_cast<std::uint32_t>(position);
  if (row >= view.Store().RowCount() || view.Store().Hidden(row)) RaiseRowGone();
  view.GoTo(row);
}

Recordset::Row Recordset::RowAt(pstolvane1::Bookmark position) const {
  const RowView& view = impl_->Open();
  const auto row = static_cast<std::uint32_t>(position);
  const RowStore& store = view.Store();
  const bool there = row < store.RowCount() && (!store.Hidden(row) || view.Adding() == row);
  if (!there) RaiseRowGone();
  return {store, row};
}

std::int32_t Recordset::RecordCount() const {
  const std::uint32_t count = impl_->Open().Count();
  if (count > static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max())) {
    throw Error(ErrorNumber::kOverflow, "the rowset has " + std::to_string(count) +
                                            " rows, more than RecordCount can tell");
  }
  return static_cast<std::int32_t>(count);
}

}  // namespace pstolvane1
