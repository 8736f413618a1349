#include "automation/Operations.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <fmt/format.h>

#include "automation/Families.h"
#include "automation/Nearest.h"
#include "session/ReportType.h"
#include "session/data/Error.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1::automation {

const Enumeration kReportType{"ReportType", kReportTypeNames};
const Enumeration kValuationMethod{"enmValuationMethod", kValuationMethodNames};

namespace {

char Folded(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Folded(x) == Folded(y); });
}

template <typename Kind, std::size_t N>
std::string_view NameIn(const std::array<std::string_view, N>& names, Kind kind) {
  return names.at(static_cast<std::size_t>(kind));
}

constexpr EventArgument kOnConnect[] = {
    {"ErrString", "text", "Nothing when the books are open, else the reason why they are not."},
};
constexpr EventArgument kFetchComplete[] = {
    {"Rss", "rowset", "The report; the host's own."},
    {"anyCount", "int32", "The number of lines of a report that counts them, else a constant."},
};
constexpr EventArgument kFetchProgress[] = {
    {"bytFetchPercent", "byte", "How far the report is; at most 60."},
    {"strmessage", "text", "FetchingData, Manipulating or manipulating."},
};
constexpr Event kEvents[] = {
    {"OnConnect", "The connection is open, or could not be opened.", kOnConnect},
    {"FetchComplete", "A report that was asked for in the background is finished.", kFetchComplete},
    {"FetchProgress", "A report goes on.", kFetchProgress},
};

}  // namespace

std::string_view NameOf(ArgumentType type) {
  static constexpr std::array<std::string_view, 10> kNames{
      "byte", "int32",   "single", "date",        "boolean",
      "text", "variant", "rowset", "enumeration", "record"};
  return NameIn(kNames, type);
}

std::string_view NameOf(LaunchKind launch) {
  static constexpr std::array<std::string_view, 6> kNames{
      "member", "plain query", "fetch", "open and signal", "source itself", "row builder"};
  return NameIn(kNames, launch);
}

std::string_view NameOf(ReturnKind returns) {
  static constexpr std::array<std::string_view, 6> kNames{
      "nothing", "empty variant", "boolean", "connection", "rowset", "rowset in a variant"};
  return NameIn(kNames, returns);
}

std::span<const Operation> Operations() {
  static const std::vector<Operation> all = [] {
    std::vector<Operation> operations;
    for (const auto family :
         {SessionOperations(), StockOperations(), MonthlyOperations(), PendingOperations(),
          AnalysisOperations(), VehicleOperations(), BillsOperations()}) {
      operations.insert(operations.end(), family.begin(), family.end());
    }
    return operations;
  }();
  return all;
}

std::span<const Event> Events() { return kEvents; }

std::span<const Enumeration* const> Enumerations() {
  static constexpr const Enumeration* kAll[] = {&kReportType, &kValuationMethod};
  return kAll;
}

const Operation* FindOperation(std::string_view name) {
  const auto all = Operations();
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const Operation& one) { return SameName(one.name, name); });
  return found == all.end() ? nullptr : &*found;
}

const Operation& GetOperation(std::string_view name) {
  if (const Operation* found = FindOperation(name)) return *found;
  const auto all = Operations();
  const auto nearest =
      std::min_element(all.begin(), all.end(), [&](const Operation& a, const Operation& b) {
        return LettersBetween(a.name, name) < LettersBetween(b.name, name);
      });
  throw Error(
      ErrorNumber::kArgumentOutOfRange,
      fmt::format("there is no operation \"{}\"; the nearest name is {}", name, nearest->name));
}

const Argument* FindArgument(const Operation& operation, std::string_view name) {
  for (const Argument& argument : operation.arguments) {
    const auto is_name = [&](std::string_view one) { return SameName(one, name); };
    const bool found = argument.type == ArgumentType::kRecord
                           ? std::any_of(argument.members.begin(), argument.members.end(), is_name)
                           : is_name(argument.name);
    if (found) return &argument;
  }
  return nullptr;
}

std::optional<std::int32_t> ValueOf(const Enumeration& enumeration, std::string_view name) {
  for (const EnumName& one : enumeration.values) {
    if (SameName(one.name, name)) return one.value;
  }
  return std::nullopt;
}

std::string NameOf(const Enumeration& enumeration, std::int32_t value) {
  for (const EnumName& one : enumeration.values) {
    if (one.value == value) return std::string(one.name);
  }
  return std::to_string(value);
}

}  // namespace pstolvane1::automation
