#include <gtest/gtest.h>

#include "bills/MultiplePriceList.h"

namespace pstolvane1 {
namespace {

const std::string kSelect =
    "SELECT  "
    "DateFrom,DateTo,PriceListDiscount1.Item_id,Price1,Price2,price3,price4,price5,price6,"
    "Classname,Categoryname,items1.itemname as itemname,items1.partno as partno "
    "From PriceListDiscount1 inner join items1 on PriceListdiscount1.item_id = items1.item_id "
    "inner join itemclass1 on itemClass1.itemClass_id = items1.itemclass_id inner join "
    "itemcategory1 on itemcategory1.itemcategory_id = items1.itemcategory_id  ";

const std::string kOrder = "  ORDER BY  items1.item_id,items1.itemname ";

TEST(ComposeMultiplePriceList, OfACategoryAClassAndAnItemState) {
  EXPECT_EQ(ComposeMultiplePriceList(4, 7, "1", "Items1.ConsiderForSih = 1"),
            kSelect +
                "Where ItemCategory1.ItemCategory_id = 4and ItemClass1.ItemClass_id = 7 and "
                "ItemState= 1 and Items1.ConsiderForSih = 1" +
                kOrder);
}

TEST(ComposeMultiplePriceList, ItemStates1And2AddNoClause) {
  EXPECT_EQ(ComposeMultiplePriceList(4, -1, "1,2", "X = 1"),
            kSelect + "Where ItemCategory1.ItemCategory_id = 4 and X = 1" + kOrder);
  EXPECT_EQ(ComposeMultiplePriceList(4, -1, "", "X = 1"),
            ComposeMultiplePriceList(4, -1, "1,2", "X = 1"));
}

TEST(ComposeMultiplePriceList, CategoryMinus1LeavesTheClausesWithoutWhere) {
  EXPECT_EQ(ComposeMultiplePriceList(-1, -1, "", "X = 1"), kSelect + " and X = 1" + kOrder);
  EXPECT_EQ(ComposeMultiplePriceList(-1, 7, "2", "X = 1"),
            kSelect + "and ItemClass1.ItemClass_id = 7 and ItemState= 2 and X = 1" + kOrder);
}

TEST(ComposeMultiplePriceList, AnEmptyConditionLeavesADanglingAnd) {
  EXPECT_EQ(ComposeMultiplePriceList(4, -1, "", ""),
            kSelect + "Where ItemCategory1.ItemCategory_id = 4 and " + kOrder);
}

}  // namespace
}  // namespace pstolvane1
