#include "session/rowset/SheetCells.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <optional>
#include <string_view>

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

constexpr const char* kDay = "yyyy\\-mm\\-dd";
constexpr const char* kDayAndTime = "yyyy\\-mm\\-dd hh:mm:ss";
constexpr const char* kPercent = "0.00%";
constexpr double kHundred = 100;
constexpr int kMoneyDecimals = 4;

std::string Quoted(std::string_view text) {
  std::string plain(text);
  std::erase(plain, '"');
  return plain.empty() ? plain : '"' + plain + '"';
}

// The separators are the reader's; the grouping is ours.
std::string Digits(const Locale& locale, int decimals) {
  const bool indian = locale.FormatNumber(1e5).starts_with("1,00,");
  std::string digits = indian ? "#,##,##0" : "#,##0";
  if (decimals > 0) digits += "." + std::string(static_cast<std::size_t>(decimals), '0');
  return digits;
}

std::string MoneyFormat(const Locale& locale) {
  const Locale::CurrencyAffixes affixes = locale.Affixes();
  return Quoted(affixes.prefix) + Digits(locale, affixes.decimals) + Quoted(affixes.suffix);
}

// The day as the text in the locale's short format, or none.
std::optional<double> DayOf(const std::string& text, const Locale& locale) {
  if (text.empty() || text.front() < '0' || text.front() > '9') return std::nullopt;
  if (text.find_first_of("/.-") == std::string::npos) return std::nullopt;
  try {
    const Date day = locale.ParseShortDate(text);
    if (locale.FormatGeneralDate(day) == text) return day.Serial();
  } catch (const Error&) {
    return std::nullopt;
  }
  return std::nullopt;
}

struct Amount {
  double value;
  std::string format;
};

std::optional<Amount> AmountOf(std::string_view text, const Locale& locale) {
  if (const auto number = locale.ReadNumber(text)) return Amount{*number, Digits(locale, 2)};
  if (const auto money = locale.ReadCurrency(text)) return Amount{*money, MoneyFormat(locale)};
  return std::nullopt;
}

std::optional<double> WholeOf(std::string_view text) {
  constexpr std::size_t kExact = 15;
  const bool whole = !text.empty() && text.size() <= kExact &&
                     (text.front() != '0' || text.size() == 1) &&
                     std::ranges::all_of(text, [](char c) { return '0' <= c && c <= '9'; });
  if (!whole) return std::nullopt;
  return std::stod(std::string(text));
}

// An amount, and a unit behind it: "12.50 Nos", "12.50/Nos", "@ ₹12.50/Nos".
std::optional<Amount> AmountWithUnit(std::string_view text, const Locale& locale) {
  std::string_view before;
  if (text.starts_with("@ ")) {
    before = text.substr(0, 2);
    text.remove_prefix(2);
  }
  for (const char sign : {' ', '/'}) {
    const std::size_t end = text.find(sign);
    if (end == std::string_view::npos) continue;
    auto amount = AmountOf(text.substr(0, end), locale);
    if (!amount) continue;
    amount->format = Quoted(before) + amount->format + Quoted(text.substr(end));
    return amount;
  }
  return std::nullopt;
}

}  // namespace

SheetCell CellOf(const std::string& text, const Locale& locale) {
  if (text.empty()) return {};
  if (const auto amount = AmountOf(text, locale)) return {amount->value, amount->format};
  if (text.ends_with('%')) {
    if (const auto percent = locale.ReadNumber(std::string_view(text).substr(0, text.size() - 1))) {
      return {*percent / kHundred, kPercent};
    }
  }
  if (const auto day = DayOf(text, locale)) {
    return {*day, *day == std::floor(*day) ? kDay : kDayAndTime};
  }
  if (const auto whole = WholeOf(text)) return {*whole, "0"};
  if (const auto amount = AmountWithUnit(text, locale)) return {amount->value, amount->format};
  return {text, "@"};
}

SheetCell CellOf(const Recordset::Row& row, ColumnHandle column, DataType type,
                 const Locale& locale) {
  if (row.IsNull(column)) return {};
  switch (type) {
    case adInteger:
    case adBigInt: {
      // A sheet's numbers have 15 figures; a longer key would become another one.
      constexpr std::int64_t kExact = 999'999'999'999'999;
      const std::int64_t whole = row[column].ToInt64();
      if (whole > kExact || whole < -kExact) return {std::to_string(whole), "@"};
      return {static_cast<double>(whole), "0"};
    }
    case adSingle:  // the shortest decimal that reads back to it
      return {std::stod(fmt::format("{}", row[column].ToSingle())), ""};
    case adDouble:
      return {row[column].ToDouble(), ""};
    case adCurrency:
      return {row[column].ToCurrency().ToDouble(), Digits(locale, kMoneyDecimals)};
    case adDate: {
      const double day = row[column].ToDate().Serial();
      if (day < 61) return {row[column].ToDate().ToIso(), "@"};  // sheets differ before March 1900
      return {day, day == std::floor(day) ? kDay : kDayAndTime};
    }
    case adBoolean:
      return {row[column].ToBoolean().IsSet(), ""};
    default:
      return {std::string(row.Text(column)), "@"};
  }
}

SheetCell CellOf(const ReportView& view, const ReportView::Line& line, std::size_t column,
                 const Recordset& rowset) {
  const ColumnHandle handle = view.Columns()[column].handle;
  const DataType type = rowset.Columns()[static_cast<std::size_t>(handle)].type;
  if (type == adBSTR) return CellOf(line.cells[column], view.TheLocale());
  if (!line.row) return {};
  return CellOf(rowset.RowAt(*line.row), handle, type, view.TheLocale());
}

bool IsDay(const SheetCell& cell) { return cell.format == kDay || cell.format == kDayAndTime; }

std::string PlainText(const SheetCell& cell) {
  if (const auto* text = std::get_if<std::string>(&cell.value)) return *text;
  if (const auto* flag = std::get_if<bool>(&cell.value)) return *flag ? "-1" : "0";
  if (const auto* number = std::get_if<double>(&cell.value)) {
    if (IsDay(cell)) return Date(*number).ToIso();
    return fmt::format("{:.15g}", cell.format == kPercent ? *number * kHundred : *number);
  }
  return {};
}

}  // namespace pstolvane1
