#include "automation/Families.h"
#include "session/ReportType.h"

namespace pstolvane1::automation {
namespace {

constexpr Argument kBills[] = {
    kYear,
    kFrom,
    kTo,
    Int32("lngItem_id", kNotUsed).Optional(),
    Int32("lngLedger_Id", kNotUsed).Optional(),
    kLongDate.Optional(),
    Text("strRefSeperator", kNotUsed).Optional("/"),
    Byte("bytOptional", kNotUsed).Optional(),
    kReport.Optional("true"),
    Flag("blnDetailed", "Add the receipts of each bill, and in BillWiseQuery1 its lines.")
        .Optional(),
    Flag("blnShowNarration", kNotUsed).Optional(),
    kScale.Optional("1"),
    Flag("Detailed", kNotUsed).Optional(),
    Day("lastVoucherDate", kNotUsed).Optional(),
    HostRowset("recitem", "Items with Itemnew_id and itemname.").Optional(),
};

constexpr Argument kPriceList[] = {
    kYearNotUsed,
    Day("dtFromDate", kNotUsed),
    Day("dtToDate", kNotUsed),
    Int32("lngPriceList_Id", kNotUsed),
    Int32("lngCategory_Id", "The item category; -1 leaves it out of the query.")
        .Of(kCategories)
        .OrAll("-1")
        .Optional("-1"),
    Int32("lngClass_Id", "The item class; -1 is all.").Of(kClasses).OrAll("-1").Optional("-1"),
    kReport.Optional("true"),
    Text("itemstate", "One item state; nothing and 1,2 are any.").Optional(),
    Text("cosiderforsih", "A condition on the items; the query needs one.").Optional(),
};

constexpr ReportTypeRule kBillsType[] = {{0, rtBillWiseReport}};
constexpr ReportTypeRule kPriceListType[] = {{0, rtMultiplePriceList}};

constexpr SortRule kBillsSorting[] = {
    ByNumber(kByNumberBeforeLine).Together("BillnoSort DateSort LedgerNameSort")};
constexpr SortRule kBillLinesSorting[] = {ByNumber(kByNumberBeforeLine)};

constexpr Operation kBillsOperations[] = {
    {"BillWiseQuery",
     kCallOf<&clsStolvane1::BillWiseQuery>,
     "bills",
     LaunchKind::kFetch,
     ReturnKind::kRowsetInVariant,
     "Sale bills of the period with their receipts.",
     kBills,
     {},
     kBillsType,
     kBillsSorting,
     "Sale bills and receipts"},
    {"BillWiseQuery1",
     kCallOf<&clsStolvane1::BillWiseQuery1>,
     "bills",
     LaunchKind::kFetch,
     ReturnKind::kRowsetInVariant,
     "Bill-by-bill entries of the period with their receipts; ask for it synchronously.",
     kBills,
     {},
     kBillsType,
     kBillLinesSorting,
     "Pending bills and receipts",
     true},
    {"MultiplePriceList",
     kCallOf<&clsStolvane1::MultiplePriceList>,
     "bills",
     LaunchKind::kFetch,
     ReturnKind::kRowset,
     "Items with their six prices.",
     kPriceList,
     {},
     kPriceListType,
     kSortedByClass,
     "Price list"},
};

}  // namespace

std::span<const Operation> BillsOperations() { return kBillsOperations; }

}  // namespace pstolvane1::automation
