#include "monthly/MonthlyKeys.h"

#include <fmt/format.h>

#include "session/mInternationalization.h"

namespace pstolvane1 {

std::string ComposeMonthlyKeys(const MonthlyArguments& arguments) {
  const QueryPart subject = MovementsOf(arguments);
  constexpr std::string_view kKey =
      "godownitem1.item_id , godownitem1.godown_id , godownitem1.batch_id";
  return fmt::format(
      "select {0} , uom1.uomname as uom , uomalt.uomname as altuom , items1.relationformula as "
      "relformula from godownitem1{1} inner join uom1 on uom1.uom_id = items1.uom_id inner join "
      "uom1 as uomalt on uomalt.uom_id = items1.alternateuom_id where godownitem1.optional = 0 and "
      "{2} group by {0} , uom1.uomname , uomalt.uomname , items1.relationformula order by {0} ",
      kKey, subject.joins, subject.condition);
}

std::string ComposeMonthlyStandards(const MonthlyArguments& arguments, StandardRates which) {
  const QueryPart items = ItemsOf(arguments, "standardrate1.item_id");
  return fmt::format(
      "select standardrate1.item_id , standardrate1.datefrom , standardrate1.dateto , "
      "standardrate1.rate , standardrate1.saleorpurchase , standardrate1.yearno from "
      "standardrate1{} where {} and standardrate1.dateto <= #{}# and standardrate1.yearno <= {} {}"
      "order by standardrate1.item_id , standardrate1.datefrom , standardrate1.dateto , "
      "standardrate1.yearno , standardrate1.rate ",
      items.joins, items.condition, SqlDateText(arguments.dtToDate), arguments.bytYearno,
      which == StandardRates::kCosts ? "and standardrate1.saleorpurchase = false " : "");
}

std::string MonthKeyOf(std::string_view date) {
  return fmt::format("year({0}) * 100 + month({0})", date);
}

StockUnits ReadMonthlyUnits(const MonthlyArguments& arguments, const Recordset& keys) {
  if (!IsOfOneItem(arguments)) return {};
  const ColumnHandle unit = keys.Column("Uom");
  const ColumnHandle alt_unit = keys.Column("AltUom");
  const ColumnHandle relation = keys.Column("RelFormula");
  StockUnits units;
  for (const Recordset::Row row : keys.Rows()) {
    units = {.item = std::to_string(arguments.lngAny_Id1),
             .unit = std::string(row.Text(unit)),
             .alt_unit = std::string(row.Text(alt_unit)),
             .relation_formula = row.IsNull(relation) ? 0 : row.Single(relation)};
  }
  return units;
}

}  // namespace pstolvane1
