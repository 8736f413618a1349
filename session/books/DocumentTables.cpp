#include "session/books/SchemaTables.h"

namespace pstolvane1::books {
namespace {

using enum ColumnKind;

constexpr Column kDesr1[] = {{"Desr_id", kKey},
                             {"Date", kDate},
                             {"Vouchertype_id", kWhole},
                             {"Ledger_id", kWhole},
                             {"Employee_id", kWhole},
                             {"Prefix", kText, 20},
                             {"DesrRefno", kWhole},
                             {"Suffix", kText, 20},
                             {"Related_id", kWhole},
                             {"TotalAmount", kMoney},
                             {"Optional", kFlag},
                             {"Deleted", kFlag},
                             {"YearNo", kWhole},
                             {"Narration", kText, 255},
                             {"IsJobCard", kFlag},
                             {"JobCardDate", kDate},
                             {"JobCardPrefix", kText, 20},
                             {"JobCardRefno", kWhole},
                             {"JobCardSuffix", kText, 20},
                             {"Audited", kFlag}};
constexpr Index kDesr1Indexes[] = {
    {"Desr1_Date", "Date, Vouchertype_id, Ledger_id, Deleted, Optional, TotalAmount"},
    {"Desr1_Vouchertype", "Vouchertype_id, Date"},
    {"Desr1_Ledger", "Ledger_id, Date"},
    {"Desr1_Employee", "Employee_id, Date"},
    {"Desr1_Related", "Related_id"},
    {"Desr1_JobCardDate", "JobCardDate"}};

constexpr Column kDesrDetails1[] = {
    {"DesrDetails_id", kKey}, {"Desr_id", kWhole},    {"Item_id", kWhole},
    {"DesrDetDate", kDate},   {"QtyDespIn", kSingle}, {"QtyDespOut", kSingle},
    {"QtyReturned", kSingle}, {"BilledQty", kSingle}, {"AltQty", kSingle},
    {"Price", kMoney},        {"ActualRate", kMoney}, {"Rate", kMoney},
    {"AltRate", kMoney},      {"IsAltUnit", kFlag},   {"IsAltRate", kFlag},
    {"AffectStock", kFlag},   {"Optional", kFlag},    {"YearNo", kWhole},
    {"Salestax", kMoney},     {"Discount", kMoney},   {"IsWarranty", kFlag},
    {"DefectCode", kWhole},   {"VendorCode", kWhole}, {"PerformanceCode", kWhole},
    {"VendorMfgDate", kDate}, {"ClaimNo", kText, 20}};
constexpr Index kDesrDetails1Indexes[] = {
    {"DesrDetails1_Desr", "Desr_id"},
    {"DesrDetails1_Item", "Item_id, DesrDetDate"},
    {"DesrDetails1_Date",
     "DesrDetDate, Desr_id, Item_id, AffectStock, QtyDespIn, QtyDespOut, Price, YearNo, Salestax, "
     "IsWarranty"}};

constexpr Column kGodownItem1[] = {{"GodownItem_id", kKey},
                                   {"Date", kDate},
                                   {"YearNo", kWhole},
                                   {"Item_id", kWhole},
                                   {"Godown_id", kWhole},
                                   {"Batch_id", kWhole},
                                   {"GSrNo", kWhole},
                                   {"Qty", kSingle},
                                   {"AltQty", kSingle},
                                   {"Rate", kMoney},
                                   {"IsAdded", kFlag},
                                   {"IsOpeningBal", kFlag},
                                   {"Optional", kFlag},
                                   {"GDesrOptional", kFlag},
                                   {"GDesr_id", kWhole},
                                   {"DesrDetails_id", kWhole},
                                   {"GRelatedDesr_id", kWhole},
                                   {"GRelatedYearNo", kWhole},
                                   {"GOriginalVouchertype_id", kWhole},
                                   {"GLedger_id", kWhole},
                                   {"GPrefix", kText, 20},
                                   {"GRefNo", kWhole},
                                   {"GSuffix", kText, 20},
                                   {"Color_id", kWhole},
                                   {"IsAltUnit", kFlag}};
// Two wide indexes stand in for the table in the valuations: one in the order of the stock keys,
// for what is summed by key or walks the layers of one, and one in the order of days, for what
// walks the movements of all. Of two that serve alike the engine takes the one made last, and the
// order of keys suits the grouping queries better.
constexpr Index kGodownItem1Indexes[] = {
    {"GodownItem1_Date", "Date"},
    {"GodownItem1_Desr", "GDesr_id, Item_id, Godown_id, Batch_id, GSrNo, GOriginalVouchertype_id"},
    {"GodownItem1_DesrDetails", "DesrDetails_id"},
    {"GodownItem1_RelatedDesr",
     "GRelatedDesr_id, Item_id, Godown_id, Batch_id, GSrNo, GRelatedYearNo, GDesrOptional, Qty"},
    {"GodownItem1_Batch", "Batch_id, GOriginalVouchertype_id, YearNo, GDesr_id"},
    {"GodownItem1_Ledger", "GLedger_id, Date"},
    {"GodownItem1_Order",
     "YearNo, Date, DesrDetails_id, GodownItem_id, Item_id, Godown_id, Batch_id, IsAdded, "
     "IsOpeningBal, Optional, Qty, Rate, GOriginalVouchertype_id, GDesr_id, Color_id"},
    {"GodownItem1_Item",
     "Item_id, Godown_id, Batch_id, YearNo, Date, DesrDetails_id, GodownItem_id, IsAdded, "
     "IsOpeningBal, Optional, Qty, Rate, GOriginalVouchertype_id, GDesr_id, Color_id"}};

constexpr Column kTerms1[] = {{"DesrTerms_id", kKey},
                              {"Desr_id", kWhole},
                              {"DespatchTo", kText, 100},
                              {"DespatchToAdd1", kText, 100},
                              {"DespatchToAdd2", kText, 100},
                              {"City", kText, 60},
                              {"PinCode", kText, 10},
                              {"District", kText, 60},
                              {"State", kText, 60},
                              {"BuyersName", kText, 100},
                              {"SalesTaxNo1", kText, 60},
                              {"SalesTaxNo2", kText, 60},
                              {"Vehicle_id", kWhole},
                              {"VehicleType", kText, 60},
                              {"RegistrationNumber", kText, 20},
                              {"ChasisNumber", kText, 40},
                              {"EngineNumber", kText, 40},
                              {"DateOfSale", kDate},
                              {"Kms", kText, 20},
                              {"Mechanic_id", kWhole},
                              {"Hypo_id", kWhole},
                              {"ServiceType", kText, 60},
                              {"ServiceType_id", kWhole},
                              {"List1", kText, 100},
                              {"List2", kText, 100},
                              {"List3", kText, 100},
                              {"List4", kText, 100},
                              {"List5", kText, 100},
                              {"List6", kText, 100},
                              {"JobCardRefno", kWhole},
                              {"JobCardPrefix", kText, 20},
                              {"JobCardSuffix", kText, 20},
                              {"IsJobCard", kFlag},
                              {"PromisedDeliveryDate", kDate},
                              {"PromisedDeliveryTime", kDateTime},
                              {"ActualDeliveryDate", kDate},
                              {"ActualDeliveryTime", kDateTime},
                              {"PromissedDate", kDate},
                              {"FuelLevel", kText, 60},
                              {"ScratchesDesc", kText, 100},
                              {"ExtraDesc", kText, 100},
                              {"ARF", kText, 40}};
constexpr Index kTerms1Indexes[] = {
    {"Terms1_Desr", "Desr_id"},          {"Terms1_Registration", "RegistrationNumber"},
    {"Terms1_Chasis", "ChasisNumber"},   {"Terms1_Engine", "EngineNumber"},
    {"Terms1_DespatchTo", "DespatchTo"}, {"Terms1_Vehicle", "Vehicle_id"},
    {"Terms1_Mechanic", "Mechanic_id"},  {"Terms1_Hypo", "Hypo_id"}};

constexpr Table kDocumentTables[] = {
    {"Desr1", "Desr_id", kDesr1, kDesr1Indexes},
    {"DesrDetails1", "DesrDetails_id", kDesrDetails1, kDesrDetails1Indexes},
    {"GodownItem1", "GodownItem_id", kGodownItem1, kGodownItem1Indexes},
    {"Terms1", "DesrTerms_id", kTerms1, kTerms1Indexes},
};

}  // namespace

std::span<const Table> DocumentTables() { return kDocumentTables; }

}  // namespace pstolvane1::books
