#include "stock/StockDetails.h"

#include <algorithm>
#include <iterator>

#include "session/QueryText.h"
#include "stock/Average.h"
#include "stock/FifoLifo.h"
#include "stock/HuntedRate.h"
#include "stock/SimpleAverage.h"

namespace pstolvane1 {
namespace {

using Builder = RecordsetPtr (*)(ReportFrame&, const StockArguments&);

// The types of a method follow each other: by item, category, class and godown.
struct Method {
  enmValuationMethod method;
  ReportType by_item;
  Builder item, group;
};

constexpr Method kMethods[] = {
    {FifoRate, rtStockDetails_Itemwise_WithFifoLifo, &StockDetails_Item_FifoLifo,
     &StockDetails_Group_FifoLifo},
    {LifoRate, rtStockDetails_Itemwise_WithFifoLifo, &StockDetails_Item_FifoLifo,
     &StockDetails_Group_FifoLifo},
    {AverageRate, rtStockDetails_Itemwise_WithAvg, &StockDetails_Item_Avg, &StockDetails_Group_Avg},
    {LastPurchaseRate, rtStockDetails_Itemwise_WithLastPurchase, StockDetails_Item_LastPurchase,
     StockDetails_Group_LastPurchase},
    {LastSaleRate, rtStockDetails_Itemwise_WithLastSale, StockDetails_Item_LastSale,
     StockDetails_Group_LastSale},
    {standardrate, rtStockDetails_Itemwise_WithStandardCost, StockDetails_Item_StdCost,
     StockDetails_Group_StdCost},
    {StandardPrice, rtStockDetails_Itemwise_WithStandardPrice, StockDetails_Item_StdPrice,
     StockDetails_Group_StdPrice},
    {SimpleAvg, rtStockDetails_Itemwise_WithSimpleAvg, &StockDetails_Item_SimpleAvg,
     &StockDetails_Group_SimpleAvg},
};

// The average's outer query has no WHERE of its own.
std::string Condition(enmValuationMethod method, std::string_view strConsiderForSih,
                      std::string_view strItemstate) {
  const std::string clause = ItemStateClause(strConsiderForSih, strItemstate);
  if (clause.empty()) return {};
  return (method == AverageRate ? " Where " : " And ") + clause;
}

void Remember(modStolvane1& module, const StockArguments& arguments) {
  module.bytYearno = arguments.bytYearno;
  module.SetPeriod(arguments.dtFromDate, arguments.dtToDate);
  module.ValuationMethod = arguments.ValuationMethod;
  module.sngScale = arguments.sngScale;
  module.blnDetailed = arguments.blnDetailed;
  module.blnAltUom = arguments.blnAltUom;
  module.blnOnlyItems = arguments.blnOnlyItems;
  module.lngAny_Id1 = arguments.lngAny_Id1;
  // The statements always fill all groups of columns, whatever the host asks for.
  module.blnShowOpening = module.blnShowInwards = module.blnShowOutwards = true;
}

}  // namespace

RecordsetPtr StockDetails(ReportFrame& frame, StockArguments arguments,
                          std::string_view strConsiderForSih, std::string_view strItemstate) {
  if (arguments.tree == StockTree::kGodown && arguments.ValuationMethod == SimpleAvg) {
    arguments.ValuationMethod = AverageRate;  // godowns have no simple average
  }
  const auto* method =
      std::find_if(std::begin(kMethods), std::end(kMethods),
                   [&](const Method& one) { return one.method == arguments.ValuationMethod; });
  if (method == std::end(kMethods)) return nullptr;
  arguments.condition = Condition(method->method, strConsiderForSih, strItemstate);
  frame.lngReportType = method->by_item + static_cast<std::int32_t>(arguments.tree);
  Remember(frame.module, arguments);
  const Builder builder = arguments.tree == StockTree::kItem ? method->item : method->group;
  return builder(frame, arguments);
}

}  // namespace pstolvane1
