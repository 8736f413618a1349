// The columns of a rowset, and its settings.
#include <algorithm>
#include <string>

#include "session/data/RecordsetImpl.h"
#include "session/data/TextFold.h"

namespace pstolvane1 {

namespace {

constexpr std::size_t kNamesShown = 12;

const ColumnInfo& InfoOf(const std::vector<ColumnInfo>& columns, int column) {
  if (static_cast<std::size_t>(column) >= columns.size()) {
    throw Error(ErrorNumber::kNotOpen, "the rowset of the field is not open");
  }
  return columns[static_cast<std::size_t>(column)];
}

}  // namespace

void RaiseNoColumn(std::string_view name, const std::vector<ColumnInfo>& columns) {
  std::string names;
  for (std::size_t i = 0; i < std::min(columns.size(), kNamesShown); ++i) {
    names += (i == 0 ? "" : ", ") + columns[i].name;
  }
  if (columns.size() > kNamesShown) {
    names += " and " + std::to_string(columns.size() - kNamesShown) + " more";
  }
  throw Error(ErrorNumber::kNoSuchColumn, "the rowset has no column \"" + std::string(name) +
                                              "\"; it has " + (columns.empty() ? "none" : names));
}

const std::vector<ColumnInfo>& Recordset::Impl::Columns() const {
  return view ? view->Store().Columns() : appended;
}

int Recordset::Impl::FindColumn(std::string_view name) const {
  int column = -1;
  if (view) {
    column = view->Store().FindColumn(name);
  } else {
    const auto found = std::find_if(appended.begin(), appended.end(), [&](const ColumnInfo& info) {
      return EqualFolded(info.name, name);
    });
    if (found != appended.end()) column = static_cast<int>(found - appended.begin());
  }
  if (column < 0) RaiseNoColumn(name, Columns());
  return column;
}

const std::vector<ColumnInfo>& Recordset::Columns() const { return impl_->Columns(); }

pstolvane1::Fields Recordset::Fields() { return pstolvane1::Fields(*this); }
Field Recordset::Fields(std::string_view name) { return Fields()(name); }

ColumnHandle Recordset::Column(std::string_view name) const {
  return static_cast<ColumnHandle>(impl_->FindColumn(name));
}

bool Recordset::HasColumn(std::string_view name) const {
  const auto& columns = impl_->Columns();
  if (impl_->view) return impl_->view->Store().FindColumn(name) >= 0;
  return std::any_of(columns.begin(), columns.end(),
                     [&](const ColumnInfo& info) { return EqualFolded(info.name, name); });
}

int Fields::Count() const { return static_cast<int>(rowset_->impl_->Columns().size()); }

Field Fields::operator()(std::string_view name) const {
  return {*rowset_, rowset_->impl_->FindColumn(name)};
}

Field Fields::operator()(int index) const {
  if (index < 0 || index >= Count()) {
    throw Error(ErrorNumber::kNoSuchColumn, "the rowset has no column number " +
                                                std::to_string(index) + "; it has " +
                                                std::to_string(Count()) + ", counted from 0");
  }
  return {*rowset_, index};
}

void Fields::Append(std::string_view name, DataType type, int defined_size, int attributes) {
  const auto refuse = [&](const std::string& why) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "the column \"" + std::string(name) + "\" cannot be appended: " + why);
  };
  Recordset::Impl& impl = *rowset_->impl_;
  if (impl.view) refuse("the rowset is open");
  if (rowset_->HasColumn(name)) refuse("there is one of that name");
  if (type == adChapter) refuse("a rowset that is filled by its maker holds no chapters");
  if (defined_size < 0) refuse("its size is negative");
  static_cast<void>(StorageWidth(type));  // raises a type that no column can have
  impl.appended.push_back({std::string(name), type, defined_size, attributes});
}

const std::string& Field::Name() const { return InfoOf(rowset_->impl_->Columns(), column_).name; }
DataType Field::Type() const { return InfoOf(rowset_->impl_->Columns(), column_).type; }
int Field::DefinedSize() const { return InfoOf(rowset_->impl_->Columns(), column_).defined_size; }
int Field::Attributes() const { return InfoOf(rowset_->impl_->Columns(), column_).attributes; }

Variant Field::Value() const { return rowset_->Value(static_cast<ColumnHandle>(column_)); }
void Field::Value(const Variant& value) { rowset_->Set(static_cast<ColumnHandle>(column_), value); }

pstolvane1::Properties Field::Properties() const { return {*rowset_, column_}; }
pstolvane1::Properties Recordset::Properties() { return {*this, -1}; }

Properties::Property Properties::operator()(std::string_view name) const {
  const bool of_rowset = column_ < 0;
  const std::string_view known = of_rowset ? "Initial Fetch Size" : "Optimize";
  if (!EqualFolded(name, known)) {
    throw Error(ErrorNumber::kNoSuchColumn, std::string(of_rowset ? "a rowset" : "a field") +
                                                " has no property \"" + std::string(name) +
                                                "\"; it has \"" + std::string(known) + "\"");
  }
  return {*rowset_, column_};
}

Variant Properties::Property::Value() const {
  const Recordset::Impl& impl = *rowset_->impl_;
  if (column_ < 0) return impl.initial_fetch_size;
  return Boolean(impl.Open().Store().Optimized(column_));
}

void Properties::Property::Value(const Variant& value) {
  Recordset::Impl& impl = *rowset_->impl_;
  if (column_ >= 0) return impl.Open().Store().Optimize(column_, value.ToBoolean().IsSet());
  const std::int32_t rows = value.ToInt32();
  if (rows < 0) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "\"Initial Fetch Size\" cannot be " + std::to_string(rows));
  }
  impl.initial_fetch_size = rows;
}

Properties::Property& Properties::Property::operator=(const Variant& value) {
  Value(value);
  return *this;
}

}  // namespace pstolvane1
