#include "session/rowset/ReportView.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <utility>

#include "session/data/Error.h"
#include "session/data/ThreadWork.h"

namespace pstolvane1 {
namespace {

constexpr double kFloatNoise = 1e-5;

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

bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && EndsWith(a, b);
}

// "TotalValueIn" and "GrpValueIn" hold what belongs below or above the cells of "ValueIn".
std::string_view SummedBy(std::string_view name) {
  for (const std::string_view prefix : {std::string_view("Total"), std::string_view("Grp")}) {
    if (name.size() > prefix.size() && SameName(name.substr(0, prefix.size()), prefix)) {
      return name.substr(prefix.size());
    }
  }
  return {};
}

// Moves the sums into the column that they are of, where no line has both.
void StandBelow(ColumnTexts& sums, ColumnTexts& column) {
  for (std::size_t row = 0; row < column.texts.size(); ++row) {
    if (!column.texts[row].empty() && !sums.texts[row].empty()) return;
  }
  for (std::size_t row = 0; row < column.texts.size(); ++row) {
    if (!sums.texts[row].empty()) column.texts[row] = std::move(sums.texts[row]);
    sums.texts[row].clear();
  }
  column.column.numeric = column.column.numeric && sums.column.numeric;
  sums.content = false;
}

void StandSumsBelowTheirColumns(std::vector<ColumnTexts>& columns) {
  const auto with_content =
      std::ranges::find_if(columns, [](const ColumnTexts& one) { return one.content; });
  for (ColumnTexts& sums : columns) {
    if (!sums.content) continue;
    if (SameName(sums.column.name, "Total") && &sums != &*with_content) {
      StandBelow(sums, *with_content);  // the word itself, before the line
      continue;
    }
    const std::string_view summed = SummedBy(sums.column.name);
    const auto column = std::ranges::find_if(columns, [&](const ColumnTexts& one) {
      return one.content && !summed.empty() && SameName(one.column.name, summed);
    });
    if (column != columns.end()) StandBelow(sums, *column);
  }
}

// The lines of a stock statement whose closing quantity is not what came in less what went out.
std::size_t UnbalancedLines(const Recordset& report) {
  constexpr std::array kTwins = {"QtyOpSort", "QtyInSort", "QtyOutSort", "QtyClSort"};
  if (!std::ranges::all_of(kTwins, [&](const char* twin) { return report.HasColumn(twin); })) {
    return 0;
  }
  std::array<ColumnHandle, kTwins.size()> columns{};
  std::ranges::transform(kTwins, columns.begin(),
                         [&](const char* twin) { return report.Column(twin); });
  const WorkInHand in_hand;
  std::size_t lines = 0;
  for (const Recordset::Row row : report.Rows()) {
    in_hand.Check();
    std::array<double, kTwins.size()> quantity{};
    std::ranges::transform(columns, quantity.begin(), [&](ColumnHandle column) {
      return row.IsNull(column) ? 0.0 : row[column].ToDouble();
    });
    const auto& [opening, inwards, outwards, closing] = quantity;
    // Quantities are 32-bit floats.
    const double size = opening + inwards + outwards + 1;
    if (std::fabs(opening + inwards - outwards - closing) > size * kFloatNoise) ++lines;
  }
  return lines;
}

}  // namespace

ReportView::ReportView(const Recordset& rowset, std::shared_ptr<const Locale> locale)
    : locale_(std::move(locale)) {
  if (!locale_)
    throw Error(ErrorNumber::kObjectNotSet, "no locale was given to show the rowset in");
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
  if (report) StandSumsBelowTheirColumns(columns);
  const std::size_t rows = columns.empty() ? 0 : columns.front().texts.size();
  for (std::size_t row = 0; row < rows; ++row) {
    in_hand.Check();
    lines_.push_back(LineOf(columns, row, report));
  }
  if (const std::size_t unbalanced = report ? UnbalancedLines(rowset) : 0; unbalanced > 0) {
    notes_.push_back(
        "In " + std::to_string(unbalanced) + (unbalanced == 1 ? " line" : " lines") +
        " the closing quantity is not opening plus inwards less outwards: first in, first out "
        "holds the opening stock twice in it.");
  }
  for (ColumnTexts& column : columns) {
    if (column.content || (!report && column.only_rules)) {
      columns_.push_back(std::move(column.column));
    }
  }
}

}  // namespace pstolvane1
