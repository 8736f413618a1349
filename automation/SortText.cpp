#include "automation/SortText.h"

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>

#include "automation/Operations.h"
#include "session/ReportType.h"
#include "session/data/Error.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1::automation {
namespace {

using enum SortedWhen;

bool IsFor(const SortRule& rule, const SortedReport& report) {
  switch (rule.when) {
    case kSummary:
      return !report.detailed;
    case kDetailed:
      return report.detailed;
    case kDetailedByArea:
      return report.detailed && report.asked == rtMovement_AreaLedgerAnalysis;
    case kRelatedItems:
      return !report.detailed && report.asked == rtMovement_SalesReturns_ItemRelationAnalysis;
    case kSummaryOfLayers:
      return !report.detailed && (report.asked == FifoRate || report.asked == LifoRate);
    case kAlways:
      break;
  }
  return true;
}

}  // namespace

SortRule SortRuleOf(const SortedReport& report) {
  const auto rules = GetOperation(report.operation).sorting;
  const auto rule =
      std::ranges::find_if(rules, [&](const SortRule& one) { return IsFor(one, report); });
  return rule == rules.end() ? SortRule() : *rule;
}

std::string_view NameOf(DummySortForm form) {
  constexpr std::string_view kNames[] = {"none", "class", "group", "running"};
  return kNames[static_cast<std::size_t>(form)];
}

std::string_view NameOf(SortedWhen when) {
  constexpr std::string_view kNames[] = {"always",
                                         "in summary",
                                         "in detail",
                                         "in detail by area",
                                         "of related items without details",
                                         "in summary, FIFO and LIFO"};
  return kNames[static_cast<std::size_t>(when)];
}

std::string SortText(const SortedReport& report, std::string_view twin, bool descending) {
  const SortRule rule = SortRuleOf(report);
  if (rule.form == DummySortForm::kNone) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                fmt::format("the lines of {} cannot be sorted by a twin",
                            GetOperation(report.operation).name));
  }
  const std::string key = std::string(twin) + (descending ? " DESC" : "");
  return fmt::format(fmt::runtime(rule.pattern), key);
}

}  // namespace pstolvane1::automation
