// The catalogue holds every public operation as it is published.
#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Arguments.h"
#include "automation/Operations.h"
#include "session/ReportType.h"
#include "session/data/Error.h"

namespace pstolvane1::automation {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

// What the class publishes beside its reports; the names of these are those of the folders of
// their cases.
constexpr std::string_view kOfTheSession[] = {
    "SetConnection",  "GetConnectionObject", "SetAliases", "SetFilter",
    "CancelFetching", "UserPressedCancel",   "SetLocale",  "POrderTextQuery"};
constexpr std::string_view kFamilies[] = {"session",  "stock",   "monthly", "pending",
                                          "analysis", "vehicle", "bills"};

TEST(Catalogue, HoldsEachOperationOnceInItsFamily) {
  std::set<std::string_view> names;
  std::vector<std::string_view> of_the_session;
  for (const Operation& one : Operations()) {
    EXPECT_TRUE(names.insert(one.name).second) << one.name;
    EXPECT_THAT(kFamilies, testing::Contains(one.family)) << one.name;
    if (one.family == "session") of_the_session.push_back(one.name);
  }
  EXPECT_THAT(of_the_session, ElementsAreArray(kOfTheSession));
}

TEST(Catalogue, DescribesEveryArgumentInASentence) {
  for (const Operation& operation : Operations()) {
    SCOPED_TRACE(operation.name);
    EXPECT_TRUE(operation.help.ends_with('.'));
    std::set<std::string> names;
    for (const Slot& slot : SlotsOf(operation)) {
      EXPECT_TRUE(slot.argument->help.ends_with('.')) << slot.name;
      EXPECT_TRUE(names.emplace(slot.name).second) << slot.name;
      EXPECT_EQ(slot.argument->enumeration != nullptr,
                slot.argument->type == ArgumentType::kEnumeration);
      EXPECT_EQ(FindArgument(operation, slot.name), slot.argument);
    }
  }
}

TEST(Catalogue, EveryPresetIsAValueOfItsArgument) {
  for (const Operation& operation : Operations()) {
    for (const Argument& argument : operation.arguments) {
      SCOPED_TRACE(std::string(operation.name) + " " + std::string(argument.name));
      if (!argument.preset.empty()) {
        EXPECT_TRUE(argument.optional);
        EXPECT_NO_THROW(static_cast<void>(ValueFromText(argument, argument.preset)));
      }
    }
  }
}

TEST(Catalogue, ArgumentsBehindAnOptionalOneAreOptionalButForTheServiceSearch) {
  for (const Operation& operation : Operations()) {
    bool optional = false;
    for (const Argument& argument : operation.arguments) {
      if (operation.name == "AutoSearchServices" && argument.name == "lngSubRelatedTo") continue;
      EXPECT_TRUE(argument.optional || !optional) << operation.name << " " << argument.name;
      optional = argument.optional;
    }
  }
}

TEST(Catalogue, NamesOnlyReportTypesThatExist) {
  const Enumeration& types = *Enumerations().front();
  EXPECT_EQ(types.values.size(), 140U);
  for (const Operation& operation : Operations()) {
    for (const ReportTypeRule& rule : operation.report_types) {
      EXPECT_NE(NameOf(types, rule.stored), std::to_string(rule.stored)) << operation.name;
    }
    const bool session = operation.family == "session";
    EXPECT_EQ(operation.report_types.empty(), session) << operation.name;
    if (!operation.decided_by.empty()) {
      EXPECT_NE(FindArgument(operation, operation.decided_by), nullptr) << operation.name;
    }
  }
}

TEST(Catalogue, ShowsSignaturesWithTheirPublishedDefaults) {
  const auto usage = [](std::string_view name) { return UsageOf(GetOperation(name)); };
  EXPECT_EQ(
      usage("SetConnection"),
      "SetConnection strProvider strConnectionString strConnectionString1 [AsyncConnect=true]"
      " [dtFromDate] [dtToDate] [strCurrencyPrefix=\"Rupees\"] [strCurrencySuffix=\"Paise\"]");
  EXPECT_EQ(usage("SetAliases"),
            "SetAliases [taItem] [taGodown] [taBatch] [taCategory] [taClass] [taLedger]"
            " [taEmployee] [taTransporter]");
  EXPECT_EQ(usage("StockDetails_Itemwise"),
            "StockDetails_Itemwise bytYearno dtFromDate dtToDate ValuationMethod lngAny_Id1"
            " lngAny_Id2 blnReport blnDetailed blnAltUom sngScale blnOnlyItems blnShowOpening"
            " blnShowInwards blnShowOutwards [strConsiderForSih=\"\"] [strItemstate=\"\"]");
  EXPECT_EQ(usage("Monthly_GodownItemwise"),
            "Monthly_GodownItemwise bytYearno dtFromDate dtToDate ValuationMethod lngAny_Id1"
            " lngAny_Id2 blnReport blnDetailed blnAltUom sngScale blnOnlyItems blnShowOpening"
            " blnShowInwards blnShowOutwards [lngBatch_id=0]");
  EXPECT_EQ(usage("FreeQuantity_Partywise"),
            "FreeQuantity_Partywise bytYearno dtFromDate dtToDate lngLedger_Id lngItem_id"
            " [blnUseLongDate=false] [strRefSeperator=\"/\"] [bytOptional=0] [blnReport=true]"
            " [blnDetailed=false] [blnShowNarration=false] [sngScale=1]");
  EXPECT_EQ(usage("PendingByEmployee"),
            "PendingByEmployee bytYearno lngEmployee_Id lngVouchertype_id [dtFromDate] [dtToDate]"
            " [blnReport=true] [sngScale=1] [bytOptional=0] [blnDetailed=false] [LongDate=false]"
            " [blnShowNarr=false] [strRefSep=\"/\"] [blnIncludeRelatedVoucherTypes=true]");
  EXPECT_EQ(usage("Doc_Initial"),
            "Doc_Initial bytYearno lngVouchertype_id dtFromDate dtToDate [blnReport=true]"
            " [gScale=1] [blnNoRel=false] [vhtypeId_NotInc=0] [strBillFilter=\"\"]");
  EXPECT_EQ(usage("LedgersByCode"), "LedgersByCode bytYearno sCode blnReport");
  EXPECT_EQ(
      usage("CustomerItemwise_Analysis"),
      "CustomerItemwise_Analysis reptype bytYearno lngId dtFromDate dtToDate blnDetailed"
      " [blnReport=true] [sngScale=1] [strConsiderForSih=\"\"] [strItemstate=\"\"] [rsItems]");
  EXPECT_EQ(usage("Movement_PurchaseReturns_DailyAnalysis"),
            "Movement_PurchaseReturns_DailyAnalysis reptype bytYearno lngId lngId2 dtFromDate"
            " dtToDate [blnReport=true] [LongDate=false] [sngScale=1] [RefSeperator=\"/\"]"
            " [bytOptional=0] [strConsiderForSih=\"\"] [strItemstate=\"\"]");
  EXPECT_EQ(usage("Commission_Initial"),
            "Commission_Initial reptype bytYearno dtFromDate dtToDate blnDetailed [lngId1=-1]"
            " [blnReport=true] [sngScale=1] [recitem]");
  EXPECT_EQ(usage("ItemWise_DlyBkup"),
            "ItemWise_DlyBkup bytYearno dtFromDate dtToDate Item_id Ledger_id strVouchertype"
            " [blnReport=true] [sngScale=0] [strConsiderForSih=\"\"] [strItemstate=\"\"]"
            " [Cat_id=-1] [blnIsclass=false]");
  EXPECT_EQ(usage("ServiceTax"),
            "ServiceTax bytYearno dtFromDate dtToDate [lngItem_id=0] [lngLedger_Id=0]"
            " [blnUseLongDate=false] [strRefSeperator=\"/\"] [bytOptional=0] [blnReport=true]"
            " [blnDetailed=false] [blnShowNarration=false] [sngScale=1] [recitem] [recLedger]");
  EXPECT_EQ(usage("BillWiseQuery1"),
            "BillWiseQuery1 bytYearno dtFromDate dtToDate [lngItem_id=0] [lngLedger_Id=0]"
            " [blnUseLongDate=false] [strRefSeperator=\"/\"] [bytOptional=0] [blnReport=true]"
            " [blnDetailed=false] [blnShowNarration=false] [sngScale=1] [Detailed=false]"
            " [lastVoucherDate] [recitem]");
  EXPECT_EQ(usage("MultiplePriceList"),
            "MultiplePriceList bytYearno dtFromDate dtToDate lngPriceList_Id [lngCategory_Id=-1]"
            " [lngClass_Id=-1] [blnReport=true] [itemstate=\"\"] [cosiderforsih=\"\"]");
}

TEST(Catalogue, KnowsWhichArgumentsAreByReference) {
  std::vector<std::string> found;
  for (const Operation& operation : Operations()) {
    for (const Argument& argument : operation.arguments) {
      if (argument.by_reference) {
        found.push_back(std::string(operation.name) + "." + std::string(argument.name));
      }
    }
  }
  EXPECT_THAT(
      found,
      ElementsAre("SetAliases.pAlias", "LedgersByCode.sCode", "CustomerItemwise_Analysis.reptype",
                  "Movement_PurchaseReturns_Analysis.reptype", "CustomerItemDaily_Analysis.reptype",
                  "Movement_PurchaseReturns_DailyAnalysis.reptype", "Commission_Initial.reptype",
                  "FreeServiceReportDaily.rsItms", "MechanicLabourReportDaily.Item_id",
                  "MechanicLabourReportDaily.rsItm", "HypoReportDaily.Item_id",
                  "HypoReportDaily.rsItm", "AutoSearchServices.lngSubRelatedTo",
                  "ServiceTax.recLedger"));
}

TEST(Catalogue, DescribesTheEventsInTheirOrder) {
  std::vector<std::string> found;
  for (const Event& event : Events()) {
    std::string text(event.name);
    for (const EventArgument& one : event.arguments) text += " " + std::string(one.name);
    found.push_back(text);
  }
  EXPECT_THAT(found, ElementsAre("OnConnect ErrString", "FetchComplete Rss anyCount",
                                 "FetchProgress bytFetchPercent strmessage"));
}

TEST(Catalogue, FindsNamesInAnyCaseAndSaysWhichIsNearestOtherwise) {
  EXPECT_EQ(GetOperation("doc_initial").name, "Doc_Initial");
  EXPECT_EQ(FindOperation("Doc_Initials"), nullptr);
  try {
    static_cast<void>(GetOperation("ledgerbycode"));
    FAIL() << "found";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kArgumentOutOfRange);
    EXPECT_EQ(error.Description(),
              "there is no operation \"ledgerbycode\"; the nearest name is LedgersByCode");
  }
}

