#include "Garage.h"

#include <fmt/format.h>

#include "../Numbers.h"
#include "session/books/BooksFile.h"
#include "session/books/Writer.h"

namespace pstolvane1::bench {
namespace {

void FillMasters(books::Writer& writer) {
  writer.Execute(
      "INSERT INTO Vouchertype1 VALUES (10,'Vehicle Sale',10,10),(39,'Service Bill',10,39)");
  writer.Execute("INSERT INTO SubgroupName1 VALUES (4,'Sundry Debtors',20)");
  writer.Execute("INSERT INTO Uom1 VALUES (1,'Nos')");
  writer.Execute(
      "INSERT INTO ItemCategory1 VALUES (1,'Motorcycles',0,1),(2,'Scooters',0,2),(3,'Parts',0,3)");
  // Models from 1, parts from 101, labour from 501.
  writer.Execute(Numbers(520) +
                 "INSERT INTO Items1 (Item_id, ItemName, ItemPartNo, Uom_id, ItemCategory_id, "
                 "Deleted, ConsiderForSih) SELECT n, 'Item ' || n, 'P-' || n, 1, "
                 "CASE WHEN n > 100 THEN 3 ELSE 1 + n % 2 END, 0, n <= 500 FROM numbers");
  writer.Execute(Numbers(1000) +
                 "INSERT INTO LedgerNames1 SELECT n, 'Party ' || n, 4, '411001', 1 FROM numbers");
  writer.Execute(Numbers(40) + "INSERT INTO MechanicName SELECT n, 'Mechanic ' || n FROM numbers");
  writer.Execute(Numbers(12) +
                 "INSERT INTO Hypo SELECT n, 'Financier ' || n, 411000 + n / 2 FROM numbers");
  writer.Execute(Numbers(8) + "INSERT INTO Defect SELECT n, 'Defect ' || n FROM numbers");
  writer.Execute(Numbers(8) + "INSERT INTO Vendor SELECT n, 'Vendor ' || n FROM numbers");
  writer.Execute(Numbers(8) + "INSERT INTO Perfomance SELECT n, 'Effect ' || n FROM numbers");
}

// Bills from first + 1 on.
void FillBills(books::Writer& writer, std::int64_t first, std::int64_t count, int type, int lines) {
  writer.Execute(
      Numbers(count) +
      fmt::format("INSERT INTO Desr1 (Desr_id, Date, Vouchertype_id, Ledger_id, Prefix, "
                  "DesrRefno, Suffix, Related_id, TotalAmount, Optional, Deleted, "
                  "YearNo) SELECT {0} + n, date('2003-04-01', (n * 366 / {1}) || ' days'), "
                  "{2}, 1 + n % 1000, 'B', n, '03-04', {0} + n, 100 + n % 900, 0, "
                  "n % 50 = 7, 1 FROM numbers",
                  first, count + 1, type));
  writer.Execute(
      Numbers(count) +
      fmt::format(
          "INSERT INTO Terms1 (DesrTerms_id, Desr_id, DespatchTo, Vehicle_id, RegistrationNumber, "
          "ChasisNumber, EngineNumber, DateOfSale, Kms, Mechanic_id, Hypo_id, ServiceType, "
          "ServiceType_id, List1, List2, JobCardRefno, JobCardPrefix, JobCardSuffix, IsJobCard) "
          "SELECT {0} + n, {0} + n, 'Buyer ' || (n % 5000), 1 + n % 12, 'KA' || (n % {1}), "
          "'C' || (n % {1}), 'E' || (n % {1}), '2003-01-05', n % 9000, 1 + n % 40, 1 + n % 12, "
          "'Service', 1 + n % 14, CASE WHEN n % 3 = 0 THEN 'Noise ' || (n % 90) END, NULL, n, "
          "'JC', "
          "'', 1 FROM numbers",
          first, count / 4 + 1));
  writer.Execute(
      Numbers(count * lines) +
      fmt::format(
          "INSERT INTO DesrDetails1 (DesrDetails_id, Desr_id, Item_id, DesrDetDate, QtyDespIn, "
          "QtyDespOut, Price, ActualRate, Salestax, Discount, IsWarranty, DefectCode, VendorCode, "
          "PerformanceCode, VendorMfgDate, ClaimNo) "
          "SELECT {0} + n, {1} + (n + {2} - 1) / {2}, CASE n % {2} WHEN 0 THEN 501 + n % 20 "
          "ELSE {3} + n % 300 END, (SELECT Date FROM Desr1 WHERE Desr_id = {1} + (n + {2} - 1) / "
          "{2}), "
          "0, 1 + n % 2, 50 + n % 400, 60 + n % 400, 12.5, n % 3, n % (50 * {2}) = 1, 1 + n % 8, "
          "1 + n % 8, 1 + n % 8, '2002-06-30', 'WC' || n FROM numbers",
          first * 4, first, lines, type == 10 ? 1 : 101));
}

// A purchase bill for each ten vehicles, and behind them the sale of each.
void FillTrade(books::Writer& writer, std::int64_t vehicles) {
  const std::int64_t purchases = vehicles / 10 + 1;
  writer.Execute("INSERT INTO Vouchertype1 VALUES (7,'Purchase Bill',7,7)");
  writer.Execute(Numbers(vehicles) +
                 "INSERT INTO Batches1 (Batch_id, BatchCode, Item_id, Color_id, DateOfPurchase, "
                 "EngineNo) SELECT n, printf('MB8A%08d', n * 7919 % 100000000), 1 + n % 12, "
                 "1 + n % 8, '2003-05-01', printf('E%09d', n) FROM numbers");
  writer.Execute(
      Numbers(purchases + vehicles) +
      fmt::format("INSERT INTO Desr1 (Desr_id, Date, Vouchertype_id, Ledger_id, Prefix, "
                  "DesrRefno, Suffix, Related_id, TotalAmount, Optional, Deleted, YearNo) "
                  "SELECT n, date('2003-04-01', (n % 366) || ' days'), CASE WHEN n <= {0} "
                  "THEN 7 ELSE 10 END, 1 + n % 1000, 'B', n, '', n, 40000, 0, 0, 1 FROM numbers",
                  purchases));
  writer.Execute(Numbers(vehicles) +
                 fmt::format("INSERT INTO Terms1 (DesrTerms_id, Desr_id, DespatchTo) "
                             "SELECT n, {} + n, 'Buyer ' || n FROM numbers",
                             purchases));
  writer.Execute(
      Numbers(2 * vehicles) +
      fmt::format(
          "INSERT INTO GodownItem1 (GodownItem_id, Date, YearNo, Item_id, Godown_id, Batch_id, "
          "Qty, Rate, IsAdded, IsOpeningBal, Optional, GDesr_id, GOriginalVouchertype_id, "
          "GLedger_id, GPrefix, GRefNo, GSuffix) SELECT n, Date, 1, 1 + vehicle % 12, 1, vehicle, "
          "1, 40000, n % 2, 0, 0, Desr_id, Vouchertype_id, Ledger_id, Prefix, DesrRefno, Suffix "
          "FROM (SELECT n, (n + 1) / 2 AS vehicle, CASE WHEN n % 2 THEN 1 + (n + 1) / 2 / 10 "
          "ELSE {} + (n + 1) / 2 END AS document FROM numbers) "
          "INNER JOIN Desr1 ON Desr_id = document",
          purchases));
  writer.Execute(
      "INSERT INTO BillByBill1 (BillByBill_id, CrVoucher_id, Ledger_id, YearNo) "
      "SELECT Desr_id, Desr_id, Ledger_id, 1 FROM Desr1 WHERE Vouchertype_id = 10");
  writer.Execute(
      "INSERT INTO BillByBillDetails1 (BillByBillDetails_id, BillByBill_id, Voucher_id, "
      "Vouchertype_id, Date, AmountDr, AmountCr) "
      "SELECT Desr_id, Desr_id, Desr_id, 10, Date, TotalAmount, TotalAmount / 2 FROM Desr1 "
      "WHERE Vouchertype_id = 10");
}

}  // namespace

void MakeShowroom(const std::string& path, std::int64_t movements) {
  books::MakeBooks(path, [&](books::Writer& writer) {
    FillMasters(writer);
    FillTrade(writer, movements / 2);
  });
}

void MakeGarage(const std::string& path, std::int64_t bills) {
  books::MakeBooks(path, [&](books::Writer& writer) {
    FillMasters(writer);
    FillBills(writer, 0, bills, 39, 4);
    FillBills(writer, bills, bills, 10, 2);
    // What a sale moves is one of the models, and its part.
    writer.Execute(
        fmt::format("UPDATE DesrDetails1 SET Item_id = 1 + DesrDetails_id % 12 "
                    "WHERE Desr_id > {} AND DesrDetails_id % 2 = 1",
                    bills));
  });
}

}  // namespace pstolvane1::bench
