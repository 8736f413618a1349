// Values for an operation's arguments: checked, converted and completed in one place.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Operation.h"
#include "session/data/Variant.h"

namespace pstolvane1::automation {

struct NamedValue {
  std::string name;
  Variant value;
};

// A place that takes one value: an argument, or a member of a record.
struct Slot {
  std::string_view name;
  const Argument* argument;
};
[[nodiscard]] std::vector<Slot> SlotsOf(const Operation& operation);

// One value for each slot, of exactly the slot's type: int32 for byte, int32 and enumeration,
// float, Date, Boolean, text, a rowset (which may be none), anything for a variant.
using BoundValues = std::vector<Variant>;

// Puts the values in their places, by name in any case and in any order, and the presets in the
// others. A text is converted to the type of its place; Empty and Null stand for a value that is
// left out. Errors show the operation's arguments: 3001 for a name that it does not have, that
// comes twice, or that is missing; 13 for a value of another kind; 6 for a number out of range.
[[nodiscard]] BoundValues Bind(const Operation& operation, std::span<const NamedValue> values);

// The value that a text stands for: whole numbers and decimals with ".", true and false in any
// case, ISO dates, names and numbers of an enumeration, any text. A flag takes whole numbers as
// they are, and only -1 is True. A variant is the first of number, date, flag and text that the
// text can be. Errors as for Bind, without the operation.
[[nodiscard]] Variant ValueFromText(const Argument& argument, std::string_view text);

// "LedgersByCode bytYearno sCode blnReport": optional ones in brackets with their presets.
[[nodiscard]] std::string UsageOf(const Operation& operation);
// "whole number from 0 to 255", "date as 2004-03-31", "one of FifoRate, LifoRate ..., or a number".
[[nodiscard]] std::string TakesWhat(const Argument& argument);

// What an optional argument of this kind is without a preset: 0, False, "", no rowset, day 0.
[[nodiscard]] Variant EmptyValueOf(const Argument& argument);
// The argument may be left out of a call.
[[nodiscard]] bool MayBeLeftOut(const Argument& argument);

// The report type that the operation has with these values; none when it delivers no report.
[[nodiscard]] std::optional<std::int32_t> ReportTypeOf(const Operation& operation,
                                                       const BoundValues& values);

}  // namespace pstolvane1::automation
