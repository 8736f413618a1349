#include "automation/ShortForms.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

#include "automation/Operations.h"
#include "session/data/Error.h"
#include "session/data/TextFold.h"

namespace pstolvane1::automation {
namespace {

constexpr std::string_view kItemsOfTheBooks =
    "select Item_id as ItemNew_id, ItemName, ItemPartNo, UomName from Items1 left join Uom1 on "
    "Items1.Uom_id = Uom1.Uom_id";

constexpr ShortForm Stock(std::string_view by, std::string_view operation, const Master& groups) {
  return {"stock", by,      operation,       "blnOnlyItems=false",
          {},      &groups, "lngAny_Id1={}", "lngAny_Id1=-1"};
}
constexpr ShortForm Months(std::string_view by, std::string_view operation, const Master& groups) {
  return {"months", by, operation, "blnOnlyItems=false", {}, &groups, "lngAny_Id1={}"};
}
constexpr ShortForm Pending(std::string_view by, std::string_view operation, const Master& names,
                            std::string_view fixed, std::string_view only_one) {
  return {"pending", by, operation, fixed, {}, &names, only_one};
}
constexpr ShortForm Movement(std::string_view word, std::string_view by, std::string_view operation,
                             std::string_view fixed) {
  return {word, by, operation, fixed};
}

constexpr ShortForm kForms[] = {
    {"stock",
     "item",
     "StockDetails_Itemwise",
     "",
     {},
     &kItems,
     "strConsiderForSih=Items1.Item_id = {}",
     "strConsiderForSih="},
    Stock("group", "StockDetails_Categorywise", kCategories),
    Stock("class", "StockDetails_Classwise", kClasses),
    Stock("godown", "StockDetails_Godownwise", kGodowns),
    Months("item", "Monthly_Itemwise", kItems),
    Months("group", "Monthly_Categorywise", kCategories),
    Months("class", "Monthly_Classwise", kClasses),
    Months("godown", "Monthly_Godownwise", kGodowns),
    Movement("sales", "party", "Doc_Initial", "lngVouchertype_id=10"),
    Movement("sales", "item", "CustomerItemwise_Analysis",
             "reptype=rtMovement_ItemAnalysis; lngId=-1"),
    Movement("sales", "group", "CategoryWise_Initial",
             "blnIsclass=false; lngId=0; lngVouchertype_id=10"),
    Movement("sales", "class", "CategoryWise_Initial",
             "blnIsclass=true; lngId=0; lngVouchertype_id=10"),
    Movement("purchases", "party", "Doc_Initial", "lngVouchertype_id=7"),
    Movement("purchases", "item", "Movement_PurchaseReturns_Analysis",
             "reptype=rtMovement_ItemAnalysis; lngId=-1"),
    Movement("purchases", "group", "CategoryWise_Initial",
             "blnIsclass=false; lngId=0; lngVouchertype_id=7"),
    Movement("returns", "party", "CustomerItemwise_Analysis",
             "reptype=rtMovement_LedgerAnalysis; lngId=-1"),
    Movement("returns", "item", "CustomerItemwise_Analysis",
             "reptype=rtMovement_ItemAnalysis; lngId=-1"),
    Pending("item", "PendingByItem", kItems, "lngLedger_Id=0", "lngItem_id={}"),
    Pending("party", "PendingByLedger", kParties, "lngItem_id=0", "lngLedger_Id={}"),
    Pending("employee", "PendingByEmployee", kEmployees, "lngVouchertype_id=0",
            "lngEmployee_Id={}"),
    Movement("free", "item", "FreeQuantity_Itemwise_Initial", ""),
    Movement("free", "party", "FreeQuantity_Partywise_Initial", ""),
    {"days",
     "item",
     "ItemWise_DlyBkup",
     "Ledger_id=0; strVouchertype=",
     {},
     &kItems,
     "Item_id={}",
     "Item_id=-1"},
    {"colours", "item", "Colorwise_Initial", "", {}, &kItems, "lngItem_id={}", "lngItem_id=0"},
    {"bills", "party", "BillWiseQuery", "", "recitem"},
    {"commission", "employee", "Commission_Initial",
     "reptype=rtCommission_Initial_Employeewise; lngId1=-1", "recitem"},
    {"commission", "item", "Commission_Initial", "reptype=rtCommission_Initial_Itemwise; lngId1=-1",
     "recitem"},
    {"prices", "item", "MultiplePriceList", "cosiderforsih=Items1.Item_id > 0"},
    {"mechanics",
     "mechanic",
     "MechanicLabourReport",
     "btTypeOfReport=1",
     {},
     &kMechanics,
     "Mechanic_id={}",
     "Mechanic_id=0"},
    {"financiers",
     "financier",
     "HypoReport",
     "btTypeOfReport=0",
     {},
     &kFinanciers,
     "Hypo_id={}",
     "Hypo_id=0"},
    {"services", "group", "FreeServiceReport", "", {}, &kCategories, "Cat_id={}", "Cat_id=0"},
    {"claims", "bill", "ClaimReport", "", "recitem"},
    {"buyers", "buyer", "BuyerReport", "", "rsItms"},
};

struct Word {
  std::string_view word, help;
};
constexpr Word kWords[] = {
    {"stock", "Opening, inwards, outwards and closing stock, valued"},
    {"months", "Stock month by month, of one item or group"},
    {"sales", "What was sold"},
    {"purchases", "What was bought"},
    {"returns", "What went out and came back"},
    {"pending", "What is still open for an item, a party or an employee"},
    {"free", "Goods moved and not billed"},
    {"days", "Quantities in and out day by day"},
    {"colours", "Quantities by item and colour"},
    {"bills", "Sale bills with their items"},
    {"commission", "Sales and commission"},
    {"prices", "The price list"},
    {"mechanics", "Bills and labour by mechanic"},
    {"financiers", "Vehicle sales by financier"},
    {"services", "Free services by vehicle group"},
    {"claims", "Warranty lines to claim"},
    {"buyers", "Who bought which vehicle"},
};

// The names under which operations take what a person chooses.
struct Chosen {
  Choice choice;
  std::string_view name;
};
constexpr Chosen kChosen[] = {
    {Choice::kYearNumber, "bytYearno"}, {Choice::kFirstDay, "dtFromDate"},
    {Choice::kLastDay, "dtToDate"},     {Choice::kMethod, "ValuationMethod"},
    {Choice::kDetailed, "blnDetailed"}, {Choice::kAlternateUnits, "blnAltUom"},
    {Choice::kMoneyScale, "sngScale"},  {Choice::kMoneyScale, "gScale"},
};

std::string TextOf(Choice choice, const ShortChoice& chosen) {
  const auto flag = [](bool set) { return std::string(set ? "true" : "false"); };
  switch (choice) {
    case Choice::kYearNumber:
      return std::to_string(chosen.year);
    case Choice::kFirstDay:
      return chosen.from.ToIso();
    case Choice::kLastDay:
      return chosen.to.ToIso();
    case Choice::kMethod:
      return chosen.method.empty() ? "AverageRate" : chosen.method;
    case Choice::kDetailed:
      return flag(chosen.detailed);
    case Choice::kAlternateUnits:
      return flag(chosen.alternate_units);
    case Choice::kMoneyScale:
      return fmt::format("{}", chosen.scale);
  }
  return {};
}

std::string_view Trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  return text;
}

}  // namespace

