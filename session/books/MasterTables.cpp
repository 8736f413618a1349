#include "session/books/SchemaTables.h"

namespace pstolvane1::books {
namespace {

using enum ColumnKind;

constexpr Column kUom1[] = {{"Uom_id", kKey}, {"UomName", kText, 20}};

constexpr Column kItemCategory1[] = {{"ItemCategory_id", kKey},
                                     {"CategoryName", kText, 60},
                                     {"Deleted", kFlag},
                                     {"RelatedTo", kWhole}};
constexpr Index kItemCategory1Indexes[] = {{"ItemCategory1_RelatedTo", "RelatedTo"}};

constexpr Column kItemClass1[] = {
    {"ItemClass_id", kKey}, {"ClassName", kText, 60}, {"Deleted", kFlag}, {"RelatedTo", kWhole}};
constexpr Index kItemClass1Indexes[] = {{"ItemClass1_RelatedTo", "RelatedTo"}};

constexpr Column kGodown1[] = {{"Godown_id", kKey},
                               {"GodownName", kText, 60},
                               {"ShortName", kText, 20},
                               {"RelatedTo", kWhole},
                               {"Deleted", kFlag}};

constexpr Column kColor1[] = {{"Color_id", kKey}, {"Color", kText, 40}};

constexpr Column kItems1[] = {
    {"Item_id", kKey},           {"ItemName", kText, 100},     {"ItemPartNo", kText, 40},
    {"PartNo", kText, 40},       {"ItemDesc", kText, 200},     {"Uom_id", kWhole},
    {"AlternateUom_id", kWhole}, {"RelationFormula", kSingle}, {"ItemCategory_id", kWhole},
    {"ItemClass_id", kWhole},    {"MaintainBatches", kFlag},   {"Deleted", kFlag},
    {"YearOfCreation", kWhole},  {"ConsiderForSih", kFlag},    {"ItemState", kWhole},
    {"SeatingCapacity", kWhole}};
constexpr Index kItems1Indexes[] = {{"Items1_Category", "ItemCategory_id"},
                                    {"Items1_Class", "ItemClass_id"},
                                    {"Items1_Name", "ItemName"}};

constexpr Column kBatches1[] = {{"Batch_id", kKey},        {"BatchCode", kText, 40},
                                {"Item_id", kWhole},       {"Color_id", kWhole},
                                {"DateOfPurchase", kDate}, {"ManufactureDate", kDate},
                                {"EngineNo", kText, 40},   {"QtyOnHand", kWhole}};
constexpr Index kBatches1Indexes[] = {{"Batches1_Item", "Item_id, Color_id"},
                                      {"Batches1_Code", "BatchCode"},
                                      {"Batches1_EngineNo", "EngineNo"}};

constexpr Column kItemDetailsAsLedger[] = {{"Item_id", kKey},
                                           {"YearNo", kKey},
                                           {"OpeningQuantity", kSingle},
                                           {"OpeningValue", kMoney},
                                           {"TotalPurchaseQuantity", kSingle},
                                           {"TotalPurchaseValue", kMoney},
                                           {"TotalSalesQuantity", kSingle},
                                           {"TotalSalesValue", kMoney}};

constexpr Column kStandardRate1[] = {{"Item_id", kWhole}, {"Rate", kMoney},
                                     {"DateFrom", kDate}, {"DateTo", kDate},
                                     {"YearNo", kWhole},  {"SaleOrPurchase", kFlag}};
constexpr Index kStandardRate1Indexes[] = {
    {"StandardRate1_Item", "Item_id, SaleOrPurchase, DateFrom, DateTo, Rate, YearNo"}};

constexpr Column kItemRelationShip[] = {
    {"Item_id", kWhole}, {"ItemRelated_id", kWhole}, {"RelatedQty", kSingle}};

constexpr Column kPriceListDiscount1[] = {
    {"Item_id", kWhole}, {"DateFrom", kDate},       {"DateTo", kDate},  {"Price1", kMoney},
    {"Price2", kMoney},  {"Price3", kMoney},        {"Price4", kMoney}, {"Price5", kMoney},
    {"Price6", kMoney},  {"SaleOrPurchase", kFlag}, {"YearNo", kWhole}};
constexpr Index kPriceListDiscount1Indexes[] = {
    {"PriceListDiscount1_Item", "Item_id, SaleOrPurchase, DateFrom, DateTo"}};

constexpr Column kSubgroupName1[] = {
    {"Subgroup_id", kKey}, {"SubgroupName", kText, 60}, {"Code", kWhole}};
constexpr Index kSubgroupName1Indexes[] = {{"SubgroupName1_Code", "Code"}};

constexpr Column kLedgerNames1[] = {{"Ledger_id", kKey},
                                    {"LedgerName", kText, 100},
                                    {"Subgroup_id", kWhole},
                                    {"Pin", kText, 10},
                                    {"YearOfCreation", kWhole}};
constexpr Index kLedgerNames1Indexes[] = {{"LedgerNames1_Subgroup", "Subgroup_id"},
                                          {"LedgerNames1_Name", "LedgerName"}};

constexpr Column kEmployee1[] = {{"Employee_id", kKey}, {"EmployeeName", kText, 60}};

constexpr Column kEmployeeCommision[] = {{"EmployeeCommision_id", kKey},
                                         {"Employee_id", kWhole},
                                         {"Item_id", kWhole},
                                         {"DateFrom", kDate},
                                         {"QtyTo", kSingle},
                                         {"CPercent", kMoney}};
constexpr Index kEmployeeCommisionIndexes[] = {
    {"EmployeeCommision_Employee", "Employee_id, Item_id, DateFrom, QtyTo"}};

constexpr Column kTransporterShipper1[] = {{"TransporterShipperName", kText, 100}};
constexpr Column kMechanicName[] = {{"Mechanic_id", kKey}, {"MechanicName", kText, 60}};
constexpr Column kHypo[] = {{"Hypo_id", kKey}, {"Name", kText, 100}, {"Pincode", kText, 10}};
constexpr Column kJobcardType[] = {{"Jobcardtype_id", kKey}, {"Jobcardtype", kText, 60}};
constexpr Column kDefect[] = {{"Defect_id", kKey}, {"DefectName", kText, 100}};
constexpr Column kVendor[] = {{"Vendor_id", kKey}, {"VendorName", kText, 100}};
constexpr Column kPerfomance[] = {{"Perfomance_id", kKey}, {"PerfomanceName", kText, 100}};

constexpr Table kMasterTables[] = {
    {"Uom1", "Uom_id", kUom1, {}},
    {"ItemCategory1", "ItemCategory_id", kItemCategory1, kItemCategory1Indexes},
    {"ItemClass1", "ItemClass_id", kItemClass1, kItemClass1Indexes},
    {"Godown1", "Godown_id", kGodown1, {}},
    {"Color1", "Color_id", kColor1, {}},
    {"Items1", "Item_id", kItems1, kItems1Indexes},
    {"Batches1", "Batch_id", kBatches1, kBatches1Indexes},
    {"ItemDetailsAsLedger", "Item_id, YearNo", kItemDetailsAsLedger, {}},
    {"StandardRate1", "", kStandardRate1, kStandardRate1Indexes},
    {"ItemRelationShip", "", kItemRelationShip, {}},
    {"PriceListDiscount1", "", kPriceListDiscount1, kPriceListDiscount1Indexes},
    {"SubgroupName1", "Subgroup_id", kSubgroupName1, kSubgroupName1Indexes},
    {"LedgerNames1", "Ledger_id", kLedgerNames1, kLedgerNames1Indexes},
    {"Employee1", "Employee_id", kEmployee1, {}},
    {"EmployeeCommision", "EmployeeCommision_id", kEmployeeCommision, kEmployeeCommisionIndexes},
    {"TransporterShipper1", "", kTransporterShipper1, {}},
    {"MechanicName", "Mechanic_id", kMechanicName, {}},
    {"Hypo", "Hypo_id", kHypo, {}},
    {"JobcardType", "Jobcardtype_id", kJobcardType, {}},
    {"Defect", "Defect_id", kDefect, {}},
    {"Vendor", "Vendor_id", kVendor, {}},
    {"Perfomance", "Perfomance_id", kPerfomance, {}},
};

}  // namespace

std::span<const Table> MasterTables() { return kMasterTables; }

}  // namespace pstolvane1::books
