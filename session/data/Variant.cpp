#include "session/data/Variant.h"

#include <array>

#include "session/data/Error.h"
#include "session/data/Number.h"
#include "session/data/TextFold.h"

namespace pstolvane1 {

namespace {

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

[[noreturn]] void RaiseNull(std::string_view target) {
  throw Error(ErrorNumber::kInvalidUseOfNull,
              "Null cannot be used as " + std::string(target) + ": no value is known");
}

[[noreturn]] void RaiseMismatch(std::string_view what, std::string_view target) {
  throw Error(ErrorNumber::kTypeMismatch,
              std::string(what) + " cannot be used as " + std::string(target));
}

std::string Quoted(std::string_view text) { return "the text \"" + std::string(text) + "\""; }

constexpr std::string_view kRowset = "a rowset";

Number NumberOfText(std::string_view text, std::string_view target) {
  const std::optional<Number> number = Number::FromText(text);
  if (!number) RaiseMismatch(Quoted(text), target);
  return *number;
}

constexpr std::string_view kNumber = "a number";

// The number that any value but a rowset stands for.
template <typename Value>
Number NumberOf(const Value& value) {
  return std::visit(
      Overloaded{
          [](std::monostate) { return Number(0); }, [](NullType) -> Number { RaiseNull(kNumber); },
          [](Boolean flag) { return Number(std::int32_t{flag.Raw()}); },
          [](float number) { return Number(static_cast<double>(number)); },
          [](Date date) { return Number(date.Serial()); },
          [](const std::string& text) { return NumberOfText(text, kNumber); },
          [](const std::shared_ptr<Recordset>&) -> Number { RaiseMismatch(kRowset, kNumber); },
          [](auto number) { return Number(number); }},
      value);
}

Date DateOfNumber(double serial) {
  const Date date(serial);
  static_cast<void>(date.ToParts());  // raises what is no date
  return date;
}

}  // namespace

Variant::Variant(const char* text) {
  if (!text) throw Error(ErrorNumber::kObjectNotSet, "no text was given");
  value_ = std::string(text);
}

DataType Variant::Type() const {
  static constexpr std::array<DataType, 11> kTypes = {adEmpty,  adEmpty,  adBoolean, adInteger,
                                                      adBigInt, adSingle, adDouble,  adCurrency,
                                                      adDate,   adBSTR,   adChapter};
  return kTypes[value_.index()];
}

std::int32_t Variant::ToInt32() const { return NumberOf(value_).ToInt32(); }
std::int64_t Variant::ToInt64() const { return NumberOf(value_).ToInt64(); }
float Variant::ToSingle() const { return NumberOf(value_).ToSingle(); }
double Variant::ToDouble() const { return NumberOf(value_).ToDouble(); }
Currency Variant::ToCurrency() const { return NumberOf(value_).ToCurrency(); }

Date Variant::ToDate() const {
  constexpr std::string_view kTarget = "a date";
  return std::visit(
      Overloaded{
          [](std::monostate) { return Date(); }, [](Date date) { return date; },
          [&](NullType) -> Date { RaiseNull(kTarget); },
          [&](Boolean) -> Date { RaiseMismatch("a flag", kTarget); },
          [&](const std::string& text) {
            const std::optional<Date> date = Date::FromIso(text);
            if (!date) RaiseMismatch(Quoted(text), kTarget);
            return *date;
          },
          [&](const std::shared_ptr<Recordset>&) -> Date { RaiseMismatch(kRowset, kTarget); },
          [](auto number) {
            return DateOfNumber(NumberOf(std::variant<decltype(number)>(number)).ToDouble());
          }},
      value_);
}

Boolean Variant::ToBoolean() const {
  constexpr std::string_view kTarget = "a flag";
  return std::visit(
      Overloaded{
          [](std::monostate) { return False; }, [](Boolean flag) { return flag; },
          [&](NullType) -> Boolean { RaiseNull(kTarget); },
          [&](Date) -> Boolean { RaiseMismatch("a date", kTarget); },
          [&](const std::string& text) {
            if (EqualFolded(text, "true")) return True;
            if (EqualFolded(text, "false")) return False;
            return Boolean(!NumberOfText(text, kTarget).IsZero());
          },
          [&](const std::shared_ptr<Recordset>&) -> Boolean { RaiseMismatch(kRowset, kTarget); },
          [](auto number) {
            return Boolean(!NumberOf(std::variant<decltype(number)>(number)).IsZero());
          }},
      value_);
}

std::string Variant::ToText() const {
  return std::visit(
      Overloaded{
          [](std::monostate) { return std::string(); },
          [](NullType) -> std::string { RaiseNull("text"); },
          [](Boolean flag) { return std::string(flag.IsSet() ? "True" : "False"); },
          [](std::int32_t number) { return std::to_string(number); },
          [](std::int64_t number) { return std::to_string(number); },
          [](float number) { return TextOf(number); }, [](double number) { return TextOf(number); },
          [](Currency money) {
            std::string text = money.ToText();
            text.erase(text.find_last_not_of('0') + 1);
            if (text.back() == '.') text.pop_back();
            return text;
          },
          [](Date date) { return date.ToIso(); }, [](const std::string& text) { return text; },
          [](const std::shared_ptr<Recordset>&) -> std::string { RaiseMismatch(kRowset, "text"); }},
      value_);
}

std::shared_ptr<Recordset> Variant::ToRowset() const {
  if (IsNull()) RaiseNull(kRowset);
  const auto* rowset = std::get_if<std::shared_ptr<Recordset>>(&value_);
  if (rowset == nullptr) RaiseMismatch("a plain value", kRowset);
  return *rowset;
}

}  // namespace pstolvane1