std::span<const ShortForm> ShortForms() { return kForms; }

std::string_view HelpOf(const ShortForm& form) {
  const auto* const found =
      std::ranges::find_if(kWords, [&](const Word& one) { return one.word == form.word; });
  return found == std::end(kWords) ? std::string_view() : found->help;
}

const ShortForm* FindShortForm(std::string_view word, std::string_view by) {
  for (const ShortForm& form : kForms) {
    if (EqualFolded(form.word, word) && (by.empty() || EqualFolded(form.by, by))) return &form;
  }
  return nullptr;
}

bool Takes(const ShortForm& form, Choice choice) {
  const Operation& operation = GetOperation(form.operation);
  return std::ranges::any_of(kChosen, [&](const Chosen& one) {
    if (one.choice != choice) return false;
    const Argument* const argument = FindArgument(operation, one.name);
    return argument != nullptr && argument->IsRead();
  });
}

std::vector<std::string> ArgumentsOf(const ShortForm& form, const ShortChoice& choice) {
  if (!choice.only && form.only != nullptr && form.all.empty()) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                fmt::format("\"{} --by {}\" is of one {}: name it with --only", form.word, form.by,
                            form.only->one));
  }
  std::vector<std::string> given;
  for (std::string_view rest = form.fixed; !rest.empty();) {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    given.emplace_back(Trimmed(rest.substr(0, end)));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  if (form.only != nullptr) {
    given.push_back(choice.only ? fmt::format(fmt::runtime(form.only_one), *choice.only)
                                : std::string(form.all));
  }
  const Operation& operation = GetOperation(form.operation);
  std::vector<std::string> arguments;
  for (const Argument& argument : operation.arguments) {
    if (!argument.IsRead()) continue;
    const std::string start = std::string(argument.name) + "=";
    const auto fixed =
        std::ranges::find_if(given, [&](const std::string& one) { return one.starts_with(start); });
    if (fixed != given.end()) {
      if (fixed->size() > start.size() || !argument.optional) arguments.push_back(*fixed);
      continue;
    }
    const auto* const chosen =
        std::ranges::find_if(kChosen, [&](const Chosen& one) { return one.name == argument.name; });
    if (chosen != std::end(kChosen)) arguments.push_back(start + TextOf(chosen->choice, choice));
  }
  return arguments;
}

std::string RowsetOf(const ShortForm& form) {
  return form.rowset.empty() ? std::string() : fmt::format("{}={}", form.rowset, kItemsOfTheBooks);
}

}  // namespace pstolvane1::automation
