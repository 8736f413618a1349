// The vouchers of the sample books, their bills, and the money that comes in and goes out.
#pragma once

#include <deque>
#include <optional>
#include <string>

#include "session/books/sample/Document.h"
#include "session/books/sample/Masters.h"

namespace pstolvane1::books::sample {

class Accounts {
 public:
  Accounts(Writer& writer, const Masters& masters, Documents& documents, Random& random);

  std::int64_t NextVoucher() { return ++last_voucher_; }
  // The voucher of a posted document: sales, purchases and their returns have entries, of which
  // the debits equal the credits, and what is not sold for cash becomes a bill.
  void Record(const Document& document, const Posted& posted);
  // A receipt or a payment against one or two open bills of a party, or on account.
  void Receive(Day day);
  void Pay(Day day);

 private:
  struct OpenBill {
    std::int64_t id;
    int ledger;
    Paise due;
  };
  // A voucher while its entries are written.
  struct Entry {
    std::int64_t voucher;
    Day day;
    bool optional, deleted;
    std::optional<int> receipt = std::nullopt;  // its number, if it is one
  };

  void Debit(const Entry& entry, int ledger, Paise amount) { Write(entry, ledger, amount, 0); }
  void Credit(const Entry& entry, int ledger, Paise amount) { Write(entry, ledger, 0, amount); }
  void Write(const Entry& entry, int ledger, Paise debit, Paise credit);
  // An entry on the cash or a bank ledger; a bank's carries a cheque and the day it cleared, if so.
  void WriteMoney(const Entry& entry, int ledger, Paise debit, Paise credit);
  void RecordSale(const Document& document, const Posted& posted, const Entry& entry, int sign);
  void RecordPurchase(const Document& document, const Posted& posted, const Entry& entry, int sign);
  std::int64_t OpenBillOf(const Document& document, const Posted& posted, bool sale);
  void WriteBillDetail(std::int64_t bill, const Entry& entry, int type, Paise debit, Paise credit,
                       std::string_view kind);
  void Settle(Day day, bool sale);
  int DrawMoneyLedger(bool sale);

  const Masters& masters_;
  Documents& documents_;
  Random& random_;
  Statement voucher_, detail_, bill_, bill_detail_;
  std::deque<OpenBill> to_receive_, to_pay_;
  std::int64_t last_voucher_ = 0, last_bill_ = 0, last_bill_detail_ = 0;
  int last_cheque_ = 410'000;
};

}  // namespace pstolvane1::books::sample
