#include "tests/sql/model/Value.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>

#include "session/data/Error.h"

namespace pstolvane1::sql::model {
namespace {

[[noreturn]] void Overflow() { throw Error(ErrorNumber::kOverflow, "model: overflow"); }
[[noreturn]] void Mismatch() { throw Error(ErrorNumber::kTypeMismatch, "model: type mismatch"); }
[[noreturn]] void ZeroDivide() { throw Error(ErrorNumber::kDivisionByZero, "model: by zero"); }

bool IsInexact(Type type) { return type == Type::kSingle || type == Type::kReal; }

Kind Limited(int digits, int places) {
  if (digits > 38) {
    const int lead = digits - places;
    places = std::max(std::min(places, 38 - lead), std::min(places, 6));
    digits = 38;
  }
  return {Type::kDecimal, digits, places};
}

// Scaled to ten-thousandths and rounded half to even, once, as money always is.
Value MoneyFromDouble(double amount) {
  const double scaled = std::nearbyint(amount * 10'000.0);
  if (!(std::abs(scaled) < 9.2e18)) Overflow();
  return Value::Exact(static_cast<Int128>(scaled));
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

Value WholeFromText(const std::string& text, const Kind& to) {
  const std::string digits = Trimmed(text);
  const std::size_t begin = !digits.empty() && (digits[0] == '-' || digits[0] == '+') ? 1 : 0;
  if (digits.find_first_not_of("0123456789", begin) != std::string::npos) Mismatch();
  if (digits.size() > 30 || (begin == 1 && digits.size() == 1)) Mismatch();
  Int128 number = 0;
  for (std::size_t i = begin; i < digits.size(); ++i) number = number * 10 + (digits[i] - '0');
  return Fitting(!digits.empty() && digits[0] == '-' ? -number : number, to);
}

std::string WholeText(Int128 number) {
  std::string digits;
  const bool negative = number < 0;
  for (Int128 rest = negative ? -number : number; rest > 0 || digits.empty(); rest /= 10) {
    digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(rest % 10)));
  }
  return (negative ? "-" : "") + digits;
}

Value DecimalOf(const Value& value, const Kind& from, const Kind& to) {
  if (IsInexact(from.type)) {
    return Fitting(static_cast<Int128>(std::llround(value.real * std::pow(10.0, to.places))), to);
  }
  const int have = AsDecimal(from).places;
  const Int128 number = have <= to.places ? value.exact * PowerOfTen(to.places - have)
                                          : Rounded(value.exact, PowerOfTen(have - to.places));
  return Fitting(number, to);
}

Value WholeOf(const Value& value, const Kind& from, const Kind& to) {
  switch (from.type) {
    case Type::kText:
      return WholeFromText(value.text, to);
    case Type::kMoney:
      return Fitting(Rounded(value.exact, 10'000), to);
    case Type::kDecimal:
      return Fitting(value.exact / PowerOfTen(from.places), to);
    case Type::kSingle:
    case Type::kReal:
      if (!(std::abs(value.real) < 9.3e18)) Overflow();
      return Fitting(static_cast<Int128>(value.real), to);
    default:
      return Fitting(value.exact, to);
  }
}

Value MoneyOf(const Value& value, const Kind& from) {
  switch (from.type) {
    case Type::kMoney:
      return value;
    case Type::kFlag:
    case Type::kWhole:
    case Type::kBigWhole:
      return Fitting(value.exact * 10'000, {Type::kMoney});
    default:
      return MoneyFromDouble(ToDouble(value, from));
  }
}

Value FlagOf(const Value& value, const Kind& from) {
  return Value::Exact(ToDouble(value, from) != 0.0 ? 1 : 0);
}

Value DateOf(const Value& value, const Kind& from, const Kind& to) {
  const Value date = from.type == Type::kText ? DateFromText(value.text) : value;
  return to.timed ? date : Value::Exact(date.exact - date.exact % kMillisecondsOfDay);
}

Value TextOf(const Value& value, const Kind& from) {
  switch (from.type) {
    case Type::kText:
      return value;
    case Type::kFlag:
    case Type::kWhole:
    case Type::kBigWhole:
      return Value::Text(WholeText(value.exact));
    case Type::kMoney: {
      const Int128 hundredths = Rounded(value.exact, 100);
      const Int128 size = hundredths < 0 ? -hundredths : hundredths;
      const std::string cents = WholeText(size % 100);
      return Value::Text((hundredths < 0 ? "-" : "") + WholeText(size / 100) + "." +
                         (cents.size() < 2 ? "0" : "") + cents);
    }
    default:
      Mismatch();
  }
}

Int128 Absolute(Int128 number) { return number < 0 ? -number : number; }

Value ComputeExact(ArithmeticOp op, Int128 a, Int128 b, const Kind& kind) {
  switch (op) {
    case ArithmeticOp::kAdd:
      return Fitting(a + b, kind);
    case ArithmeticOp::kSubtract:
      return Fitting(a - b, kind);
    case ArithmeticOp::kMultiply:
      return Fitting(a * b, kind);
    case ArithmeticOp::kDivide:
      if (b == 0) ZeroDivide();
      return Fitting(a / b, kind);
    case ArithmeticOp::kModulo:
      if (b == 0) ZeroDivide();
      return Fitting(a % b, kind);
  }
  return {};
}

double ComputeDouble(ArithmeticOp op, double a, double b) {
  switch (op) {
    case ArithmeticOp::kAdd:
      return a + b;
    case ArithmeticOp::kSubtract:
      return a - b;
    case ArithmeticOp::kMultiply:
      return a * b;
    default:
      if (b == 0) ZeroDivide();
      return a / b;
  }
}

Value ComputeMoney(ArithmeticOp op, const Value& a, const Kind& kind_a, const Value& b,
                   const Kind& kind_b) {
  if (op == ArithmeticOp::kAdd || op == ArithmeticOp::kSubtract) {
    return ComputeExact(op, MoneyOf(a, kind_a).exact, MoneyOf(b, kind_b).exact, {Type::kMoney});
  }
  return MoneyFromDouble(ComputeDouble(op, ToDouble(a, kind_a), ToDouble(b, kind_b)));
}

Value ComputeDecimal(ArithmeticOp op, const Value& a, const Kind& kind_a, const Value& b,
                     const Kind& kind_b, const Kind& kind) {
  const int places_a = AsDecimal(kind_a).places;
  const int places_b = AsDecimal(kind_b).places;
  if (op == ArithmeticOp::kMultiply) {
    const Kind exact{Type::kDecimal, 38, places_a + places_b};
    return DecimalOf(Fitting(a.exact * b.exact, exact), exact, kind);
  }
  if (op == ArithmeticOp::kDivide) {
    if (b.exact == 0) ZeroDivide();
    return Fitting(a.exact * PowerOfTen(kind.places + places_b - places_a) / b.exact, kind);
  }
  const int places = std::max(places_a, places_b);
  const Kind exact{Type::kDecimal, 38, places};
  const Value sum = ComputeExact(op, a.exact * PowerOfTen(places - places_a),
                                 b.exact * PowerOfTen(places - places_b), exact);
  return DecimalOf(sum, exact, kind);
}

bool Matches(const std::string& text, std::size_t t, const std::string& pattern, std::size_t p,
             char escape);

// A set in brackets at p: whether it takes the letter, and where the pattern goes on.
bool SetTakes(const std::string& pattern, std::size_t& p, char letter) {
  std::size_t at = p + 1;
  const bool negated = pattern[at] == '^';
  if (negated) ++at;
  bool found = false;
  for (; pattern[at] != ']'; ++at) {
    if (pattern[at + 1] == '-' && pattern[at + 2] != ']') {
      found = found || (pattern[at] <= letter && letter <= pattern[at + 2]);
      at += 2;
    } else {
      found = found || pattern[at] == letter;
    }
  }
  p = at + 1;
  return found != negated;
}

bool Matches(const std::string& text, std::size_t t, const std::string& pattern, std::size_t p,
             char escape) {
  if (p == pattern.size()) return text.find_first_not_of(' ', t) == std::string::npos;
  if (escape != '\0' && pattern[p] == escape && p + 1 < pattern.size()) {
    return t < text.size() && text[t] == pattern[p + 1] &&
           Matches(text, t + 1, pattern, p + 2, escape);
  }
  if (pattern[p] == '%') {
    for (std::size_t rest = t; rest <= text.size(); ++rest) {
      if (Matches(text, rest, pattern, p + 1, escape)) return true;
    }
    return false;
  }
  if (t == text.size()) return false;
  if (pattern[p] == '[' && pattern.find(']', p) != std::string::npos) {
    return SetTakes(pattern, p, text[t]) && Matches(text, t + 1, pattern, p, escape);
  }
  return (pattern[p] == '_' || pattern[p] == text[t]) &&
         Matches(text, t + 1, pattern, p + 1, escape);
}

std::string Lower(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return text;
}

}  // namespace

Int128 PowerOfTen(int exponent) {
  Int128 power = 1;
  for (int i = 0; i < exponent; ++i) power *= 10;
  return power;
}

Int128 Rounded(Int128 number, Int128 divisor) {
  const Int128 rest = number % divisor;
  const Int128 whole = number / divisor;
  if (2 * Absolute(rest) < divisor) return whole;
  return number < 0 ? whole - 1 : whole + 1;
}

double ToDouble(const Value& number, const Kind& kind) {
  if (IsInexact(kind.type)) return number.real;
  const int places = AsDecimal(kind).places;
  return static_cast<double>(static_cast<long double>(number.exact) /
                             static_cast<long double>(PowerOfTen(places)));
}

Value DateFromText(const std::string& text) {
  int year = 0;
  unsigned month = 0;
  unsigned day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
  const std::string date = Trimmed(text);
  const bool american = date.find('/') != std::string::npos;
  const int read = american ? std::sscanf(date.c_str(), "%u/%u/%d", &month, &day, &year)
                            : std::sscanf(date.c_str(), "%d-%u-%u %d:%d:%d", &year, &month, &day,
                                          &hour, &minute, &second);
  const std::chrono::year_month_day calendar{std::chrono::year(year), std::chrono::month(month),
                                             std::chrono::day(day)};
  if (read < 3 || !calendar.ok()) Mismatch();
  const Int128 days = std::chrono::sys_days(calendar).time_since_epoch().count();
  return Value::Exact(days * kMillisecondsOfDay +
                      (hour * 3600 + minute * 60 + second) * Int128{1000});
}

std::string IsoText(const Value& date) {
  const auto all = static_cast<std::int64_t>(date.exact);
  const std::chrono::milliseconds moment(all);
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day calendar{std::chrono::sys_days(day)};
  const std::chrono::hh_mm_ss time(moment - day);
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(calendar.year()),
                static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()));
  std::string iso = text;
  if (moment != day) {
    std::snprintf(text, sizeof text, " %02d:%02d:%02d", static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    iso += text;
  }
  return iso;
}

Kind AsDecimal(const Kind& kind) {
  switch (kind.type) {
    case Type::kFlag:
      return {Type::kDecimal, 1, 0};
    case Type::kWhole:
      return {Type::kDecimal, kind.digits > 0 ? kind.digits : 10, 0};
    case Type::kBigWhole:
      return {Type::kDecimal, 19, 0};
    case Type::kMoney:
      return {Type::kDecimal, 19, 4};
    default:
      return kind;
  }
}

Kind Plain(const Kind& kind) {
  Kind plain = kind;
  if (kind.type != Type::kDecimal) plain.digits = 0;
  return plain;
}

Kind Common(const Kind& a, const Kind& b) {
  if (a.type == Type::kDecimal || b.type == Type::kDecimal) {
    const bool both = a.type >= Type::kFlag && a.type <= Type::kDecimal && b.type >= Type::kFlag &&
                      b.type <= Type::kDecimal;
    if (both) {
      const Kind x = AsDecimal(a);
      const Kind y = AsDecimal(b);
      const int places = std::max(x.places, y.places);
      return Limited(std::max(x.digits - x.places, y.digits - y.places) + places, places);
    }
  }
  Kind common = Plain(a.type > b.type ? a : b);
  if (a.type == b.type) {
    common.size = std::max(a.size, b.size);
    common.timed = a.timed || b.timed;
  }
  return common;
}

Kind KindOfArithmetic(ArithmeticOp op, const Kind& a, const Kind& b) {
  Kind high = Plain(a.type > b.type ? a : b);
  if (high.type == Type::kNull) return {Type::kWhole};
  if (high.type == Type::kText) high.size = a.size + b.size;
  if (high.type != Type::kDecimal) return high;
  if (a.type < Type::kFlag || b.type < Type::kFlag) return high;
  const Kind x = AsDecimal(a);
  const Kind y = AsDecimal(b);
  const int places = std::max(x.places, y.places);
  switch (op) {
    case ArithmeticOp::kMultiply:
      return Limited(x.digits + y.digits + 1, x.places + y.places);
    case ArithmeticOp::kDivide: {
      const int kept = std::max(6, x.places + y.digits + 1);
      return Limited(x.digits - x.places + y.places + kept, kept);
    }
    default:
      return Limited(std::max(x.digits - x.places, y.digits - y.places) + places + 1, places);
  }
}

Value Fitting(Int128 number, const Kind& kind) {
  Int128 most = 0;
  switch (kind.type) {
    case Type::kWhole:
      most = std::numeric_limits<std::int32_t>::max();
      break;
    case Type::kDecimal:
      most = PowerOfTen(kind.digits) - 1;
      if (number < -most) Overflow();
      break;
    default:
      most = std::numeric_limits<std::int64_t>::max();
      break;
  }
  if (number > most || number < -most - 1) Overflow();
  return Value::Exact(number);
}

Value Convert(const Value& value, const Kind& from, const Kind& to) {
  if (value.null) return {};
  switch (to.type) {
    case Type::kNull:
      return value;
    case Type::kText:
      return TextOf(value, from);
    case Type::kFlag:
      return FlagOf(value, from);
    case Type::kWhole:
    case Type::kBigWhole:
      return WholeOf(value, from, to);
    case Type::kMoney:
      return MoneyOf(value, from);
    case Type::kDecimal:
      return DecimalOf(value, from, to);
    case Type::kSingle:
    case Type::kReal:
      return Value::Real(ToDouble(value, from));
    case Type::kDate:
      return DateOf(value, from, to);
  }
  return {};
}

Value Compute(ArithmeticOp op, const Value& a, const Kind& kind_a, const Value& b,
              const Kind& kind_b) {
  if (a.null || b.null) return {};
  const Kind kind = KindOfArithmetic(op, kind_a, kind_b);
  switch (kind.type) {
    case Type::kText:
      return Value::Text(a.text + b.text);
    case Type::kMoney:
      return ComputeMoney(op, a, kind_a, b, kind_b);
    case Type::kDecimal:
      return ComputeDecimal(op, a, kind_a, b, kind_b, kind);
    case Type::kSingle:
    case Type::kReal:
      return Value::Real(ComputeDouble(op, ToDouble(a, kind_a), ToDouble(b, kind_b)));
    default:
      return ComputeExact(op, a.exact, b.exact, kind);
  }
}

Value Negate(const Value& value, const Kind& kind) {
  if (value.null) return {};
  return IsInexact(kind.type) ? Value::Real(-value.real) : Fitting(-value.exact, kind);
}

std::string Folded(const std::string& text) {
  const std::size_t last = text.find_last_not_of(' ');
  return last == std::string::npos ? std::string() : Lower(text.substr(0, last + 1));
}

int Order(const Value& a, const Value& b, const Kind& kind) {
  const auto three_way = [](const auto& x, const auto& y) { return x < y ? -1 : y < x ? 1 : 0; };
  if (a.null || b.null) return three_way(!a.null, !b.null);
  if (kind.type == Type::kText) return three_way(Folded(a.text), Folded(b.text));
  return IsInexact(kind.type) ? three_way(a.real, b.real) : three_way(a.exact, b.exact);
}

bool IsLike(const std::string& text, const std::string& pattern, char escape) {
  return Matches(Lower(text), 0, Lower(pattern), 0, escape);
}

}  // namespace pstolvane1::sql::model
