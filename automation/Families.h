// The catalogue's parts, one for each family, and the arguments that they share.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "automation/Masters.h"
#include "automation/MemberCall.h"
#include "automation/Operation.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1::automation {

[[nodiscard]] std::span<const Operation> SessionOperations();
[[nodiscard]] std::span<const Operation> StockOperations();
[[nodiscard]] std::span<const Operation> MonthlyOperations();
[[nodiscard]] std::span<const Operation> PendingOperations();
[[nodiscard]] std::span<const Operation> AnalysisOperations();
[[nodiscard]] std::span<const Operation> VehicleOperations();
[[nodiscard]] std::span<const Operation> BillsOperations();

extern const Enumeration kReportType;
extern const Enumeration kValuationMethod;

constexpr Argument Byte(std::string_view name, std::string_view help) {
  return {.name = name, .type = ArgumentType::kByte, .help = help};
}
constexpr Argument Int32(std::string_view name, std::string_view help) {
  return {.name = name, .type = ArgumentType::kInt32, .help = help};
}
constexpr Argument Single(std::string_view name, std::string_view help) {
  return {.name = name, .type = ArgumentType::kSingle, .help = help};
}
constexpr Argument Day(std::string_view name, std::string_view help) {
  return {.name = name, .type = ArgumentType::kDate, .help = help};
}
constexpr Argument Flag(std::string_view name, std::string_view help) {
  return {.name = name, .type = ArgumentType::kBoolean, .help = help};
}
constexpr Argument Text(std::string_view name, std::string_view help) {
  return {.name = name, .type = ArgumentType::kText, .help = help};
}
constexpr Argument HostRowset(std::string_view name, std::string_view help) {
  return {.name = name, .type = ArgumentType::kRowset, .help = help};
}
constexpr Argument OneOf(std::string_view name, const Enumeration& enumeration,
                         std::string_view help) {
  return {
      .name = name, .type = ArgumentType::kEnumeration, .help = help, .enumeration = &enumeration};
}

// A signature with one more argument at its end.
template <std::size_t N>
constexpr std::array<Argument, N + 1> And(const std::array<Argument, N>& arguments,
                                          const Argument& last) {
  std::array<Argument, N + 1> all{};
  for (std::size_t i = 0; i < N; ++i) all[i] = arguments[i];
  all[N] = last;
  return all;
}

// The types of an operation that ValuationMethod decides: type_of(method) gives an optional report
// type. A method without one has no rule.
template <typename TypeOf>
constexpr auto TypesByMethod(TypeOf type_of) {
  constexpr std::size_t kMethods = [] {
    std::size_t count = 0;
    for (const EnumName& method : kValuationMethodNames) {
      if (TypeOf{}(static_cast<enmValuationMethod>(method.value))) ++count;
    }
    return count;
  }();
  std::array<ReportTypeRule, kMethods> rules{};
  std::size_t at = 0;
  for (const EnumName& method : kValuationMethodNames) {
    const auto type = type_of(static_cast<enmValuationMethod>(method.value));
    if (type) rules[at++] = {method.value, *type};
  }
  return rules;
}

// The rules of sorting for each form of DummySort.
constexpr SortRule ByClass(SortedWhen when = SortedWhen::kAlways,
                           std::string_view pattern = "DummySort, {}") {
  return {.when = when, .form = DummySortForm::kClass, .pattern = pattern};
}
constexpr SortRule ByGroup(SortedWhen when) {
  return {.when = when, .form = DummySortForm::kGroup, .pattern = "DummySort, {}"};
}
constexpr SortRule ByNumber(std::string_view pattern = "{}, DummySort",
                            SortedWhen when = SortedWhen::kAlways) {
  return {.when = when, .form = DummySortForm::kRunning, .pattern = pattern};
}
constexpr SortRule Unsorted(SortedWhen when) { return {.when = when}; }

// Closing lines have no twins, and Null comes first; their rule keeps them last.
inline constexpr std::string_view kByNumberBeforeLine = "Line, {}, DummySort";
inline constexpr std::string_view kByNumberBeforeTotalLine = "TotalLine, {}, DummySort";
inline constexpr SortRule kSortedByClass[] = {ByClass()};
inline constexpr SortRule kSortedByNumber[] = {ByNumber()};

inline constexpr Argument kYear = Byte("bytYearno", "The number of the accounting year.");
inline constexpr Argument kYearNotUsed = Byte("bytYearno", kNotUsed);
inline constexpr Argument kFrom = Day("dtFromDate", "The first day of the period.");
inline constexpr Argument kTo = Day("dtToDate", "The last day of the period.");
inline constexpr Argument kReport =
    Flag("blnReport",
         "True returns the report; anything else fetches it in the background and delivers it by "
         "FetchComplete.");
inline constexpr Argument kScale = Single("sngScale", "Divides every displayed amount of money.");
inline constexpr Argument kLongDate = Flag("blnUseLongDate", "Show dates in full.");
inline constexpr Argument kSeparator =
    Text("strRefSeperator", "Stands between the parts of a document number.");
inline constexpr Argument kNarration = Flag("blnShowNarration", "Add lines with the narration.");
inline constexpr Argument kConsider =
    Text("strConsiderForSih", "A condition on ConsiderForSih, or nothing.");
inline constexpr Argument kStates =
    Text("strItemstate", "Item states with commas between, or nothing.");

}  // namespace pstolvane1::automation
