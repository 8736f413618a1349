#include "automation/Roads.h"

#include <algorithm>
#include <utility>

#include "automation/Operations.h"
#include "session/data/Date.h"
#include "session/data/TextFold.h"

namespace pstolvane1::automation {
namespace {

constexpr std::string_view kFirstDay = "first day";
constexpr std::string_view kLastDay = "last day";

constexpr Road Document(std::string_view from) {
  return {from, "", "POrderTextQuery", "Lines of the document",
          "strFilter=Desr1.Desr_id = {Desr_Id}"};
}
constexpr Road DaysOfItem(std::string_view from, std::string_view key) {
  return {from, "", "ItemWise_DlyBkup", "Days of the item", key};
}
constexpr std::string_view kDaysOfItemId = "Item_id={Item_Id}; Ledger_id=0; strVouchertype=";
constexpr Road MonthsOfItem(std::string_view from) {
  return {from, "", "Monthly_Itemwise", "Months of the item", "lngAny_Id1={Item_Id}"};
}
constexpr Road MonthsOfGroup(std::string_view from, std::string_view to, std::string_view words) {
  return {from, "", to, words, "lngAny_Id1={Category_Id}; blnOnlyItems=true", "Item_Id"};
}
constexpr Road ItemsOfGroup(std::string_view of) {
  return {of,       "", of, "Items of the group", "lngAny_Id1={Category_Id}; blnOnlyItems=true",
          "Item_Id"};
}
constexpr Road DaysOfParty(std::string_view from, std::string_view to) {
  return {from, "reptype=rtMovement_LedgerAnalysis", to, "Days of the party",
          "reptype=rtMovement_LedgerDailyAnalysis; lngId={Ledger_Id}; lngId2={Item_Id|0}"};
}
constexpr Road DaysOfGoods(std::string_view from, std::string_view to) {
  return {from, "reptype=rtMovement_ItemAnalysis", to, "Days of the item",
          "reptype=rtMovement_ItemDailyAnalysis; lngId={Item_Id}; lngId2={Ledger_Id|0}"};
}

constexpr Road kRoads[] = {
    MonthsOfItem("StockDetails_Itemwise"),
    {"StockDetails_Itemwise", "", "Monthly_GodownItemwise", "Months of the item in the godown",
     "lngAny_Id1={Item_Id}; lngAny_Id2={Godown_Id}; lngBatch_id={Batch_Id|0}"},
    DaysOfItem("StockDetails_Itemwise", kDaysOfItemId),
    ItemsOfGroup("StockDetails_Categorywise"),
    MonthsOfGroup("StockDetails_Categorywise", "Monthly_Categorywise", "Months of the category"),
    MonthsOfItem("StockDetails_Categorywise"),
    DaysOfItem("StockDetails_Categorywise", kDaysOfItemId),
    ItemsOfGroup("StockDetails_Classwise"),
    MonthsOfGroup("StockDetails_Classwise", "Monthly_Classwise", "Months of the class"),
    MonthsOfItem("StockDetails_Classwise"),
    DaysOfItem("StockDetails_Classwise", kDaysOfItemId),
    ItemsOfGroup("StockDetails_Godownwise"),
    MonthsOfGroup("StockDetails_Godownwise", "Monthly_Godownwise", "Months of the godown"),
    MonthsOfItem("StockDetails_Godownwise"),
    {"Monthly_Itemwise", "", "ItemWise_DlyBkup", "Days of the month",
     "Item_id={lngAny_Id1}; Ledger_id=0; strVouchertype=; dtFromDate={first day}; "
     "dtToDate={last day}"},
    {"Monthly_GodownItemwise", "", "ItemWise_DlyBkup", "Days of the month in all godowns",
     "Item_id={lngAny_Id1}; Ledger_id=0; strVouchertype=; dtFromDate={first day}; "
     "dtToDate={last day}"},
    {"Monthly_Categorywise", "", "StockDetails_Categorywise", "Stock of the month",
     "lngAny_Id1={lngAny_Id1}; blnOnlyItems=true; dtFromDate={first day}; dtToDate={last day}"},
    {"Monthly_Classwise", "", "StockDetails_Classwise", "Stock of the month",
     "lngAny_Id1={lngAny_Id1}; blnOnlyItems=true; dtFromDate={first day}; dtToDate={last day}"},
    {"Monthly_Godownwise", "", "StockDetails_Godownwise", "Stock of the month",
     "lngAny_Id1={lngAny_Id1}; blnOnlyItems=true; dtFromDate={first day}; dtToDate={last day}"},
    {"FreeQuantity_Itemwise_Initial", "", "FreeQuantity_Itemwise", "Documents of the item",
     "lngItem_id={Parent_Id}; lngLedger_Id={Child_Id|0}"},
    {"FreeQuantity_Partywise_Initial", "", "FreeQuantity_Partywise", "Documents of the party",
     "lngLedger_Id={Parent_Id}; lngItem_id={Child_Id|0}"},
    Document("FreeQuantity_Itemwise"),
    Document("FreeQuantity_Partywise"),
    Document("PendingByItem"),
    Document("PendingByLedger"),
    Document("PendingByEmployee"),
    {"Doc_Initial", "lngVouchertype_id=10", "CustomerItemDaily_Analysis", "Days of the party",
     "reptype=rtMovement_LedgerDailyAnalysis; lngId={Ledger_Id}; lngId2=0"},
    {"Doc_Initial", "lngVouchertype_id=7", "Movement_PurchaseReturns_DailyAnalysis",
     "Days of the party", "reptype=rtMovement_LedgerDailyAnalysis; lngId={Ledger_Id}; lngId2=0"},
    {"Doc_Initial", "", "PendingByLedger", "What is open for the party",
     "lngLedger_Id={Ledger_Id}; lngItem_id=0"},
    DaysOfParty("CustomerItemwise_Analysis", "CustomerItemDaily_Analysis"),
    DaysOfGoods("CustomerItemwise_Analysis", "CustomerItemDaily_Analysis"),
    DaysOfParty("Movement_PurchaseReturns_Analysis", "Movement_PurchaseReturns_DailyAnalysis"),
    DaysOfGoods("Movement_PurchaseReturns_Analysis", "Movement_PurchaseReturns_DailyAnalysis"),
    {"Commission_Initial", "reptype=rtCommission_Initial_Employeewise", "Commission_Daily",
     "Documents of the employee and item", "lngEmployee_Id={Parent_Id}; lngItem_id={Child_Id}"},
    {"Commission_Initial", "reptype=rtCommission_Initial_Employeewise", "Commission_Initial",
     "Items of the employee",
     "reptype=rtCommission_Initial_Employeewise; lngId1={Parent_Id}; blnDetailed=true", "Child_Id"},
    Document("Commission_Daily"),
    {"Colorwise_Initial", "", "Colorwise_Monthly", "Months of the colour",
     "lngItem_id={Parent_Id}; lngColor_Id={Child_Id}"},
    {"Colorwise_Monthly", "", "Colorwise_Daily", "Vouchers of the month",
     "lngItem_id={lngItem_id}; lngColor_Id={lngColor_Id}; dtFromDate={first day}; "
     "dtToDate={last day}"},
    Document("Colorwise_Daily"),
    DaysOfItem("CategoryWise_Initial", kDaysOfItemId),
    Document("BillWiseQuery"),
    Document("BillWiseQuery1"),
    Document("ServiceReportRegno"),
    Document("ClaimReport"),
    Document("BuyerReport"),
    Document("ServiceTax"),
    {"FreeServiceReport", "", "FreeServiceReport", "Models of the category",
     "Cat_id={Category_id}; blnDetailed=true", "Item_id"},
    {"FreeServiceReport", "", "FreeServiceReportDaily", "Bills of the model",
     "reptype=rtFreeServiceReportDaily; Vehicle_id={Item_id}; blnDetailed=false"},
    Document("FreeServiceReportDaily"),
    {"MechanicLabourReport", "", "MechanicLabourReportDaily", "Bills of the mechanic",
     "reptype=rtMechanicLabourReportDaily; Mechanic_id={Mechanic_ID}; Item_id={Item_ID|0}; "
     "blnDetailed=false"},
    Document("MechanicLabourReportDaily"),
    {"HypoReport", "", "HypoReportDaily", "Sales of the financier",
     "Hypo_id={Hypo_id}; Item_id={Item_id|0}"},
    Document("HypoReportDaily"),
};

std::string_view Trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  return text;
}

// The parts of "a; b; c".
std::vector<std::string_view> PartsOf(std::string_view text) {
  std::vector<std::string_view> parts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(';'), text.size());
    parts.push_back(Trimmed(text.substr(0, end)));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

struct Setting {
  std::string_view name, value;
};
Setting SettingOf(std::string_view part) {
  const std::size_t equals = part.find('=');
  return {part.substr(0, equals), part.substr(equals + 1)};
}

// A key that leads somewhere: the reports put 0 or -1 where a line has none.
bool IsKey(std::string_view text) { return !text.empty() && text != "0" && text != "-1"; }

// A day of the line's month, kept within the period that the report was asked for.
std::optional<std::string> DayOfMonth(std::string_view which, const TextByName& cell,
                                      const TextByName& asked) {
  const auto month = cell("Month_Id"), year = cell("Year_Id");
  if (!month || !year || !IsKey(*month)) return std::nullopt;
  const int number = std::stoi(*month), in_year = std::stoi(*year);
  const bool first = which == kFirstDay;
  const Date day = first ? Date::FromYmd(in_year, number, 1)
                         : Date((number == 12 ? Date::FromYmd(in_year + 1, 1, 1)
                                              : Date::FromYmd(in_year, number + 1, 1))
                                    .Serial() -
                                1);
  const auto bound = Date::FromIso(asked(first ? "dtFromDate" : "dtToDate").value_or(""));
  if (!bound) return day.ToIso();
  return (first ? std::max(day, *bound) : std::min(day, *bound)).ToIso();
}

// What stands for "Column|0".
std::optional<std::string> Resolved(std::string_view inside, const TextByName& cell,
                                    const TextByName& asked) {
  if (inside == kFirstDay || inside == kLastDay) return DayOfMonth(inside, cell, asked);
  const std::size_t bar = inside.find('|');
  const std::string_view name = inside.substr(0, bar);
  if (auto text = cell(name); text && IsKey(*text)) return text;
  if (auto text = asked(name)) return text;
  if (bar == std::string_view::npos) return std::nullopt;
  return std::string(inside.substr(bar + 1));
}

std::optional<std::string> Filled(std::string_view text, const TextByName& cell,
                                  const TextByName& asked) {
  std::string filled;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t open = std::min(text.find('{', at), text.size());
    filled += text.substr(at, open - at);
    if (open == text.size()) break;
    const std::size_t close = text.find('}', open);
    const auto value = Resolved(text.substr(open + 1, close - open - 1), cell, asked);
    if (!value) return std::nullopt;
    filled += *value;
    at = close + 1;
  }
  return filled;
}

