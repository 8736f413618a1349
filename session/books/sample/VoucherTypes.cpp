#include "session/books/sample/VoucherTypes.h"

#include <algorithm>

namespace pstolvane1::books::sample {
namespace {

constexpr VoucherType kTypes[] = {
    {1, "Journal", 1, 1, "JV", false},
    {2, "Contra", 2, 2, "CN", false},
    {kPayment, "Payment", 6, 6, "PV", false},
    {kPurchaseBill, "Purchase Bill", 7, 7, "PB", true},
    {kPurchaseReturn, "Purchase Return", 8, 8, "PR", true},
    {kReceipt, "Receipt", 9, 9, "RV", false},
    {kVehicleSale, "Vehicle Sale Bill", 10, 10, "VS", true},
    {kSalesReturn, "Sales Return", 11, 11, "SR", true},
    {kPurchaseOrder, "Purchase Order", 12, 12, "PO", true},
    {kSalesOrder, "Sales Order", 13, 13, "SO", true},
    {kGoodsReceipt, "Goods Receipt Note", 14, 14, "GR", false},
    {kDelivery, "Delivery Note", 15, 15, "DN", false},
    {kReturnedIn, "Goods Returned In", 16, 16, "RI", false},
    {kReturnedOut, "Goods Returned Out", 17, 17, "RO", false},
    {kStockJournal, "Stock Journal", 18, 18, "SJ", false},
    {kMaterialIssue, "Material Issue", 19, 19, "MI", false},
    {kFinishedGoods, "Finished Goods Receipt", 20, 20, "FG", false},
    {kQuotation, "Quotation", 23, 23, "QT", true},
    {kEnquiry, "Enquiry", 24, 24, "EQ", true},
    {kGodownTransfer, "Godown Transfer", 25, 25, "GT", false},
    {kServiceBill, "Service Bill", 10, 39, "SB", true},
    {kSparesSale, "Spare Parts Sale", 10, 40, "SP", true},
    {kJobCard, "Job Card", 10, 43, "JB", false},
    {kCounterSale, "Counter Sale", 10, 40, "", false},
    {kBranchVehicleSale, "Branch Vehicle Sale", 10, 10, "BV", true},
    {kLocalPurchase, "Local Purchase", 7, 7, "LP", true},
};

}  // namespace

std::span<const VoucherType> VoucherTypes() { return kTypes; }

const VoucherType& TypeOf(int id) { return *std::ranges::find(kTypes, id, &VoucherType::id); }

std::string SuffixOf(const VoucherType& type, int year) {
  if (!type.year_behind) return "";
  return "0" + std::to_string(year + 2) + "-0" + std::to_string(year + 3);
}

void WriteVoucherTypes(Writer& writer) {
  Statement insert(writer, "Vouchertype1", "Vouchertype_id, Vouchertype, RelatedTo, SubRelatedTo");
  for (const VoucherType& type : kTypes) {
    insert.Run(type.id, type.name, type.related, type.sub_related);
  }
}

}  // namespace pstolvane1::books::sample
