// How a report is sorted by one of its twins.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pstolvane1::automation {

// What the numbers in a report's DummySort are.
enum class DummySortForm {
  kNone,     // none to sort by: no such column, or it is empty where lines belong together
  kClass,    // kinds of lines: the closing lines have the greatest
  kGroup,    // a group's head has one, the lines below it have the next: they move within the group
  kRunning,  // the place of a line in the report
};

// The calls of an operation that a rule is for.
enum class SortedWhen {
  kAlways,
  kSummary,
  kDetailed,         // with blnDetailed, or of one party, item or group
  kDetailedByArea,   // the same, by rtMovement_AreaLedgerAnalysis
  kRelatedItems,     // by rtMovement_SalesReturns_ItemRelationAnalysis, without blnDetailed
  kSummaryOfLayers,  // under FifoRate and LifoRate, without blnDetailed
};

inline constexpr std::string_view kNoTwin = "-";

// An operation's entry holds its rules, the first that is for a call decides.
struct SortRule {
  SortedWhen when = SortedWhen::kAlways;
  DummySortForm form = DummySortForm::kNone;
  std::string_view pattern = {};  // the Sort text, with "{}" for the twin
  // The twins, with blanks between, by which lines stay together with those that they belong to; ""
  // for all, kNoTwin for none. By any other twin each line goes where its own value belongs.
  std::string_view together = {};
  bool closing_last = true;  // the rule and the total stay last

  [[nodiscard]] constexpr SortRule Together(std::string_view twins) const {
    SortRule changed = *this;
    changed.together = twins;
    return changed;
  }
  [[nodiscard]] constexpr SortRule MovingClosingLines() const {
    SortRule changed = *this;
    changed.closing_last = false;
    return changed;
  }
};

// A report as it was asked for.
struct SortedReport {
  std::string_view operation;
  bool detailed = false;  // also where one party, item or group is told in detail
  // The argument that decides the report type, where there is one: ValuationMethod, reptype.
  std::int32_t asked = 0;
};

// Form kNone where there is none. Error 3001 for an unknown operation.
[[nodiscard]] SortRule SortRuleOf(const SortedReport& report);

[[nodiscard]] std::string_view NameOf(DummySortForm form);  // "class"
[[nodiscard]] std::string_view NameOf(SortedWhen when);     // "in detail"

// What Recordset::Sort takes to put the report in the order of a twin: "DummySort, AmountSort".
// The total stays last, the lines of a group or document stay together, its head first, but where
// the rule says otherwise. Null stands first, and last in descending order: a head without a value
// in the twin then comes behind its lines. Error 3001 for an unknown operation, and for a report
// that cannot be sorted.
[[nodiscard]] std::string SortText(const SortedReport& report, std::string_view twin,
                                   bool descending = false);

}  // namespace pstolvane1::automation
