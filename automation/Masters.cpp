#include "automation/Masters.h"

#include <algorithm>

#include "session/data/TextFold.h"

namespace pstolvane1::automation {
namespace {

// Uncleared bank items, receipts and job cards.
constexpr std::int32_t kKindsWithoutType[] = {5, 9, 43};

constexpr Master Tree(std::string_view word, std::string_view one, std::string_view table,
                      std::string_view key, std::string_view name) {
  return {word, one, table, key, name, true, {}, {}, "RelatedTo"};
}

}  // namespace

const Master kItems{"items", "item", "Items1", "Item_id", "ItemName", true};
const Master kCategories =
    Tree("groups", "item category", "ItemCategory1", "ItemCategory_id", "CategoryName");
const Master kClasses = Tree("classes", "item class", "ItemClass1", "ItemClass_id", "ClassName");
const Master kGodowns = Tree("godowns", "godown", "Godown1", "Godown_id", "GodownName");
const Master kParties{"parties", "party", "LedgerNames1", "Ledger_id", "LedgerName"};
const Master kEmployees{"employees", "employee", "Employee1", "Employee_id", "EmployeeName"};
const Master kVouchertypes{"vouchertypes", "voucher type", "Vouchertype1",   "SubRelatedTo",
                           "Vouchertype",  false,          "Vouchertype_id", kKindsWithoutType};
const Master kMechanics{"mechanics", "mechanic", "MechanicName", "Mechanic_id", "MechanicName"};
const Master kFinanciers{"financiers", "financier", "Hypo", "Hypo_id", "Name"};
const Master kPartyGroups{"partygroups", "party group", "SubgroupName1", "Subgroup_id",
                          "SubgroupName"};
const Master kColours{"colours", "colour", "Color1", "Color_id", "Color"};
const Master kBatches{"batches", "batch", "Batches1", "Batch_id", "BatchCode"};

std::span<const Master* const> Masters() {
  static constexpr const Master* kAll[] = {&kItems,      &kCategories,  &kClasses,      &kGodowns,
                                           &kParties,    &kEmployees,   &kVouchertypes, &kMechanics,
                                           &kFinanciers, &kPartyGroups, &kColours,      &kBatches};
  return kAll;
}

const Master* FindMaster(std::string_view word) {
  const auto all = Masters();
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const Master* one) { return EqualFolded(one->word, word); });
  return found == all.end() ? nullptr : *found;
}

}  // namespace pstolvane1::automation
