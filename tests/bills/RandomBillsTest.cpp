// What must hold of bills and their receipts, on random books.
#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "golden/SmallBooks.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {
namespace {

using golden::TextTable;

constexpr std::uint32_t kBooks = 12;
const Date kFrom = Date::FromYmd(2003, 4, 1);
const Date kTo = Date::FromYmd(2003, 4, 30);

// Item, quantity and rate, in whole rupees. Lines of a bill that are alike count once.
using Line = std::tuple<int, int, int>;

struct Bill {
  int amount = 0;
  bool deleted = false;
  bool on_account = false;  // its entry belongs to no bill
  std::set<Line> lines;
  std::multiset<int> receipts;
};

class Maker {
 public:
  explicit Maker(std::uint32_t seed) : random_(seed) {}

  std::vector<Bill> Make() {
    std::vector<Bill> bills(static_cast<std::size_t>(Pick(5, 25)));
    for (std::size_t i = 0; i < bills.size(); ++i) Add(bills[i], static_cast<int>(i) + 1);
    return bills;
  }

  [[nodiscard]] std::unique_ptr<golden::SmallBooks> Books() const {
    return std::make_unique<golden::SmallBooks>(std::vector<TextTable>{
        {"Vouchertype1",
         {"Vouchertype_id", "Vouchertype", "RelatedTo", "SubRelatedTo"},
         {{"9", "Receipt", "9", "9"}, {"10", "Sale", "10", "10"}}},
        {"LedgerNames1", {"Ledger_id", "LedgerName"}, {{"1", "Anand"}, {"2", "Bose"}}},
        documents_,
        lines_,
        bills_,
        entries_});
  }

 private:
  int Pick(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }
  std::string Day() { return "2003-04-" + std::to_string(Pick(10, 30)); }

  // Bill n is document n, voucher 100 + n and bill reference n.
  void Add(Bill& bill, int number) {
    const std::string id = std::to_string(number), voucher = std::to_string(100 + number);
    const std::string day = Day(), ledger = std::to_string(Pick(1, 2));
    bill.deleted = Pick(1, 6) == 1;
    bill.on_account = Pick(1, 6) == 1;
    for (int line = Pick(1, 5); line > 0; --line) {
      const Line made{Pick(1, 2), Pick(1, 2), 50 * Pick(1, 2)};
      const auto& [item, quantity, rate] = made;
      lines_.rows.push_back({std::to_string(lines_.rows.size() + 1), id, std::to_string(item), day,
                             std::to_string(quantity), std::to_string(rate), "0"});
      bill.amount += quantity * rate;
      bill.lines.insert(made);
    }
    documents_.rows.push_back({id, day, "10", ledger, id, voucher, std::to_string(bill.amount), "0",
                               bill.deleted ? "1" : "0"});
    bills_.rows.push_back({id, "S" + id, ledger, "1"});
    AddEntry(id, voucher, 10, day, bill.amount, 0, bill.on_account ? "acc" : "new");
    if (bill.on_account) return;
    for (int receipt = Pick(0, 3); receipt > 0; --receipt) {
      const int paid = Pick(1, 100);
      AddEntry(id, std::to_string(500 + entries_.rows.size()), 9, Day(), 0, paid, "agst");
      bill.receipts.insert(paid);
    }
  }

  void AddEntry(const std::string& bill, const std::string& voucher, int type,
                const std::string& day, int debit, int credit, const char* kind) {
    entries_.rows.push_back({std::to_string(entries_.rows.size() + 1), bill, voucher,
                             std::to_string(type), day, std::to_string(debit),
                             std::to_string(credit), kind, "0"});
  }

  std::mt19937 random_;
  TextTable documents_{"Desr1",
                       {"Desr_id", "Date", "Vouchertype_id", "Ledger_id", "DesrRefno", "Related_id",
                        "TotalAmount", "Optional", "Deleted"},
                       {}};
  TextTable lines_{
      "DesrDetails1",
      {"DesrDetails_id", "Desr_id", "Item_id", "DesrDetDate", "QtyDespOut", "Price", "IsWarranty"},
      {}};
  TextTable bills_{"BillByBill1", {"BillByBill_id", "RefNo", "Ledger_id", "YearNo"}, {}};
  TextTable entries_{"BillByBillDetails1",
                     {"BillByBillDetails_id", "BillByBill_id", "Voucher_id", "Vouchertype_id",
                      "Date", "AmountDr", "AmountCr", "RefType", "OptionalDetails"},
                     {}};
};

// Calls check(bills, session) with each of the books.
template <typename Check>
void OnRandomBills(Check&& check) {
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    SCOPED_TRACE("books " + std::to_string(seed));
    Maker maker(seed);
    const std::vector<Bill> bills = maker.Make();
    const std::unique_ptr<golden::SmallBooks> books = maker.Books();
    clsStolvane1 session;
    session.SetLocale("en_IN");
    session.SetConnection("", "", books->ConnectionString(), False);
    check(bills, session);
  }
}

