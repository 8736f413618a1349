#include <fmt/format.h>

#include "bills/MultiplePriceList.h"

namespace pstolvane1 {

std::string ComposeMultiplePriceList(std::int32_t lngCategory_Id, std::int32_t lngClass_Id,
                                     std::string_view itemstate, std::string_view cosiderforsih) {
  std::string text =
      "SELECT  "
      "DateFrom,DateTo,PriceListDiscount1.Item_id,Price1,Price2,price3,price4,price5,price6,"
      "Classname,Categoryname,items1.itemname as itemname,items1.partno as partno "
      "From PriceListDiscount1 "
      "inner join items1 on PriceListdiscount1.item_id = items1.item_id "
      "inner join itemclass1 on itemClass1.itemClass_id = items1.itemclass_id inner join "
      "itemcategory1 on itemcategory1.itemcategory_id = items1.itemcategory_id  ";
  if (lngCategory_Id != -1) {
    text += fmt::format("Where ItemCategory1.ItemCategory_id = {}", lngCategory_Id);
  }
  if (lngClass_Id != -1) text += fmt::format("and ItemClass1.ItemClass_id = {}", lngClass_Id);
  if (!itemstate.empty() && itemstate != "1,2") text.append(" and ItemState= ").append(itemstate);
  return text.append(" and ")
      .append(cosiderforsih)
      .append("  ORDER BY  items1.item_id,items1.itemname ");
}

}  // namespace pstolvane1
