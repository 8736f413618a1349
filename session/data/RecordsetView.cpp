// Which rows a rowset shows, in which order, and reading them one after another.
#include <limits>

#include "session/data/OutOfMemory.h"
#include "session/data/RecordsetImpl.h"
#include "session/data/RowGroups.h"

namespace pstolvane1 {

void Recordset::Filter(std::string_view criteria) {
  TellingWhatRanOut("filtering a rowset", [&] {
    RowView& view = impl_->Open();
    impl_->Commit();
    view.Filter(criteria);
  });
}

void Recordset::Filter(int zero) {
  if (zero != 0) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "the filter cannot be the number " + std::to_string(zero) + "; 0 clears it");
  }
  Filter(std::string_view());
}

const std::string& Recordset::Filter() const { return impl_->Open().FilterText(); }

void Recordset::Find(std::string_view criterion) {
  TellingWhatRanOut("searching a rowset", [&] {
    RowView& view = impl_->Open();
    impl_->Commit();
    view.Find(criterion);
  });
}

void Recordset::Sort(std::string_view columns) {
  TellingWhatRanOut("sorting a rowset", [&] {
    RowView& view = impl_->Open();
    impl_->Commit();
    view.Sort(columns);
  });
}

const std::string& Recordset::Sort() const { return impl_->Open().SortText(); }

namespace {

constexpr std::size_t kEnd = std::numeric_limits<std::size_t>::max();

// The place of the first visible row from a place on. The end has a number of its own, since the
// list may become longer or shorter meanwhile.
std::size_t PlaceFrom(const RowView& view, std::size_t place) {
  place = view.VisibleFrom(place);
  return place < view.Places() ? place : kEnd;
}

}  // namespace

Recordset::Row Recordset::RowIterator::operator*() const {
  const RowView& view = rowset_->impl_->Open();
  return {view.Store(), view.RowAt(place_)};
}

Recordset::RowIterator& Recordset::RowIterator::operator++() {
  place_ = PlaceFrom(rowset_->impl_->Open(), place_ + 1);
  return *this;
}

Recordset::RowRange Recordset::Rows() const {
  return {{*this, PlaceFrom(impl_->Open(), 0)}, {*this, kEnd}};
}

RowGroups Recordset::GroupBy(std::initializer_list<std::string_view> columns) const {
  return RowGroups(*this, columns);
}

}  // namespace pstolvane1