// "₹1,234.00" in rupees.
int RupeesOf(const Variant& cell) {
  std::string digits;
  for (const char c : cell.ToText()) {
    if (c == '.') break;
    if (c >= '0' && c <= '9') digits += c;
  }
  return std::stoi(digits);
}

// The receipts of each document that is listed.
using Receipts = std::map<int, std::multiset<int>>;

Receipts ReceiptsIn(const RecordsetPtr& report) {
  Receipts receipts;
  for (const Recordset::Row row : report->Rows()) {
    if (row["Amountcr"].IsNull() || row["Desr_Id"].IsNull()) continue;
    receipts[row["Desr_Id"].ToInt32()].insert(RupeesOf(row["Amountcr"]));
  }
  return receipts;
}

Receipts ReceiptsOf(const std::vector<Bill>& bills) {
  Receipts receipts;
  for (std::size_t i = 0; i < bills.size(); ++i) {
    if (bills[i].deleted || bills[i].receipts.empty()) continue;
    receipts[static_cast<int>(i) + 1] = bills[i].receipts;
  }
  return receipts;
}

TEST(RandomBills, LinesBelowABillAreItsOwnAndAlikeOnesStandOnce) {
  OnRandomBills([](const std::vector<Bill>& bills, clsStolvane1& session) {
    int grand_total = 0;
    std::size_t listed = 0;
    const Bill* bill = nullptr;
    std::set<Line> lines;
    const RecordsetPtr report = session.BillWiseQuery(1, kFrom, kTo);
    for (const Recordset::Row row : report->Rows()) {
      if (!row["Billno"].IsNull()) {
        bill = &bills.at(static_cast<std::size_t>(row["Desr_Id"].ToInt32() - 1));
        lines = bill->lines;
        EXPECT_FALSE(bill->deleted);
        EXPECT_EQ(RupeesOf(row["TotalAmount"]), bill->amount);
        grand_total += bill->amount;
        ++listed;
      } else if (!row["rate"].IsNull()) {
        const int rate = RupeesOf(row["rate"]), quantity = row["QtySort"].ToInt32();
        EXPECT_EQ(RupeesOf(row["Amount"]), quantity * rate);
        const auto line = std::ranges::find_if(lines, [=](const Line& one) {
          return std::get<1>(one) == quantity && std::get<2>(one) == rate;
        });
        ASSERT_NE(line, lines.end()) << "or listed twice: " << quantity << " at " << rate;
        lines.erase(line);
      } else if (!row["GrandTotal"].IsNull()) {
        EXPECT_EQ(RupeesOf(row["GrandTotal"]), grand_total);
      }
    }
    std::size_t standing = 0;
    for (const Bill& each : bills) standing += each.deleted ? 0 : 1;
    EXPECT_EQ(listed, standing);
  });
}

TEST(RandomBills, BothReportsGiveEachBillItsReceipts) {
  OnRandomBills([](const std::vector<Bill>& bills, clsStolvane1& session) {
    const Receipts expected = ReceiptsOf(bills);
    EXPECT_EQ(ReceiptsIn(session.BillWiseQuery(1, kFrom, kTo, 0, 0, False, "/", 0, True, True)),
              expected);
    // The receipts of a deleted bill stand below its entry, without a document.
    EXPECT_EQ(ReceiptsIn(session.BillWiseQuery1(1, kFrom, kTo, 0, 0, False, "/", 0, True, True)),
              expected);
  });
}

TEST(RandomBills, EntriesAddUpToTheBillsThatAreNotOnAccount) {
  OnRandomBills([](const std::vector<Bill>& bills, clsStolvane1& session) {
    int owed = 0;
    for (const Bill& bill : bills) owed += bill.on_account ? 0 : bill.amount;
    int pending = 0;
    const RecordsetPtr report = session.BillWiseQuery1(1, kFrom, kTo);
    for (const Recordset::Row row : report->Rows()) {
      if (!row["PendingAmount"].IsNull()) pending += RupeesOf(row["PendingAmount"]);
    }
    EXPECT_EQ(pending, owed);
  });
}

}  // namespace
}  // namespace pstolvane1
