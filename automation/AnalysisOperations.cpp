#include <array>

#include "automation/Families.h"
#include "session/ReportType.h"

namespace pstolvane1::automation {
namespace {

constexpr Argument kReportOrNot = kReport.Optional("true");
constexpr Argument kScaleOrOne = kScale.Optional("1");
constexpr Argument kToAsVariant = {.name = "dtToDate",
                                   .type = ArgumentType::kVariant,
                                   .help = "The last day of the period, as a date."};

constexpr Argument kDocuments[] = {
    kYearNotUsed,
    Int32("lngVouchertype_id",
          "The kind of document: a voucher type's SubRelatedTo; 5 uncleared bank items, 9 "
          "receipts, 43 job cards.")
        .Of(kVouchertypes),
    kFrom,
    kTo,
    kReportOrNot,
    Single("gScale", "Divides every amount.").Optional("1"),
    Flag("blnNoRel", "The kind is the voucher type's own key.").Optional(),
    Int32("vhtypeId_NotInc", kNotUsed).Optional(),
    Text("strBillFilter", "A further condition on the documents, or nothing.").Optional(),
};

constexpr Argument kLedgers[] = {
    kYear,
    Text("sCode", "Subgroup codes with commas between, or nothing; comes back as a condition.")
        .ByReference(),
    kReport,
};

constexpr Argument kAnalysisType =
    OneOf("reptype", kReportType, "By party, item, group, category, class or area.").ByReference();
constexpr NamesWhen kGroupedBy[] = {
    {"reptype", "rtMovement_LedgerAnalysis", &kParties},
    {"reptype", "rtMovement_ItemAnalysis", &kItems},
    {"reptype", "rtMovement_GroupAnalysis", &kPartyGroups},
    {"reptype", "rtMovement_CategoryAnalysis", &kCategories},
    {"reptype", "rtMovement_ClassAnalysis", &kClasses},
    {"reptype", "rtMovement_AreaLedgerAnalysis", &kParties},
    {"reptype", "rtMovement_SalesReturns_ItemRelationAnalysis", &kParties},
};
constexpr Argument kOneOrAll = Int32("lngId", "The one group to show, in detail; -1 is all.")
                                   .PickedFrom(kGroupedBy)
                                   .OrAll("-1")
                                   .OneInDetail();

constexpr std::array<Argument, 10> Analysis(const Argument& to) {
  return {kAnalysisType,
          kYearNotUsed,
          kOneOrAll,
          kFrom,
          to,
          Flag("blnDetailed", "A line for each member of a group as well."),
          kReportOrNot,
          kScaleOrOne,
          kConsider.Optional(),
          kStates.Optional()};
}

constexpr auto kSales =
    And(Analysis(kToAsVariant),
        HostRowset("rsItems",
                   "Items with Item_id, itemname, ITemDesc and ITemPartno, for item relations.")
            .Optional());
constexpr auto kPurchases = Analysis(kToAsVariant);

constexpr NamesWhen kDaysOf[] = {
    {"reptype", "rtMovement_LedgerDailyAnalysis", &kParties},
    {"reptype", "rtMovement_ItemDailyAnalysis", &kItems},
    {"reptype", "rtMovement_GroupDailyAnalysis", &kPartyGroups},
};
constexpr NamesWhen kDaysWith[] = {
    {"reptype", "rtMovement_LedgerDailyAnalysis", &kItems},
    {"reptype", "rtMovement_ItemDailyAnalysis", &kParties},
    {"reptype", "rtMovement_GroupDailyAnalysis", &kItems},
};
constexpr Argument kDaily[] = {
    OneOf("reptype", kReportType, "The days of one party, one item or one group.").ByReference(),
    kYearNotUsed,
    Int32("lngId", "The party, item or group.").PickedFrom(kDaysOf),
    Int32("lngId2", "A second restriction, to an item or a party; 0 is none.")
        .PickedFrom(kDaysWith)
        .OrAll("0"),
    kFrom,
    kTo,
    kReportOrNot,
    Flag("LongDate", "Show dates in full.").Optional(),
    kScaleOrOne,
    Text("RefSeperator", "Kept for the reports that follow.").Optional("/"),
    Byte("bytOptional", kNotUsed).Optional(),
    kConsider.Optional(),
    kStates.Optional(),
};

constexpr NamesWhen kCommissionOf[] = {
    {"reptype", "rtCommission_Initial_Employeewise", &kEmployees},
    {"reptype", "rtCommission_Initial_Itemwise", &kItems},
};
constexpr Argument kCommission[] = {
    OneOf("reptype", kReportType, "By employee or by item.").ByReference(),
    kYearNotUsed,
    kFrom,
    kTo,
    Flag("blnDetailed", "A line for each item as well."),
    Int32("lngId1", "The one employee or item to show, in detail; -1 is all.")
        .PickedFrom(kCommissionOf)
        .OrAll("-1")
        .OneInDetail()
        .Optional("-1"),
    kReportOrNot,
    kScaleOrOne,
    HostRowset("recitem", "Items with itemnew_id and itemname.").Optional(),
};
constexpr Argument kCommissionDaily[] = {
    kYearNotUsed,
    kFrom,
    kTo,
    Int32("lngEmployee_Id", "The employee.").Of(kEmployees),
    Int32("lngItem_id", "The item.").Of(kItems),
    kReportOrNot,
    kScaleOrOne,
    Flag("blnLongDate", "Show dates in full.").Optional(),
    Byte("bytOpt", kNotUsed).Optional(),
    Text("sRefSep", "Stands between the parts of a document number.").Optional("/"),
};

constexpr NamesWhen kFromColours[] = {{{}, {}, &kColours}};
constexpr Argument kColor = Text("lngColor_Id", "The colour's key.").PickedFrom(kFromColours);
constexpr Argument kColorwise[] = {
    kYear,
    kFrom,
    kTo,
    Int32("lngItem_id", "The item; 0 is all.").Of(kItems).OrAll("0").Optional(),
    kReportOrNot,
    Flag("blnDetailed", kNotUsed).Optional(),
    kStates.Optional(),
    kConsider.Optional(),
};
constexpr Argument kColorMonths[] = {
    kYear, kFrom, kTo, Int32("lngItem_id", "The item.").Of(kItems), kColor, kReportOrNot,
};
constexpr Argument kColorDays[] = {
    kYear,
    kFrom,
    kTo,
    Int32("lngItem_id", "The item.").Of(kItems),
    kColor,
    kReportOrNot,
    Text("sRefSep", "Stands between the parts of a document number.").Optional("/"),
    Byte("bytOpt", kNotUsed).Optional(),
    Flag("blnLongDate", "Show dates in full.").Optional(),
};

constexpr NamesWhen kFromTree[] = {
    {"blnIsclass", "false", &kCategories},
    {"blnIsclass", "true", &kClasses},
};
constexpr Argument kCategoryTree[] = {
    Flag("blnIsclass", "Item classes in place of categories."),
    kYearNotUsed,
    kFrom,
    kTo,
    Int32("lngId", "The category or class to begin with; 0 is all.")
        .PickedFrom(kFromTree)
        .OrAll("0"),
    Int32("lngVouchertype_id", "10 for sales, 7 for purchases.").Of(kVouchertypes),
    kReportOrNot,
    Flag("blnDetailed", "A line for each item as well.").Optional(),
    kScale.Optional(),
    kConsider.Optional(),
    kStates.Optional(),
};

constexpr Argument kItemDays[] = {
    kYear,
    kFrom,
    kTo,
    Int32("Item_id", "The item; -1 is all.").Of(kItems).OrAll("-1"),
    Int32("Ledger_id", "The party; 0 is all.").Of(kParties).OrAll("0"),
    Text("strVouchertype", "A condition on the voucher type, or nothing."),
    kReportOrNot,
    kScale.Optional(),
    kConsider.Optional(),
    kStates.Optional(),
    Int32("Cat_id", "The category or class, when all items are asked for; -1 is all.")
        .PickedFrom(kFromTree)
        .OrAll("-1")
        .Optional("-1"),
    Flag("blnIsclass", "Cat_id is a class.").Optional(),
};

constexpr ReportTypeRule kSalesTypes[] = {
    {rtMovement_LedgerAnalysis, rtMovement_SalesReturns_LedgerAnalysis, " by party"},
    {rtMovement_ItemAnalysis, rtMovement_SalesReturns_ItemAnalysis, " by item"},
    {rtMovement_GroupAnalysis, rtMovement_SalesReturns_GroupAnalysis, " by party group"},
    {rtMovement_CategoryAnalysis, rtMovement_SalesReturns_CategoryAnalysis, " by item category"},
    {rtMovement_ClassAnalysis, rtMovement_SalesReturns_ClassAnalysis, " by item class"},
    {rtMovement_AreaLedgerAnalysis, rtMovement_SalesReturns_AreaLedgerAnalysis,
     " by area and party"},
    {rtMovement_SalesReturns_ItemRelationAnalysis, rtMovement_SalesReturns_ItemRelationAnalysis,
     " of related items, by party"},
};
constexpr ReportTypeRule kPurchaseTypes[] = {
    {rtMovement_LedgerAnalysis, rtMovement_PurchaseReturns_LedgerAnalysis, " by party"},
    {rtMovement_ItemAnalysis, rtMovement_PurchaseReturns_ItemAnalysis, " by item"},
    {rtMovement_GroupAnalysis, rtMovement_PurchaseReturns_GroupAnalysis, " by party group"},
    {rtMovement_CategoryAnalysis, rtMovement_PurchaseReturns_CategoryAnalysis, " by item category"},
    {rtMovement_ClassAnalysis, rtMovement_PurchaseReturns_ClassAnalysis, " by item class"},
    {rtMovement_AreaLedgerAnalysis, rtMovement_PurchaseReturns_AreaLedgerAnalysis,
     " by area and party"},
};
constexpr ReportTypeRule kSalesDailyTypes[] = {
    {rtMovement_LedgerDailyAnalysis, rtMovement_SalesReturns_LedgerDailyAnalysis, ", of a party"},
    {rtMovement_ItemDailyAnalysis, rtMovement_SalesReturns_ItemDailyAnalysis, ", of an item"},
    {rtMovement_GroupDailyAnalysis, rtMovement_SalesReturns_GroupDailyAnalysis,
     ", of a party group"},
};
constexpr ReportTypeRule kPurchaseDailyTypes[] = {
    {rtMovement_LedgerDailyAnalysis, rtMovement_PurchaseReturns_LedgerDailyAnalysis,
     ", of a party"},
    {rtMovement_ItemDailyAnalysis, rtMovement_PurchaseReturns_ItemDailyAnalysis, ", of an item"},
    {rtMovement_GroupDailyAnalysis, rtMovement_PurchaseReturns_GroupDailyAnalysis,
     ", of a party group"},
};
constexpr ReportTypeRule kCommissionTypes[] = {
    {rtCommission_Initial_Employeewise, rtCommission_Initial_Employeewise, " by employee"},
    {rtCommission_Initial_Itemwise, rtCommission_Initial_Itemwise, " by item"},
};
constexpr ReportTypeRule kDocumentsType[] = {{0, rtDoc_Initial}};
constexpr ReportTypeRule kLedgersType[] = {{0, rtLedgersByCode}};
constexpr ReportTypeRule kCommissionDailyType[] = {{0, rtCommission_Daily}};
constexpr ReportTypeRule kColorwiseType[] = {{0, rtColorwise_Initial}};
constexpr ReportTypeRule kColorMonthsType[] = {{0, rtColorwise_Monthly}};
constexpr ReportTypeRule kColorDaysType[] = {{0, rtColorwise_Daily}};
constexpr ReportTypeRule kCategoriesType[] = {{0, rtCategorywise_Initial}};
constexpr ReportTypeRule kItemDaysType[] = {{0, rtItemwise_DlyBkup}};

constexpr SortRule kSalesSorting[] = {Unsorted(SortedWhen::kRelatedItems),
                                      ByGroup(SortedWhen::kDetailed),
                                      ByClass(SortedWhen::kSummary)};
// By area the numbers begin again with each area: this is meant.
constexpr SortRule kPurchasesSorting[] = {ByGroup(SortedWhen::kDetailedByArea).Together(kNoTwin),
                                          ByGroup(SortedWhen::kDetailed),
                                          ByClass(SortedWhen::kSummary)};
constexpr SortRule kDailySorting[] = {ByGroup(SortedWhen::kDetailed),
                                      Unsorted(SortedWhen::kSummary)};
// All groups but the first have the number of the total: this is meant.
constexpr SortRule kCommissionSorting[] = {ByGroup(SortedWhen::kDetailed),
                                           ByClass(SortedWhen::kSummary).MovingClosingLines()};
// Its rule has 1 and its total 2, as if they were lines: this is meant.
constexpr SortRule kColorwiseSorting[] = {ByNumber().Together(kNoTwin).MovingClosingLines()};
constexpr SortRule kItemDaysSorting[] = {
    ByClass(SortedWhen::kAlways, "Line, TotParticulars, HeadSort, DummySort, {}")};

template <auto member>
constexpr Operation Report(std::string_view name, LaunchKind launch, std::string_view help,
                           std::span<const Argument> arguments, std::string_view decided_by,
                           std::span<const ReportTypeRule> types) {
  return {name, kCallOf<member>, "analysis", launch, ReturnKind::kRowset,
          help, arguments,       decided_by, types};
}
// The lines of a report whose queries are open already.
template <auto member>
constexpr Operation Builder(std::string_view name, std::string_view help,
                            std::span<const ReportTypeRule> type) {
  return {
      name, kCallOf<member>, "analysis", LaunchKind::kRowBuilder, ReturnKind::kRowset, help, {}, {},
      type};
}

constexpr Operation kAnalysisOperations[] = {
    Report<&clsStolvane1::Doc_Initial>("Doc_Initial", LaunchKind::kFetch,
                                       "Amounts of one kind of document per ledger.", kDocuments,
                                       {}, kDocumentsType)
        .Titled("Documents by party")
        .Sorted(kSortedByClass),
    Report<&clsStolvane1::LedgersByCode>("LedgersByCode", LaunchKind::kFetch,
                                         "The ledgers of some subgroups.", kLedgers, {},
                                         kLedgersType)
        .Titled("Ledgers"),
    Report<&clsStolvane1::CustomerItemwise_Analysis>(
        "CustomerItemwise_Analysis", LaunchKind::kOpenAndSignal, "Sales and what came back.",
        kSales, "reptype", kSalesTypes)
        .Titled("Sales and returns")
        .Sorted(kSalesSorting),
    Report<&clsStolvane1::Movement_PurchaseReturns_Analysis>(
        "Movement_PurchaseReturns_Analysis", LaunchKind::kOpenAndSignal,
        "Purchases and what went back.", kPurchases, "reptype", kPurchaseTypes)
        .Titled("Purchases and returns")
        .Sorted(kPurchasesSorting),
    Report<&clsStolvane1::CustomerItemDaily_Analysis>(
        "CustomerItemDaily_Analysis", LaunchKind::kOpenAndSignal,
        "Sales and what came back, day by day.", kDaily, "reptype", kSalesDailyTypes)
        .Titled("Sales and returns day by day")
        .Sorted(kDailySorting),
    Report<&clsStolvane1::Movement_PurchaseReturns_DailyAnalysis>(
        "Movement_PurchaseReturns_DailyAnalysis", LaunchKind::kOpenAndSignal,
        "Purchases and what went back, day by day.", kDaily, "reptype", kPurchaseDailyTypes)
        .Titled("Purchases and returns day by day")
        .Sorted(kDailySorting),
    Report<&clsStolvane1::Commission_Initial>("Commission_Initial", LaunchKind::kFetch,
                                              "Sales and commission by employee or item.",
                                              kCommission, "reptype", kCommissionTypes)
        .Titled("Sales and commission")
        .Sorted(kCommissionSorting),
    Report<&clsStolvane1::Commission_Daily>(
        "Commission_Daily", LaunchKind::kFetch,
        "The documents behind one employee's commission on one item.", kCommissionDaily, {},
        kCommissionDailyType)
        .Titled("Documents behind a commission")
        .Sorted(kSortedByClass),
    Report<&clsStolvane1::Colorwise_Initial>("Colorwise_Initial", LaunchKind::kFetch,
                                             "Quantities by item and colour.", kColorwise, {},
                                             kColorwiseType)
        .Titled("Quantities by item and colour")
        .Sorted(kColorwiseSorting),
    Builder<&clsStolvane1::mColorwise_Initial>(
        "mColorwise_Initial", "The lines of Colorwise_Initial from what was fetched last.",
        kColorwiseType)
        .Titled("Quantities by item and colour")
        .Sorted(kColorwiseSorting),
    Report<&clsStolvane1::Colorwise_Monthly>("Colorwise_Monthly", LaunchKind::kFetch,
                                             "One item and colour month by month.", kColorMonths,
                                             {}, kColorMonthsType)
        .Titled("An item in one colour month by month"),
    Builder<&clsStolvane1::mColorwise_Monthly>(
        "mColorwise_Monthly", "The lines of Colorwise_Monthly from what was fetched last.",
        kColorMonthsType)
        .Titled("An item in one colour month by month"),
    Report<&clsStolvane1::Colorwise_Daily>("Colorwise_Daily", LaunchKind::kFetch,
                                           "The vouchers of one item and colour.", kColorDays, {},
                                           kColorDaysType)
        .Titled("Documents of an item in one colour")
        .Sorted(kSortedByClass),
    Builder<&clsStolvane1::mColorwise_Daily>(
        "mColorwise_Daily", "The lines of Colorwise_Daily from what was fetched last.",
        kColorDaysType)
        .Titled("Documents of an item in one colour")
        .Sorted(kSortedByClass),
    Report<&clsStolvane1::CategoryWise_Initial>(
        "CategoryWise_Initial", LaunchKind::kOpenAndSignal,
        "Sales or purchases along the tree of categories or classes.", kCategoryTree, {},
        kCategoriesType)
        .Titled("Documents by group and item"),
    Report<&clsStolvane1::ItemWise_DlyBkup>(
        "ItemWise_DlyBkup", LaunchKind::kFetch,
        "Inward and outward quantities day by day, of one item or of all.", kItemDays, {},
        kItemDaysType)
        .Titled("Quantities day by day")
        .Sorted(kItemDaysSorting),
    Builder<&clsStolvane1::mItemwise_DlyBreakup>(
        "mItemwise_DlyBreakup", "The lines of ItemWise_DlyBkup from what was fetched last.",
        kItemDaysType)
        .Titled("Quantities day by day")
        .Sorted(kItemDaysSorting),
};

}  // namespace

std::span<const Operation> AnalysisOperations() { return kAnalysisOperations; }

}  // namespace pstolvane1::automation
