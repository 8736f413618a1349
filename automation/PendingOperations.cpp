#include <array>

#include "automation/Families.h"
#include "session/ReportType.h"

namespace pstolvane1::automation {
namespace {

constexpr Argument kItemOrAll = Int32("lngItem_id", "The item; 0 is all.").Of(kItems).OrAll("0");
constexpr Argument kLedgerOrAll =
    Int32("lngLedger_Id", "The party; 0 is all.").Of(kParties).OrAll("0");

constexpr std::array<Argument, 12> FreeArguments(const Argument& first, const Argument& second) {
  return {
      kYearNotUsed,
      kFrom,
      kTo,
      first,
      second,
      kLongDate.Optional(),
      kSeparator.Optional("/"),
      Byte("bytOptional", "0 regular documents, 1 optional ones, 2 both; more is 0.").Optional(),
      kReport.Optional("true"),
      Flag("blnDetailed", "Add lines with godown and batch.").Optional(),
      kNarration.Optional(),
      kScale.Optional("1")};
}

constexpr auto kFreeItem = FreeArguments(kItemOrAll, kLedgerOrAll);
constexpr auto kFreeParty = FreeArguments(kLedgerOrAll, kItemOrAll);

constexpr Argument kFreeInitial[] = {
    kYearNotUsed,
    kFrom,
    kTo,
    kReport.Optional("true"),
    Flag("blnDetailed", "Break each group down by party, or by item.").Optional(),
    kScale.Optional("1"),
};

constexpr std::array<Argument, 13> PendingArguments(const Argument& first, const Argument& second) {
  return {kYearNotUsed,
          first,
          second,
          kFrom.Optional(),
          kTo.Optional(),
          kReport.Optional("true"),
          Single("sngScale", kNotUsed).Optional("1"),
          Byte("bytOptional", kNotUsed).Optional(),
          Flag("blnDetailed", "Add lines with godown and batch.").Optional(),
          Flag("LongDate", "Show dates in full.").Optional(),
          Flag("blnShowNarr", kNotUsed).Optional(),
          Text("strRefSep", "Stands between the parts of a document number.").Optional("/"),
          Flag("blnIncludeRelatedVoucherTypes", kNotUsed).Optional("true")};
}

constexpr auto kByItem =
    PendingArguments(Int32("lngItem_id", "The item.").Of(kItems), kLedgerOrAll);
constexpr auto kByLedger =
    PendingArguments(Int32("lngLedger_Id", "The party.").Of(kParties), kItemOrAll);
constexpr auto kByEmployee = PendingArguments(
    Int32("lngEmployee_Id", "The employee.").Of(kEmployees),
    Int32("lngVouchertype_id", "The kind of document whose chain is followed; 0 is all.")
        .Of(kVouchertypes)
        .OrAll("0"));

constexpr ReportTypeRule kItemType[] = {{0, rtFreeQuantity_Itemwise}};
constexpr ReportTypeRule kPartyType[] = {{0, rtFreeQuantity_Partywise}};
constexpr ReportTypeRule kItemInitialType[] = {{0, rtFreeQuantity_Itemwise_Initial}};
constexpr ReportTypeRule kPartyInitialType[] = {{0, rtFreeQuantity_Partywise_Initial}};
constexpr ReportTypeRule kByItemType[] = {{0, rtPendingByItem}};
constexpr ReportTypeRule kByLedgerType[] = {{0, rtPendingByLedger}};
constexpr ReportTypeRule kByEmployeeType[] = {{0, rtPendingByEmployee}};

template <auto member>
constexpr Operation Report(std::string_view name, ReturnKind returns, std::string_view help,
                           std::span<const Argument> arguments,
                           std::span<const ReportTypeRule> type) {
  return {name, kCallOf<member>, "pending", LaunchKind::kFetch, returns, help, arguments, {}, type};
}

constexpr Operation kPendingOperations[] = {
    Report<&clsStolvane1::FreeQuantity_Itemwise>(
        "FreeQuantity_Itemwise", ReturnKind::kRowsetInVariant,
        "Goods moved and not billed, line by line, of one item.", kFreeItem, kItemType)
        .Titled("Goods moved and not billed, of an item")
        .Sorted(kSortedByNumber),
    Report<&clsStolvane1::FreeQuantity_Partywise>(
        "FreeQuantity_Partywise", ReturnKind::kRowsetInVariant,
        "Goods moved and not billed, line by line, of one party.", kFreeParty, kPartyType)
        .Titled("Goods moved and not billed, of a party")
        .Sorted(kSortedByNumber),
    Report<&clsStolvane1::FreeQuantity_Itemwise_Initial>(
        "FreeQuantity_Itemwise_Initial", ReturnKind::kRowsetInVariant,
        "Goods moved and not billed, summed by item.", kFreeInitial, kItemInitialType)
        .Titled("Goods moved and not billed, by item"),
    Report<&clsStolvane1::FreeQuantity_Partywise_Initial>(
        "FreeQuantity_Partywise_Initial", ReturnKind::kRowsetInVariant,
        "Goods moved and not billed, summed by party.", kFreeInitial, kPartyInitialType)
        .Titled("Goods moved and not billed, by party"),
    Report<&clsStolvane1::PendingByItem>("PendingByItem", ReturnKind::kRowset,
                                         "What is still open for an item.", kByItem, kByItemType)
        .Titled("Pending documents of an item")
        .Sorted(kSortedByNumber),
    Report<&clsStolvane1::PendingByLedger>("PendingByLedger", ReturnKind::kRowset,
                                           "What is still open for a party.", kByLedger,
                                           kByLedgerType)
        .Titled("Pending documents of a party")
        .Sorted(kSortedByNumber),
    Report<&clsStolvane1::PendingByEmployee>("PendingByEmployee", ReturnKind::kRowset,
                                             "What is still open for an employee.", kByEmployee,
                                             kByEmployeeType)
        .Titled("Pending documents of an employee")
        .Sorted(kSortedByNumber),
};

}  // namespace

std::span<const Operation> PendingOperations() { return kPendingOperations; }

}  // namespace pstolvane1::automation
