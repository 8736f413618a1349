// One value of any kind that a rowset or an argument can hold.
#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "session/data/Currency.h"
#include "session/data/DataType.h"
#include "session/data/Date.h"

namespace pstolvane1 {

class Recordset;

// The database's Null: no value is known. Not the same as Empty, which is a Variant that was never
// given a value.
struct NullType {
  friend constexpr bool operator==(NullType, NullType) = default;
};
inline constexpr NullType Null{};

// A 16-bit flag. True is -1; any other non-zero value is not exactly True but still not False.
class Boolean {
 public:
  constexpr Boolean() = default;
  constexpr Boolean(bool flag) : raw_(flag ? std::int16_t{-1} : std::int16_t{0}) {}  // NOLINT
  // A whole number as the host passed it: 1 is not True.
  template <std::integral T>
  // NOLINTNEXTLINE(google-explicit-constructor)
  requires(!std::same_as<T, bool>) constexpr Boolean(T raw)
      : raw_(static_cast<std::int16_t>(raw)) {}

  [[nodiscard]] constexpr bool IsTrue() const { return raw_ == -1; }  // exactly True
  [[nodiscard]] constexpr bool IsSet() const { return raw_ != 0; }    // True in a condition
  [[nodiscard]] constexpr std::int16_t Raw() const { return raw_; }
  friend constexpr bool operator==(Boolean, Boolean) = default;

 private:
  std::int16_t raw_ = 0;
};
inline constexpr Boolean True{true};
inline constexpr Boolean False{false};

// A value type of value semantics; a rowset in it is shared, everything else is copied. Text is
// UTF-8. A conversion that the value does not allow is error 13, of Null error 94, one that leaves
// the target's range error 6; text converts to a number where it is one, with "." as separator.
class Variant {
 public:
  Variant() = default;  // Empty
  // Every value is a Variant by itself.
  // NOLINTBEGIN(google-explicit-constructor)
  Variant(NullType) : value_(Null) {}
  Variant(Boolean flag) : value_(flag) {}
  Variant(bool flag) : value_(Boolean(flag)) {}
  Variant(std::int32_t number) : value_(number) {}
  Variant(std::int64_t number) : value_(number) {}
  Variant(float number) : value_(number) {}
  Variant(double number) : value_(number) {}
  Variant(Currency money) : value_(money) {}
  Variant(Date date) : value_(date) {}
  Variant(std::string text) : value_(std::move(text)) {}
  Variant(std::string_view text) : value_(std::string(text)) {}
  Variant(const char* text);  // error 91 for none
  Variant(std::shared_ptr<Recordset> rowset) : value_(std::move(rowset)) {}
  // NOLINTEND(google-explicit-constructor)

  [[nodiscard]] DataType Type() const;  // adEmpty for Empty and for Null
  [[nodiscard]] bool IsEmpty() const { return std::holds_alternative<std::monostate>(value_); }
  [[nodiscard]] bool IsNull() const { return std::holds_alternative<NullType>(value_); }

  [[nodiscard]] std::int32_t ToInt32() const;  // a fraction is rounded half to even
  [[nodiscard]] std::int64_t ToInt64() const;
  [[nodiscard]] float ToSingle() const;
  [[nodiscard]] double ToDouble() const;
  [[nodiscard]] Currency ToCurrency() const;
  [[nodiscard]] Date ToDate() const;  // text as ISO date
  [[nodiscard]] Boolean ToBoolean() const;
  // Numbers as their shortest text with ".", money without trailing zeros, dates as ISO text, flags
  // as "True" and "False"; Empty is "".
  [[nodiscard]] std::string ToText() const;
  [[nodiscard]] std::shared_ptr<Recordset> ToRowset() const;
  // The text where it holds one, else nullptr; nothing is copied.
  [[nodiscard]] const std::string* TextIfAny() const { return std::get_if<std::string>(&value_); }

  // Equal in kind and value; Null equals Null here. Text is compared byte by byte.
  friend bool operator==(const Variant&, const Variant&) = default;

 private:
  std::variant<std::monostate, NullType, Boolean, std::int32_t, std::int64_t, float, double,
               Currency, Date, std::string, std::shared_ptr<Recordset>>
      value_;
};

}  // namespace pstolvane1
