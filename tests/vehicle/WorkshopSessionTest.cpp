// What the reports of the workshop take from the session, and how they end badly.
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "RandomDealer.h"
#include "session/clsStolvane1.h"
#include "session/modStolvane1.h"

namespace pstolvane1 {
namespace {

using golden::TextTable;

// One warranty bill of the Falcon, a free service.
const std::vector<TextTable>& OneBill() {
  static const std::vector<TextTable> kTables = {
      {"Vouchertype1",
       {"Vouchertype_id", "Vouchertype", "SubRelatedTo"},
       {{"39", "Service bill", "39"}}},
      {"Items1", {"Item_id", "ItemName", "ItemPartNo"}, {{"11", "Filter", "P-11"}}},
      {"Defect", {"Defect_id", "DefectName"}, {{"1", "Leaking"}}},
      {"Vendor", {"Vendor_id", "VendorName"}, {{"1", "Kiran"}}},
      {"Perfomance", {"Perfomance_id", "PerfomanceName"}, {{"1", "Noisy"}}},
      {"Desr1",
       {"Desr_id", "Date", "Vouchertype_id", "Prefix", "DesrRefno", "TotalAmount", "Deleted"},
       {{"1", "2003-04-10", "39", "SB", "7", "50", "0"}}},
      {"Terms1",
       {"DesrTerms_id", "Desr_id", "Vehicle_id", "ServiceType_id", "DateOfSale"},
       {{"1", "1", "1", "3", "2003-01-05"}}},
      {"DesrDetails1",
       {"DesrDetails_id", "Desr_id", "Item_id", "DesrDetDate", "QtyDespOut", "Price", "ActualRate",
        "IsWarranty", "DefectCode", "VendorCode", "PerformanceCode"},
       {{"1", "1", "11", "2003-04-10", "1", "50", "50", "1", "1", "1", "1"}}}};
  return kTables;
}

class WorkshopSession : public testing::Test {
 protected:
  WorkshopSession() {
    *modStolvane1::OfThisThread() = modStolvane1();
    session.SetLocale("en_IN");
    session.SetConnection("", "", books.ConnectionString(), False);
    items = Recordset::New();
    items->Open("select item_id as itemnew_id, itemname, itempartno, 'Nos' as uomname from items1",
                session.GetConnectionObject());
  }

  RecordsetPtr Bills(ReportType reptype, Boolean blnReport, bool detailed,
                     RecordsetPtr host_items) {
    return session.FreeServiceReportDaily(reptype, 1, from, to, blnReport, detailed, 1, 1,
                                          std::move(host_items), 0);
  }
  RecordsetPtr LabourBills(bool detailed, RecordsetPtr host_items) {
    return session.MechanicLabourReportDaily(rtMechanicLabourReportDaily, 1, from, to, True,
                                             detailed, 1, 0, 0, 0, std::move(host_items), 2, "");
  }
  RecordsetPtr History(bool detailed, RecordsetPtr host_items) {
    return session.ServiceReportRegno(1, from, to, True, detailed, 1, "", std::move(host_items));
  }
  Variant Claims(RecordsetPtr host_items) {
    return session.ClaimReport(1, from, to, 0, 0, False, "/", 0, True, False, False, 1,
                               std::move(host_items));
  }

  const golden::SmallBooks books{OneBill()};
  const Date from = Date::FromYmd(2003, 4, 1), to = Date::FromYmd(2004, 3, 31);
  clsStolvane1 session;
  RecordsetPtr items;
};

template <typename Report>
Error ErrorOf(Report&& report) {
  try {
    report();
  } catch (const Error& error) {
    return error;
  }
  ADD_FAILURE() << "no error";
  return {ErrorNumber::kOverflow, ""};
}

TEST_F(WorkshopSession, DatesAreLongWhereTheReportBeforeLeftThemSo) {
  modStolvane1::OfThisThread()->blnUseLongDate = true;
  EXPECT_EQ(Bills(rtFreeServiceReportDaily, True, false, nullptr)->Collect("Date").ToText(),
            "Thursday, 10 April, 2003");
  const RecordsetPtr history = History(false, nullptr);
  EXPECT_EQ(history->Collect("Date").ToText(), "Thursday, 10 April, 2003");
}

TEST_F(WorkshopSession, UnderLongDatesAClaimAsksForAColumnThatNoQueryHas) {
  EXPECT_EQ(Claims(items).ToRowset()->Collect("Saledate").ToText(), "05/01/2003");
  modStolvane1::OfThisThread()->blnUseLongDate = true;
  const Error error = ErrorOf([&] { (void)Claims(items); });
  EXPECT_EQ(error.Number(), ErrorNumber::kNoSuchColumn);
  EXPECT_NE(error.Description().find("dateofsalw"), std::string::npos) << error.Description();
  modStolvane1::OfThisThread()->blnUseLongDate = false;
  EXPECT_EQ(Claims(items).ToRowset()->RecordCount(), 3) << "the session is usable after it";
}

TEST_F(WorkshopSession, TheDailyListIsItsOwnWhateverTypeItIsAskedForUnder) {
  for (const ReportType type : {rtFreeServiceReportDaily, rtFreeServiceReport, ReportType{}}) {
    const RecordsetPtr report = Bills(type, True, false, nullptr);
    EXPECT_EQ(report->Collect("RecordType").ToText(), "1") << type;
    EXPECT_EQ(report->RecordCount(), 3);
  }
}

TEST_F(WorkshopSession, InTheBackgroundATypeWithoutARowDeliversNothing) {
  int delivered = 0;
  session.FetchComplete = [&](const RecordsetPtr&, std::int32_t) { ++delivered; };
  EXPECT_EQ(Bills(rtBuyerReportDaily, False, false, nullptr), nullptr);
  while (session.Fetching()) (void)WaitForEvents(std::chrono::milliseconds(10));
  (void)DoEvents();
  EXPECT_EQ(delivered, 0);
  EXPECT_EQ(Bills(rtFreeServiceReportDaily, False, false, nullptr), nullptr);
  for (int round = 0; round < 500 && delivered == 0; ++round) {
    (void)WaitForEvents(std::chrono::milliseconds(10));
  }
  EXPECT_EQ(delivered, 1);
}

TEST_F(WorkshopSession, WithoutItemsAReportWithLinesIsAnErrorAndOneWithoutIsNot) {
  EXPECT_EQ(Bills(rtFreeServiceReportDaily, True, false, nullptr)->RecordCount(), 3);
  EXPECT_EQ(LabourBills(false, nullptr)->RecordCount(), 3);
  EXPECT_EQ(History(false, nullptr)->RecordCount(), 1);
  for (const auto& report :
       {std::function<void()>([&] { Bills(rtFreeServiceReportDaily, True, true, nullptr); }),
        std::function<void()>([&] { LabourBills(true, nullptr); }),
        std::function<void()>([&] { History(true, nullptr); }),
        std::function<void()>([&] { (void)Claims(nullptr); })}) {
    EXPECT_EQ(ErrorOf(report).Number(), ErrorNumber::kObjectNotSet);
  }
  EXPECT_EQ(LabourBills(true, items)->RecordCount(), 4) << "the session is usable after it";
}

TEST_F(WorkshopSession, TheHostsRowsetIsOnlyRead) {
  items->Filter("ItemNew_id = 77");
  EXPECT_EQ(History(true, items)->RecordCount(), 2) << "all of its rows count";
  EXPECT_EQ(items->Filter(), "ItemNew_id = 77");
  EXPECT_EQ(items->RecordCount(), 0);
}

}  // namespace
}  // namespace pstolvane1
