#include "session/rowset/ReportWriter.h"

#include <algorithm>
#include <cctype>

#include "session/data/Error.h"
#include "session/rowset/DisplayText.h"

namespace pstolvane1 {
namespace {

bool EndsInSort(std::string_view name) {
  constexpr std::string_view kSuffix = "sort";
  if (name.size() < kSuffix.size()) return false;
  const auto same = [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == b; };
  return std::ranges::equal(name.substr(name.size() - kSuffix.size()), kSuffix, same);
}

}  // namespace

DocumentNumberSource::DocumentNumberSource(const Recordset& source, std::string_view prefix_name,
                                           std::string_view number_name,
                                           std::string_view suffix_name)
    : prefix(source.Column(prefix_name)),
      number(source.Column(number_name)),
      suffix(source.Column(suffix_name)) {}

ReportWriter::ReportWriter(std::span<const ReportColumn> columns, CellStyle style)
    : rowset_(NewReportRowset(columns)), style_(std::move(style)) {
  if (rowset_->HasColumn("DummySort")) dummy_sort_ = rowset_->Column("DummySort");
  for (int column = 0; const ReportColumn& each : columns) {
    const ColumnHandle place{column++};
    if (EndsInSort(each.name) && place != dummy_sort_) twins_.push_back(place);
  }
}

void ReportWriter::AddLine(std::int64_t number) {
  EndLine();
  rowset_->AddNew();
  in_line_ = true;
  if (number == kNoNumber) return;
  number_ = number == kNextNumber ? number_ + 1 : number;
  if (dummy_sort_ != Target::kNone) rowset_->Set(dummy_sort_, number_);
}

void ReportWriter::AddSubLine(Bookmark parent, std::int64_t number) {
  const Recordset::Row from = rowset_->RowAt(parent);
  AddLine(number);
  for (const ColumnHandle twin : twins_) rowset_->SetFrom(twin, from, twin);
}

void ReportWriter::AddSpacer(ColumnHandle column, std::int64_t number) {
  AddLine(number);
  Text(column, "");
}

void ReportWriter::AddRuleLine(const RuleColumn& rule, std::int64_t number) {
  AddLine(number);
  Rule(rule);
}

void ReportWriter::AddTotalLine(ColumnHandle first, const RuleColumn& rule, std::int64_t number) {
  AddLine(number);
  Text(first, "Total");
  Rule(rule);
}

void ReportWriter::ReturnTo(Bookmark line) {
  EndLine();
  rowset_->Bookmark(line);
  in_line_ = true;
}

void ReportWriter::RemoveLine() {
  rowset_->Delete();
  in_line_ = false;
}

void ReportWriter::EndLine() {
  if (in_line_) rowset_->Update();
  in_line_ = false;
}

template <typename Write>
void ReportWriter::Try(const Write& write) {
  if (!style_.pass_over_errors) return write();
  try {
    write();
  } catch (const Error&) {
  }
}

// Where errors are passed over, a value that cannot be shown still goes into its twin.
template <typename Append>
void ReportWriter::Show(Target to, const Variant& value, const Append& append) {
  Try([&] {
    text_.clear();
    append();
    rowset_->SetText(to.shown, text_);
  });
  if (to.twin != Target::kNone) Try([&] { rowset_->Set(to.twin, value); });
}

void ReportWriter::Text(Target to, std::string_view text) {
  Try([&] { rowset_->SetText(to.shown, text); });
  if (to.twin != Target::kNone) Try([&] { rowset_->SetText(to.twin, text); });
}

void ReportWriter::Value(Target to, const Variant& value) {
  Try([&] { rowset_->Set(to.shown, value); });
  if (to.twin != Target::kNone) Try([&] { rowset_->Set(to.twin, value); });
}

void ReportWriter::Copy(Target to, const Recordset::Row& row, ColumnHandle from) {
  Try([&] { rowset_->SetFrom(to.shown, row, from); });
  if (to.twin != Target::kNone) Try([&] { rowset_->SetFrom(to.twin, row, from); });
}

void ReportWriter::Number(Target to, const Variant& value) {
  Show(to, value, [&] { style_.locale.AppendNumber(value.ToDouble(), text_); });
}

void ReportWriter::Quantity(Target to, const Variant& value, std::string_view unit) {
  Show(to, value, [&] {
    style_.locale.AppendNumber(value.ToDouble(), text_);
    text_.append(" ").append(unit);
  });
}

void ReportWriter::Rate(Target to, const Variant& value, std::string_view unit) {
  Show(to, value, [&] {
    style_.locale.AppendNumber(value.ToDouble(), text_);
    text_.append("/").append(unit);
  });
}

void ReportWriter::Percent(Target to, const Variant& value) {
  Show(to, value, [&] {
    style_.locale.AppendNumber(value.ToDouble(), text_);
    text_.append("%");
  });
}

void ReportWriter::Money(Target to, const Variant& amount) {
  Show(to, amount, [&] { style_.locale.AppendCurrency(amount.ToDouble(), text_); });
}

void ReportWriter::ScaledMoney(Target to, const Variant& amount) {
  Show(to, amount, [&] { style_.locale.AppendCurrency(Scaled(amount), text_); });
}

void ReportWriter::MoneyOrBlank(Target to, const Variant& amount) {
  Show(to, amount, [&] {
    if (!IsBlankAmount(amount)) style_.locale.AppendCurrency(amount.ToDouble(), text_);
  });
}

void ReportWriter::NumberOrBlank(Target to, const Variant& value) {
  Show(to, value, [&] {
    if (!IsBlankAmount(value)) style_.locale.AppendNumber(value.ToDouble(), text_);
  });
}

void ReportWriter::QuantityOrBlank(Target to, const Variant& value, std::string_view unit) {
  Show(to, value, [&] {
    if (IsBlankAmount(value)) return;
    style_.locale.AppendNumber(value.ToDouble(), text_);
    text_.append(" ").append(unit);
  });
}

const std::string& ReportWriter::DateOf(pstolvane1::Date date) {
  if (date_text_.empty() || !(date == date_)) {
    date_text_ = FormatDateText(style_.locale, date, style_.long_date);
    date_ = date;
  }
  return date_text_;
}

void ReportWriter::Date(Target to, const Variant& date) {
  Show(to, date, [&] { text_ += DateOf(date.ToDate()); });
}

void ReportWriter::DocumentNumber(const DocumentNumberColumns& to, const Recordset::Row& row,
                                  const DocumentNumberSource& from, NullParts parts) {
  const Variant number = row[from.number];
  Show({TwinnedColumn{to.shown, to.number_twin}}, number, [&] {
    JoinDocumentNumber(row.Text(from.prefix), number.IsNull() ? std::string() : number.ToText(),
                       row.Text(from.suffix), style_.number_separator, text_);
  });
  const auto write_part = [&](ColumnHandle twin, ColumnHandle part) {
    if (parts == NullParts::kBecomeEmpty) {
      Text(twin, row.Text(part));
    } else {
      Copy(twin, row, part);
    }
  };
  write_part(to.prefix_twin, from.prefix);
  write_part(to.suffix_twin, from.suffix);
}

void ReportWriter::Rule(const RuleColumn& rule) {
  text_.assign(rule.width, '_');
  Text(rule.column, text_);
}

double ReportWriter::Scaled(const Variant& amount) const {
  if (style_.scale == 0) {
    throw Error(ErrorNumber::kDivisionByZero,
                "division by zero: money is divided by sngScale, which is 0; 1 shows it as it is");
  }
  return amount.ToDouble() / style_.scale;
}

std::string ReportWriter::NumberText(const Variant& value) const {
  return FormatQuantityText(style_.locale, value);
}

std::string ReportWriter::MoneyText(const Variant& amount) const {
  return FormatCurrencyText(style_.locale, amount);
}

std::string ReportWriter::DateText(const Variant& date) const {
  return FormatDateText(style_.locale, date.ToDate(), style_.long_date);
}

RecordsetPtr ReportWriter::Finish() {
  EndLine();
  if (!rowset_->Eof() || !rowset_->Bof()) rowset_->MoveFirst();
  return rowset_;
}

}  // namespace pstolvane1
