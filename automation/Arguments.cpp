#include "automation/Arguments.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <limits>

#include "automation/Families.h"
#include "automation/Nearest.h"
#include "automation/Operations.h"
#include "session/data/Error.h"

namespace pstolvane1::automation {
namespace {

constexpr std::size_t kNamesShown = 12;  // of an enumeration, in a message

bool SameWord(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

// A number that is the whole text, with a sign or without; empty for anything else. What is too
// large for T is error 6.
template <typename T>
std::optional<T> NumberFromText(const Argument& argument, std::string_view text) {
  std::string_view digits = text;
  if (digits.starts_with('+') && digits.size() > 1 && digits[1] != '-') digits.remove_prefix(1);
  T number{};
  const char* end = digits.data() + digits.size();
  const auto [stop, problem] = std::from_chars(digits.data(), end, number);
  if (stop != end) return std::nullopt;
  if (problem == std::errc::result_out_of_range) {
    throw Error(ErrorNumber::kOverflow, fmt::format("{} takes a {}, and {} is too large",
                                                    argument.name, TakesWhat(argument), text));
  }
  if (problem != std::errc{}) return std::nullopt;
  if constexpr (std::is_floating_point_v<T>) {
    if (!std::isfinite(number)) return std::nullopt;
  }
  return number;
}

std::optional<Boolean> FlagFromText(std::string_view text) {
  if (SameWord(text, "true")) return True;
  if (SameWord(text, "false")) return False;
  return std::nullopt;
}

[[noreturn]] void WrongKind(const Argument& argument, std::string_view what) {
  throw Error(ErrorNumber::kTypeMismatch,
              fmt::format("{} takes a {}, not {}", argument.name, TakesWhat(argument), what));
}

std::int32_t InRange(const Argument& argument, std::int64_t number) {
  std::int64_t low = std::numeric_limits<std::int32_t>::min();
  std::int64_t high = std::numeric_limits<std::int32_t>::max();
  if (argument.type == ArgumentType::kByte) {
    low = 0;
    high = 255;
  } else if (argument.type == ArgumentType::kBoolean) {
    low = std::numeric_limits<std::int16_t>::min();
    high = std::numeric_limits<std::int16_t>::max();
  }
  if (number < low || number > high) {
    throw Error(ErrorNumber::kOverflow, fmt::format("{} takes a {}, and {} lies outside",
                                                    argument.name, TakesWhat(argument), number));
  }
  return static_cast<std::int32_t>(number);
}

Variant VariantFromText(const Argument& argument, std::string_view text) {
  if (const auto whole = NumberFromText<std::int64_t>(argument, text)) {
    if (*whole == static_cast<std::int32_t>(*whole)) return static_cast<std::int32_t>(*whole);
    return *whole;
  }
  if (const auto number = NumberFromText<double>(argument, text)) return *number;
  if (const auto date = Date::FromIso(text)) return *date;
  if (const auto flag = FlagFromText(text)) return *flag;
  return text;
}

// A whole number in whichever kind of number it came.
std::int64_t WholeOf(const Argument& argument, const Variant& value) {
  const double number = value.ToDouble();
  if (value.Type() == adBoolean || number != std::trunc(number)) {
    WrongKind(argument, value.ToText());
  }
  return InRange(argument, value.ToInt64());
}

bool IsNumber(const Variant& value) {
  const DataType type = value.Type();
  return type == adInteger || type == adBigInt || type == adSingle || type == adDouble ||
         type == adCurrency;
}

bool IsRowset(const Variant& value) { return value.Type() == adChapter; }

// The value in the type of its place.
Variant Converted(const Argument& argument, const Variant& value) {
  if (value.Type() == adBSTR && argument.type != ArgumentType::kVariant) {
    return ValueFromText(argument, value.ToText());
  }
  switch (argument.type) {
    case ArgumentType::kByte:
    case ArgumentType::kInt32:
    case ArgumentType::kEnumeration:
      if (!IsNumber(value)) break;
      return static_cast<std::int32_t>(WholeOf(argument, value));
    case ArgumentType::kSingle:
      if (!IsNumber(value)) break;
      return value.ToSingle();
    case ArgumentType::kBoolean:
      if (value.Type() == adBoolean) return value.ToBoolean();
      if (!IsNumber(value)) break;
      return Boolean(WholeOf(argument, value));
    case ArgumentType::kDate:
      if (value.Type() != adDate) break;
      return value;
    case ArgumentType::kText:
    case ArgumentType::kRecord:
      if (IsRowset(value)) break;
      return value.ToText();
    case ArgumentType::kRowset:
      if (!IsRowset(value)) break;
      return value;
    case ArgumentType::kVariant:
      return value;
  }
  WrongKind(argument, IsRowset(value) ? "a rowset" : value.ToText());
}

Variant PresetOf(const Argument& argument) {
  return argument.preset.empty() ? EmptyValueOf(argument)
                                 : ValueFromText(argument, argument.preset);
}

std::string WithUsage(const Operation& operation, std::string_view problem) {
  return fmt::format("{}: {}; {}", operation.name, problem, UsageOf(operation));
}

[[noreturn]] void WrongCall(const Operation& operation, const std::string& problem) {
  throw Error(ErrorNumber::kArgumentOutOfRange, WithUsage(operation, problem));
}

// "sCode is missing, a text", or a line for each of several.
std::string Missing(const std::vector<const Argument*>& arguments) {
  if (arguments.size() == 1) {
    return fmt::format("{} is missing, a {}", arguments[0]->name, TakesWhat(*arguments[0]));
  }
  std::string text = fmt::format("{} arguments are missing:", arguments.size());
  for (const Argument* argument : arguments) {
    text += fmt::format("\n  {}, a {}", argument->name, TakesWhat(*argument));
  }
  return text;
}

std::string PresetText(const Argument& argument) {
  switch (argument.type) {
    case ArgumentType::kBoolean:
      return std::string(argument.preset.empty() ? "false" : argument.preset);
    case ArgumentType::kText:
      return '"' + std::string(argument.preset) + '"';
    case ArgumentType::kByte:
    case ArgumentType::kInt32:
    case ArgumentType::kEnumeration:
    case ArgumentType::kSingle:
      return std::string(argument.preset.empty() ? "0" : argument.preset);
    default:
      return {};
  }
}

}  // namespace

Variant EmptyValueOf(const Argument& argument) {
  switch (argument.type) {
    case ArgumentType::kByte:
    case ArgumentType::kInt32:
    case ArgumentType::kEnumeration:
      return std::int32_t{0};
    case ArgumentType::kSingle:
      return 0.0F;
    case ArgumentType::kBoolean:
      return False;
    case ArgumentType::kDate:
      return Date{};
    case ArgumentType::kText:
    case ArgumentType::kRecord:
      return "";
    case ArgumentType::kRowset:
      return std::shared_ptr<Recordset>{};
    case ArgumentType::kVariant:
      break;
  }
  return {};
}

// A member of a record and a rowset may be left out everywhere: nothing is a value of theirs.
bool MayBeLeftOut(const Argument& argument) {
  return argument.optional || argument.type == ArgumentType::kRecord;
}

std::vector<Slot> SlotsOf(const Operation& operation) {
  std::vector<Slot> slots;
  for (const Argument& argument : operation.arguments) {
    if (argument.type == ArgumentType::kRecord) {
      for (const std::string_view member : argument.members) slots.push_back({member, &argument});
    } else {
      slots.push_back({argument.name, &argument});
    }
  }
  return slots;
}

Variant ValueFromText(const Argument& argument, std::string_view text) {
  switch (argument.type) {
    case ArgumentType::kEnumeration:
      if (const auto value = ValueOf(*argument.enumeration, text)) return *value;
      [[fallthrough]];
    case ArgumentType::kByte:
    case ArgumentType::kInt32:
      if (const auto number = NumberFromText<std::int64_t>(argument, text)) {
        return InRange(argument, *number);
      }
      break;
    case ArgumentType::kSingle:
      if (const auto number = NumberFromText<float>(argument, text)) return *number;
      break;
    case ArgumentType::kBoolean:
      if (const auto flag = FlagFromText(text)) return *flag;
      if (const auto number = NumberFromText<std::int64_t>(argument, text)) {
        return Boolean(InRange(argument, *number));
      }
      break;
    case ArgumentType::kDate:
      if (const auto date = Date::FromIso(text)) return *date;
      break;
    case ArgumentType::kText:
    case ArgumentType::kRecord:
      return text;
    case ArgumentType::kVariant:
      return VariantFromText(argument, text);
    case ArgumentType::kRowset:
      break;
  }
  WrongKind(argument, '"' + std::string(text) + '"');
}

BoundValues Bind(const Operation& operation, std::span<const NamedValue> values) {
  const std::vector<Slot> slots = SlotsOf(operation);
  BoundValues bound(slots.size());
  std::vector<bool> given(slots.size());
  for (const NamedValue& one : values) {
    const auto slot = std::find_if(slots.begin(), slots.end(),
                                   [&](const Slot& s) { return SameWord(s.name, one.name); });
    if (slot == slots.end()) {
      std::vector<std::string_view> names(slots.size());
      std::ranges::transform(slots, names.begin(), &Slot::name);
      WrongCall(operation, fmt::format("there is no argument \"{}\"{}", one.name,
                                       DidYouMean(one.name, names)));
    }
    const auto at = static_cast<std::size_t>(slot - slots.begin());
    if (given[at]) WrongCall(operation, fmt::format("{} is given twice", slot->name));
    if (one.value.IsEmpty() || one.value.IsNull()) continue;
    try {
      bound[at] = Converted(*slot->argument, one.value);
    } catch (const Error& error) {
      throw Error(error.Number(), WithUsage(operation, error.Description()));
    }
    given[at] = true;
  }
  std::vector<const Argument*> missing;
  for (std::size_t at = 0; at < slots.size(); ++at) {
    if (given[at]) continue;
    const Argument& argument = *slots[at].argument;
    if (MayBeLeftOut(argument)) {
      bound[at] = PresetOf(argument);
    } else {
      missing.push_back(&argument);
    }
  }
  if (!missing.empty()) WrongCall(operation, Missing(missing));
  return bound;
}

std::string UsageOf(const Operation& operation) {
  std::string usage(operation.name);
  for (const Slot& slot : SlotsOf(operation)) {
    if (!MayBeLeftOut(*slot.argument)) {
      usage += fmt::format(" {}", slot.name);
      continue;
    }
    const std::string preset = PresetText(*slot.argument);
    usage += preset.empty() ? fmt::format(" [{}]", slot.name)
                            : fmt::format(" [{}={}]", slot.name, preset);
  }
  return usage;
}

std::string TakesWhat(const Argument& argument) {
  switch (argument.type) {
    case ArgumentType::kByte:
      return "whole number from 0 to 255";
    case ArgumentType::kInt32:
      return "whole number from -2147483648 to 2147483647";
    case ArgumentType::kSingle:
      return "decimal as 0.5";
    case ArgumentType::kDate:
      return "date as 2004-03-31";
    case ArgumentType::kBoolean:
      return "flag, true or false";
    case ArgumentType::kText:
    case ArgumentType::kRecord:
      return "text";
    case ArgumentType::kRowset:
      return "rowset";
    case ArgumentType::kVariant:
      return "value of any kind";
    case ArgumentType::kEnumeration:
      break;
  }
  const auto values = argument.enumeration->values;
  std::string text = fmt::format("value of {}", argument.enumeration->name);
  if (values.size() > kNamesShown) return text + " by name or number";
  text += ": ";
  for (const EnumName& one : values) text += fmt::format("{}, ", one.name);
  return text + "or a number";
}

std::optional<std::int32_t> ReportTypeOf(const Operation& operation, const BoundValues& values) {
  if (operation.report_types.empty()) return std::nullopt;
  if (operation.decided_by.empty()) return operation.report_types.front().stored;
  const std::vector<Slot> slots = SlotsOf(operation);
  const auto slot = std::find_if(slots.begin(), slots.end(),
                                 [&](const Slot& one) { return one.name == operation.decided_by; });
  const std::int32_t asked = values.at(static_cast<std::size_t>(slot - slots.begin())).ToInt32();
  for (const ReportTypeRule& rule : operation.report_types) {
    if (rule.asked == asked) return rule.stored;
  }
  // A report type that an operation does not translate is stored as it comes; a valuation that no
  // report has delivers nothing.
  if (slot->argument->enumeration == &kReportType) return asked;
  return std::nullopt;
}

}  // namespace pstolvane1::automation
