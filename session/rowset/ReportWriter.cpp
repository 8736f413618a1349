#include "session/rowset/ReportWriter.h"

#include <cctype>

#include "session/rowset/DisplayText.h"

namespace pstolvane1 {
namespace {

bool EndsInSort(std::string_view name) {
  constexpr std::string_view kSuffix = "sort";
  if (name.size() < kSuffix.size()) return false;
  name.remove_prefix(name.size() - kSuffix.size());
  for (std::size_t i = 0; i < kSuffix.size(); ++i) {
    if (std::tolower(static_cast<unsigned char>(name[i])) != kSuffix[i]) return false;
  }
  return true;
}

}  // namespace

ReportWriter::ReportWriter(std::span<const ReportColumn> columns, const Locale& locale)
    : rowset_(NewReportRowset(columns)),
      locale_(locale),
      has_dummy_sort_(rowset_->HasColumn("DummySort")) {
  if (has_dummy_sort_) dummy_sort_ = rowset_->Column("DummySort");
  for (const ReportColumn& column : columns) {
    const ColumnHandle place = rowset_->Column(column.name);
    if (EndsInSort(column.name) && !(has_dummy_sort_ && place == dummy_sort_)) {
      twins_.push_back(place);
    }
  }
}

void ReportWriter::AddLine(std::int64_t line_class) {
  EndLine();
  rowset_->AddNew();
  in_line_ = true;
  dummy_sort_value_ = line_class;
  if (has_dummy_sort_) rowset_->Set(dummy_sort_, line_class);
}

void ReportWriter::AddSubLine() {
  EndLine();
  std::vector<Variant> values;
  values.reserve(twins_.size());
  for (const ColumnHandle twin : twins_) values.push_back(rowset_->Value(twin));
  AddNextLine();
  for (std::size_t i = 0; i < twins_.size(); ++i) rowset_->Set(twins_[i], values[i]);
}

void ReportWriter::ReturnTo(Bookmark line) {
  EndLine();
  rowset_->Bookmark(line);
  in_line_ = true;
}

void ReportWriter::EndLine() {
  if (in_line_) rowset_->Update();
  in_line_ = false;
}

void ReportWriter::Text(TwinnedColumn column, std::string_view text) {
  Text(column.shown, text);
  Text(column.twin, text);
}

void ReportWriter::Value(TwinnedColumn column, const Variant& value) {
  Value(column.shown, value);
  Value(column.twin, value);
}

std::string ReportWriter::MoneyText(const Variant& amount) const {
  return FormatCurrencyText(locale_, amount);
}

void ReportWriter::Money(TwinnedColumn column, const Variant& amount) {
  Money(column.shown, amount);
  Value(column.twin, amount);
}

RecordsetPtr ReportWriter::Finish() {
  EndLine();
  if (!rowset_->Eof() || !rowset_->Bof()) rowset_->MoveFirst();
  return rowset_;
}

std::string RuleText(std::size_t width) { return std::string(width, '_'); }

}  // namespace pstolvane1
