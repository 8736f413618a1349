#include "monthly/MonthlyKeys.h"

#include <algorithm>
#include <fmt/format.h>
#include <tuple>

#include "session/mInternationalization.h"

namespace pstolvane1 {

std::string ComposeMonthlyItems(const MonthlyArguments& arguments) {
  if (IsOfOneItem(arguments)) {
    return fmt::format(
        "select items1.item_id , uom1.uomname as uom , uomalt.uomname as altuom , "
        "items1.relationformula as relformula from items1{} where items1.deleted = 0 and "
        "items1.item_id = {} ",
        kUnitJoins, arguments.lngAny_Id1);
  }
  const auto of_group = [&arguments](std::string_view column) {
    return fmt::format("and items1.{} = {} ", column, arguments.lngAny_Id1);
  };
  const std::string group = arguments.tree == MonthlyTree::kCategory ? of_group("itemcategory_id")
                            : arguments.tree == MonthlyTree::kClass  ? of_group("itemclass_id")
                                                                     : "";
  return fmt::format(
      "select items1.item_id from items1 where items1.deleted = 0 {}and items1.yearofcreation <= "
      "{} order by items1.item_id ",
      group, arguments.bytYearno);
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

std::vector<StockKey> StockKeysOf(std::initializer_list<const RowGroups*> by_key) {
  std::vector<StockKey> keys;
  for (const RowGroups* groups : by_key) {
    for (const RowGroups::Group& group : *groups) {
      const Recordset::Row row = group.First();
      keys.push_back(
          {row["Item_Id"].ToInt64(), {row["Godown_Id"].ToInt64(), row["Batch_Id"].ToInt64()}});
    }
  }
  const auto order = [](const StockKey& key) { return std::tie(key.item_id, key.place); };
  std::ranges::sort(keys, {}, order);
  const auto same = [&](const StockKey& a, const StockKey& b) { return order(a) == order(b); };
  keys.erase(std::unique(keys.begin(), keys.end(), same), keys.end());
  return keys;
}

StockUnits ReadMonthlyUnits(const MonthlyArguments& arguments, const Recordset& items) {
  if (!IsOfOneItem(arguments)) return {};
  const ColumnHandle unit = items.Column("Uom");
  const ColumnHandle alt_unit = items.Column("AltUom");
  const ColumnHandle relation = items.Column("RelFormula");
  StockUnits units;
  for (const Recordset::Row row : items.Rows()) {
    units = {.item = std::to_string(arguments.lngAny_Id1),
             .unit = std::string(row.Text(unit)),
             .alt_unit = std::string(row.Text(alt_unit)),
             .relation_formula = row.IsNull(relation) ? 0 : row.Single(relation)};
  }
  return units;
}

}  // namespace pstolvane1
