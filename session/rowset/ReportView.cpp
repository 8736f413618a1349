#include "session/rowset/ReportView.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <string_view>
#include <utility>

#include "session/data/ThreadWork.h"

namespace pstolvane1 {
namespace {

bool EndsWith(std::string_view name, std::string_view ending) {
  const auto same = [](char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) ==
           std::tolower(static_cast<unsigned char>(b));
  };
  return name.size() >= ending.size() &&
         std::equal(ending.rbegin(), ending.rend(), name.rbegin(), same);
}

bool IsRule(std::string_view text) {
  return !text.empty() && text.find_first_not_of('_') == std::string_view::npos;
}

bool IsNumberType(DataType type) {
  return type == adInteger || type == adSingle || type == adDouble || type == adCurrency ||
         type == adBigInt;
}

// "12.50", "₹12.50", "12.50 Nos" and "12.50%".
bool LooksNumeric(std::string_view text, const Locale& locale) {
  if (text.ends_with('%')) text.remove_suffix(1);
  return locale.ReadNumber(text) || locale.ReadCurrency(text) ||
         locale.ReadNumber(text.substr(0, text.find(' ')));
}

std::string CellText(const Recordset::Row& row, ColumnHandle handle, DataType type,
                     const Locale& locale) {
  if (row.IsNull(handle)) return {};
  switch (type) {
    case adBSTR:
    case adVarChar:
      return std::string(row.Text(handle));
    case adCurrency:
      return locale.FormatCurrency(row[handle].ToCurrency());
    case adDate:
      return locale.FormatGeneralDate(row[handle].ToDate());
    default:
      return row[handle].ToText();
  }
}

// The texts of one column, top to bottom, and what they have in common.
struct ColumnTexts {
  ReportView::Column column;
  std::vector<std::string> texts;
  bool content = false;     // anything but rules
  bool only_rules = false;  // rules and nothing else

  void Judge(DataType type, const Locale& locale) {
    bool rules = false;
    for (const std::string& text : texts) {
      if (text.empty()) continue;
      if (IsRule(text)) {
        rules = true;
        continue;
      }
      content = true;
      column.numeric = column.numeric && (IsNumberType(type) || LooksNumeric(text, locale));
    }
    only_rules = rules && !content;
  }
};

ReportView::Line LineOf(const std::vector<ColumnTexts>& columns, std::size_t row, bool report) {
  ReportView::Line line{ReportView::LineKind::kSpacer, {}};
  bool rule = false;
  bool content = false;
  for (const ColumnTexts& column : columns) {
    const std::string& text = column.texts[row];
    const bool is_rule = report && IsRule(text);
    rule = rule || is_rule;
    content = content || (!text.empty() && !is_rule);
    if (column.content || (!report && column.only_rules)) {
      line.cells.push_back(is_rule ? std::string() : text);
    }
  }
  using enum ReportView::LineKind;
  if (content) {
    line.kind = rule ? kTotal : kLine;
  } else if (rule) {
    line.kind = kRule;
  }
  return line;
}

}  // namespace

ReportView::ReportView(const Recordset& rowset, std::shared_ptr<const Locale> locale)
    : locale_(std::move(locale)) {
  const bool report = rowset.HasColumn("DummySort");
  const WorkInHand in_hand;
  std::vector<ColumnTexts> columns;
  for (const ColumnInfo& info : rowset.Columns()) {
    const bool hidden = report && (EndsWith(info.name, "Sort") || EndsWith(info.name, "_Id"));
    if (hidden || info.type == adChapter) continue;
    ColumnTexts& column = columns.emplace_back();
    column.column = {info.name, rowset.Column(info.name), true};
    for (const Recordset::Row row : rowset.Rows()) {
      in_hand.Check();
      column.texts.push_back(CellText(row, column.column.handle, info.type, *locale_));
    }
    column.Judge(info.type, *locale_);
  }
  const std::size_t rows = columns.empty() ? 0 : columns.front().texts.size();
  for (std::size_t row = 0; row < rows; ++row) {
    in_hand.Check();
    lines_.push_back(LineOf(columns, row, report));
  }
  for (ColumnTexts& column : columns) {
    if (column.content || (!report && column.only_rules)) {
      columns_.push_back(std::move(column.column));
    }
  }
}

}  // namespace pstolvane1
