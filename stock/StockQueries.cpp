#include "stock/StockQueries.h"

#include <fmt/format.h>

#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

struct TreeTexts {
  std::string_view groups;  // the tree's own query
  std::string_view select;  // in the place of kGroupOfKey
  std::string_view column;  // in a GROUP BY
};

const TreeTexts& TextsOf(StockTree tree) {
  static constexpr TreeTexts kCategory{
      "Select ItemCategory_Id  , RelatedTo , ITEMCATEGORY1.Categoryname AS CATEGORYNAME From "
      "ItemCategory1 where Deleted = False  Order By itemsCategory1.CategoryName , "
      "ItemCategory_Id ",
      "items1.itemcategory_id", "items1.itemcategory_id"};
  static constexpr TreeTexts kClass{
      "Select ItemClass_Id as ItemCategory_Id  , RelatedTo , ITEMCLASS1.Classname as Categoryname "
      "From ItemClass1 where Deleted = False  Order By ItemClass1.ClassName , ItemClass_Id ",
      "items1.itemclass_id as itemcategory_id", "items1.itemclass_id"};
  static constexpr TreeTexts kGodown{
      "Select Godown_Id as ItemCategory_Id , RelatedTo , GODOWN1.Godownname as Categoryname from "
      "Godown1 where deleted = false Order By Godown1.GodownName , Godown_Id ",
      "godown1.godown_id as itemcategory_id", "godown1.godown_id"};
  switch (tree) {
    case StockTree::kClass:
      return kClass;
    case StockTree::kGodown:
      return kGodown;
    default:
      return kCategory;
  }
}

// "condition and " in a form that undated rows pass.
std::string KeepingUndated(std::string_view condition, std::string_view movements) {
  const std::size_t end = condition.rfind("and");
  return fmt::format("(({} ) or {}.date is null ) and ", condition.substr(0, end), movements);
}

}  // namespace

MovementFilter FilterOfMovements(const DocumentFilter& filter, Undated undated,
                                 std::string_view movements) {
  std::string join, documents, vouchers, groups;
  std::string condition = BuildVouchertypeFilter(filter, 5, join, 2);
  condition += BuildOptionalFilter(filter, 5, 2);
  BuildSubgroupFilter(filter, false, documents, vouchers, "", 2, groups);
  condition += groups;
  join = ReplaceAll(LowerCase(join), "godownitem1.", std::string(movements) + ".");
  condition = ReplaceAll(LowerCase(condition), "godownitem1.", std::string(movements) + ".");
  if (undated == Undated::kKept && !condition.empty()) {
    condition = KeepingUndated(condition, movements);
    join = ReplaceAll(join, "inner", "left");
  }
  return {.join = std::move(join), .condition = std::move(condition)};
}

MovementFilter FilterOfDocuments(const DocumentFilter& filter) {
  std::string join, documents, vouchers, groups;
  std::string condition = BuildVouchertypeFilter(filter, 4, join, 2);
  condition += BuildOptionalFilter(filter, 3, 2);
  BuildSubgroupFilter(filter, false, documents, vouchers, "", 2, groups);
  condition += documents;
  return {.join = LowerCase(join), .condition = LowerCase(condition)};
}

std::string ComposeGroupQuery(StockTree tree) { return std::string(TextsOf(tree).groups); }

std::string SelectGroup(StockTree tree) {
  return tree == StockTree::kItem ? std::string() : std::string(kGroupOfKey) + " , ";
}

std::string GroupByGroup(StockTree tree) {
  return tree == StockTree::kItem ? std::string() : std::string(TextsOf(tree).column) + " , ";
}

ColumnSwap GroupSwap(StockTree tree) {
  if (tree == StockTree::kItem || tree == StockTree::kCategory) return {};
  return {kGroupOfKey, TextsOf(tree).select};
}

std::string ComposeStandardRates(StandardRates which, std::string_view to, std::uint8_t bytYearno) {
  return fmt::format(
      "select * from standardrate1 where dateto <= #{}# and yearno <=  {} {}", to, bytYearno,
      which == StandardRates::kCosts ? "and saleorpurchase = false order by datefrom , dateto "
                                     : "order by item_Id , datefrom , dateto ");
}

}  // namespace pstolvane1