bool Holds(std::string_view condition, const TextByName& asked) {
  if (condition.empty()) return true;
  const Setting wanted = SettingOf(condition);
  const auto value = asked(wanted.name);
  return value && EqualFolded(*value, wanted.value);
}

}  // namespace

std::span<const Road> Roads() { return kRoads; }

std::optional<std::vector<std::string>> FollowedBy(const Road& road, const TextByName& cell,
                                                   const TextByName& asked) {
  if (!Holds(road.when, asked)) return std::nullopt;
  if (!road.without.empty() && IsKey(cell(road.without).value_or(""))) return std::nullopt;
  const std::vector<std::string_view> parts = PartsOf(road.arguments);
  std::vector<std::string> arguments;
  for (const Argument& argument : GetOperation(road.to).arguments) {
    if (!argument.IsRead()) continue;
    const auto own = std::ranges::find_if(
        parts, [&](std::string_view part) { return SettingOf(part).name == argument.name; });
    const auto value =
        own == parts.end() ? asked(argument.name) : Filled(SettingOf(*own).value, cell, asked);
    if (own != parts.end() && !value) return std::nullopt;
    if (value) arguments.push_back(std::string(argument.name) + "=" + *value);
  }
  return arguments;
}

std::vector<std::string_view> NamesOf(const Road& road) {
  std::vector<std::string_view> names;
  std::string_view text = road.arguments;
  for (std::size_t open = text.find('{'); open != std::string_view::npos;
       open = text.find('{', open + 1)) {
    const std::string_view inside = text.substr(open + 1, text.find('}', open) - open - 1);
    if (inside == kFirstDay || inside == kLastDay) {
      names.insert(names.end(), {"Month_Id", "Year_Id"});
    } else {
      names.push_back(inside.substr(0, inside.find('|')));
    }
  }
  return names;
}

}  // namespace pstolvane1::automation
