#include "automation/Pictures.h"

namespace pstolvane1::automation {
namespace {

using enum Picture::Kind;

constexpr std::string_view kMonthQuantities = "QtyIn,QtyOut,QtyClosing";
constexpr std::string_view kMonthValues = "QtyInValue,QtyOutValue,QtyClosingValue";
constexpr Picture Quantities(std::string_view operation) {
  return {operation, kMonths, "Quantity by month", "Month", kMonthQuantities};
}
constexpr Picture Values(std::string_view operation) {
  return {operation, kMonths, "Value by month", "Month", kMonthValues};
}
constexpr Picture StockShares(std::string_view operation) {
  return {operation, kShares, "Closing value by group", "Particulars", "Value"};
}
constexpr Picture NetShares(std::string_view operation) {
  return {operation, kShares, "Net value", "Particulars", "Value"};
}

constexpr Picture kPictures[] = {
    Quantities("Monthly_Itemwise"),
    Values("Monthly_Itemwise"),
    Quantities("Monthly_GodownItemwise"),
    Values("Monthly_GodownItemwise"),
    Quantities("Monthly_Categorywise"),
    Values("Monthly_Categorywise"),
    Quantities("Monthly_Classwise"),
    Values("Monthly_Classwise"),
    Quantities("Monthly_Godownwise"),
    Values("Monthly_Godownwise"),
    StockShares("StockDetails_Categorywise"),
    StockShares("StockDetails_Classwise"),
    StockShares("StockDetails_Godownwise"),
    {"Colorwise_Monthly", kMonths, "Quantity by month", "Month",
     "InwardsChart,OutwardsChart,ClosingChart"},
    {"Colorwise_Initial", kShares, "Closing quantity by colour", "Child", "Closing"},
    {"Doc_Initial", kShares, "Amount by party", "Ledger", "Amount"},
    NetShares("CustomerItemwise_Analysis"),
    NetShares("Movement_PurchaseReturns_Analysis"),
    {"CategoryWise_Initial", kShares, "Amount by category", "CategoryName", "SubTotal", "-"},
    {"Commission_Initial", kShares, "Sales", "Particulars", "Sales"},
    {"HypoReport", kShares, "Sales by financier", "Particulars", "VehicleAmtHypo"},
};

}  // namespace

std::span<const Picture> Pictures() { return kPictures; }

}  // namespace pstolvane1::automation
