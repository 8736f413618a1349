// The form in which the public operations are described as data.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "automation/SortText.h"
#include "session/EnumName.h"

namespace pstolvane1 {
class clsStolvane1;
class Variant;
}  // namespace pstolvane1

namespace pstolvane1::automation {

enum class ArgumentType {
  kByte,     // whole number, 0 to 255
  kInt32,    // whole number, 32-bit
  kSingle,   // 32-bit float
  kDate,     // a day
  kBoolean,  // 16-bit flag; True is -1
  kText,
  kVariant,      // any value
  kRowset,       // a rowset of the host
  kEnumeration,  // a value of `enumeration`; any 32-bit number is let through
  kRecord,       // texts, each given under its own name in `members`
};

struct Enumeration {
  std::string_view name;
  std::span<const EnumName> values;
};

// What the key in an argument leads to; see Masters.h.
struct Master;

// The list that a key is from where another argument has this value, as its text; with no argument
// it always is.
struct NamesWhen {
  std::string_view argument;
  std::string_view value;
  const Master* names;
};

// The help of an argument that an operation takes and never looks at.
inline constexpr std::string_view kNotUsed = "Accepted and not used.";

struct Argument {
  std::string_view name;
  ArgumentType type = ArgumentType::kVariant;
  std::string_view help;
  const Enumeration* enumeration = nullptr;
  std::span<const std::string_view> members = {};
  bool optional = false;
  // What an optional argument is when it is left out, as a text; "" is the type's empty value: 0,
  // False, "", no rowset, day 0.
  std::string_view preset = {};
  bool by_reference = false;                   // the operation may change the caller's variable
  const Master* master = nullptr;              // whose key it is; none for what is no key
  std::span<const NamesWhen> names_when = {};  // for people who pick a key that has no one master
  std::string_view all = {};                   // the value that stands for all of them; "" is none
  bool one_in_detail = false;                  // a key in it asks for that one with its details

  [[nodiscard]] constexpr bool IsRead() const { return help != kNotUsed; }
  [[nodiscard]] constexpr Argument Of(const Master& names) const {
    Argument changed = *this;
    changed.master = &names;
    return changed;
  }

  [[nodiscard]] constexpr Argument PickedFrom(std::span<const NamesWhen> lists) const {
    Argument changed = *this;
    changed.names_when = lists;
    return changed;
  }

  [[nodiscard]] constexpr Argument OrAll(std::string_view value) const {
    Argument changed = *this;
    changed.all = value;
    return changed;
  }

  [[nodiscard]] constexpr Argument OneInDetail() const {
    Argument changed = *this;
    changed.one_in_detail = true;
    return changed;
  }

  [[nodiscard]] constexpr Argument Optional(std::string_view value = {}) const {
    Argument changed = *this;
    changed.optional = true;
    changed.preset = value;
    return changed;
  }
  [[nodiscard]] constexpr Argument ByReference() const {
    Argument changed = *this;
    changed.by_reference = true;
    return changed;
  }
};

// How an operation gets its result.
enum class LaunchKind {
  kMember,         // no report: a member of the session itself
  kPlainQuery,     // always synchronous, no events
  kFetch,          // fetched in the background, unless it is asked for synchronously
  kOpenAndSignal,  // the open blocks in both modes
  kSourceItself,   // the query's own rowset is delivered, no lines are written
  kRowBuilder,     // writes the lines of what was fetched last
};

enum class ReturnKind {
  kNothing,
  kEmpty,  // a variant without a value
  kBoolean,
  kConnection,
  kRowset,
  kRowsetInVariant,
};

// The report type that an operation stores when its deciding argument is `asked`.
struct ReportTypeRule {
  std::int32_t asked;
  std::int32_t stored;
  std::string_view by = {};  // what it adds to the operation's title: " by item"
};

struct Operation;
struct Outcome;  // Calls.h

// The member of the class that an operation calls.
struct Callable {
  // The values stand in the order of the arguments, one for each.
  Outcome (*call)(clsStolvane1& session, const Operation& operation,
                  const std::vector<Variant>& values);
  std::span<const ArgumentType> types;  // of the parameters, in order
};

struct Operation {
  std::string_view name;
  Callable member;
  std::string_view family;  // "stock", as its folder
  LaunchKind launch;
  ReturnKind returns;
  std::string_view help;
  std::span<const Argument> arguments = {};  // in their published order
  // The argument that decides the report type; "" where there is but one type, or none.
  std::string_view decided_by = {};
  std::span<const ReportTypeRule> report_types = {};
  std::span<const SortRule> sorting = {};  // of a report that a twin can put in order
  std::string_view title = {};             // of a report, as people read it above the lines
  bool at_once_only = false;               // no report comes of it in the background

  [[nodiscard]] constexpr Operation Titled(std::string_view words) const {
    Operation changed = *this;
    changed.title = words;
    return changed;
  }
  [[nodiscard]] constexpr Operation Sorted(std::span<const SortRule> rules) const {
    Operation changed = *this;
    changed.sorting = rules;
    return changed;
  }
};

struct EventArgument {
  std::string_view name;
  std::string_view type;
  std::string_view help;
};

struct Event {
  std::string_view name;
  std::string_view help;
  std::span<const EventArgument> arguments;
};

[[nodiscard]] std::string_view NameOf(ArgumentType type);   // "byte", "date", "rowset"
[[nodiscard]] std::string_view NameOf(LaunchKind launch);   // "fetch"
[[nodiscard]] std::string_view NameOf(ReturnKind returns);  // "rowset"

// The argument or record member of that name in any case; nullptr when there is none.
[[nodiscard]] const Argument* FindArgument(const Operation& operation, std::string_view name);

}  // namespace pstolvane1::automation
