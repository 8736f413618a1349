// Statements of books that another program has made: more columns, other types, other values.
#include <gtest/gtest.h>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <vector>

#include "golden/SmallBooks.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {
namespace {

using golden::TextTable;

constexpr enmValuationMethod kMethods[] = {
    FifoRate, LifoRate, AverageRate, LastPurchaseRate, LastSaleRate, standardrate, StandardPrice};
constexpr enmValuationMethod kSummed[] = {AverageRate, LastPurchaseRate, LastSaleRate, standardrate,
                                          StandardPrice};

// 8 bolts bought by a document, and a line of an item that is not there.
std::vector<TextTable> Bolts() {
  return {{"Uom1", {"Uom_id", "UomName"}, {{"1", "Nos"}}},
          {"Godown1", {"Godown_id", "GodownName", "Deleted"}, {{"1", "Main", "0"}}},
          {"Items1",
           {"Item_id", "ItemName", "Uom_id", "AlternateUom_id", "Deleted", "YearOfCreation"},
           {{"1", "Bolt", "1", "1", "0", "1"}}},
          {"Batches1", {"Batch_id", "BatchCode", "Item_id"}, {{"1", "-", "1"}}},
          {"Vouchertype1", {"Vouchertype_id"}, {{"7"}}},
          {"Desr1", {"Desr_id", "Vouchertype_id"}, {{"1", "7"}}},
          {"GodownItem1",
           {"GodownItem_id", "Date", "YearNo", "Item_id", "Godown_id", "Batch_id", "Qty", "Rate",
            "IsAdded", "IsOpeningBal", "Optional", "GOriginalVouchertype_id", "GDesr_id"},
           {{"1", "2003-05-01", "1", "1", "1", "1", "8", "5", "1", "0", "0", "7", "1"},
            {"2", "2003-05-01", "1", "9", "1", "1", "1", "5", "1", "0", "0", "7", "1"}}}};
}

void Change(const golden::SmallBooks& books, const std::string& statements) {
  sqlite3* opened = nullptr;
  ASSERT_EQ(sqlite3_open(books.ConnectionString().c_str(), &opened), SQLITE_OK);
  const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, &sqlite3_close);
  EXPECT_EQ(sqlite3_exec(opened, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(opened);
}

// "8 at 40": the quantity and value that came in, by the item's line.
std::string CameIn(const golden::SmallBooks& books, enmValuationMethod method,
                   const std::string& vouchertypes = "") {
  clsStolvane1 session;
  session.SetLocale("en_IN");
  session.SetConnection("", "", books.ConnectionString(), False);
  session.SetFilter(vouchertypes, "", 0, 0);
  const RecordsetPtr report = session.StockDetails_Itemwise(
      1, Date::FromYmd(2003, 4, 1), Date::FromYmd(2004, 3, 31), method, -1, 0, True, False, False,
      1, False, True, True, True, "", "");
  return report->Collect("QtyInSort").ToText() + " at " + report->Collect("ValueInSort").ToText();
}

TEST(ForeignBooks, MayHaveMoreColumnsThatAFilterJoins) {
  const golden::SmallBooks books(Bolts());
  for (const char* column : {"Item_id", "Godown_id", "Batch_id", "Qty", "Rate", "IsAdded",
                             "IsOpeningBal", "DesrDetails_id", "GodownItem_id"}) {
    Change(books, std::string("ALTER TABLE Vouchertype1 ADD COLUMN ") + column + " INTEGER");
  }
  for (const enmValuationMethod method : kMethods) {
    EXPECT_EQ(CameIn(books, method, "Vouchertype1.Vouchertype_id in (7,10)"), "8 at 40")
        << "method " << method;
  }
}

TEST(ForeignBooks, MayHaveRatesThatAreNoMoney) {
  const golden::SmallBooks books(Bolts());
  Change(books,
         "DROP INDEX GodownItem1_Item; DROP INDEX GodownItem1_Order;"
         "ALTER TABLE GodownItem1 DROP COLUMN Rate; ALTER TABLE GodownItem1 ADD COLUMN Rate REAL;"
         "UPDATE GodownItem1 SET Rate = 29961.3");
  for (const enmValuationMethod method : kSummed) {
    EXPECT_EQ(CameIn(books, method), "8 at 239690.4") << "method " << method;
  }
}

// The sum is rounded to money, and not each rate.
TEST(ForeignBooks, MayHaveRatesOfMorePlacesThanMoney) {
  const golden::SmallBooks books(Bolts());
  Change(books, "UPDATE GodownItem1 SET Rate = 0.00005");
  for (const enmValuationMethod method : kSummed) {
    EXPECT_EQ(CameIn(books, method), "8 at 0.0004") << "method " << method;
  }
}

TEST(ForeignBooks, MayHaveARateBeyondMoneyWhereNothingIsShown) {
  const golden::SmallBooks books(Bolts());
  Change(books, "UPDATE GodownItem1 SET Rate = 5e17 WHERE Item_id = 9");
  for (const enmValuationMethod method : {AverageRate, LastSaleRate, StandardPrice}) {
    EXPECT_EQ(CameIn(books, method), "8 at 40") << "method " << method;
  }
}

}  // namespace
}  // namespace pstolvane1
