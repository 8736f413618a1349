#include "automation/ReportTitles.h"

#include <algorithm>
#include <fmt/format.h>

#include "automation/ColumnLooks.h"
#include "automation/Masters.h"
#include "session/ReportType.h"
#include "session/data/TextFold.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1::automation {
namespace {

struct Title {
  std::string_view operation, title;
};
constexpr Title kTitles[] = {
    {"POrderTextQuery", "Lines of documents"},
    {"StockDetails_Itemwise", "Stock by item"},
    {"StockDetails_Categorywise", "Stock by item category"},
    {"StockDetails_Classwise", "Stock by item class"},
    {"StockDetails_Godownwise", "Stock by godown"},
    {"Monthly_Itemwise", "Stock of an item month by month"},
    {"Monthly_Categorywise", "Stock of an item category month by month"},
    {"Monthly_Classwise", "Stock of an item class month by month"},
    {"Monthly_Godownwise", "Stock of a godown month by month"},
    {"Monthly_GodownItemwise", "Stock of an item in a godown month by month"},
    {"FreeQuantity_Itemwise", "Goods moved and not billed, of an item"},
    {"FreeQuantity_Partywise", "Goods moved and not billed, of a party"},
    {"FreeQuantity_Itemwise_Initial", "Goods moved and not billed, by item"},
    {"FreeQuantity_Partywise_Initial", "Goods moved and not billed, by party"},
    {"PendingByItem", "Pending documents of an item"},
    {"PendingByLedger", "Pending documents of a party"},
    {"PendingByEmployee", "Pending documents of an employee"},
    {"Doc_Initial", "Documents by party"},
    {"LedgersByCode", "Ledgers"},
    {"CustomerItemwise_Analysis", "Sales and returns"},
    {"Movement_PurchaseReturns_Analysis", "Purchases and returns"},
    {"CustomerItemDaily_Analysis", "Sales and returns day by day"},
    {"Movement_PurchaseReturns_DailyAnalysis", "Purchases and returns day by day"},
    {"Commission_Initial", "Sales and commission"},
    {"Commission_Daily", "Documents behind a commission"},
    {"Colorwise_Initial", "Quantities by item and colour"},
    {"mColorwise_Initial", "Quantities by item and colour"},
    {"Colorwise_Monthly", "An item in one colour month by month"},
    {"mColorwise_Monthly", "An item in one colour month by month"},
    {"Colorwise_Daily", "Documents of an item in one colour"},
    {"mColorwise_Daily", "Documents of an item in one colour"},
    {"CategoryWise_Initial", "Documents by group and item"},
    {"ItemWise_DlyBkup", "Quantities day by day"},
    {"mItemwise_DlyBreakup", "Quantities day by day"},
    {"ServiceReportRegno", "Service bills by vehicle"},
    {"FreeServiceReport", "Free services by vehicle category"},
    {"FreeServiceReportDaily", "Free service bills of a model"},
    {"MechanicLabourReport", "Bills and labour by mechanic"},
    {"MechanicLabourReportDaily", "Bills behind a mechanic's labour"},
    {"HypoReport", "Vehicle sales by financier"},
    {"HypoReportDaily", "Vehicle sales behind a financier"},
    {"ClaimReport", "Warranty lines to claim"},
    {"AutoSearch", "Vehicles"},
    {"RTOInsSearch", "Vehicles and their insurance"},
    {"AutoSearchServices", "Service bills"},
    {"BuyerReport", "Vehicles by buyer"},
    {"RtoSalesDetails", "Vehicles to register"},
    {"RtoSalesDetails1", "Vehicles to register"},
    {"ServiceTax", "Service tax by bill"},
    {"BillWiseQuery", "Sale bills and receipts"},
    {"BillWiseQuery1", "Pending bills and receipts"},
    {"MultiplePriceList", "Price list"},
};

// What a report type adds to its operation's title.
struct ByWhat {
  std::int32_t report_type;
  std::string_view by;
};
constexpr ByWhat kByWhat[] = {
    {rtMovement_SalesReturns_LedgerAnalysis, " by party"},
    {rtMovement_SalesReturns_ItemAnalysis, " by item"},
    {rtMovement_SalesReturns_GroupAnalysis, " by party group"},
    {rtMovement_SalesReturns_CategoryAnalysis, " by item category"},
    {rtMovement_SalesReturns_ClassAnalysis, " by item class"},
    {rtMovement_SalesReturns_AreaLedgerAnalysis, " by area and party"},
    {rtMovement_SalesReturns_ItemRelationAnalysis, " of related items, by party"},
    {rtMovement_SalesReturns_LedgerDailyAnalysis, ", of a party"},
    {rtMovement_SalesReturns_ItemDailyAnalysis, ", of an item"},
    {rtMovement_SalesReturns_GroupDailyAnalysis, ", of a party group"},
    {rtMovement_PurchaseReturns_LedgerAnalysis, " by party"},
    {rtMovement_PurchaseReturns_ItemAnalysis, " by item"},
    {rtMovement_PurchaseReturns_GroupAnalysis, " by party group"},
    {rtMovement_PurchaseReturns_CategoryAnalysis, " by item category"},
    {rtMovement_PurchaseReturns_ClassAnalysis, " by item class"},
    {rtMovement_PurchaseReturns_AreaLedgerAnalysis, " by area and party"},
    {rtMovement_PurchaseReturns_LedgerDailyAnalysis, ", of a party"},
    {rtMovement_PurchaseReturns_ItemDailyAnalysis, ", of an item"},
    {rtMovement_PurchaseReturns_GroupDailyAnalysis, ", of a party group"},
    {rtCommission_Initial_Employeewise, " by employee"},
    {rtCommission_Initial_Itemwise, " by item"},
    {rtAutoSearchReceipt, " by receipt"},
    {rtAutoSearchReceiptChild, ": receipts of a bill"},
};

struct Valuation {
  enmValuationMethod method;
  std::string_view words;
};
constexpr Valuation kValuations[] = {
    {FifoRate, "first in, first out"}, {LifoRate, "last in, first out"},
    {AverageRate, "weighted average"}, {LastPurchaseRate, "last purchase rate"},
    {LastSaleRate, "last sale rate"},  {CurrentRate, "current rate"},
    {standardrate, "standard cost"},   {StandardPrice, "standard price"},
    {SimpleAvg, "simple average"},
};

struct Scale {
  double divisor;
  std::string_view words;
};
constexpr Scale kScales[] = {{1e3, "money in thousands"},
                             {1e5, "money in lakhs"},
                             {1e6, "money in millions"},
                             {1e7, "money in crores"}};

std::string_view WordsOf(std::int32_t method) {
  const auto* const found =
      std::ranges::find_if(kValuations, [&](const Valuation& one) { return one.method == method; });
  return found == std::end(kValuations) ? std::string_view() : found->words;
}

std::string WordsOfScale(double divisor) {
  const auto* const found =
      std::ranges::find_if(kScales, [&](const Scale& one) { return one.divisor == divisor; });
  if (found != std::end(kScales)) return std::string(found->words);
  return divisor == 1 || divisor == 0 ? std::string() : fmt::format("money divided by {}", divisor);
}

// The tree under which a stock statement lists its groups; nullptr for other reports, which say
// themselves where a group stands.
const Master* TreeOf(const Operation& operation) {
  if (operation.family != "stock") return nullptr;
  for (const Argument& argument : operation.arguments) {
    if (argument.master != nullptr && !argument.master->above.empty()) return argument.master;
  }
  return nullptr;
}

// What was asked for, part by part.
class Parts {
 public:
  Parts(const Operation& operation, const BoundValues& values, const Locale& locale)
      : operation_(operation), values_(values), locale_(locale) {}

