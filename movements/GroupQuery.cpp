#include "movements/GroupQuery.h"

namespace pstolvane1 {
namespace {

struct TreeTexts {
  std::string_view groups;  // the tree's own query
  std::string_view select;  // in the place of kGroupOfKey
};

const TreeTexts& TextsOf(StockTree tree) {
  static constexpr TreeTexts kCategory{
      "Select ItemCategory_Id  , RelatedTo , ITEMCATEGORY1.Categoryname AS CATEGORYNAME From "
      "ItemCategory1 where Deleted = False  Order By itemsCategory1.CategoryName , "
      "ItemCategory_Id ",
      "items1.itemcategory_id"};
  static constexpr TreeTexts kClass{
      "Select ItemClass_Id as ItemCategory_Id  , RelatedTo , ITEMCLASS1.Classname as Categoryname "
      "From ItemClass1 where Deleted = False  Order By ItemClass1.ClassName , ItemClass_Id ",
      "items1.itemclass_id as itemcategory_id"};
  static constexpr TreeTexts kGodown{
      "Select Godown_Id as ItemCategory_Id , RelatedTo , GODOWN1.Godownname as Categoryname from "
      "Godown1 where deleted = false Order By Godown1.GodownName , Godown_Id ",
      "godown1.godown_id as itemcategory_id"};
  switch (tree) {
    case StockTree::kClass:
      return kClass;
    case StockTree::kGodown:
      return kGodown;
    default:
      return kCategory;
  }
}

}  // namespace

std::string ComposeGroupQuery(StockTree tree) { return std::string(TextsOf(tree).groups); }

std::string SelectGroup(StockTree tree) {
  return tree == StockTree::kItem ? std::string() : std::string(kGroupOfKey) + " , ";
}

ColumnSwap GroupSwap(StockTree tree) {
  if (tree == StockTree::kItem || tree == StockTree::kCategory) return {};
  return {kGroupOfKey, TextsOf(tree).select};
}

}  // namespace pstolvane1
