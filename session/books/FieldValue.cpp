#include "session/books/FieldValue.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

#include "session/data/Currency.h"
#include "session/data/Date.h"
#include "session/data/Error.h"

namespace pstolvane1::books {
namespace {

template <typename Number, typename... Form>
std::optional<Number> WholeOf(std::string_view text, Form... form) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [rest, failure] = std::from_chars(text.data(), end, number, form...);
  if (failure != std::errc() || rest != end) return std::nullopt;
  return number;
}

std::optional<bool> FlagOf(std::string_view text) {
  std::string folded(text);
  std::ranges::transform(folded, folded.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  if (folded == "true" || folded == "1" || folded == "-1") return true;
  if (folded == "false" || folded == "0") return false;
  return std::nullopt;
}

std::optional<double> QuantityOf(std::string_view text) {
  // The fixed form of a number also spells infinity and what is no number.
  if (text.find_first_not_of("0123456789.-") != std::string_view::npos) return std::nullopt;
  return WholeOf<double>(text, std::chars_format::fixed);
}

std::optional<Currency> AmountOf(std::string_view text) {
  try {
    return Currency::FromText(text);
  } catch (const Error&) {
    return std::nullopt;
  }
}

std::size_t Characters(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

template <typename Value>
std::string BindIf(const std::optional<Value>& value, Statement& statement, int place,
                   const CsvField& field, std::string_view wanted) {
  if (!value) return "\"" + field.text + "\" is not " + std::string(wanted);
  statement.Bind(place, *value);
  return "";
}

std::string BindDate(const CsvField& field, bool with_time, Statement& statement, int place) {
  const auto date = Date::FromIso(field.text);
  if (!date || (!with_time && field.text.size() != 10)) {
    return "\"" + field.text + "\" is not " +
           (with_time ? "an ISO date, with or without a time" : "an ISO date, as 2004-03-31");
  }
  // Bound through the field's own text, which outlives this call; other spellings of a time are
  // brought to the one that the books keep.
  if (date->ToIso() == field.text) {
    statement.Bind(place, std::string_view(field.text));
  } else {
    statement.BindCopy(place, date->ToIso());
  }
  return "";
}

std::string BindText(const CsvField& field, int size, Statement& statement, int place) {
  const std::size_t length = Characters(field.text);
  if (length > static_cast<std::size_t>(size)) {
    return "the text has " + std::to_string(length) + " characters and the column takes " +
           std::to_string(size);
  }
  statement.Bind(place, std::string_view(field.text));
  return "";
}

}  // namespace

std::string BindField(const CsvField& field, const Column& column, Statement& statement,
                      int place) {
  if (field.text.empty() && (!field.quoted || column.kind != ColumnKind::kText)) {
    if (column.kind == ColumnKind::kKey) return "a key may not be empty";
    statement.Bind(place, std::nullopt);
    return "";
  }
  switch (column.kind) {
    case ColumnKind::kKey:
    case ColumnKind::kWhole:
      return BindIf(WholeOf<std::int32_t>(field.text), statement, place, field,
                    "a whole number of 32 bits");
    case ColumnKind::kFlag:
      return BindIf(FlagOf(field.text), statement, place, field, "a flag: true, false, 1, 0 or -1");
    case ColumnKind::kSingle:
      return BindIf(QuantityOf(field.text), statement, place, field, "a number");
    case ColumnKind::kMoney:
      return BindIf(AmountOf(field.text), statement, place, field,
                    "an amount of at most four decimals");
    case ColumnKind::kDate:
      return BindDate(field, false, statement, place);
    case ColumnKind::kDateTime:
      return BindDate(field, true, statement, place);
    case ColumnKind::kText:
      break;
  }
  return BindText(field, column.size, statement, place);
}

}  // namespace pstolvane1::books
