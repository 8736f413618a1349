// What the reports of a workshop cost: bench_vehicle [BILLS [ROUNDS [REPORT]]], or bench_vehicle
// search [MOVEMENTS [ROUNDS [REPORT]]] for what finds a vehicle.
#include <chrono>
#include <fmt/format.h>
#include <string_view>

#include "../Contest.h"
#include "Garage.h"
#include "session/data/MessageLoop.h"

namespace {

using namespace pstolvane1;
using namespace pstolvane1::bench;

const Date kFrom = Date::FromYmd(2003, 4, 1), kTo = Date::FromYmd(2004, 3, 31);

constexpr const char* kOfTheYear =
    " AND d.Date BETWEEN '2003-04-01' AND '2004-03-31' AND d.Deleted = 0 ";
constexpr const char* kBills =
    " FROM Terms1 t JOIN Desr1 d ON d.Desr_id = t.Desr_id JOIN Vouchertype1 v ON "
    "v.Vouchertype_id = d.Vouchertype_id ";
constexpr const char* kLines = " JOIN DesrDetails1 l ON l.Desr_id = d.Desr_id ";

std::string Bills(const std::string& columns, const std::string& more, int kind,
                  const std::string& condition, const std::string& order) {
  return fmt::format("SELECT {}{}{} WHERE v.SubRelatedTo = {} {}{} {}", columns, kBills, more, kind,
                     kOfTheYear, condition, order);
}

std::vector<Contest> Reports(const RecordsetPtr& items) {
  const std::string document =
      "d.Desr_id, d.Date, d.Related_id, d.Optional, d.Prefix, d.DesrRefno, d.Suffix, "
      "d.TotalAmount, v.Vouchertype, t.DespatchTo, t.RegistrationNumber";
  const std::string mechanic =
      "(SELECT MechanicName FROM MechanicName m WHERE m.Mechanic_id = t.Mechanic_id)";
  const std::string labour =
      "(SELECT sum(l.QtyDespOut * l.Price) FROM DesrDetails1 l JOIN Items1 i ON i.Item_id = "
      "l.Item_id WHERE l.Desr_id = d.Desr_id AND i.ConsiderForSih = 0)";
  const std::string line = ", l.Item_id, l.QtyDespOut, l.Price";
  const std::string free = " AND t.ServiceType_id IN (3,5,7,9,11,13) ";
  return {
      {"ServiceReportRegno",
       [=](clsStolvane1& session) {
         return session.ServiceReportRegno(1, kFrom, kTo, True, True, 1, "", items);
       },
       fmt::format(
           "SELECT {}, t.ChasisNumber, t.EngineNumber, t.List1, t.List2, t.List3, t.List4, "
           "t.List5, t.List6, t.JobCardRefno, t.JobCardPrefix, t.JobCardSuffix, "
           "t.IsJobCard, d.YearNo, l.ActualRate, l.Salestax, l.Discount, l.IsWarranty{}{}{} "
           "WHERE v.SubRelatedTo = 39 AND d.Deleted = 0 "
           "ORDER BY t.RegistrationNumber, d.Desr_id, l.DesrDetails_id",
           document, line, kBills, kLines)},
      {"FreeServiceReport",
       [](clsStolvane1& session) {
         return session.FreeServiceReport(1, kFrom, kTo, True, True, 1, "", "", 0);
       },
       "SELECT c.CategoryName, i.ItemName, q.* FROM (" +
           Bills("t.Vehicle_id, t.ServiceType_id, sum(d.TotalAmount)", "", 39, free,
                 "GROUP BY t.Vehicle_id, t.ServiceType_id") +
           ") q JOIN Items1 i ON i.Item_id = q.Vehicle_id JOIN ItemCategory1 c ON "
           "c.ItemCategory_id = i.ItemCategory_id ORDER BY 1, 2"},
      {"FreeServiceReportDaily",
       [=](clsStolvane1& session) {
         return session.FreeServiceReportDaily(rtFreeServiceReportDaily, 1, kFrom, kTo, True, True,
                                               1, 5, items, 0);
       },
       Bills(document + ", t.ServiceType, " + mechanic + line, kLines, 39,
             free + " AND t.Vehicle_id = 5",
             "ORDER BY d.Date, t.RegistrationNumber, d.Desr_id, l.DesrDetails_id")},
      {"MechanicLabourReport",
       [](clsStolvane1& session) {
         return session.MechanicLabourReport(1, kFrom, kTo, True, False, 1, "", "", 0, 2, "");
       },
       "SELECT m.MechanicName, q.* FROM (" +
           Bills("t.Mechanic_id, sum(d.TotalAmount), sum(" + labour + ")", "", 39, "",
                 "GROUP BY t.Mechanic_id") +
           ") q JOIN MechanicName m ON m.Mechanic_id = q.Mechanic_id ORDER BY 1"},
      {"MechanicLabourReport by item",
       [](clsStolvane1& session) {
         return session.MechanicLabourReport(1, kFrom, kTo, True, True, 1, "", "", 0, 2, "");
       },
       "SELECT m.MechanicName, i.ItemName, q.*, b.* FROM (" +
           Bills("t.Mechanic_id, l.Item_id, sum(l.QtyDespOut * l.Price)",
                 std::string(kLines) + " JOIN Items1 i ON i.Item_id = l.Item_id ", 39,
                 " AND i.ConsiderForSih = 0 ", "GROUP BY t.Mechanic_id, l.Item_id") +
           ") q JOIN (" +
           Bills("t.Mechanic_id, sum(d.TotalAmount)", "", 39, "", "GROUP BY t.Mechanic_id") +
           ") b ON b.Mechanic_id = q.Mechanic_id JOIN Items1 i ON i.Item_id = q.Item_id "
           "JOIN MechanicName m ON m.Mechanic_id = q.Mechanic_id ORDER BY 1, 2"},
      {"MechanicLabourReportDaily",
       [=](clsStolvane1& session) {
         return session.MechanicLabourReportDaily(rtMechanicLabourReportDaily, 1, kFrom, kTo, True,
                                                  False, 1, 0, 0, 0, items, 2, "");
       },
       Bills(document + ", t.ServiceType, " + mechanic + ", " + labour, "", 39, "",
             "ORDER BY d.Date, t.RegistrationNumber, d.Desr_id")},
      {"HypoReport",
       [](clsStolvane1& session) {
         return session.HypoReport(1, kFrom, kTo, True, True, 1, "", "", 0, 1, "");
       },
       "SELECT h.Pincode, h.Name, i.ItemName, q.*, s.* FROM (" +
           Bills("t.Hypo_id, l.Item_id, sum(l.QtyDespOut), sum(l.QtyDespOut * l.Price), "
                 "sum(d.TotalAmount)",
                 kLines, 10, " AND t.Hypo_id <> 0 ", "GROUP BY t.Hypo_id, l.Item_id") +
           ") q JOIN (" +
           Bills("t.Hypo_id, sum(d.TotalAmount)", "", 10, " AND t.Hypo_id <> 0 ",
                 "GROUP BY t.Hypo_id") +
           ") s ON s.Hypo_id = q.Hypo_id JOIN Hypo h ON h.Hypo_id = q.Hypo_id "
           "JOIN Items1 i ON i.Item_id = q.Item_id ORDER BY 1, 2, 3"},
      {"HypoReportDaily",
       [=](clsStolvane1& session) {
         return session.HypoReportDaily(1, kFrom, kTo, True, False, 1, 0, 0, 0, items, 0, "");
       },
       Bills(document + ", l.QtyDespOut * l.Price, g.LedgerName",
             std::string(kLines) + " JOIN Hypo h ON h.Hypo_id = t.Hypo_id JOIN Items1 i ON "
                                   "i.Item_id = l.Item_id JOIN LedgerNames1 g ON g.Ledger_id = "
                                   "d.Ledger_id ",
             10, "", "ORDER BY h.Name, d.Date, d.Desr_id, i.ItemName, l.DesrDetails_id")},
      {"ClaimReport",
       [=](clsStolvane1& session) {
         return session
             .ClaimReport(1, kFrom, kTo, 0, 0, False, "/", 0, True, False, False, 1, items)
             .ToRowset();
       },
       Bills("d.Prefix, d.DesrRefno, d.Suffix, d.Desr_id, d.Related_id, t.ChasisNumber, "
             "t.DateOfSale, t.Kms, l.ClaimNo, l.DesrDetDate, l.VendorMfgDate, x.DefectName, "
             "y.VendorName, z.PerfomanceName" +
                 line,
             std::string(kLines) +
                 " JOIN Defect x ON x.Defect_id = l.DefectCode JOIN Vendor y ON y.Vendor_id = "
                 "l.VendorCode JOIN Perfomance z ON z.Perfomance_id = l.PerformanceCode ",
             39, " AND l.IsWarranty = 1 AND l.DesrDetDate BETWEEN '2003-04-01' AND '2004-03-31' ",
             "ORDER BY l.DesrDetDate, d.Desr_id, l.DesrDetails_id")},
  };
}

// A search is always fetched in the background.
RecordsetPtr Found(clsStolvane1& session, std::string_view criteria) {
  RecordsetPtr found;
  session.FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) { found = rowset; };
  session.AutoSearch(rtAutoSearch, 1, kFrom, kTo, criteria, False, 1, {}, 0, {},
                     "Vouchertype1.Relatedto in (7,10)");
  while (!found) WaitForEvents(std::chrono::milliseconds(50));
  session.FetchComplete = nullptr;
  return found;
}

