// The kinds of voucher in the sample books, and how their documents are numbered.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "session/books/Writer.h"

namespace pstolvane1::books::sample {

enum TypeId : int {
  kPayment = 6,
  kPurchaseBill = 7,
  kPurchaseReturn = 8,
  kReceipt = 9,
  kVehicleSale = 10,
  kSalesReturn = 11,
  kPurchaseOrder = 12,
  kSalesOrder = 13,
  kGoodsReceipt = 14,
  kDelivery = 15,
  kReturnedIn = 16,
  kReturnedOut = 17,
  kStockJournal = 18,
  kMaterialIssue = 19,
  kFinishedGoods = 20,
  kQuotation = 23,
  kEnquiry = 24,
  kGodownTransfer = 25,
  kServiceBill = 39,
  kSparesSale = 40,
  kJobCard = 43,
  kCounterSale = 101,
  kBranchVehicleSale = 102,
  kLocalPurchase = 103,
};

struct VoucherType {
  int id;
  std::string_view name;
  int related, sub_related;
  std::string_view prefix;  // of its documents' numbers
  bool year_behind;         // the accounting year follows the number, as "03-04"
};

[[nodiscard]] std::span<const VoucherType> VoucherTypes();
[[nodiscard]] const VoucherType& TypeOf(int id);
// "03-04" where the type's numbers carry it, otherwise "".
[[nodiscard]] std::string SuffixOf(const VoucherType& type, int year);
void WriteVoucherTypes(Writer& writer);

}  // namespace pstolvane1::books::sample
