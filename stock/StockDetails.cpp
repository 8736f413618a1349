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

using QueryBuilder = SourceQueries (*)(const modStolvane1&, const StockArguments&);

struct Method {
  enmValuationMethod method;
  QueryBuilder item, group;
};

constexpr Method kMethods[] = {
    {FifoRate, &StockDetails_Item_FifoLifo, &StockDetails_Group_FifoLifo},
    {LifoRate, &StockDetails_Item_FifoLifo, &StockDetails_Group_FifoLifo},
    {AverageRate, &StockDetails_Item_Avg, &StockDetails_Group_Avg},
    {LastPurchaseRate, StockDetails_Item_LastPurchase, StockDetails_Group_LastPurchase},
    {LastSaleRate, StockDetails_Item_LastSale, StockDetails_Group_LastSale},
    {standardrate, StockDetails_Item_StdCost, StockDetails_Group_StdCost},
    {StandardPrice, StockDetails_Item_StdPrice, StockDetails_Group_StdPrice},
    {SimpleAvg, &StockDetails_Item_SimpleAvg, &StockDetails_Group_SimpleAvg},
};

QueryBuilder BuilderOf(const StockArguments& arguments) {
  const auto* method =
      std::find_if(std::begin(kMethods), std::end(kMethods),
                   [&](const Method& one) { return one.method == arguments.ValuationMethod; });
  return arguments.tree == StockTree::kItem ? method->item : method->group;
}

// Under the average an Or of the host's weakens no condition beside its own.
std::string Condition(enmValuationMethod method, std::string_view strConsiderForSih,
                      std::string_view strItemstate) {
  const std::string clause = ItemStateClause(strConsiderForSih, strItemstate);
  if (clause.empty()) return {};
  return method == AverageRate ? " And ( " + clause + " )" : " And " + clause;
}

}  // namespace

RecordsetPtr StockDetails(ReportFrame& frame, StockArguments arguments, Boolean blnReport,
                          std::string_view strConsiderForSih, std::string_view strItemstate) {
  const auto report_type = StockReportType(arguments.ValuationMethod, arguments.tree);
  if (!report_type) return nullptr;
  arguments.ValuationMethod =
      MethodUnder(arguments.ValuationMethod, arguments.tree == StockTree::kGodown);
  arguments.condition = Condition(arguments.ValuationMethod, strConsiderForSih, strItemstate);
  // The simple average has nothing below an item.
  if (*report_type == rtStockDetails_Itemwise_WithSimpleAvg) arguments.blnDetailed = false;
  modStolvane1& module = frame.module;
  module.Keep(arguments);
  // The statements always fill all groups of columns, whatever the host asks for.
  module.blnShowOpening = module.blnShowInwards = module.blnShowOutwards = true;
  return Launch(frame, *report_type, blnReport, BuilderOf(arguments)(module, arguments));
}

}  // namespace pstolvane1
