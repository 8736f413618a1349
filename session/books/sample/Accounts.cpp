#include "session/books/sample/Accounts.h"

#include <algorithm>

namespace pstolvane1::books::sample {
namespace {

// Bills beyond these stay unpaid, so that memory does not grow with the books.
constexpr std::size_t kOpenBills = 3000;

}  // namespace

Accounts::Accounts(Writer& writer, const Masters& masters, Documents& documents, Random& random)
    : masters_(masters),
      documents_(documents),
      random_(random),
      voucher_(writer, "Voucher1", "Voucher_id, Vouchertype_id, VoucherNumber, Optional, Deleted"),
      detail_(writer, "VoucherDetails1",
              "Voucher_id, Ledger_id, Subgroup_id, CreditAmt, DebitAmt, VhrDetailDate, "
              "VhrDetailOptional, ClearanceDate, ChequeNumber, Deleted"),
      bill_(writer, "BillByBill1",
            "BillByBill_id, CrVoucher_id, RefNo, EffectiveDate, Ledger_id, YearNo"),
      bill_detail_(writer, "BillByBillDetails1",
                   "BillByBillDetails_id, BillByBill_id, Voucher_id, Vouchertype_id, Date, "
                   "AmountDr, AmountCr, RefType, OptionalDetails, ReceiptNo") {}

void Accounts::Write(const Entry& entry, int ledger, Paise debit, Paise credit) {
  if (debit == 0 && credit == 0) return;
  detail_.Run(entry.voucher, ledger, masters_.SubgroupOf(ledger), Rupees(credit), Rupees(debit),
              entry.day, entry.optional, std::nullopt, "", entry.deleted);
}

void Accounts::WriteMoney(const Entry& entry, int ledger, Paise debit, Paise credit) {
  if (ledger == kCashLedger) return Write(entry, ledger, debit, credit);
  const Day cleared = entry.day + std::chrono::days(random_.Range(2, 9));
  const bool open = cleared > LastDay(kYears) || random_.Chance(6);
  detail_.Run(entry.voucher, ledger, masters_.SubgroupOf(ledger), Rupees(credit), Rupees(debit),
              entry.day, entry.optional, open ? std::nullopt : std::optional(cleared),
              std::to_string(++last_cheque_), entry.deleted);
}

void Accounts::Record(const Document& document, const Posted& posted) {
  const VoucherType& type = TypeOf(document.type);
  voucher_.Run(posted.voucher, type.id, posted.number, document.optional, document.deleted);
  const Entry entry{posted.voucher, document.day, document.optional, document.deleted};
  if (posted.total == 0 || type.id == kJobCard) return;
  switch (type.related) {
    case kVehicleSale:
      return RecordSale(document, posted, entry, 1);
    case kSalesReturn:
      return RecordSale(document, posted, entry, -1);
    case kPurchaseBill:
      return RecordPurchase(document, posted, entry, 1);
    case kPurchaseReturn:
      return RecordPurchase(document, posted, entry, -1);
    default:
      return;
  }
}

// sign is -1 for a return, which turns the sides round and is credited on account.
void Accounts::RecordSale(const Document& document, const Posted& posted, const Entry& entry,
                          int sign) {
  const auto write = [&](int ledger, Paise amount, bool debit) {
    debit == (sign > 0) ? Debit(entry, ledger, amount) : Credit(entry, ledger, amount);
  };
  write(document.ledger, posted.total, true);
  write(kSparesSales, posted.goods, false);
  write(kVehicleSales, posted.vehicles, false);
  write(kLabourIncome, posted.labour, false);
  write(kTaxLedger, posted.tax, false);
  if (document.deleted || document.ledger == kCashLedger) return;
  const std::int64_t bill = OpenBillOf(document, posted, true);
  if (sign < 0) {
    WriteBillDetail(bill, entry, document.type, 0, posted.total, "acc");
    return;
  }
  WriteBillDetail(bill, entry, document.type, posted.total, 0, "new");
  if (document.type == kServiceBill && random_.Chance(25)) {
    Debit(entry, kCashLedger, posted.total);
    Credit(entry, document.ledger, posted.total);
    WriteBillDetail(bill, entry, document.type, 0, posted.total, "cur");
  } else if (!document.optional) {
    to_receive_.push_back({bill, document.ledger, posted.total});
    if (to_receive_.size() > kOpenBills) to_receive_.pop_front();
  }
}

void Accounts::RecordPurchase(const Document& document, const Posted& posted, const Entry& entry,
                              int sign) {
  const auto write = [&](int ledger, Paise amount, bool debit) {
    debit == (sign > 0) ? Debit(entry, ledger, amount) : Credit(entry, ledger, amount);
  };
  write(kPurchases, posted.goods + posted.vehicles + posted.labour, true);
  write(kTaxLedger, posted.tax, true);
  write(document.ledger, posted.total, false);
  if (document.deleted) return;
  const std::int64_t bill = OpenBillOf(document, posted, false);
  if (sign < 0) {
    WriteBillDetail(bill, entry, document.type, posted.total, 0, "acc");
    return;
  }
  WriteBillDetail(bill, entry, document.type, 0, posted.total, "new");
  if (random_.Chance(20)) {
    // Paid at once, by a cheque handed over with the bill.
    Debit(entry, document.ledger, posted.total);
    WriteMoney(entry, DrawMoneyLedger(false), 0, posted.total);
    WriteBillDetail(bill, entry, document.type, posted.total, 0, "cur");
  } else if (!document.optional) {
    to_pay_.push_back({bill, document.ledger, posted.total});
    if (to_pay_.size() > kOpenBills) to_pay_.pop_front();
  }
}

std::int64_t Accounts::OpenBillOf(const Document& document, const Posted& posted, bool sale) {
  const int credit_days = sale ? 30 : 45;
  bill_.Run(++last_bill_, posted.voucher, posted.label,
            document.day + std::chrono::days(credit_days), document.ledger, posted.year);
  return last_bill_;
}

void Accounts::WriteBillDetail(std::int64_t bill, const Entry& entry, int type, Paise debit,
                               Paise credit, std::string_view kind) {
  bill_detail_.Run(++last_bill_detail_, bill, entry.voucher, type, entry.day, Rupees(debit),
                   Rupees(credit), kind, entry.optional, entry.receipt);
}

int Accounts::DrawMoneyLedger(bool sale) {
  if (sale && random_.Chance(40)) return kCashLedger;
  return random_.Chance(70) ? kBankLedger : kOverdraftLedger;
}

void Accounts::Receive(Day day) { Settle(day, true); }
void Accounts::Pay(Day day) { Settle(day, false); }

void Accounts::Settle(Day day, bool sale) {
  auto& open = sale ? to_receive_ : to_pay_;
  if (open.empty()) return;
  const int type = sale ? kReceipt : kPayment;
  const int year = YearOf(day);
  const std::int64_t voucher = NextVoucher();
  const int number = documents_.NextNumber(type, year);
  const Entry entry{voucher, day, false, false, sale ? std::optional(number) : std::nullopt};
  voucher_.Run(entry.voucher, type, number, false, false);

  const std::size_t near = std::min<std::size_t>(open.size(), 40);
  const int ledger =
      open[static_cast<std::size_t>(random_.Range(0, static_cast<std::int64_t>(near) - 1))].ledger;
  const auto write_bill = [&](std::int64_t bill, Paise amount, std::string_view kind) {
    WriteBillDetail(bill, entry, type, sale ? 0 : amount, sale ? amount : 0, kind);
  };
  Paise total = 0;
  if (random_.Chance(12)) {
    total = random_.Range(5, 60) * 10'000;
    bill_.Run(++last_bill_, entry.voucher,
              std::string(TypeOf(type).prefix) + std::to_string(number), day, ledger, year);
    write_bill(last_bill_, total, "acc");
  } else {
    int bills = 0;
    for (std::size_t i = 0; i < open.size() && i < near && bills < 2; ++i) {
      OpenBill& bill = open[i];
      if (bill.ledger != ledger) continue;
      const bool whole = bill.due < 50'000 || random_.Chance(70);
      const Paise amount = whole ? bill.due : bill.due / 200 * 100;
      write_bill(bill.id, amount, "agst");
      bill.due -= amount;
      total += amount;
      ++bills;
    }
    std::erase_if(open, [](const OpenBill& bill) { return bill.due == 0; });
  }
  const int money = DrawMoneyLedger(sale);
  Write(entry, ledger, sale ? 0 : total, sale ? total : 0);
  WriteMoney(entry, money, sale ? total : 0, sale ? 0 : total);
}

}  // namespace pstolvane1::books::sample
