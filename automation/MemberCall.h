// Makes a member of the session callable with the values that stand in the catalogue's order.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "automation/Calls.h"

namespace pstolvane1::automation {

// How a parameter is described, and how its value is kept for the time of the call.
template <typename T>
struct Parameter;

template <>
struct Parameter<std::uint8_t> {
  static constexpr ArgumentType kType = ArgumentType::kByte;
  static std::uint8_t From(const Variant& value) {
    return static_cast<std::uint8_t>(value.ToInt32());
  }
};
template <>
struct Parameter<std::int32_t> {
  static constexpr ArgumentType kType = ArgumentType::kInt32;
  static std::int32_t From(const Variant& value) { return value.ToInt32(); }
};
template <>
struct Parameter<float> {
  static constexpr ArgumentType kType = ArgumentType::kSingle;
  static float From(const Variant& value) { return value.ToSingle(); }
};
template <>
struct Parameter<Date> {
  static constexpr ArgumentType kType = ArgumentType::kDate;
  static Date From(const Variant& value) { return value.ToDate(); }
};
template <>
struct Parameter<Boolean> {
  static constexpr ArgumentType kType = ArgumentType::kBoolean;
  static Boolean From(const Variant& value) { return value.ToBoolean(); }
};
template <>
struct Parameter<std::string> {
  static constexpr ArgumentType kType = ArgumentType::kText;
  static std::string From(const Variant& value) { return value.ToText(); }
};
template <>
struct Parameter<std::string_view> : Parameter<std::string> {};
template <>
struct Parameter<Variant> {
  static constexpr ArgumentType kType = ArgumentType::kVariant;
  static Variant From(const Variant& value) { return value; }
};
template <>
struct Parameter<RecordsetPtr> {
  static constexpr ArgumentType kType = ArgumentType::kRowset;
  static RecordsetPtr From(const Variant& value) {
    return value.IsEmpty() ? nullptr : value.ToRowset();
  }
};
template <typename T>
requires std::is_enum_v<T>
struct Parameter<T> {
  static constexpr ArgumentType kType = ArgumentType::kEnumeration;
  static T From(const Variant& value) { return static_cast<T>(value.ToInt32()); }
};

inline Outcome OutcomeOf(bool value) {
  return {.value = Boolean(value), .connection = {}, .changed = {}};
}
inline Outcome OutcomeOf(Variant value) {
  return {.value = std::move(value), .connection = {}, .changed = {}};
}
inline Outcome OutcomeOf(RecordsetPtr rowset) {
  if (!rowset) return {};
  return {.value = std::move(rowset), .connection = {}, .changed = {}};
}
inline Outcome OutcomeOf(std::shared_ptr<Connection> connection) {
  return {.value = {}, .connection = std::move(connection), .changed = {}};
}

template <typename Member>
struct MemberCall;

template <typename R, typename... A>
struct MemberCall<R (clsStolvane1::*)(A...)> {
  static constexpr std::array<ArgumentType, sizeof...(A)> kTypes{
      Parameter<std::remove_cvref_t<A>>::kType...};

  template <typename Member>
  static Outcome Run(Member member, clsStolvane1& session, const Operation& operation,
                     const BoundValues& values) {
    return Run(member, session, operation, values, std::index_sequence_for<A...>{});
  }

 private:
  template <typename Member, std::size_t... I>
  static Outcome Run(Member member, clsStolvane1& session,
                     [[maybe_unused]] const Operation& operation,
                     [[maybe_unused]] const BoundValues& values, std::index_sequence<I...>) {
    std::tuple kept{Parameter<std::remove_cvref_t<A>>::From(values.at(I))...};
    Outcome outcome;
    if constexpr (std::is_void_v<R>) {
      std::invoke(member, session, std::get<I>(kept)...);
    } else {
      outcome = OutcomeOf(std::invoke(member, session, std::get<I>(kept)...));
    }
    (NoteChange<A>(outcome, operation, I, std::get<I>(kept)), ...);
    return outcome;
  }

  template <typename Declared, typename Kept>
  static void NoteChange([[maybe_unused]] Outcome& outcome,
                         [[maybe_unused]] const Operation& operation,
                         [[maybe_unused]] std::size_t at, [[maybe_unused]] const Kept& kept) {
    if constexpr (std::is_lvalue_reference_v<Declared> &&
                  !std::is_const_v<std::remove_reference_t<Declared>> &&
                  !std::is_same_v<Kept, RecordsetPtr>) {
      std::string name(operation.arguments[at].name);
      if constexpr (std::is_enum_v<Kept>) {
        outcome.changed.push_back({std::move(name), static_cast<std::int32_t>(kept)});
      } else {
        outcome.changed.push_back({std::move(name), Variant(kept)});
      }
    }
  }
};

template <typename R, typename... A>
struct MemberCall<R (clsStolvane1::*)(A...) const> : MemberCall<R (clsStolvane1::*)(A...)> {};

// The member as an operation's entry holds it.
template <auto member>
inline constexpr Callable kCallOf = {
    [](clsStolvane1& session, const Operation& operation, const BoundValues& values) {
      return MemberCall<decltype(member)>::Run(member, session, operation, values);
    },
    MemberCall<decltype(member)>::kTypes};

}  // namespace pstolvane1::automation