  void Add(const std::string& part) {
    if (!part.empty()) text_ += (text_.empty() ? "" : " · ") + part;
  }
  void AddKeys(const KeysOfBooks& books) {
    ForEachRead([&](const Argument& argument, const Variant& value) {
      if (argument.master == nullptr || value.ToInt32() <= 0) return;
      const std::string name = books.name_of(*argument.master, value.ToInt32());
      if (!name.empty()) Add(fmt::format("{}: {}", argument.master->one, name));
    });
  }
  void AddPeriod() {
    Date from, to;
    ForEachRead([&](const Argument& argument, const Variant& value) {
      if (argument.name == "dtFromDate") from = value.ToDate();
      if (argument.name == "dtToDate") to = value.ToDate();
    });
    if (to == Date{}) return;
    Add(fmt::format("{} to {}", locale_.FormatGeneralDate(from), locale_.FormatGeneralDate(to)));
  }
  void AddMethodAndScale() {
    ForEachRead([&](const Argument& argument, const Variant& value) {
      if (argument.name == "ValuationMethod") Add(std::string(WordsOf(value.ToInt32())));
      if (argument.name == "sngScale" || argument.name == "gScale") {
        Add(WordsOfScale(value.ToDouble()));
      }
    });
  }
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  template <typename Do>
  void ForEachRead(const Do& work) const {
    const std::vector<Slot> slots = SlotsOf(operation_);
    for (std::size_t at = 0; at < slots.size(); ++at) {
      if (slots[at].argument->IsRead()) work(*slots[at].argument, values_.at(at));
    }
  }

  const Operation& operation_;
  const BoundValues& values_;
  const Locale& locale_;
  std::string text_;
};

}  // namespace

std::string TitleOf(const Operation& operation, std::optional<std::int32_t> report_type) {
  const auto* const found = std::ranges::find_if(
      kTitles, [&](const Title& one) { return EqualFolded(one.operation, operation.name); });
  if (found == std::end(kTitles)) {
    return std::string(operation.help.substr(0, operation.help.find('.')));
  }
  const auto* const by = std::ranges::find_if(
      kByWhat, [&](const ByWhat& one) { return one.report_type == report_type.value_or(0); });
  return std::string(found->title) + std::string(by == std::end(kByWhat) ? "" : by->by);
}

ReportLook LookOf(const Operation& operation, const BoundValues& values, const std::string& company,
                  const KeysOfBooks& books, const Locale& locale, Date today) {
  Parts parts(operation, values, locale);
  parts.AddKeys(books);
  parts.AddPeriod();
  parts.AddMethodAndScale();
  parts.Add("printed " + locale.FormatGeneralDate(today));
  ReportLook look{.title = TitleOf(operation, ReportTypeOf(operation, values)),
                  .lines = {company, parts.Text()},
                  .column = [name = operation.name](std::string_view column) {
                    return LookOfColumn(name, column);
                  }};
  if (const Master* const groups = TreeOf(operation)) {
    look.group_key = "Category_Id";
    look.group_above = [groups, above = books.above](std::int64_t key) {
      return above(*groups, key);
    };
  }
  return look;
}

}  // namespace pstolvane1::automation
