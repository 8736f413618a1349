#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "session/books/Schema.h"
#include "tests/books/BooksOnDisk.h"

namespace pstolvane1::books {
namespace {

using test::Database;

// The tables and columns that the reports read, kept by hand and apart from the schema.
const std::map<std::string, std::string> kRead = {
    {"Desr1",
     "Desr_id Date Vouchertype_id Ledger_id Employee_id Prefix DesrRefno Suffix Related_id "
     "TotalAmount Optional Deleted YearNo Narration IsJobCard JobCardDate JobCardPrefix "
     "JobCardRefno JobCardSuffix Audited"},
    {"DesrDetails1",
     "DesrDetails_id Desr_id Item_id DesrDetDate QtyDespIn QtyDespOut QtyReturned BilledQty AltQty "
     "Price ActualRate Rate AltRate IsAltUnit IsAltRate AffectStock Optional YearNo Salestax "
     "Discount IsWarranty DefectCode VendorCode PerformanceCode VendorMfgDate ClaimNo"},
    {"GodownItem1",
     "GodownItem_id Date YearNo Item_id Godown_id Batch_id GSrNo Qty AltQty Rate IsAdded "
     "IsOpeningBal Optional GDesrOptional GDesr_id DesrDetails_id GRelatedDesr_id GRelatedYearNo "
     "GOriginalVouchertype_id GLedger_id GPrefix GRefNo GSuffix Color_id IsAltUnit"},
    {"Items1",
     "Item_id ItemName ItemPartNo PartNo ItemDesc Uom_id AlternateUom_id RelationFormula "
     "ItemCategory_id ItemClass_id MaintainBatches Deleted YearOfCreation ConsiderForSih ItemState "
     "SeatingCapacity"},
    {"Uom1", "Uom_id UomName"},
    {"ItemCategory1", "ItemCategory_id CategoryName Deleted RelatedTo"},
    {"ItemClass1", "ItemClass_id ClassName Deleted RelatedTo"},
    {"Godown1", "Godown_id GodownName ShortName RelatedTo Deleted"},
    {"Batches1",
     "Batch_id BatchCode Item_id Color_id DateOfPurchase ManufactureDate EngineNo QtyOnHand"},
    {"Color1", "Color_id Color"},
    {"ItemDetailsAsLedger",
     "Item_id YearNo OpeningQuantity OpeningValue TotalPurchaseQuantity TotalPurchaseValue "
     "TotalSalesQuantity TotalSalesValue"},
    {"StandardRate1", "Item_id Rate DateFrom DateTo YearNo SaleOrPurchase"},
    {"ItemRelationShip", "Item_id ItemRelated_id RelatedQty"},
    {"PriceListDiscount1",
     "Item_id DateFrom DateTo Price1 Price2 Price3 Price4 Price5 Price6 SaleOrPurchase YearNo"},
    {"LedgerNames1", "Ledger_id LedgerName Subgroup_id Pin YearOfCreation"},
    {"SubgroupName1", "Subgroup_id SubgroupName Code"},
    {"Employee1", "Employee_id EmployeeName"},
    {"EmployeeCommision", "EmployeeCommision_id Employee_id Item_id DateFrom QtyTo CPercent"},
    {"TransporterShipper1", "TransporterShipperName"},
    {"MechanicName", "Mechanic_id MechanicName"},
    {"Hypo", "Hypo_id Name Pincode"},
    {"JobcardType", "Jobcardtype_id Jobcardtype"},
    {"Defect", "Defect_id DefectName"},
    {"Vendor", "Vendor_id VendorName"},
    {"Perfomance", "Perfomance_id PerfomanceName"},
    {"Voucher1", "Voucher_id Vouchertype_id VoucherNumber Optional Deleted"},
    {"VoucherDetails1",
     "Voucher_id Ledger_id Subgroup_id CreditAmt DebitAmt VhrDetailDate VhrDetailOptional "
     "ClearanceDate ChequeNumber Deleted"},
    {"Vouchertype1", "Vouchertype_id Vouchertype RelatedTo SubRelatedTo"},
    {"BillByBill1", "BillByBill_id CrVoucher_id RefNo EffectiveDate Ledger_id YearNo"},
    {"BillByBillDetails1",
     "BillByBillDetails_id BillByBill_id Voucher_id Vouchertype_id Date AmountDr AmountCr RefType "
     "OptionalDetails ReceiptNo"},
    {"Terms1",
     "DesrTerms_id Desr_id DespatchTo DespatchToAdd1 DespatchToAdd2 City PinCode District State "
     "BuyersName SalesTaxNo1 SalesTaxNo2 Vehicle_id VehicleType RegistrationNumber ChasisNumber "
     "EngineNumber DateOfSale Kms Mechanic_id Hypo_id ServiceType ServiceType_id List1 List2 List3 "
     "List4 List5 List6 JobCardRefno JobCardPrefix JobCardSuffix IsJobCard PromisedDeliveryDate "
     "PromisedDeliveryTime ActualDeliveryDate ActualDeliveryTime PromissedDate FuelLevel "
     "ScratchesDesc ExtraDesc ARF"},
};

TEST(Schema, HasExactlyTheTablesAndColumnsThatTheReportsRead) {
  std::map<std::string, std::string> made;
  for (const Table& table : Tables()) {
    std::string& columns = made[std::string(table.name)];
    for (const Column& column : table.columns) {
      columns += (columns.empty() ? "" : " ") + std::string(column.name);
    }
  }
  EXPECT_EQ(made, kRead);
}

TEST(Schema, OnlyKeysRefuseNull) {
  Database database(":memory:");
  database.Execute(SqliteSchema());
  for (const Table& table : Tables()) {
    std::string keys;
    for (const auto& name : database.Rows("SELECT name FROM pragma_table_info('" +
                                          std::string(table.name) + "') WHERE \"notnull\" = 1")) {
      keys += (keys.empty() ? "" : ", ") + name;
    }
    EXPECT_EQ(keys, table.key) << table.name;
  }
}

TEST(Schema, DeclaresEachKindAsTheBooksKeepIt) {
  Database database(":memory:");
  database.Execute(SqliteSchema());
  const auto type = [&](const std::string& table, const std::string& column) {
    return database.Text("SELECT type FROM pragma_table_info('" + table + "') WHERE name = '" +
                         column + "'");
  };
  EXPECT_EQ(type("Items1", "Item_id"), "INTEGER");
  EXPECT_EQ(type("Items1", "ConsiderForSih"), "BIT");
  EXPECT_EQ(type("Items1", "RelationFormula"), "REAL");
  EXPECT_EQ(type("Items1", "ItemName"), "VARCHAR(100)");
  EXPECT_EQ(type("DesrDetails1", "Price"), "DECIMAL(19,4)");
  EXPECT_EQ(type("DesrDetails1", "DesrDetDate"), "DATE");
  EXPECT_EQ(type("Terms1", "PromisedDeliveryTime"), "DATETIME");
}

TEST(Schema, TextIgnoresCase) {
  Database database(":memory:");
  database.Execute(SqliteSchema());
  database.Execute("INSERT INTO Uom1 VALUES (1, 'Nos')");
  EXPECT_EQ(database.Whole("SELECT count(*) FROM Uom1 WHERE UomName = 'NOS'"), 1);
}

TEST(Schema, ASingleKeyIsTheRowsOwnNumber) {
  Database database(":memory:");
  database.Execute(SqliteSchema());
  database.Execute("INSERT INTO Items1 (Item_id) VALUES (77)");
  EXPECT_EQ(database.Whole("SELECT rowid FROM Items1"), 77);
}

TEST(Schema, IndexesNameColumnsOfTheirTableAndHaveNamesOfTheirOwn) {
  std::set<std::string> names;
  for (const Table& table : Tables()) {
    for (const Index& index : table.indexes) {
      EXPECT_TRUE(names.insert(std::string(index.name)).second) << index.name;
      EXPECT_TRUE(index.name.starts_with(table.name)) << index.name;
    }
  }
  Database database(":memory:");
  database.Execute(SqliteSchema());
  EXPECT_EQ(database.Whole("SELECT count(*) FROM sqlite_master WHERE type = 'index' "
                           "AND name NOT LIKE 'sqlite_%'"),
            static_cast<long long>(names.size()));
}

TEST(Schema, FindsTablesAndColumnsInAnyCase) {
  const Table* table = FindTable("GODOWNITEM1");
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->name, "GodownItem1");
  const Column* column = table->Find("gdesr_ID");
  ASSERT_NE(column, nullptr);
  EXPECT_EQ(column->name, "GDesr_id");
  EXPECT_EQ(FindTable("Desr"), nullptr);
  EXPECT_EQ(table->Find("TotalAmount"), nullptr);
}

// The queries name these without their table, beside a table that has them: were they in the first
// as well, the name would be ambiguous.
TEST(Schema, LeavesOutWhatWouldMakeABareNameAmbiguous) {
  const std::map<std::string, std::vector<std::string>> absent = {
      {"Terms1",
       {"TotalAmount", "Date", "Optional", "Related_id", "Ledger_id", "Prefix", "Suffix",
        "DesrRefno", "Item_id", "Price"}},
      {"GodownItem1", {"EngineNo", "BatchCode", "ItemName", "QtyOnHand", "Related_id"}},
      {"Vouchertype1", {"Date", "Optional", "Deleted", "Ledger_id", "Prefix", "Suffix", "YearNo"}},
      {"Items1", {"Date", "Optional", "YearNo", "Rate", "Price", "Qty", "Discount", "Salestax"}},
      {"BillByBill1", {"AmountDr", "AmountCr", "Voucher_id", "Vouchertype_id"}}};
  for (const auto& [name, columns] : absent) {
    const Table* table = FindTable(name);
    ASSERT_NE(table, nullptr) << name;
    for (const auto& column : columns) EXPECT_EQ(table->Find(column), nullptr) << name << column;
  }
}

}  // namespace
}  // namespace pstolvane1::books
