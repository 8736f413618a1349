// The words over the columns of single reports, in English.
#include "automation/ColumnWords.h"

namespace pstolvane1::automation {
namespace {

constexpr ColumnWords kStockByItem[] = {First("ItemName", "Item")};
constexpr ColumnWords kStockByGodown[] = {Is("Particulars", "Godown")};
constexpr ColumnWords kStockByClass[] = {Is("Particulars", "Item class")};
constexpr ColumnWords kStockByCategory[] = {Is("Particulars", "Item category")};
constexpr ColumnWords kStock[] = {
    Hidden("Categoryname"),
    Below("Itemname", "Item", "Particulars", 1),
    Below("Godown", "Godown and batch", "ItemName", 1),
    Is("QtyOp", "Opening quantity"),
    Unit("UomOp", "QtyOp"),
    Is("AltQtyOp", "Opening, other unit"),
    Unit("AltUomOp", "AltQtyOp"),
    Is("RateOp", "Opening rate"),
    Is("ValueOp", "Opening value"),
    Is("RateIn", "Inward rate"),
    Is("ValueIn", "Inward value"),
    Is("RateOut", "Outward rate"),
    Is("ValueOut", "Outward value"),
    Is("Balance", "Closing quantity", 1),
    Unit("Uom", "Balance"),
    Is("AltQty", "Closing, other unit"),
    Unit("AltUom", "AltQty"),
    Is("Rate", "Closing rate", 2),
    Is("Value", "Closing value", 3),
};

constexpr ColumnWords kMonthly[] = {
    Is("QtyInValue", "Inward value"),
    Is("QtyOutValue", "Outward value"),
    Is("QtyClosing", "Closing quantity", 1),
    Unit("UomClosing", "QtyClosing"),
    Is("AltQtyClosing", "Closing, other unit"),
    Unit("AltUomClosing", "AltQtyClosing"),
    Is("QtyClosingValue", "Closing value", 3),
    Hidden("QtyInC"),
    Hidden("QtyOutC"),
    Hidden("QtyBalC"),
    Hidden("QtyInValueC"),
    Hidden("QtyOutValueC"),
    Hidden("QtyBalValueC"),
    Hidden("ValueOpening"),
};

constexpr ColumnWords kSales[] = {
    Is("QtyIn", "Returned"),     Is("RateIn", "Rate returned at"), Is("ValueIn", "Value returned"),
    Is("QtyOut", "Sold"),        Is("RateOut", "Rate sold at"),    Is("ValueOut", "Value sold"),
    Is("RetPerc", "Returned %"),
};
constexpr ColumnWords kPurchases[] = {
    Is("QtyIn", "Bought"),           Is("RateIn", "Rate bought at"),
    Is("ValueIn", "Value bought"),   Is("QtyOut", "Sent back"),
    Is("RateOut", "Rate sent back"), Is("ValueOut", "Value sent back"),
    Is("RetPerc", "Sent back %"),
};
constexpr ColumnWords kMovement[] = {
    First("Par", "Particulars"),
    Fills("Particulars", "Par"),
    Hidden("Ledgername"),
    Hidden("Itemname"),
    Hidden("Child", 2),
    Hidden("Date"),
    Hidden("Id"),
    Hidden("IDPar"),
    Hidden("IDChild"),
    Hidden("ItemRow"),
    Unit("QtyInUom", "QtyIn"),
    Unit("QtyOutUom", "QtyOut"),
    Is("Balance", "Net quantity", 1),
    Is("Average", "Per day"),
    Is("Value", "Net value", 2),
    In("AreaName", "Area", "Par"),
    In("GrpQtyInArea", "Area, in", "QtyIn"),
    In("GrpValueInArea", "Area, value in", "ValueIn"),
    In("GrpQtyOutArea", "Area, out", "QtyOut"),
    In("GrpValueOutArea", "Area, value out", "ValueOut"),
    In("GrpRetPercArea", "Area, returned %", "RetPerc"),
    In("GrpBalanceArea", "Area, net quantity", "Balance"),
    In("GrpAverageArea", "Area, per day", "Average"),
    In("GrpValueArea", "Area, net value", "Value"),
};

constexpr ColumnWords kCommission[] = {
    First("ParticularsDisp", "Particulars"),
    Fills("Particulars", "ParticularsDisp"),
    Fills("Parent", "ParticularsDisp"),
    Hidden("Child", 1),
    Is("Sales", "Sales", 2),
    Is("Commission", "Commission", 1),
};
constexpr ColumnWords kCommissionDaily[] = {
    Is("Quantity", "Quantity"), Is("ComPerc", "Commission %"), Is("ComAmount", "Commission", 1),
    In("TotalCommission", "Commission in all", "ComAmount")};

constexpr ColumnWords kColours[] = {
    First("ParticularsDisp", "Item and colour"),
    Fills("Particulars", "ParticularsDisp"),
    Fills("Parent", "ParticularsDisp"),
    Hidden("Child", 1),
    Hidden("GrpOpening"),
    Hidden("GrpInwards"),
    Hidden("GrpOutwards"),
    Hidden("GrpClosing"),
};
constexpr ColumnWords kColourMonths[] = {
    First("Month", "Month"), Fills("Particulars", "Month"), Hidden("InwardsChart"),
    Hidden("OutwardsChart"), Hidden("ClosingChart"),
};
constexpr ColumnWords kDates[] = {First("Date", "Date"), Heading("Head", "Date")};
constexpr ColumnWords kItemDays[] = {First("Particulars", "Day"),
                                     Heading("Head", "Particulars", "Opening and days")};

constexpr ColumnWords kCategoryTree[] = {
    MarkedTree("CategoryName", "Group", '-'),
    Below("Itemname", "Item", "CategoryName", 1),
    Is("QtyOut", "Quantity", 1),
    Is("Amount", "Amount", 2),
    In("ItemQty", "Quantity of the items", "QtyOut"),
    In("SubQty", "Quantity of the group", "QtyOut"),
    In("AllQty", "Quantity in all", "QtyOut"),
    In("ItemTotal", "Amount of the items", "Amount"),
    In("SubTotal", "Amount of the group", "Amount"),
    In("AllTotal", "Amount in all", "Amount"),
    Hidden("LineChildCap"),
    Fills("LineCap", "CategoryName"),
};

constexpr ColumnWords kPending[] = {
    First("Date", "Date"),
    Heading("Heading", "Date"),
    Below("Godown", "Godown", "Particulars", 1),
    Is("Quantity", "Quantity", 2),
    Is("PendingQuantity", "Pending", 1),
    In("Quantity1", "Quantity in the godown", "Quantity"),
    In("PendingQuantity1", "Pending in the godown", "PendingQuantity"),
    In("Rate1", "Rate in the godown", "Rate"),
    Hidden("Ledgername"),
    Hidden("Itemname"),
};
constexpr ColumnWords kFree[] = {
    First("Particulars1", "Particulars"),
    Below("Particulars2", "Item or party", "Particulars1", 1),
    Is("Inwards_ActualQty", "Inwards, moved"),
    Is("Inwards_ActualValue", "Inwards, value"),
    Is("Inwards_FreeQty", "Inwards, free", 2),
    Is("Inwards_FreeValue", "Inwards, value of free", 4),
    Is("Outwards_ActualQty", "Outwards, moved"),
    Is("Outwards_ActualValue", "Outwards, value"),
    Is("Outwards_FreeQty", "Outwards, free", 1),
    Is("Outwards_FreeValue", "Outwards, value of free", 3),
    First("Date", "Date"),
    Heading("Head", "Date"),
    Below("Godown", "Godown", "Particulars", 1),
    Below("Narration", "Narration", "Particulars", 1),
    Is("ActualQty", "Moved"),
    Is("FreeQty", "Free", 1),
    In("GodownQty", "Moved in the godown", "ActualQty"),
    Is("ActualValue", "Value"),
    Is("FreeValue", "Value of free", 2),
};

constexpr ColumnWords kBills[] = {
    Is("TotalAmount", "Bill amount", 1),
    In("GrandTotal", "Amount in all", "TotalAmount"),
    Below("itemname", "Item", "LedgerName", 1),
    Is("Amount", "Item amount"),
    In("VoucherType1", "Document", "VoucherType"),
    Is("PendingAmount", "Pending", 2),
    Hidden("Indent"),
};
constexpr ColumnWords kPrices[] = {Is("Price", "Price 1")};

constexpr ColumnWords kHistory[] = {
    {.column = "RegistrationNumber",
     .label = "Registration",
     .leads = true,
     .level = ColumnLook::kHeading},
    Below("ItemName", "Item", "RegistrationNumber", 1),
    Below("ListOFComplaints", "Complaints", "RegistrationNumber", 1),
    In("ItemTotal", "Item amount", "TotalAmt"),
    Is("ServiceTax", "Service tax"),
    Hidden("Yearno"),
};
constexpr ColumnWords kFreeServices[] = {
    First("ParticularsHead", "Vehicle category"),
    Below("Particulars", "Model", "ParticularsHead", 1),
    In("FreeService1Head", "First, category", "FreeService1"),
    In("FreeService2Head", "Second, category", "FreeService2"),
    In("FreeService3Head", "Third, category", "FreeService3"),
    In("FreeService4Head", "Fourth, category", "FreeService4"),
    In("FreeService5Head", "Fifth, category", "FreeService5"),
    In("FreeService6Head", "Sixth, category", "FreeService6"),
    Is("FreeService1", "First service"),
    Is("FreeService2", "Second service"),
    Is("FreeService3", "Third service"),
    Is("FreeService4", "Fourth service"),
    Is("FreeService5", "Fifth service"),
    Is("FreeService6", "Sixth service"),
    Is("ParticularsTotal", "In all", 1),
    In("ParticularsHeadTotal", "Category in all", "ParticularsTotal"),
    In("TotalParticulars", "Report in all", "ParticularsTotal"),
};
constexpr ColumnWords kServiceDays[] = {
    First("Date", "Date"),
    Heading("Head", "Date"),
    Is("Particulars", "Registration"),
    Below("ItemName", "Item", "Particulars", 1),
    Is("LabourAmount", "Labour", 2),
};
constexpr ColumnWords kMechanics[] = {
    First("ParticularsHead", "Mechanic"),
    Below("Particulars", "Model or labour", "ParticularsHead", 1),
    Is("TotalBill", "Billed", 1),
    In("Bill", "Billed", "TotalBill"),
    In("TotalBillValue", "Billed in all", "TotalBill"),
    Is("TotalLabourBill", "Labour", 2),
    In("LabourBill", "Labour", "TotalLabourBill"),
    In("TotalLabourValue", "Labour in all", "TotalLabourBill"),
};
constexpr ColumnWords kFinanciers[] = {
    First("ParticularsHead", "Financier"),
    Below("Particulars", "Financier", "ParticularsHead", 1),
    Below("ItemName", "Model", "ParticularsHead", 2),
    Is("TotalSales", "Sales", 1),
    In("TotalSalesHead", "Sales of the pin code", "TotalSales"),
    In("TotalSalesItem", "Sales of the model", "TotalSales"),
    In("TotalSalesValue", "Sales in all", "TotalSales"),
    Is("QtyHypo", "Vehicles", 2),
    In("QtyHead", "Vehicles of the pin code", "QtyHypo"),
    In("Qty", "Vehicles of the model", "QtyHypo"),
    In("TotalQtyValue", "Vehicles in all", "QtyHypo"),
    Is("VehicleAmtHypo", "Vehicle value", 3),
    In("VehicleAmtHead", "Vehicle value of the pin code", "VehicleAmtHypo"),
    In("VehicleAmt", "Vehicle value of the model", "VehicleAmtHypo"),
    In("TotalVehicleAmtValue", "Vehicle value in all", "VehicleAmtHypo"),
    Hidden("TotalLabourBill"),
};
constexpr ColumnWords kClaims[] = {
    Is("TotalAmount", "Amount"),
    In("GrandTotal", "Amount in all", "TotalAmount"),
};
constexpr ColumnWords kBuyers[] = {Is("Particulars", "Buyer")};
constexpr ColumnWords kServiceTax[] = {
    Below("itemname", "Item", "Ledgername", 1),
    Is("Servicetax", "Rate"),
    In("TotalServicetax", "Sum of the rates", "Servicetax"),
    Is("ServicetaxPerc", "Tax", 1),
    In("TotalServicetaxPerc", "Tax of the bill", "ServicetaxPerc"),
    In("TotalTax", "Tax in all", "ServicetaxPerc"),
    Hidden("GTotalTax"),
    Is("LabourAmt", "Taxed amount and tax", 2),
    In("GTotalLabour", "Taxed in all", "LabourAmt"),
    Hidden("LabourAmtDet"),
};

const ReportWords kEnglish[] = {
    {"StockDetails_Item", kStockByItem},
    {"StockDetails_Godown", kStockByGodown},
    {"StockDetails_Class", kStockByClass},
    {"StockDetails_Category", kStockByCategory},
    {"StockDetails_", kStock},
    {"Monthly_", kMonthly},
    {"CustomerItem", kSales},
    {"Movement_Purchase", kPurchases},
    {"CustomerItem", kMovement},
    {"Movement_Purchase", kMovement},
    {"Commission_Initial", kCommission},
    {"Commission_Daily", kCommissionDaily},
    {"Colorwise_Initial", kColours},
    {"mColorwise_Initial", kColours},
    {"Colorwise_Monthly", kColourMonths},
    {"mColorwise_Monthly", kColourMonths},
    {"Colorwise_Daily", kDates},
    {"mColorwise_Daily", kDates},
    {"CategoryWise_Initial", kCategoryTree},
    {"ItemWise_DlyBkup", kItemDays},
    {"mItemwise_DlyBreakup", kItemDays},
    {"PendingBy", kPending},
    {"FreeQuantity_", kFree},
    {"BillWiseQuery", kBills},
    {"MultiplePriceList", kPrices},
    {"ServiceReportRegno", kHistory},
    {"FreeServiceReportDaily", kServiceDays},
    {"FreeServiceReport", kFreeServices},
    {"MechanicLabourReportDaily", kServiceDays},
    {"MechanicLabourReport", kMechanics},
    {"HypoReportDaily", kDates},
    {"HypoReport", kFinanciers},
    {"ClaimReport", kClaims},
    {"BuyerReport", kBuyers},
    {"ServiceTax", kServiceTax},
    {"", EnglishEverywhere()},
};

}  // namespace

std::span<const ReportWords> EnglishWords() { return kEnglish; }

}  // namespace pstolvane1::automation
