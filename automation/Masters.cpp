#include "automation/Masters.h"

#include <algorithm>

#include "session/data/TextFold.h"

namespace pstolvane1::automation {
namespace {

// Uncleared bank items, receipts and job cards.
constexpr std::int32_t kKindsWithoutType[] = {5, 9, 43};

}  // namespace

const Master kItems{"items", "item", "Items1", "Item_id", "ItemName", true};
const Master kCategories{"groups",          "item category", "ItemCategory1",
                         "ItemCategory_id", "CategoryName",  true};
const Master kClasses{"classes", "item class", "ItemClass1", "ItemClass_id", "ClassName", true};
const Master kGodowns{"godowns", "godown", "Godown1", "Godown_id", "GodownName", true};
const Master kParties{"parties", "party", "LedgerNames1", "Ledger_id", "LedgerName"};
const Master kEmployees{"employees", "employee", "Employee1", "Employee_id", "EmployeeName"};
const Master kVouchertypes{"vouchertypes", "voucher type", "Vouchertype1",   "SubRelatedTo",
                           "Vouchertype",  false,          "Vouchertype_id", kKindsWithoutType};
const Master kMechanics{"mechanics", "mechanic", "MechanicName", "Mechanic_id", "MechanicName"};
const Master kFinanciers{"financiers", "financier", "Hypo", "Hypo_id", "Name"};

std::span<const Master* const> Masters() {
  static constexpr const Master* kAll[] = {&kItems,        &kCategories, &kClasses,
                                           &kGodowns,      &kParties,    &kEmployees,
                                           &kVouchertypes, &kMechanics,  &kFinanciers};
  return kAll;
}

const Master* FindMaster(std::string_view word) {
  const auto all = Masters();
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const Master* one) { return EqualFolded(one->word, word); });
  return found == all.end() ? nullptr : *found;
}

}  // namespace pstolvane1::automation
