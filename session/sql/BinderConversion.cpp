#include <algorithm>
#include <charconv>

#include "session/sql/Binder.h"
#include "session/sql/DateText.h"
#include "session/sql/Names.h"

namespace pstolvane1::sql {
namespace {

constexpr std::string_view kDigits = "0123456789";

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

// A sign and what stands behind it.
struct Signed {
  bool negative = false;
  std::string_view rest;
};
Signed ReadSign(std::string_view text) {
  Signed read{false, Trimmed(text)};
  if (!read.rest.empty() && (read.rest.front() == '-' || read.rest.front() == '+')) {
    read.negative = read.rest.front() == '-';
    read.rest.remove_prefix(1);
  }
  return read;
}

bool IsWholeText(std::string_view digits) {
  return !digits.empty() && digits.find_first_not_of(kDigits) == std::string_view::npos;
}

bool IsPlainText(std::string_view number) {
  const std::size_t point = number.find('.');
  if (point == std::string_view::npos) return IsWholeText(number);
  const std::string_view whole = number.substr(0, point);
  const std::string_view places = number.substr(point + 1);
  return whole.size() + places.size() > 0 && (whole.empty() || IsWholeText(whole)) &&
         (places.empty() || IsWholeText(places));
}

bool IsRealText(std::string_view number) {
  double read = 0;
  if (number.empty() || (number.front() != '.' && !IsWholeText(number.substr(0, 1)))) return false;
  const auto end = std::from_chars(number.data(), number.data() + number.size(), read);
  return end.ec == std::errc() && end.ptr == number.data() + number.size();
}

template <typename Whole>
bool Fits(std::string_view digits, bool negative) {
  const std::string text = (negative ? "-" : "") + std::string(digits);
  Whole number = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
  return end.ec == std::errc();
}

// ".5" and "5." get digits on both sides.
std::string WithBothSides(std::string_view number) {
  std::string text(number);
  const std::size_t point = text.find('.');
  if (point == std::string::npos) return text;
  if (point + 1 == text.size() || !IsWholeText(text.substr(point + 1, 1))) {
    text.insert(point + 1, "0");
  }
  if (point == 0) text.insert(0, "0");
  return text;
}

// The digits of a text that stands for a number of that type; empty for one that does not.
std::optional<std::string> ReadNumberText(const Signed& text, Type type) {
  if (text.rest.empty() && type != Type::kDecimal) return "0";
  switch (type) {
    case Type::kWhole:
      if (!IsWholeText(text.rest) || !Fits<std::int32_t>(text.rest, text.negative)) break;
      return std::string(text.rest);
    case Type::kBigWhole:
      if (!IsWholeText(text.rest) || !Fits<std::int64_t>(text.rest, text.negative)) break;
      return std::string(text.rest);
    case Type::kMoney: {
      std::string digits(text.rest);
      std::erase(digits, ',');
      const std::size_t point = digits.find('.');
      const bool fits = point == std::string::npos || digits.size() - point <= 5;
      if (!IsPlainText(digits) || !fits) break;
      return WithBothSides(digits);
    }
    case Type::kDecimal:
      if (!IsPlainText(text.rest)) break;
      return WithBothSides(text.rest);
    case Type::kSingle:
    case Type::kReal:
      if (!IsRealText(text.rest)) break;
      return WithBothSides(text.rest);
    default:
      break;
  }
  return std::nullopt;
}

std::optional<std::string> ReadFlagText(std::string_view text) {
  const std::string word = FoldedName(Trimmed(text));
  if (word == "true") return "1";
  if (word == "false" || word.empty()) return "0";
  const Signed number = ReadSign(word);
  if (!IsWholeText(number.rest)) return std::nullopt;
  return number.rest.find_first_not_of('0') == std::string_view::npos ? "0" : "1";
}

// Whether every value of an exact type is one of the decimals of a type.
bool FitsDecimal(const ValueType& exact, const ValueType& decimal) {
  if (decimal.type != Type::kDecimal || exact.type > Type::kDecimal) return false;
  const ValueType own = AsDecimal(exact);
  return own.places <= decimal.places && own.digits - own.places <= decimal.digits - decimal.places;
}

// -1 is 1, as a flag counts it: 0 and 1, or nothing for any other value.
std::optional<std::string> FlagOfNumber(const bound::Expr& value) {
  const bound::Expr* number = &value;
  if (const auto* negate = value.As<bound::Negate>()) number = negate->operand.get();
  const auto* literal = number->As<bound::Literal>();
  if (literal == nullptr || literal->is_null || number->type.type != Type::kWhole) {
    return std::nullopt;
  }
  if (literal->text != "0" && literal->text != "1") return std::nullopt;
  return literal->text;
}

}  // namespace

bound::ExprPtr Binder::ConvertLiteral(bound::ExprPtr value, const ValueType& target) {
  auto& literal = std::get<bound::Literal>(value->node);
  if (literal.is_null) {
    value->type = target;
    return value;
  }
  const std::string shown = "'" + literal.text + "'";
  if (value->type.type == Type::kText && target.type == Type::kDate) {
    const auto date = ReadDateText(literal.text);
    if (!date) {
      Refuse(value->place, "the text " + shown +
                               " is compared with a date and is none: write MM/dd/yyyy or "
                               "yyyy-MM-dd");
    }
    literal.text = target.has_time ? *date : date->substr(0, 10);
    value->type = target;
    return value;
  }
  if (value->type.type == Type::kText && IsNumber(target.type)) {
    const Signed text = ReadSign(literal.text);
    auto number =
        target.type == Type::kFlag ? ReadFlagText(literal.text) : ReadNumberText(text, target.type);
    if (!number) Refuse(value->place, "the text " + shown + " is no " + NameOf(target));
    literal.text = std::move(*number);
    value->type = target;
    if (!text.negative || target.type == Type::kFlag) return value;
    const Place place = value->place;
    return MakeExpr(bound::Negate{std::move(value)}, target, place);
  }
  if (target.type == Type::kFlag && value->type.type == Type::kWhole) {
    literal.text = literal.text == "0" ? "0" : "1";
    value->type = target;
    return value;
  }
  if (target.type == Type::kDecimal && !FitsDecimal(value->type, target)) {
    const Place decimal = value->place;
    return MakeExpr(bound::Convert{std::move(value), true}, target, decimal);
  }
  const bool widens = value->type.type == Type::kWhole ||
                      (value->type.type == Type::kDecimal && target.type > Type::kDecimal);
  if (widens && IsNumber(target.type) && target.type > value->type.type) {
    value->type = target.type == Type::kDecimal ? AsDecimal(value->type) : target;
    return value;
  }
  const Place place = value->place;
  return MakeExpr(bound::Convert{std::move(value)}, target, place);
}

bound::ExprPtr Binder::ConvertTo(bound::ExprPtr value, const ValueType& target) {
  const Type from = value->type.type;
  const bool cut = from == Type::kText && target.size != 0 &&
                   (value->type.size == 0 || value->type.size > target.size);
  const bool cut_date = from == Type::kDate && value->type.has_time && !target.has_time;
  const bool cut_decimal = from == Type::kDecimal && !FitsDecimal(value->type, target);
  if (from == target.type && !cut && !cut_date && !cut_decimal) return value;
  if (target.type == Type::kNull) return value;
  if ((from == Type::kDate && target.type < Type::kDate && target.type != Type::kText) ||
      (target.type == Type::kDate && IsNumber(from))) {
    Refuse(value->place, "type clash: " + NameOf(value->type) + " cannot become " + NameOf(target));
  }
  if (value->As<bound::Literal>() != nullptr) return ConvertLiteral(std::move(value), target);
  const Place place = value->place;
  // Exact numbers keep their own places where they become decimals that hold them all.
  ValueType type = target;
  const bool fits = FitsDecimal(value->type, target);
  if (fits && IsNumber(from)) type = AsDecimal(value->type);
  return MakeExpr(bound::Convert{std::move(value), target.type == Type::kDecimal && !fits}, type,
                  place);
}

bound::ExprPtr Binder::ToText(bound::ExprPtr value, std::string_view taker) {
  const Type type = value->type.type;
  if (type == Type::kText) return value;
  if (type == Type::kDate) {
    Refuse(value->place, std::string(taker) + " takes a text, not a date: cast it");
  }
  return ConvertTo(std::move(value), {Type::kText});
}

ValueType Binder::Unite(const std::vector<bound::ExprPtr*>& values, Place place,
                        std::string_view what) {
  ValueType common;
  for (const bound::ExprPtr* value : values) {
    const auto next = CommonType(common, (*value)->type);
    if (!next) {
      Refuse(place, "type clash: " + NameOf(common) + " and " + NameOf((*value)->type) + " in " +
                        std::string(what));
    }
    common = *next;
  }
  for (bound::ExprPtr* value : values) *value = ConvertTo(std::move(*value), common);
  return common;
}

void Binder::UniteCompared(const std::vector<bound::ExprPtr*>& values, Place place,
                           std::string_view what) {
  const bool flags = std::ranges::any_of(
      values, [](const bound::ExprPtr* value) { return (*value)->type.type == Type::kFlag; });
  const bool only_flags = std::ranges::all_of(values, [](const bound::ExprPtr* value) {
    return (*value)->type.type <= Type::kFlag || FlagOfNumber(**value);
  });
  if (flags && only_flags) {
    for (bound::ExprPtr* value : values) {
      if (const auto flag = FlagOfNumber(**value)) {
        *value = MakeExpr(bound::Literal{false, *flag}, {Type::kFlag}, (*value)->place);
      }
    }
  }
  Unite(values, place, what);
}

}  // namespace pstolvane1::sql