struct TypeCase {
  const char* situation;
  std::string_view operation;
  std::vector<NamedValue> values;
  std::optional<std::int32_t> type;
};

class ReportTypes : public testing::TestWithParam<TypeCase> {};

TEST_P(ReportTypes, FollowFromTheCall) {
  const Operation& operation = GetOperation(GetParam().operation);
  // the deciding argument alone is looked at, so the others may stay empty
  const std::vector<Slot> slots = SlotsOf(operation);
  BoundValues values(slots.size());
  for (std::size_t i = 0; i < slots.size(); ++i) {
    for (const NamedValue& one : GetParam().values) {
      if (slots[i].name == one.name) values[i] = one.value;
    }
  }
  EXPECT_EQ(ReportTypeOf(operation, values), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(
    , ReportTypes,
    testing::Values(
        TypeCase{"one_type", "Doc_Initial", {}, rtDoc_Initial},
        TypeCase{"no_type", "POrderTextQuery", {}, std::nullopt},
        TypeCase{"by_valuation",
                 "StockDetails_Classwise",
                 {{"ValuationMethod", 2}},
                 rtStockDetails_Classwise_WithFifoLifo},
        TypeCase{"godowns_have_no_simple_average",
                 "StockDetails_Godownwise",
                 {{"ValuationMethod", 9}},
                 rtStockDetails_Godownwise_WithAvg},
        TypeCase{"current_rate_delivers_nothing",
                 "Monthly_Itemwise",
                 {{"ValuationMethod", 6}},
                 std::nullopt},
        TypeCase{"translated",
                 "Movement_PurchaseReturns_Analysis",
                 {{"reptype", 25000}},
                 rtMovement_PurchaseReturns_AreaLedgerAnalysis},
        TypeCase{"translated_already", "CustomerItemwise_Analysis", {{"reptype", 10}}, 10},
        TypeCase{"any_other_number_is_kept", "FreeServiceReportDaily", {{"reptype", 7}}, 7}),
    [](const auto& one) { return std::string(one.param.situation); });

}  // namespace
}  // namespace pstolvane1::automation
