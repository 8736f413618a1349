#include "Trade.h"

#include <fmt/format.h>

#include "../Numbers.h"
#include "session/books/BooksFile.h"
#include "session/books/Writer.h"

namespace pstolvane1::bench {
namespace {

void FillMasters(books::Writer& writer) {
  writer.Execute(
      "INSERT INTO Vouchertype1 VALUES (7,'Purchase Bill',7,7),(9,'Receipt',9,9),"
      "(10,'Sale Bill',10,10),(11,'Sales Return',11,11),(13,'Sales Order',13,13),"
      "(15,'Delivery',15,15)");
  writer.Execute("INSERT INTO Uom1 VALUES (1,'Nos'),(2,'Box')");
  writer.Execute("INSERT INTO Godown1 VALUES (1,'Main','Main',0,0),(2,'Annexe','Annexe',0,0)");
  writer.Execute(Numbers(60) +
                 "INSERT INTO ItemCategory1 SELECT n, 'Category ' || n, 0, 1 + n / 7 FROM numbers");
  writer.Execute(Numbers(20) + "INSERT INTO ItemClass1 SELECT n, 'Class ' || n, 0, n FROM numbers");
  writer.Execute(Numbers(1000) +
                 "INSERT INTO Items1 (Item_id, ItemName, ItemPartNo, Uom_id, AlternateUom_id, "
                 "RelationFormula, ItemCategory_id, ItemClass_id, MaintainBatches, Deleted, "
                 "ConsiderForSih, ItemState) SELECT n, 'Item ' || n, 'P-' || n, 1, 2, 10, "
                 "1 + n % 60, 1 + n % 20, 0, 0, 1, 0 FROM numbers");
  writer.Execute(Numbers(1000) +
                 "INSERT INTO Batches1 (Batch_id, BatchCode, Item_id, Color_id) "
                 "SELECT n, 'B' || n, n, 1 + n % 8 FROM numbers");
  writer.Execute(Numbers(8) + "INSERT INTO Color1 SELECT n, 'Colour ' || n FROM numbers");
  writer.Execute(Numbers(9) +
                 "INSERT INTO SubgroupName1 SELECT n, 'Parties ' || n, 20 FROM numbers");
  writer.Execute(Numbers(1000) +
                 "INSERT INTO LedgerNames1 SELECT n, 'Party ' || n, 1 + n % 9, "
                 "'4110' || (10 + n % 40), 1 FROM numbers");
  writer.Execute(Numbers(10) + "INSERT INTO Employee1 SELECT n, 'Employee ' || n FROM numbers");
  writer.Execute(Numbers(20'000) +
                 "INSERT INTO EmployeeCommision SELECT n, 1 + n % 10, 1 + n / 10 % 1000, "
                 "'2003-04-01', 1 + 4 * (n / 10000), 2.5 + n / 10000 FROM numbers");
}

// The documents from 1 on, each with the group that it shares with the four beside it.
void FillDocuments(books::Writer& writer, std::int64_t count) {
  writer.Execute(
      Numbers(count) +
      fmt::format(
          "INSERT INTO Desr1 (Desr_id, Date, Vouchertype_id, Ledger_id, Employee_id, Prefix, "
          "DesrRefno, Suffix, Related_id, TotalAmount, Optional, Deleted, YearNo, Narration) "
          "SELECT n, date('2003-04-01', (n * 366 / {}) || ' days'), "
          "CASE n % 5 WHEN 1 THEN 13 WHEN 2 THEN 15 WHEN 3 THEN 10 WHEN 4 THEN 7 ELSE 11 END, "
          "CASE WHEN (n - 1) / 5 % 10 = 0 THEN 1 ELSE 2 + (n - 1) / 5 % 999 END, "
          "1 + (n - 1) / 5 % 10, 'D', n, '03-04', n, 100 + n % 900, 0, n % 200 = 7, 1, NULL "
          "FROM numbers",
          count + 1));
}

// Lines with their movements, so many to a document.
void FillLines(books::Writer& writer, std::int64_t documents, std::int64_t lines) {
  writer.Execute(
      Numbers(documents * lines) +
      fmt::format(
          "INSERT INTO DesrDetails1 (DesrDetails_id, Desr_id, Item_id, DesrDetDate, QtyDespIn, "
          "QtyDespOut, QtyReturned, BilledQty, AltQty, Price, ActualRate, Rate, AltRate, "
          "IsAltUnit, IsAltRate, AffectStock, Optional, YearNo, Salestax, IsWarranty) "
          "SELECT n, Desr_id, item, Date, CASE WHEN Vouchertype_id IN (7, 11) THEN qty ELSE 0 END, "
          "CASE WHEN Vouchertype_id IN (7, 11) THEN 0 ELSE qty END, 0, "
          "CASE WHEN n % 4 = 0 THEN qty - 1 ELSE qty END, qty / 10.0, price, price, price, "
          "10 * price, 0, 0, 1, 0, 1, 0, 0 FROM "
          "(SELECT n, 1 + (n - 1) / {0} AS document, (n - 1) % {0} AS line, "
          "CASE WHEN (n - 1) % {0} = 0 AND (n - 1) / {0} / 5 % 2 = 0 THEN 1 "
          "ELSE 2 + ((n - 1) / {0} / 5 * {0} + (n - 1) % {0}) % 999 END AS item, "
          "CASE WHEN (n - 1) / {0} % 5 = 0 THEN 5 ELSE 4 END AS qty, "
          "50 + n % 400 AS price FROM numbers) "
          "INNER JOIN Desr1 ON Desr1.Desr_id = document",
          lines));
  writer.Execute(fmt::format(
      "INSERT INTO GodownItem1 (GodownItem_id, Date, YearNo, Item_id, Godown_id, Batch_id, GSrNo, "
      "Qty, AltQty, Rate, IsAdded, IsOpeningBal, Optional, GDesrOptional, GDesr_id, "
      "DesrDetails_id, GRelatedDesr_id, GRelatedYearNo, GOriginalVouchertype_id, GLedger_id, "
      "GPrefix, GRefNo, GSuffix, Color_id, IsAltUnit) "
      "SELECT DesrDetails_id, DesrDetDate, 1, Item_id, 1 + Item_id % 2, Item_id, "
      "(DesrDetails_id - 1) % {}, QtyDespIn + QtyDespOut, AltQty, Price, QtyDespIn > 0, 0, "
      "Vouchertype_id IN (13, 10), 0, Desr1.Desr_id, DesrDetails_id, "
      "CASE WHEN Vouchertype_id IN (15, 10) THEN Desr1.Desr_id - 1 END, "
      "CASE WHEN Vouchertype_id IN (15, 10) THEN 1 END, Vouchertype_id, Ledger_id, Prefix, "
      "DesrRefno, Suffix, 1 + Item_id % 8, 0 FROM DesrDetails1 "
      "INNER JOIN Desr1 ON Desr1.Desr_id = DesrDetails1.Desr_id",
      lines));
}

// The entry of each sale bill, and the receipt of half of it that follows.
void FillAccounts(books::Writer& writer, std::int64_t documents) {
  writer.Execute(
      "INSERT INTO BillByBill1 SELECT Desr_id, Desr_id, 'D' || DesrRefno, Date, Ledger_id, 1 "
      "FROM Desr1 WHERE Vouchertype_id = 10");
  writer.Execute(
      "INSERT INTO BillByBillDetails1 SELECT Desr_id, Desr_id, Desr_id, 10, Date, TotalAmount, 0, "
      "'new', 0, NULL FROM Desr1 WHERE Vouchertype_id = 10");
  writer.Execute(
      fmt::format("INSERT INTO BillByBillDetails1 SELECT {0} + Desr_id, Desr_id, {0} + Desr_id, 9, "
                  "Date, 0, TotalAmount / 2, 'agst', 0, Desr_id FROM Desr1 "
                  "WHERE Vouchertype_id = 10",
                  documents));
}

void MakeDocuments(const std::string& path, std::int64_t documents, std::int64_t lines) {
  books::MakeBooks(path, [&](books::Writer& writer) {
    FillMasters(writer);
    FillDocuments(writer, documents);
    FillLines(writer, documents, lines);
    FillAccounts(writer, documents);
  });
}

}  // namespace

void MakeTrade(const std::string& path, std::int64_t documents) {
  MakeDocuments(path, documents, 5);
}

void MakeLargeOrder(const std::string& path, std::int64_t lines) { MakeDocuments(path, 3, lines); }

}  // namespace pstolvane1::bench
