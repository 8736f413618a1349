#include "analysis/MovementGrouping.h"

#include <algorithm>
#include <iterator>

namespace pstolvane1 {
namespace {

constexpr std::string_view kParties =
    "inner join ledgernames1 on ledgernames1.ledger_id = aaa.ledger_id ";
constexpr std::string_view kOneParty = " and Ledgernames1.Ledger_Id  = ";

constexpr MovementGrouping kGroupings[] = {
    {.asked = rtMovement_LedgerAnalysis,
     .sales = rtMovement_SalesReturns_LedgerAnalysis,
     .purchases = rtMovement_PurchaseReturns_LedgerAnalysis,
     .member = MovementMember::kItem,
     .name = "PartyName",
     .id = "Ledger_Id",
     .key = "ledgernames1.ledger_id as ledger_id",
     .join = "",
     .one = kOneParty,
     .names = "ledgernames1.ledgername as PartyName",
     .tables = kParties,
     .order = "ledgernames1.ledgername,aaa.ledger_id,items1.itemname,aaa.item_id"},
    {.asked = rtMovement_ItemAnalysis,
     .sales = rtMovement_SalesReturns_ItemAnalysis,
     .purchases = rtMovement_PurchaseReturns_ItemAnalysis,
     .member = MovementMember::kParty,
     .name = "itemname",
     .id = "item_Id",
     .key = "ledgernames1.ledger_id as ledger_id",
     .join = "",
     .one = " and Items1.Item_Id = ",
     .names = "ledgernames1.ledgername as PartyName",
     .tables = kParties,
     .order = "items1.itemname,aaa.item_id,ledgernames1.ledgername,aaa.ledger_id"},
    {.asked = rtMovement_GroupAnalysis,
     .sales = rtMovement_SalesReturns_GroupAnalysis,
     .purchases = rtMovement_PurchaseReturns_GroupAnalysis,
     .member = MovementMember::kItem,
     .name = "SubGroupname",
     .id = "SubGroup_Id",
     .key = "subgroupname1.subgroup_id as subgroup_id",
     .join = "inner join subgroupname1 on ledgernames1.subgroup_id = subgroupname1.subgroup_id ",
     .one = " and SubGroupname1.SubGroup_Id = ",
     .names = "subgroupname1.subgroupname as SubGroupname",
     .tables = "inner join subgroupname1 on subgroupname1.subgroup_id = aaa.subgroup_id ",
     .order = "subgroupname1.subgroupname,aaa.subgroup_id,items1.itemname,aaa.item_id"},
    {.asked = rtMovement_CategoryAnalysis,
     .sales = rtMovement_SalesReturns_CategoryAnalysis,
     .purchases = rtMovement_PurchaseReturns_CategoryAnalysis,
     .member = MovementMember::kItem,
     .name = "Categoryname",
     .id = "ItemCategory_Id",
     .key = "itemcategory1.itemcategory_id as itemcategory_id",
     .join = "inner join itemcategory1 on itemcategory1.itemcategory_id = items1.itemcategory_id ",
     .one = " and ItemCategory1.ItemCategory_Id = ",
     .names = "itemcategory1.categoryname as Categoryname",
     .tables = "inner join itemcategory1 on itemcategory1.itemcategory_id = aaa.itemcategory_id ",
     .order = "itemcategory1.categoryname,aaa.itemcategory_id,items1.itemname,aaa.item_id"},
    // Classes come in the columns of the categories, so that the two are one report.
    {.asked = rtMovement_ClassAnalysis,
     .sales = rtMovement_SalesReturns_ClassAnalysis,
     .purchases = rtMovement_PurchaseReturns_ClassAnalysis,
     .member = MovementMember::kItem,
     .name = "Categoryname",
     .id = "ItemCategory_Id",
     .key = "itemclass1.itemclass_id as itemcategory_id",
     .join = "inner join itemclass1 on itemclass1.itemclass_id = items1.itemclass_id ",
     .one = " and ItemClass1.ItemClass_Id = ",
     .names = "itemclass1.classname as Categoryname",
     .tables = "inner join itemclass1 on itemclass1.itemclass_id = aaa.itemcategory_id ",
     .order = "itemclass1.classname,aaa.itemcategory_id,items1.itemname,aaa.item_id"},
    {.asked = rtMovement_AreaLedgerAnalysis,
     .sales = rtMovement_SalesReturns_AreaLedgerAnalysis,
     .purchases = rtMovement_PurchaseReturns_AreaLedgerAnalysis,
     .member = MovementMember::kItem,
     .name = "PartyName",
     .id = "Ledger_Id",
     .key = "ledgernames1.ledger_id as ledger_id",
     .join = "",
     .one = kOneParty,
     .names = "ledgernames1.ledgername as PartyName,ledgernames1.pin as Pin",
     .tables = kParties,
     .order = "ledgernames1.pin,ledgernames1.ledgername,aaa.ledger_id,items1.itemname,aaa.item_id"},
    {.asked = rtMovement_SalesReturns_ItemRelationAnalysis,
     .sales = rtMovement_SalesReturns_ItemRelationAnalysis,
     .purchases = rtMovement_SalesReturns_ItemRelationAnalysis,
     .member = MovementMember::kItem,
     .name = "PartyName",
     .id = "Ledger_Id",
     .key = "ledgernames1.ledger_id as ledger_id",
     .join = "",
     .one = kOneParty,
     .names = "ledgernames1.ledgername as PartyName",
     .tables = kParties,
     .order = "ledgernames1.ledgername,aaa.ledger_id,items1.itemname,aaa.item_id"},
};

}  // namespace

const MovementGrouping* FindMovementGrouping(MovementSide side, std::int32_t report_type) {
  const auto* found = std::ranges::find_if(kGroupings, [=](const MovementGrouping& one) {
    if (side == MovementSide::kPurchases && one.purchases == one.asked) return false;
    return report_type == one.asked || report_type == StoredType(side, one);
  });
  return found == std::end(kGroupings) ? nullptr : found;
}

ReportType StoredType(MovementSide side, const MovementGrouping& grouping) {
  return side == MovementSide::kSales ? grouping.sales : grouping.purchases;
}

bool IsByArea(const MovementGrouping& grouping) {
  return grouping.asked == rtMovement_AreaLedgerAnalysis;
}

}  // namespace pstolvane1
