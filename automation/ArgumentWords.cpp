#include "automation/ArgumentWords.h"

#include <algorithm>
#include <cctype>
#include <iterator>

#include "automation/Families.h"
#include "automation/Masters.h"
#include "automation/Operations.h"
#include "session/ReportType.h"
#include "session/data/TextFold.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1::automation {
namespace {

struct Label {
  std::string_view name, words;
};
constexpr Label kLabels[] = {
    {"bytYearno", "Year"},
    {"dtFromDate", "From"},
    {"dtToDate", "To"},
    {"ValuationMethod", "Valuation"},
    {"reptype", "By"},
    {"blnDetailed", "In detail"},
    {"blnAltUom", "Alternate units"},
    {"blnOnlyItems", "This group alone"},
    {"sngScale", "Amounts"},
    {"gScale", "Amounts"},
    {"blnUseLongDate", "Dates in full"},
    {"blnLongDate", "Dates in full"},
    {"LongDate", "Dates in full"},
    {"strRefSeperator", "Sign in document numbers"},
    {"strRefSep", "Sign in document numbers"},
    {"sRefSep", "Sign in document numbers"},
    {"RefSeperator", "Sign in document numbers"},
    {"blnShowNarration", "Narration"},
    {"strConsiderForSih", "Only items for which"},
    {"cosiderforsih", "Only items for which"},
    {"strItemstate", "Item states"},
    {"itemstate", "Item state"},
    {"strBillFilter", "Only documents for which"},
    {"strFilter", "Only those for which"},
    {"strCriteria", "Further condition"},
    {"strBuyerFilter", "Only buyers for which"},
    {"strVouchertype", "Only voucher types for which"},
    {"strVouchertypeFilter", "Only voucher types for which"},
    {"sVouchertype_id", "Kinds of documents"},
    {"bytOptional", "Documents"},
    {"bytOpt", "Documents"},
    {"blnNoRel", "The voucher type itself"},
    {"blnIsclass", "By class"},
    {"sCode", "Codes of subgroups"},
    {"lngId", "One of them"},
    {"lngId1", "One of them"},
    {"lngId2", "And one of these"},
    {"Cat_id", "Category or class"},
    {"lngColor_Id", "Colour"},
    {"lngBatch_id", "Batch"},
    {"btTypeOfReport", "Arranged"},
    {"billbybill_id", "Bill"},
    {"Desr_Id", "Document"},
    {"lngSubRelatedTo", "Kind of document"},
};

struct ValueWords {
  std::int32_t value;
  std::string_view words;
};
constexpr ValueWords kMethods[] = {
    {FifoRate, "first in, first out"}, {LifoRate, "last in, first out"},
    {AverageRate, "weighted average"}, {LastPurchaseRate, "last purchase rate"},
    {LastSaleRate, "last sale rate"},  {CurrentRate, "current rate"},
    {standardrate, "standard cost"},   {StandardPrice, "standard price"},
    {SimpleAvg, "simple average"},
};
constexpr ValueWords kReportTypes[] = {
    {rtMovement_LedgerAnalysis, "Party"},
    {rtMovement_ItemAnalysis, "Item"},
    {rtMovement_GroupAnalysis, "Party group"},
    {rtMovement_CategoryAnalysis, "Item category"},
    {rtMovement_ClassAnalysis, "Item class"},
    {rtMovement_AreaLedgerAnalysis, "Area and party"},
    {rtMovement_SalesReturns_ItemRelationAnalysis, "Party, with related items"},
    {rtMovement_LedgerDailyAnalysis, "Party"},
    {rtMovement_ItemDailyAnalysis, "Item"},
    {rtMovement_GroupDailyAnalysis, "Party group"},
    {rtCommission_Initial_Employeewise, "Employee"},
    {rtCommission_Initial_Itemwise, "Item"},
    {rtAutoSearch, "Vehicle, buyer or bill"},
    {rtAutoSearchReceipt, "Receipt"},
    {rtAutoSearchReceiptChild, "Receipts of a bill"},
    {rtRtoInsSearch, "Insurance"},
    {rtFreeServiceReportDaily, "Day"},
    {rtMechanicLabourReportDaily, "Day"},
};

constexpr ScaleWords kScales[] = {
    {1, "as they are"},   {1e3, "in thousands"}, {1e5, "in lakhs"},
    {1e6, "in millions"}, {1e7, "in crores"},
};

// Those of one argument stand together.
constexpr ChoiceWords kChoices[] = {
    {"MechanicLabourReport", "btTypeOfReport", "1", "By vehicle model"},
    {"MechanicLabourReport", "btTypeOfReport", "0", "By labour item"},
    {"MechanicLabourReportDaily", "btTypeOfReport", "1", "By vehicle model"},
    {"MechanicLabourReportDaily", "btTypeOfReport", "0", "By labour item"},
    {"HypoReport", "btTypeOfReport", "0", "By financier"},
    {"HypoReport", "btTypeOfReport", "1", "By pin code and financier"},
    {"HypoReportDaily", "btTypeOfReport", "0", "By financier"},
    {"HypoReportDaily", "btTypeOfReport", "1", "By pin code and financier"},
    {"AutoSearchServices", "lngSubRelatedTo", "0", "Bill"},
    {"AutoSearchServices", "lngSubRelatedTo", "43", "Job card"},
};

constexpr Label kFamilies[] = {
    {"session", "Documents"},
    {"stock", "Stock"},
    {"monthly", "Stock by month"},
    {"pending", "Open documents and free goods"},
    {"analysis", "Sales and purchases"},
    {"vehicle", "Workshop and vehicles"},
    {"bills", "Bills and prices"},
};

std::string Capital(std::string_view text) {
  std::string words(text);
  words.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(words.front())));
  return words;
}

}  // namespace

std::string LabelOf(const Argument& argument) {
  const auto* const found = std::ranges::find_if(
      kLabels, [&](const Label& one) { return EqualFolded(one.name, argument.name); });
  if (found != std::end(kLabels)) return std::string(found->words);
  return argument.master != nullptr ? LabelOf(*argument.master) : std::string(argument.name);
}

std::string LabelOf(const Master& names) { return Capital(names.one); }

std::string WordsOf(const Enumeration& enumeration, std::int32_t value) {
  const bool method = &enumeration == &kValuationMethod;
  const auto known = method ? std::span<const ValueWords>(kMethods) : kReportTypes;
  const auto found =
      std::ranges::find_if(known, [&](const ValueWords& one) { return one.value == value; });
  return found == known.end() ? NameOf(enumeration, value) : Capital(found->words);
}

std::string_view MethodInWords(std::int32_t method) {
  const auto* const found =
      std::ranges::find_if(kMethods, [&](const ValueWords& one) { return one.value == method; });
  return found == std::end(kMethods) ? std::string_view() : found->words;
}

std::span<const ScaleWords> Scales() { return kScales; }

std::span<const ChoiceWords> ChoicesOf(std::string_view operation, std::string_view argument) {
  const auto is_its = [&](const ChoiceWords& one) {
    return one.operation == operation && one.argument == argument;
  };
  const auto* const first = std::ranges::find_if(kChoices, is_its);
  return {first, std::find_if_not(first, std::end(kChoices), is_its)};
}

std::string_view FamilyInWords(std::string_view family) {
  const auto* const found =
      std::ranges::find_if(kFamilies, [&](const Label& one) { return one.name == family; });
  return found == std::end(kFamilies) ? family : found->words;
}

}  // namespace pstolvane1::automation
