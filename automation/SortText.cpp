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

using enum DummySortForm;
using enum SortedWhen;

constexpr std::string_view kByClass = "DummySort, {}";
constexpr std::string_view kByItem = "Line, TotParticulars, HeadSort, DummySort, {}";
constexpr std::string_view kByNumber = "{}, DummySort";
// Closing lines have no twins, and Null comes first; their rule keeps them last.
constexpr std::string_view kByNumberBeforeTotalLine = "TotalLine, {}, DummySort";
constexpr std::string_view kByNumberBeforeLine = "Line, {}, DummySort";

constexpr SortRule kRules[] = {
    {"StockDetails_Itemwise", kSummaryOfLayers, kClass, kByClass},
    {"StockDetails_Itemwise", kAlways, kRunning, kByNumberBeforeTotalLine, "ParticularsSort"},
    {"StockDetails_Categorywise", kAlways, kRunning, kByNumberBeforeTotalLine, "ParticularsSort"},
    {"StockDetails_Classwise", kAlways, kRunning, kByNumberBeforeTotalLine, "ParticularsSort"},
    {"StockDetails_Godownwise", kAlways, kRunning, kByNumberBeforeTotalLine, "ParticularsSort"},
    {"FreeQuantity_Itemwise", kAlways, kRunning, kByNumber},
    {"FreeQuantity_Partywise", kAlways, kRunning, kByNumber},
    {"PendingByItem", kAlways, kRunning, kByNumber},
    {"PendingByLedger", kAlways, kRunning, kByNumber},
    {"PendingByEmployee", kAlways, kRunning, kByNumber},
    {"Doc_Initial", kAlways, kClass, kByClass},
    {"CustomerItemwise_Analysis", kRelatedItems, kNone, {}},
    {"CustomerItemwise_Analysis", kDetailed, kGroup, kByClass},
    {"CustomerItemwise_Analysis", kSummary, kClass, kByClass},
    // By area the numbers begin again with each area: this is meant.
    {"Movement_PurchaseReturns_Analysis", kDetailedByArea, kGroup, kByClass, kNoTwin},
    {"Movement_PurchaseReturns_Analysis", kDetailed, kGroup, kByClass},
    {"Movement_PurchaseReturns_Analysis", kSummary, kClass, kByClass},
    {"CustomerItemDaily_Analysis", kDetailed, kGroup, kByClass},
    {"CustomerItemDaily_Analysis", kSummary, kNone, {}},
    {"Movement_PurchaseReturns_DailyAnalysis", kDetailed, kGroup, kByClass},
    {"Movement_PurchaseReturns_DailyAnalysis", kSummary, kNone, {}},
    {"Commission_Initial", kDetailed, kGroup, kByClass},
    // All groups but the first have the number of the total: this is meant.
    {"Commission_Initial", kSummary, kClass, kByClass, {}, false},
    {"Commission_Daily", kAlways, kClass, kByClass},
    // Its rule has 1 and its total 2, as if they were lines: this is meant.
    {"Colorwise_Initial", kAlways, kRunning, kByNumber, kNoTwin, false},
    {"mColorwise_Initial", kAlways, kRunning, kByNumber, kNoTwin, false},
    {"Colorwise_Daily", kAlways, kClass, kByClass},
    {"mColorwise_Daily", kAlways, kClass, kByClass},
    {"ItemWise_DlyBkup", kAlways, kClass, kByItem},
    {"mItemwise_DlyBreakup", kAlways, kClass, kByItem},
    {"ServiceReportRegno", kSummary, kGroup, kByClass},
    {"ServiceReportRegno", kDetailed, kNone, {}},
    {"FreeServiceReport", kDetailed, kClass, "DummySort, ParticularsHeadSort, {}"},
    {"FreeServiceReport", kSummary, kClass, kByClass},
    {"FreeServiceReportDaily", kAlways, kClass, kByClass},
    {"MechanicLabourReport", kDetailed, kClass, "DummySort, InterSort, {}"},
    {"MechanicLabourReport", kSummary, kClass, kByClass},
    {"MechanicLabourReportDaily", kAlways, kClass, "DummySort, HeadSort, {}"},
    {"HypoReport", kDetailed, kClass, "DummySort, ParticularsHeadSort, ParticularsSort, {}"},
    {"HypoReport", kSummary, kClass, "DummySort, ParticularsHeadSort, {}"},
    {"HypoReportDaily", kAlways, kClass, kByClass},
    {"ClaimReport", kAlways, kClass, kByClass},
    {"BuyerReport", kAlways, kClass, kByClass},
    {"ServiceTax", kDetailed, kRunning, kByNumberBeforeLine, "refnoSort DateSort"},
    {"ServiceTax", kSummary, kClass, kByClass},
    {"BillWiseQuery", kAlways, kRunning, kByNumberBeforeLine, "BillnoSort DateSort LedgerNameSort"},
    {"BillWiseQuery1", kAlways, kRunning, kByNumberBeforeLine},
    {"MultiplePriceList", kAlways, kClass, kByClass},
};

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

std::span<const SortRule> SortRules() { return kRules; }

SortRule SortRuleOf(const SortedReport& report) {
  const Operation& operation = GetOperation(report.operation);
  const auto* const rule = std::ranges::find_if(kRules, [&](const SortRule& one) {
    return one.operation == operation.name && IsFor(one, report);
  });
  if (rule != std::end(kRules)) return *rule;
  return {operation.name, kAlways, kNone, {}};
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
  if (rule.form == kNone) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                fmt::format("the lines of {} cannot be sorted by a twin", rule.operation));
  }
  const std::string key = std::string(twin) + (descending ? " DESC" : "");
  return fmt::format(fmt::runtime(rule.pattern), key);
}

}  // namespace pstolvane1::automation
