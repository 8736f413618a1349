#include "analysis/MovementConditions.h"

#include <fmt/format.h>

#include "movements/QueryFilter.h"
#include "session/QueryText.h"
#include "session/mInternationalization.h"

namespace pstolvane1 {

std::string LineValue(std::string_view quantity) {
  return fmt::format(
      "case when desrdetails1.isaltrate = 0 then case when desrdetails1.isaltunit = 0 then "
      "{0} * desrdetails1.price else ({0} * items1.relationformula) * desrdetails1.price end "
      "else case when desrdetails1.isaltunit = 1 then {0} * desrdetails1.altrate else "
      "({0} / items1.relationformula) * desrdetails1.altrate end end",
      quantity);
}

MovementQuantities QuantitiesOf(MovementSide side) {
  if (side == MovementSide::kSales) {
    return {.in = "sum(desrdetails1.qtydespin + desrdetails1.qtyreturned)",
            .out = "sum(desrdetails1.qtydespout)"};
  }
  return {.in = "sum(desrdetails1.qtydespin)",
          .out = "sum(desrdetails1.qtydespout + desrdetails1.qtyreturned)"};
}

std::string FilterOfAnalysis(const DocumentFilter& filter) {
  return FilterOfDocuments(filter, Vouchertype::kJoined).Conditions();
}

std::string_view DocumentsOf(MovementSide side) {
  return side == MovementSide::kSales
             ? " vouchertype1.relatedto in (10,11) and Vouchertype1.subrelatedto <> 43 "
             : " vouchertype1.relatedto in (7,8) ";
}

std::string DatedBetween(Date from, Date to) {
  return fmt::format(" and desr1.date BETWEEN #{}# and #{}# ", SqlDateText(from), SqlDateText(to));
}

std::string StatesOf(std::string_view strConsiderForSih, std::string_view strItemstate) {
  const std::string clause = ItemStateClause(strConsiderForSih, strItemstate);
  return clause.empty() ? clause : " And " + clause;
}

}  // namespace pstolvane1
