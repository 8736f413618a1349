#include "automation/Families.h"
#include "session/ReportType.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1::automation {
namespace {

// One signature serves the four statements.
constexpr Argument kArguments[] = {
    kYear,
    kFrom,
    kTo,
    OneOf("ValuationMethod", kValuationMethod,
          "How stock is valued; CurrentRate gives an empty result."),
    Int32("lngAny_Id1", "The group whose tree is listed, -1 for all; not used item by item."),
    Int32("lngAny_Id2", kNotUsed),
    kReport,
    Flag("blnDetailed", "A line for each godown and batch as well."),
    Flag("blnAltUom", "Fill the columns of the alternate unit."),
    kScale,
    Flag("blnOnlyItems", "The named group alone, not its tree; not used item by item."),
    Flag("blnShowOpening", kNotUsed),
    Flag("blnShowInwards", kNotUsed),
    Flag("blnShowOutwards", kNotUsed),
    kConsider.Optional(),
    kStates.Optional(),
};

constexpr ReportTypeRule kItemTypes[] = {
    {FifoRate, rtStockDetails_Itemwise_WithFifoLifo},
    {LifoRate, rtStockDetails_Itemwise_WithFifoLifo},
    {AverageRate, rtStockDetails_Itemwise_WithAvg},
    {LastPurchaseRate, rtStockDetails_Itemwise_WithLastPurchase},
    {LastSaleRate, rtStockDetails_Itemwise_WithLastSale},
    {standardrate, rtStockDetails_Itemwise_WithStandardCost},
    {StandardPrice, rtStockDetails_Itemwise_WithStandardPrice},
    {SimpleAvg, rtStockDetails_Itemwise_WithSimpleAvg},
};
constexpr ReportTypeRule kCategoryTypes[] = {
    {FifoRate, rtStockDetails_Categorywise_WithFifoLifo},
    {LifoRate, rtStockDetails_Categorywise_WithFifoLifo},
    {AverageRate, rtStockDetails_Categorywise_WithAvg},
    {LastPurchaseRate, rtStockDetails_Categorywise_WithLastPurchase},
    {LastSaleRate, rtStockDetails_Categorywise_WithLastSale},
    {standardrate, rtStockDetails_Categorywise_WithStandardCost},
    {StandardPrice, rtStockDetails_Categorywise_WithStandardPrice},
    {SimpleAvg, rtStockDetails_Categorywise_WithSimpleAvg},
};
constexpr ReportTypeRule kClassTypes[] = {
    {FifoRate, rtStockDetails_Classwise_WithFifoLifo},
    {LifoRate, rtStockDetails_Classwise_WithFifoLifo},
    {AverageRate, rtStockDetails_Classwise_WithAvg},
    {LastPurchaseRate, rtStockDetails_Classwise_WithLastPurchase},
    {LastSaleRate, rtStockDetails_Classwise_WithLastSale},
    {standardrate, rtStockDetails_Classwise_WithStandardCost},
    {StandardPrice, rtStockDetails_Classwise_WithStandardPrice},
    {SimpleAvg, rtStockDetails_Classwise_WithSimpleAvg},
};
// Godowns have no simple average: the weighted one stands in.
constexpr ReportTypeRule kGodownTypes[] = {
    {FifoRate, rtStockDetails_Godownwise_WithFifoLifo},
    {LifoRate, rtStockDetails_Godownwise_WithFifoLifo},
    {AverageRate, rtStockDetails_Godownwise_WithAvg},
    {LastPurchaseRate, rtStockDetails_Godownwise_WithLastPurchase},
    {LastSaleRate, rtStockDetails_Godownwise_WithLastSale},
    {standardrate, rtStockDetails_Godownwise_WithStandardCost},
    {StandardPrice, rtStockDetails_Godownwise_WithStandardPrice},
    {SimpleAvg, rtStockDetails_Godownwise_WithAvg},
};

constexpr Operation Statement(std::string_view name, std::string_view help,
                              std::span<const ReportTypeRule> types) {
  return {name, "stock",    LaunchKind::kFetch, ReturnKind::kRowset,
          help, kArguments, "ValuationMethod",  types};
}

constexpr Operation kOperations[] = {
    Statement("StockDetails_Itemwise", "Opening, inwards, outwards and closing stock by item.",
              kItemTypes),
    Statement("StockDetails_Categorywise", "The same under the tree of item categories.",
              kCategoryTypes),
    Statement("StockDetails_Classwise", "The same under the tree of item classes.", kClassTypes),
    Statement("StockDetails_Godownwise", "The same under the tree of godowns.", kGodownTypes),
};

}  // namespace

std::span<const Operation> StockOperations() { return kOperations; }

}  // namespace pstolvane1::automation
