#include <fmt/format.h>

#include "analysis/DailyAnalysis.h"
#include "analysis/MovementConditions.h"

namespace pstolvane1 {
namespace {

std::string Conditions(const DailyArguments& arguments, const DailyGrouping& grouping,
                       const DocumentFilter& filter) {
  const std::string second = arguments.lngId2 == 0
                                 ? std::string()
                                 : fmt::format("{}{}", grouping.second, arguments.lngId2);
  const bool purchases = arguments.side == MovementSide::kPurchases;
  return fmt::format("{} desr1.deleted = 0 and{}{}{}{}{}{}{}", FilterOfAnalysis(filter),
                     DocumentsOf(arguments.side), purchases ? "and DESRDETAILS1.OPTIONAL = 0 " : "",
                     grouping.one, arguments.lngId, second,
                     StatesOf(arguments.strConsiderForSih, arguments.strItemstate),
                     DatedBetween(arguments.dtFromDate, arguments.dtToDate));
}

}  // namespace

std::string ComposeDays(const DailyArguments& arguments, const DocumentFilter& filter) {
  static constexpr DailyGrouping kNone{};
  const auto* found = FindDailyGrouping(arguments.side, arguments.reptype);
  const DailyGrouping& grouping = found ? *found : kNone;
  const MovementQuantities quantities = QuantitiesOf(arguments.side);
  return fmt::format(
      "select aaa.date,ledgernames1.ledgername as PartyName,aaa.quantityout,aaa.quantityin,"
      "aaa.[value],items1.itemname as Itemname,aaa.ledger_id,aaa.item_id from ( "
      "select desr1.date,items1.item_id,ledgernames1.ledger_id,{} as quantityout,{} as quantityin,"
      "sum({}) as [value] from {}where {}"
      "group by items1.item_id,ledgernames1.ledger_id,desr1.date ) as aaa "
      "inner join items1 on items1.item_id = aaa.item_id "
      "inner join ledgernames1 on ledgernames1.ledger_id = aaa.ledger_id order by {}",
      quantities.out, quantities.in,
      LineValue("(desrdetails1.billedqty - desrdetails1.qtyreturned)"), kMovementTables,
      Conditions(arguments, grouping, filter), grouping.order);
}

}  // namespace pstolvane1
