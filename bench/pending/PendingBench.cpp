// What pending documents, free goods and bills cost: bench_pending [DOCUMENTS [ROUNDS [REPORT]]],
// or bench_pending large [LINES [ROUNDS [REPORT]]] for one order with its delivery and its bill.
#include <fmt/format.h>
#include <string_view>

#include "../Contest.h"
#include "../trade/Trade.h"

namespace {

using namespace pstolvane1;
using namespace pstolvane1::bench;

const Date kFrom = Date::FromYmd(2003, 4, 1), kTo = Date::FromYmd(2004, 3, 31);

constexpr const char* kOfTheYear = " BETWEEN '2003-04-01' AND '2004-03-31' ";

// Line by line.
constexpr const char* kFree = "l.QtyDespIn + l.QtyDespOut - l.BilledQty";

std::string FreeLines(const std::string& columns, const std::string& joins) {
  return fmt::format(
      "SELECT d.Date, d.Prefix, d.DesrRefno, d.Suffix, d.Narration, d.Desr_id, d.Related_id, "
      "d.Optional, g.LedgerName, v.Vouchertype, u.UomName, a.UomName, l.QtyDespIn = 0, "
      "l.QtyDespIn + l.QtyDespOut, (l.QtyDespIn + l.QtyDespOut) * l.Price, l.AltQty, {0}, "
      "({0}) * l.Price, l.ActualRate, l.AltRate, l.IsAltUnit, l.IsAltRate, l.DesrDetails_id{1} "
      "FROM Desr1 d JOIN DesrDetails1 l ON l.Desr_id = d.Desr_id "
      "JOIN Vouchertype1 v ON v.Vouchertype_id = d.Vouchertype_id "
      "JOIN LedgerNames1 g ON g.Ledger_id = d.Ledger_id "
      "JOIN Items1 i ON i.Item_id = l.Item_id JOIN Uom1 u ON u.Uom_id = i.Uom_id "
      "JOIN Uom1 a ON a.Uom_id = i.AlternateUom_id {2}WHERE d.Date{3}AND d.Deleted = 0 "
      "AND d.Optional = 0 AND l.Optional = 0 AND {0} <> 0 AND i.Deleted = 0 "
      "ORDER BY d.Date, d.Desr_id, l.DesrDetails_id",
      kFree, columns, joins, kOfTheYear);
}

// The eight sums of a key, with the names after them.
std::string FreeSums(const std::string& keys, const std::string& names, const std::string& joins) {
  std::string sums;
  for (const char* const side : {"l.QtyDespIn", "l.QtyDespOut"}) {
    sums += fmt::format(
        ", sum(CASE WHEN {0} <> 0 THEN {1} END), sum(CASE WHEN {0} <> 0 THEN ({1}) * l.Price END), "
        "sum({0}), sum({0} * l.Price)",
        side, kFree);
  }
  return fmt::format(
      "SELECT {0}, q.* FROM (SELECT {1}{2} FROM Desr1 d JOIN DesrDetails1 l ON l.Desr_id = "
      "d.Desr_id WHERE d.Date{3}AND d.Deleted = 0 GROUP BY {1}) q {4}ORDER BY {0}",
      names, keys, sums, kOfTheYear, joins);
}

// The movements of a condition, what is executed of each, and the type that it executes.
std::string PendingOf(const std::string& condition, const std::string& executing) {
  return fmt::format(
      "SELECT m.Date, m.GDesr_id, d.Related_id, m.DesrDetails_id, m.GOriginalVouchertype_id, "
      "m.Optional, m.Qty, (SELECT sum(x.Qty) FROM GodownItem1 x LEFT JOIN Desr1 y ON y.Desr_id = "
      "x.GDesr_id WHERE x.GRelatedDesr_id = m.GDesr_id AND x.Item_id = m.Item_id AND x.Godown_id = "
      "m.Godown_id AND x.Batch_id = m.Batch_id AND x.GSrNo = m.GSrNo AND x.GRelatedYearNo = "
      "m.YearNo AND x.GDesrOptional = 0 AND y.Deleted = 0{1}), r.GOriginalVouchertype_id, "
      "v.Vouchertype, m.GPrefix, m.GRefNo, m.GSuffix, g.LedgerName, i.ItemName, "
      "i.MaintainBatches, u.UomName, m.Rate, w.GodownName, b.BatchCode FROM GodownItem1 m "
      "JOIN Desr1 d ON d.Desr_id = m.GDesr_id "
      "JOIN Vouchertype1 v ON v.Vouchertype_id = d.Vouchertype_id "
      "JOIN LedgerNames1 g ON g.Ledger_id = m.GLedger_id "
      "JOIN Items1 i ON i.Item_id = m.Item_id JOIN Uom1 u ON u.Uom_id = i.Uom_id "
      "JOIN Godown1 w ON w.Godown_id = m.Godown_id JOIN Batches1 b ON b.Batch_id = m.Batch_id "
      "LEFT JOIN Desr1 e ON e.Desr_id = m.GRelatedDesr_id "
      "LEFT JOIN GodownItem1 r ON r.GDesr_id = m.GRelatedDesr_id AND r.Item_id = m.Item_id AND "
      "r.Godown_id = m.Godown_id AND r.Batch_id = m.Batch_id AND r.GSrNo = m.GSrNo AND "
      "e.Deleted = 0 "
      "WHERE m.Date{2}AND d.Deleted = 0 AND i.Deleted = 0 AND w.Deleted = 0 AND {0} "
      "ORDER BY m.GOriginalVouchertype_id, m.Date, m.GDesr_id, m.DesrDetails_id, m.GodownItem_id",
      condition, executing, kOfTheYear);
}

// The receipts against the bill of a row, beside each of its rows.
constexpr const char* kReceipts =
    "LEFT JOIN BillByBillDetails1 e ON e.Voucher_id = {0} AND e.Vouchertype_id = 10 "
    "AND e.RefType <> 'acc' "
    "LEFT JOIN BillByBillDetails1 r ON r.BillByBill_id = e.BillByBill_id AND r.Vouchertype_id = 9 "
    "LEFT JOIN BillByBill1 b ON b.BillByBill_id = r.BillByBill_id ";

std::string BillLines() {
  return fmt::format(
      "SELECT d.Desr_id, l.Item_id, l.QtyDespOut, l.Price, d.Date, d.DesrRefno, d.TotalAmount, "
      "d.Related_id, v.Vouchertype, g.LedgerName, r.ReceiptNo, r.AmountCr, r.Date, r.Voucher_id, "
      "b.RefNo FROM Desr1 d JOIN DesrDetails1 l ON l.Desr_id = d.Desr_id "
      "JOIN Vouchertype1 v ON v.Vouchertype_id = d.Vouchertype_id "
      "JOIN LedgerNames1 g ON g.Ledger_id = d.Ledger_id {}"
      "WHERE v.RelatedTo = 10 AND d.Date{}AND d.Deleted = 0 AND l.IsWarranty = 0 "
      "ORDER BY g.LedgerName, d.Related_id, d.Date, d.Desr_id, l.Item_id",
      fmt::format(kReceipts, "d.Related_id"), kOfTheYear);
}

std::string Entries() {
  return fmt::format(
      "SELECT c.RefNo, n.Voucher_id, n.Date, n.AmountDr, v.Vouchertype, g.LedgerName, d.Desr_id, "
      "l.Item_id, l.QtyDespOut, l.Price, r.ReceiptNo, r.AmountCr, r.Date, r.Voucher_id, b.RefNo "
      "FROM BillByBillDetails1 n JOIN BillByBill1 c ON c.BillByBill_id = n.BillByBill_id "
      "JOIN Vouchertype1 v ON v.Vouchertype_id = n.Vouchertype_id "
      "JOIN LedgerNames1 g ON g.Ledger_id = c.Ledger_id "
      "LEFT JOIN Desr1 d ON d.Related_id = n.Voucher_id AND d.Deleted = 0 "
      "LEFT JOIN DesrDetails1 l ON l.Desr_id = d.Desr_id AND l.IsWarranty = 0 {}"
      "WHERE n.Date{}AND n.RefType <> 'acc' AND n.OptionalDetails = 0 AND c.YearNo = 1 "
      "ORDER BY n.Date, c.RefNo, g.LedgerName, n.BillByBillDetails_id, l.DesrDetails_id",
      fmt::format(kReceipts, "n.Voucher_id"), kOfTheYear);
}

std::vector<Contest> Reports(const RecordsetPtr& items) {
  const std::string movements =
      "JOIN GodownItem1 m ON m.DesrDetails_id = l.DesrDetails_id "
      "JOIN Godown1 w ON w.Godown_id = m.Godown_id JOIN Batches1 b ON b.Batch_id = m.Batch_id ";
  const std::string of_items = "JOIN Items1 i ON i.Item_id = q.Item_id ";
  const std::string of_parties = "JOIN LedgerNames1 g ON g.Ledger_id = q.Ledger_id ";
  return {
      {"FreeQuantity_Itemwise",
       [](clsStolvane1& session) { return session.FreeQuantity_Itemwise(1, kFrom, kTo, 0, 0); },
       FreeLines("", "")},
      {"FreeQuantity_Partywise, with godowns",
       [](clsStolvane1& session) {
         return session.FreeQuantity_Partywise(1, kFrom, kTo, 0, 0, False, "/", 0, True, True);
       },
       FreeLines(", m.Qty, m.AltQty, m.IsAltUnit, w.GodownName, b.BatchCode", movements)},
      {"FreeQuantity_Itemwise_Initial",
       [](clsStolvane1& session) { return session.FreeQuantity_Itemwise_Initial(1, kFrom, kTo); },
       FreeSums("l.Item_id", "i.ItemName", of_items)},
      {"FreeQuantity_Partywise_Initial, by item",
       [](clsStolvane1& session) {
         return session.FreeQuantity_Partywise_Initial(1, kFrom, kTo, True, True);
       },
       FreeSums("d.Ledger_id, l.Item_id", "g.LedgerName, i.ItemName", of_items + of_parties)},
      {"PendingByItem",
       [](clsStolvane1& session) { return session.PendingByItem(1, 1, 0, kFrom, kTo); },
       PendingOf("m.Item_id = 1", "")},
      {"PendingByLedger, with godowns",
       [](clsStolvane1& session) {
         return session.PendingByLedger(1, 1, 0, kFrom, kTo, True, 1, 0, True);
       },
       PendingOf("m.GLedger_id = 1", "")},
      {"PendingByEmployee",
       [](clsStolvane1& session) { return session.PendingByEmployee(1, 1, 0, kFrom, kTo); },
       PendingOf("d.Employee_id = 1", "")},
      {"PendingByEmployee, orders",
       [](clsStolvane1& session) { return session.PendingByEmployee(1, 1, 13, kFrom, kTo); },
       PendingOf("d.Employee_id = 1 AND m.GOriginalVouchertype_id = 13",
                 " AND x.GOriginalVouchertype_id IN (13, 15, 10)")},
      {"BillWiseQuery, with receipts",
       [=](clsStolvane1& session) {
         return session.BillWiseQuery(1, kFrom, kTo, 0, 0, False, "/", 0, True, True, False, 1,
                                      False, {}, items);
       },
       BillLines()},
      {"BillWiseQuery1, with lines and receipts",
       [=](clsStolvane1& session) {
         return session.BillWiseQuery1(1, kFrom, kTo, 0, 0, False, "/", 0, True, True, False, 1,
                                       False, {}, items);
       },
       Entries()},
  };
}

constexpr const char* kProgram = "bench_pending";

}  // namespace

int main(int count, char** arguments) {
  if (count > 1 && std::string_view(arguments[1]) == "large") {
    return RunContests({.program = kProgram,
                        .unit = "lines in one order",
                        .size = 20'000,
                        .make_books = &MakeLargeOrder,
                        .all = &Reports},
                       count - 1, arguments + 1);
  }
  return RunContests({.program = kProgram,
                      .unit = "documents",
                      .size = 100'000,
                      .make_books = &MakeTrade,
                      .all = &Reports},
                     count, arguments);
}
