#include <array>

#include "automation/Families.h"
#include "session/ReportType.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1::automation {
namespace {

constexpr std::string_view kOnlyItems =
    "The named group alone, without the groups directly under it; layers always take it alone.";

// The five signatures differ in what two ids and a flag mean.
constexpr std::array<Argument, 14> Arguments(std::string_view any_id1, std::string_view any_id2,
                                             std::string_view only_items) {
  return {
      kYear,
      kFrom,
      kTo,
      OneOf("ValuationMethod", kValuationMethod,
            "How stock is valued; CurrentRate gives an empty result."),
      Int32("lngAny_Id1", any_id1),
      Int32("lngAny_Id2", any_id2),
      kReport,
      Flag("blnDetailed", kNotUsed),
      Flag("blnAltUom", "Fill the columns of the alternate unit."),
      kScale,
      Flag("blnOnlyItems", only_items),
      Flag("blnShowOpening", kNotUsed),
      Flag("blnShowInwards", kNotUsed),
      Flag("blnShowOutwards", kNotUsed),
  };
}

constexpr auto kItem = Arguments("The item.", kNotUsed, kNotUsed);
constexpr auto kGodownItem = And(Arguments("The item.", "The godown.", kNotUsed),
                                 Int32("lngBatch_id", "The batch; 0 is all.").Optional());
constexpr auto kGroup = Arguments("The category, class or godown.", kNotUsed, kOnlyItems);

constexpr ReportTypeRule kItemTypes[] = {
    {FifoRate, rtMonthly_Itemwise_WithFifo},
    {LifoRate, rtMonthly_Itemwise_WithLifo},
    {AverageRate, rtMonthly_Itemwise_WithAvg},
    {LastPurchaseRate, rtMonthly_Itemwise_WithLastPurchase},
    {LastSaleRate, rtMonthly_Itemwise_WithLastSale},
    {standardrate, rtMonthly_Itemwise_WithStandardCost},
    {StandardPrice, rtMonthly_Itemwise_WithStandardPrice},
    {SimpleAvg, rtMonthly_Itemwise_WithSimpleAvg},
};
constexpr ReportTypeRule kCategoryTypes[] = {
    {FifoRate, rtMonthly_Categorywise_WithFifo},
    {LifoRate, rtMonthly_Categorywise_WithLifo},
    {AverageRate, rtMonthly_Categorywise_WithAvg},
    {LastPurchaseRate, rtMonthly_Categorywise_WithLastPurchase},
    {LastSaleRate, rtMonthly_Categorywise_WithLastSale},
    {standardrate, rtMonthly_Categorywise_WithStandardCost},
    {StandardPrice, rtMonthly_Categorywise_WithStandardPrice},
    {SimpleAvg, rtMonthly_Categorywise_WithSimpleAvg},
};
constexpr ReportTypeRule kClassTypes[] = {
    {FifoRate, rtMonthly_Classwise_WithFifo},
    {LifoRate, rtMonthly_Classwise_WithLifo},
    {AverageRate, rtMonthly_Classwise_WithAvg},
    {LastPurchaseRate, rtMonthly_Classwise_WithLastPurchase},
    {LastSaleRate, rtMonthly_Classwise_WithLastSale},
    {standardrate, rtMonthly_Classwise_WithStandardCost},
    {StandardPrice, rtMonthly_Classwise_WithStandardPrice},
    {SimpleAvg, rtMonthly_Classwise_WithSimpleAvg},
};
// Godowns have no simple average: the weighted one stands in.
constexpr ReportTypeRule kGodownTypes[] = {
    {FifoRate, rtMonthly_Godownwise_WithFifo},
    {LifoRate, rtMonthly_Godownwise_WithLifo},
    {AverageRate, rtMonthly_Godownwise_WithAvg},
    {LastPurchaseRate, rtMonthly_Godownwise_WithLastPurchase},
    {LastSaleRate, rtMonthly_Godownwise_WithLastSale},
    {standardrate, rtMonthly_Godownwise_WithStandardCost},
    {StandardPrice, rtMonthly_Godownwise_WithStandardPrice},
    {SimpleAvg, rtMonthly_Godownwise_WithAvg},
};
constexpr ReportTypeRule kGodownItemTypes[] = {
    {FifoRate, rtMonthly_GodownItemwise_WithFifo},
    {LifoRate, rtMonthly_GodownItemwise_WithLifo},
    {AverageRate, rtMonthly_GodownItemwise_WithAvg},
    {LastPurchaseRate, rtMonthly_GodownItemwise_WithLastPurchase},
    {LastSaleRate, rtMonthly_GodownItemwise_WithLastSale},
    {standardrate, rtMonthly_GodownItemwise_WithStandardCost},
    {StandardPrice, rtMonthly_GodownItemwise_WithStandardPrice},
    {SimpleAvg, rtMonthly_GodownItemwise_WithAvg},
};

constexpr Operation Ledger(std::string_view name, std::string_view help,
                           std::span<const Argument> arguments,
                           std::span<const ReportTypeRule> types) {
  return {name, "monthly", LaunchKind::kFetch, ReturnKind::kRowset,
          help, arguments, "ValuationMethod",  types};
}

constexpr Operation kOperations[] = {
    Ledger("Monthly_Itemwise", "One item month by month.", kItem, kItemTypes),
    Ledger("Monthly_Categorywise", "The items of one category month by month.", kGroup,
           kCategoryTypes),
    Ledger("Monthly_Classwise", "The items of one class month by month.", kGroup, kClassTypes),
    Ledger("Monthly_Godownwise", "The items of one godown month by month.", kGroup, kGodownTypes),
    Ledger("Monthly_GodownItemwise", "One item in one godown month by month.", kGodownItem,
           kGodownItemTypes),
};

}  // namespace

std::span<const Operation> MonthlyOperations() { return kOperations; }

}  // namespace pstolvane1::automation