Contest Search(const char* name, const std::string& condition) {
  return {name, [=](clsStolvane1& session) { return Found(session, "And Batches1." + condition); },
          fmt::format(
              "SELECT b.*, t.DespatchTo, d.*, m.GOriginalVouchertype_id, p.GPrefix, p.GRefNo, "
              "p.GSuffix, p.GDesr_id, p.Date, (SELECT sum(x.AmountDr - x.AmountCr) FROM "
              "BillByBill1 y JOIN BillByBillDetails1 x ON x.BillByBill_id = y.BillByBill_id WHERE "
              "y.CrVoucher_id = d.Related_id) FROM (SELECT * FROM Batches1 WHERE {}) b "
              "CROSS JOIN GodownItem1 m ON m.Batch_id = b.Batch_id AND m.Optional = 0 AND "
              "m.GOriginalVouchertype_id IN (0, 10, 7) LEFT JOIN GodownItem1 p ON p.Batch_id = "
              "b.Batch_id AND p.GOriginalVouchertype_id = 7 LEFT JOIN Desr1 d ON d.Desr_id = "
              "m.GDesr_id LEFT JOIN Terms1 t ON t.Desr_id = d.Desr_id ORDER BY d.Prefix, "
              "d.DesrRefno, d.Suffix, m.GodownItem_id",
              condition)};
}

std::vector<Contest> Searches(const RecordsetPtr& /*items*/) {
  return {Search("AutoSearch by a fragment of the chassis", "BatchCode LIKE '%12345%'"),
          Search("AutoSearch by a fragment of the engine", "EngineNo LIKE '%12345%'"),
          Search("AutoSearch by the whole number", "BatchCode = 'MB8A00791900'")};
}

}  // namespace

int main(int count, char** arguments) {
  if (count > 1 && std::string_view(arguments[1]) == "search") {
    return RunContests({.program = "bench_vehicle",
                        .unit = "movements of vehicles",
                        .size = 1'000'000,
                        .make_books = &MakeShowroom,
                        .all = &Searches},
                       count - 1, arguments + 1);
  }
  return RunContests({.program = "bench_vehicle",
                      .unit = "bills",
                      .size = 100'000,
                      .make_books = &MakeGarage,
                      .all = &Reports},
                     count, arguments);
}
