// Making, opening, cloning and closing a rowset.
#include "session/data/Recordset.h"

#include <utility>

#include "session/data/RecordsetAccess.h"
#include "session/data/RecordsetImpl.h"

namespace pstolvane1 {

Recordset::Recordset() : impl_(std::make_unique<Impl>()) {}

Recordset::~Recordset() {
  if (impl_->fetch) impl_->fetch->Cancel();
}

RecordsetPtr Recordset::New() { return RecordsetPtr(new Recordset()); }

void Recordset::Open() {
  if (impl_->appended.empty()) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "a rowset without columns cannot be opened: append its columns, or name a query");
  }
  RecordsetAccess::Attach(*this,
                          std::make_shared<RowStore>(impl_->appended, RowStore::Kind::kFabricated));
}

void Recordset::Close() {
  impl_->Open();
  // Cancelling may let go the last reference to what runs it.
  if (const std::shared_ptr<RunningFetch> fetch = std::exchange(impl_->fetch, nullptr)) {
    fetch->Cancel();
  }
  impl_->Commit();
  impl_->view.reset();
}

RecordsetPtr Recordset::Clone(int) {
  impl_->Open();
  impl_->Commit();
  RecordsetPtr clone = New();
  clone->impl_->connection = impl_->connection;
  clone->impl_->view.emplace(*impl_->view, RowView::SameRows());
  return clone;
}

std::size_t Recordset::MemoryUsed() const {
  const RowView& view = impl_->Open();
  return view.Bytes() + view.Store().Bytes();
}

RecordsetPtr RecordsetAccess::Over(std::shared_ptr<RowStore> store) {
  RecordsetPtr rowset = Recordset::New();
  rowset->impl_->view.emplace(std::move(store));
  return rowset;
}

RecordsetPtr RecordsetAccess::Over(std::shared_ptr<RowStore> store,
                                   std::span<const std::uint32_t> rows,
                                   std::shared_ptr<const void> owner) {
  RecordsetPtr rowset = Recordset::New();
  rowset->impl_->view.emplace(std::move(store), rows, std::move(owner));
  return rowset;
}

void RecordsetAccess::Attach(Recordset& rowset, std::shared_ptr<RowStore> store) {
  if (rowset.impl_->view) {
    throw Error(ErrorNumber::kArgumentOutOfRange, "the rowset is open already; close it first");
  }
  rowset.impl_->view.emplace(std::move(store));
}

const std::shared_ptr<RowStore>& RecordsetAccess::Store(const Recordset& rowset) {
  return rowset.impl_->Open().SharedStore();
}

void Recordset::Impl::RaiseNotOpen() {
  throw Error(ErrorNumber::kNotOpen, "the rowset is not open");
}

void Recordset::Impl::RaiseNoRow(const RowView& view) {
  std::string_view why = "the rowset is before its first row";
  if (view.Count() == 0) {
    why = "the rowset has no rows";
  } else if (view.Eof()) {
    why = "the rowset is behind its last row";
  } else if (view.StandsOnDeleted()) {
    why = "the row was deleted";
  }
  throw Error(ErrorNumber::kNoCurrentRecord, "there is no current row: " + std::string(why));
}

}  // namespace pstolvane1
