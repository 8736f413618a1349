#include <array>

#include "automation/Families.h"
#include "session/ReportType.h"

namespace pstolvane1::automation {
namespace {

constexpr Argument kReportOrNot = kReport.Optional("true");
constexpr Argument kScaleOrOne = kScale.Optional("1");
constexpr Argument kAnyType =
    OneOf("reptype", kReportType, "The report type to deliver under, as it comes.");
constexpr Argument kFilterNotUsed = Text("strVouchertypeFilter", kNotUsed);
constexpr Argument kByModelOrItem =
    Byte("btTypeOfReport", "1 by vehicle model, anything else by labour item.");
constexpr Argument kByPin = Byte("btTypeOfReport", "1 groups the financiers by pin code.");
constexpr Argument kMechanic = Int32("Mechanic_id", "The mechanic, in detail; 0 is all.")
                                   .Of(kMechanics)
                                   .OrAll("0")
                                   .OneInDetail();
constexpr Argument kHypo = Int32("Hypo_id", "The financier, in detail; 0 is all.")
                               .Of(kFinanciers)
                               .OrAll("0")
                               .OneInDetail();

// The history of a vehicle, and a search for one, are of all days.
constexpr Argument kFromNotUsed = Day("dtFromDate", kNotUsed);
constexpr Argument kToNotUsed = Day("dtToDate", kNotUsed);

constexpr Argument kHistory[] = {
    kYearNotUsed,
    kFromNotUsed,
    kToNotUsed,
    kReport,
    Flag("blnDetailed", "Add the lines and the complaints of each bill."),
    kScale,
    Text("strFilter", "A whole clause on Terms1 with its own Where, or nothing."),
    HostRowset("rsItm", "Items with Itemnew_id, itemname and UOMNAME."),
};

constexpr Argument kFreeService[] = {
    kYear,
    kFrom,
    kTo,
    kReport,
    Flag("blnDetailed", "A line for each vehicle model as well."),
    kScale,
    Text("strItemstate", kNotUsed),
    Text("strConsiderForSih", kNotUsed),
    Int32("Cat_id", "The vehicle category, in detail; 0 and -1 are all.")
        .Of(kCategories)
        .OrAll("0")
        .OneInDetail(),
};
constexpr Argument kFreeServiceDaily[] = {
    kAnyType,
    kYear,
    kFrom,
    kTo,
    kReport,
    Flag("blnDetailed", "Add the lines of each bill."),
    kScale,
    Int32("Vehicle_id", "The vehicle model.").Of(kItems),
    HostRowset("rsItms", "Items with ItemNew_id and itemname.").ByReference(),
    Byte("OptNo", kNotUsed),
};

constexpr Argument kLabour[] = {
    kYear,
    kFrom,
    kTo,
    kReport,
    Flag("blnDetailed", "A line for each vehicle model or labour item as well."),
    kScale,
    Text("strItemstate", kNotUsed),
    Text("strConsiderForSih", kNotUsed),
    kMechanic,
    kByModelOrItem,
    kFilterNotUsed,
};
constexpr Argument kLabourDaily[] = {
    kAnyType,
    kYear,
    kFrom,
    kTo,
    kReport,
    Flag("blnDetailed", "Add the lines of each bill."),
    kScale,
    Int32("Mechanic_id", "The mechanic; 0 is all.").Of(kMechanics).OrAll("0"),
    Int32("Item_id", "The vehicle model or labour item; 0 is all.")
        .Of(kItems)
        .OrAll("0")
        .ByReference(),
    Byte("OptNo", kNotUsed),
    HostRowset("rsItm", "Items with ItemNew_id and itemname.").ByReference(),
    kByModelOrItem,
    kFilterNotUsed,
};

constexpr Argument kHypothecation[] = {
    kYear,
    kFrom,
    kTo,
    kReport,
    Flag("blnDetailed", "A line for each vehicle model as well."),
    kScale,
    Text("strItemstate", kNotUsed),
    Text("strConsiderForSih", kNotUsed),
    kHypo,
    kByPin,
    kFilterNotUsed,
};
constexpr Argument kHypothecationDaily[] = {
    kYear,
    kFrom,
    kTo,
    kReport,
    Flag("blnDetailed", kNotUsed),
    kScale,
    Int32("Hypo_id", "The financier; 0 is all.").Of(kFinanciers).OrAll("0"),
    Int32("Item_id", "The vehicle model; 0 is all.").Of(kItems).OrAll("0").ByReference(),
    Byte("OptNo", kNotUsed),
    HostRowset("rsItm", kNotUsed).ByReference(),
    kByPin,
    kFilterNotUsed,
};

constexpr Argument kClaims[] = {
    kYearNotUsed,
    kFrom,
    kTo,
    Int32("lngItem_id", kNotUsed).Optional(),
    Int32("lngLedger_Id", kNotUsed).Optional(),
    Flag("blnUseLongDate", kNotUsed).Optional(),
    kSeparator.Optional("/"),
    Byte("bytOptional", kNotUsed).Optional(),
    kReportOrNot,
    Flag("blnDetailed", kNotUsed).Optional(),
    Flag("blnShowNarration", kNotUsed).Optional(),
    kScaleOrOne,
    HostRowset("recitem", "Items with itemnew_id, ITemPartno and itemname.").Optional(),
};

constexpr Argument kBillOfReceipts =
    Int32("billbybill_id", "The bill whose receipts are listed.").Optional();
constexpr Argument kSearchType =
    OneOf("reptype", kReportType,
          "rtAutoSearch, rtAutoSearchReceipt, rtAutoSearchReceiptChild "
          "or rtRtoInsSearch.");
constexpr Argument kSearch[] = {
    kSearchType,
    kYear,
    kFromNotUsed,
    kToNotUsed,
    Text("strCriteria", "What follows the conditions of the search, as And ..., or nothing."),
    kReportOrNot,
    Single("sngScale", kNotUsed).Optional("1"),
    Text("strBuyerFilter", "A clause on Terms1 with its own Where: search by buyer.").Optional(),
    kBillOfReceipts,
    Text("strBillFilter", "A condition on Desr1: search by bill.").Optional(),
    Text("strVouchertype", "A condition on Vouchertype1.").Optional(),
    Int32("lngSubRelatedTo", kNotUsed).Optional(),
};
constexpr Argument kServiceSearch[] = {
    kSearchType,
    kYearNotUsed,
    kFromNotUsed,
    kToNotUsed,
    Text("strCriteria", "What follows the conditions of the search, or nothing."),
    kReportOrNot,
    Single("sngScale", kNotUsed).Optional("1"),
    Text("strBillFilter", "A condition on Desr1: search by bill.").Optional(),
    kBillOfReceipts,
    Text("strVouchertypeFilter", "A condition on Vouchertype1.").Optional(),
    Int32("lngSubRelatedTo", "43 for job cards by their own date and number.").ByReference(),
};

constexpr Argument kBuyers[] = {
    kYear,
    kFrom,
    kTo,
    kReportOrNot,
    Flag("blnDetailed", kNotUsed).Optional(),
    kScaleOrOne,
    Byte("btTypeOfBuyerReport", kNotUsed).Optional(),
    HostRowset("rsItms", "Items with Itemnew_id and itemname.").Optional(),
    Text("sVouchertype_id", "SubRelatedTo codes with commas between, or nothing.").Optional(),
};

constexpr std::array<Argument, 10> kTransportOffice = {
    kYearNotUsed,
    kFrom,
    kTo,
    Flag("blnUseLongDate", kNotUsed),
    Text("strRefSeperator", kNotUsed).Optional("/"),
    Byte("bytOptional", kNotUsed).Optional(),
    kReportOrNot,
    Flag("blnDetailed", kNotUsed).Optional(),
    Single("sngScale", kNotUsed).Optional("1"),
    HostRowset("recitem", "Kept for the reports that follow.").Optional(),
};
constexpr auto kTransportDocument =
    And(kTransportOffice, Int32("Desr_Id", "The one document; 0 is all.").Optional());

constexpr Argument kServiceTax[] = {
    kYear,
    kFrom,
    kTo,
    Int32("lngItem_id", kNotUsed).Optional(),
    Int32("lngLedger_Id", kNotUsed).Optional(),
    kLongDate.Optional(),
    kSeparator.Optional("/"),
    Byte("bytOptional", kNotUsed).Optional(),
    kReportOrNot,
    Flag("blnDetailed", "A line for each taxed line as well.").Optional(),
    Flag("blnShowNarration", kNotUsed).Optional(),
    kScaleOrOne,
    HostRowset("recitem", "Items with itemnew_id and itemname.").Optional(),
    HostRowset("recLedger", "Ledgers with Ledger_id and Ledgername.").Optional().ByReference(),
};

constexpr ReportTypeRule kSearchTypes[] = {
    {rtAutoSearch, rtAutoSearch},
    {rtAutoSearchReceipt, rtAutoSearchReceipt, " by receipt"},
    {rtAutoSearchReceiptChild, rtAutoSearchReceiptChild, ": receipts of a bill"},
};
constexpr ReportTypeRule kInsuranceTypes[] = {{rtRtoInsSearch, rtRtoInsSearch}};
constexpr ReportTypeRule kFreeServiceDailyTypes[] = {
    {rtFreeServiceReportDaily, rtFreeServiceReportDaily}};
constexpr ReportTypeRule kLabourDailyTypes[] = {
    {rtMechanicLabourReportDaily, rtMechanicLabourReportDaily}};
constexpr ReportTypeRule kHistoryType[] = {{0, rtServiceReportRegNo}};
constexpr ReportTypeRule kFreeServiceType[] = {{0, rtFreeServiceReport}};
constexpr ReportTypeRule kLabourType[] = {{0, rtMechanicLabourReport}};
constexpr ReportTypeRule kHypoType[] = {{0, rtHypoReport}};
constexpr ReportTypeRule kHypoDailyType[] = {{0, rtHypoReportDaily}};
constexpr ReportTypeRule kClaimType[] = {{0, rtClaimReport}};
constexpr ReportTypeRule kBuyerType[] = {{0, rtBuyerReport}};
constexpr ReportTypeRule kTransportType[] = {{0, rtRtosalesdet}};
constexpr ReportTypeRule kServiceTaxType[] = {{0, rtServiceReport}};

constexpr SortRule kHistorySorting[] = {ByGroup(SortedWhen::kSummary),
                                        Unsorted(SortedWhen::kDetailed)};
constexpr SortRule kFreeServiceSorting[] = {
    ByClass(SortedWhen::kDetailed, "DummySort, ParticularsHeadSort, {}"),
    ByClass(SortedWhen::kSummary)};
constexpr SortRule kLabourSorting[] = {ByClass(SortedWhen::kDetailed, "DummySort, InterSort, {}"),
                                       ByClass(SortedWhen::kSummary)};
constexpr SortRule kLabourDailySorting[] = {
    ByClass(SortedWhen::kAlways, "DummySort, HeadSort, {}")};
constexpr SortRule kHypoSorting[] = {
    ByClass(SortedWhen::kDetailed, "DummySort, ParticularsHeadSort, ParticularsSort, {}"),
    ByClass(SortedWhen::kSummary, "DummySort, ParticularsHeadSort, {}")};
constexpr SortRule kServiceTaxSorting[] = {
    ByNumber(kByNumberBeforeLine, SortedWhen::kDetailed).Together("refnoSort DateSort"),
    ByClass(SortedWhen::kSummary)};

template <auto member>
constexpr Operation Report(std::string_view name, ReturnKind returns, std::string_view help,
                           std::span<const Argument> arguments,
                           std::span<const ReportTypeRule> types,
                           std::string_view decided_by = {}) {
  return {name,      kCallOf<member>, "vehicle", LaunchKind::kFetch, returns, help,
          arguments, decided_by,      types};
}
template <auto member>
constexpr Operation Search(std::string_view name, ReturnKind returns, std::string_view help,
                           std::span<const Argument> arguments,
                           std::span<const ReportTypeRule> types,
                           std::string_view decided_by = {}) {
  return {name,      kCallOf<member>, "vehicle", LaunchKind::kSourceItself, returns, help,
          arguments, decided_by,      types};
}

constexpr Operation kVehicleOperations[] = {
    Report<&clsStolvane1::ServiceReportRegno>("ServiceReportRegno", ReturnKind::kRowset,
                                              "Every service bill of a vehicle.", kHistory,
                                              kHistoryType)
        .Titled("Service bills by vehicle")
        .Sorted(kHistorySorting),
    Report<&clsStolvane1::FreeServiceReport>("FreeServiceReport", ReturnKind::kRowset,
                                             "Free services by vehicle category and model.",
                                             kFreeService, kFreeServiceType)
        .Titled("Free services by vehicle category")
        .Sorted(kFreeServiceSorting),
    Report<&clsStolvane1::FreeServiceReportDaily>(
        "FreeServiceReportDaily", ReturnKind::kRowset, "The free service bills of one model.",
        kFreeServiceDaily, kFreeServiceDailyTypes, "reptype")
        .Titled("Free service bills of a model")
        .Sorted(kSortedByClass),
    Report<&clsStolvane1::MechanicLabourReport>("MechanicLabourReport", ReturnKind::kRowset,
                                                "Bills and labour by mechanic.", kLabour,
                                                kLabourType)
        .Titled("Bills and labour by mechanic")
        .Sorted(kLabourSorting),
    Report<&clsStolvane1::MechanicLabourReportDaily>(
        "MechanicLabourReportDaily", ReturnKind::kRowset, "The bills behind a mechanic's labour.",
        kLabourDaily, kLabourDailyTypes, "reptype")
        .Titled("Bills behind a mechanic's labour")
        .Sorted(kLabourDailySorting),
    Report<&clsStolvane1::HypoReport>("HypoReport", ReturnKind::kRowset,
                                      "Vehicle sales by financier.", kHypothecation, kHypoType)
        .Titled("Vehicle sales by financier")
        .Sorted(kHypoSorting),
    Report<&clsStolvane1::HypoReportDaily>("HypoReportDaily", ReturnKind::kRowset,
                                           "The sales behind a financier.", kHypothecationDaily,
                                           kHypoDailyType)
        .Titled("Vehicle sales behind a financier")
        .Sorted(kSortedByClass),
    Report<&clsStolvane1::ClaimReport>("ClaimReport", ReturnKind::kRowsetInVariant,
                                       "Warranty lines to claim.", kClaims, kClaimType)
        .Titled("Warranty lines to claim")
        .Sorted(kSortedByClass),
    Search<&clsStolvane1::AutoSearch>(
        "AutoSearch", ReturnKind::kRowset,
        "Vehicles by buyer, bill, chassis, engine or colour; receipts of their bills.", kSearch,
        kSearchTypes, "reptype")
        .Titled("Vehicles"),
    Search<&clsStolvane1::RTOInsSearch>(
        "RTOInsSearch", ReturnKind::kRowset,
        "Vehicles by buyer, with what transport office and insurer want.", kSearch, kInsuranceTypes,
        "reptype")
        .Titled("Vehicles and their insurance"),
    Search<&clsStolvane1::AutoSearchServices>("AutoSearchServices", ReturnKind::kRowset,
                                              "Service bills by number or chassis.", kServiceSearch,
                                              kSearchTypes, "reptype")
        .Titled("Service bills"),
    Report<&clsStolvane1::BuyerReport>("BuyerReport", ReturnKind::kRowset,
                                       "Who bought which vehicle.", kBuyers, kBuyerType)
        .Titled("Vehicles by buyer")
        .Sorted(kSortedByClass),
    Search<&clsStolvane1::RtoSalesDetails>("RtoSalesDetails", ReturnKind::kRowsetInVariant,
                                           "What the registration forms ask of the vehicles sold.",
                                           kTransportDocument, kTransportType)
        .Titled("Vehicles to register"),
    Search<&clsStolvane1::RtoSalesDetails1>("RtoSalesDetails1", ReturnKind::kRowsetInVariant,
                                            "The vehicles sold, to pick from; every database "
                                            "refuses its query, RtoSalesDetails has them.",
                                            kTransportOffice, kTransportType)
        .Titled("Vehicles sold, to pick from"),
    Report<&clsStolvane1::ServiceTax>("ServiceTax", ReturnKind::kRowsetInVariant,
                                      "Service bills with tax on their lines.", kServiceTax,
                                      kServiceTaxType)
        .Titled("Service tax by bill")
        .Sorted(kServiceTaxSorting),
};

}  // namespace

std::span<const Operation> VehicleOperations() { return kVehicleOperations; }

}  // namespace pstolvane1::automation
