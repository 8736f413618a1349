#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/books/BooksFile.h"
#include "session/books/CheckBooks.h"
#include "session/books/SampleBooks.h"
#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "tests/books/BooksOnDisk.h"

namespace pstolvane1::books {
namespace {

using test::Content;
using test::Database;
using test::Folder;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class CheckBooks : public testing::Test {
 protected:
  // "SEVERITY SENTENCE", with the remedy in brackets behind it, of empty books after the
  // statements.
  std::vector<std::string> Found(const std::string& statements) {
    if (!std::filesystem::exists(file_)) CreateBooks(file_);
    Database(file_).Execute(statements);
    std::vector<std::string> found;
    for (const Finding& one : books::CheckBooks(file_)) {
      found.push_back(std::string(NameOf(one.severity)) + " " + one.sentence +
                      (one.remedy.empty() ? "" : " [" + one.remedy + "]"));
    }
    return found;
  }
  std::string Refusal(const std::string& connection) {
    try {
      (void)books::CheckBooks(connection);
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kConnection);
      return error.Description();
    }
    return "no error";
  }

  Folder folder_;
  std::string file_ = folder_.File("a.db");
};

TEST_F(CheckBooks, FindsNothingInEmptyBooks) { EXPECT_THAT(Found(""), IsEmpty()); }

TEST_F(CheckBooks, FindsNothingInSampleBooksAndLeavesThemAsTheyAre) {
  SampleBooks(file_, 20'000);
  const std::string before = Content(file_);
  EXPECT_THAT(Found(""), IsEmpty());
  EXPECT_TRUE(Content(file_) == before);
  EXPECT_THAT(folder_.Names(), ElementsAre("a.db"));
}

// A movement's quantity stands in the table and in its wide indexes.
TEST_F(CheckBooks, NamesEachByteOfAQuantityThatHasFlipped) {
  constexpr std::string_view kQuantity("\x40\x93\x4a\x40\x00\x00\x00\x00", 8);  // 1234.5625
  Found("INSERT INTO GodownItem1 (GodownItem_id, Qty) VALUES (1, 1234.5625)");
  const std::string whole = Content(file_);
  int places = 0;
  for (std::size_t at = 0; (at = whole.find(kQuantity, at)) != std::string::npos; ++at) {
    ++places;
    for (std::size_t byte = 0; byte < kQuantity.size(); ++byte) {
      std::string damaged = whole;
      damaged[at + byte] = static_cast<char>(damaged[at + byte] ^ 0x10);
      folder_.Write("a.db", damaged);
      EXPECT_THAT(Found(""), Contains(testing::StartsWith("error The file is damaged (")))
          << at << " " << byte;
    }
  }
  EXPECT_GE(places, 3);
}

TEST_F(CheckBooks, TellsWhatIsWrongWithAFileThatCannotBeReadToItsEnd) {
  SampleBooks(file_, 2000);
  std::string bytes = Content(file_);
  std::fill(bytes.end() - static_cast<std::ptrdiff_t>(bytes.size() / 8), bytes.end(), 'x');
  folder_.Write("a.db", bytes);
  std::vector<std::string> found;
  for (const Finding& one : books::CheckBooks(file_)) found.push_back(one.sentence);
  EXPECT_THAT(found, Contains(testing::StartsWith("The file is damaged (")));
}

TEST_F(CheckBooks, TakesAConnectionStringAsWell) {
  CreateBooks(file_);
  EXPECT_THAT(books::CheckBooks("sqlite:///" + file_), IsEmpty());
}

TEST_F(CheckBooks, RefusesWhatIsNoFileOfBooks) {
  EXPECT_EQ(Refusal(folder_.File("none.db")),
            "cannot open the books \"" + folder_.File("none.db") + "\": there is no such file");
  std::filesystem::create_directory(folder_.File("folder"));
  EXPECT_EQ(Refusal(folder_.File("folder")),
            "cannot open the books \"" + folder_.File("folder") + "\": it is a folder");
  folder_.Write("text.db", std::string(200, 'x'));
  EXPECT_EQ(Refusal(folder_.File("text.db")),
            "cannot open the books \"" + folder_.File("text.db") + "\": file is not a database");
  Database(folder_.File("other.db")).Execute("CREATE TABLE Recipes (Name TEXT)");
  EXPECT_EQ(Refusal(folder_.File("other.db")),
            "\"" + folder_.File("other.db") + "\" holds no books: it has none of their tables");
  EXPECT_EQ(Refusal("Driver={Any};Server=x"),
            "The connection string names ODBC, which this build of the library does not have.");
}

TEST_F(CheckBooks, TellsMissingTablesColumnsAndIndexesWithTheirRemedies) {
  EXPECT_THAT(Found("DROP TABLE Hypo; DROP INDEX Desr1_Ledger; "
                    "DROP INDEX Batches1_EngineNo; ALTER TABLE Batches1 DROP COLUMN EngineNo"),
              ElementsAre("error The column Batches1.EngineNo is missing. "
                          "[ALTER TABLE Batches1 ADD COLUMN EngineNo VARCHAR(40);]",
                          "error The table Hypo is missing. [CREATE TABLE Hypo (\n"
                          "  Hypo_id INTEGER NOT NULL,\n"
                          "  Name VARCHAR(100) COLLATE NOCASE,\n"
                          "  Pincode VARCHAR(10) COLLATE NOCASE,\n"
                          "  PRIMARY KEY (Hypo_id));]",
                          "hint No index of Desr1 begins with Ledger_id, Date. "
                          "[CREATE INDEX Desr1_Ledger ON Desr1 (Ledger_id, Date);]"));
}

TEST_F(CheckBooks, StillChecksTheDataOfIncompleteBooks) {
  EXPECT_THAT(Found("DROP TABLE Hypo; INSERT INTO Items1 (Item_id, RelationFormula, Uom_id, "
                    "AlternateUom_id) VALUES (5, 0, 1, 1); INSERT INTO Uom1 VALUES (1, 'Nos')"),
              Contains("error 1 item has no relation between its units, by which reports in "
                       "alternate units divide, the first with Item_id 5 "
                       "(Items1.RelationFormula)."));
}

TEST_F(CheckBooks, ItsRemediesMendWhatIsMissing) {
  std::string mending;
  CreateBooks(file_);
  Database(file_).Execute("DROP TABLE Hypo; DROP TABLE Terms1; DROP INDEX GodownItem1_Item");
  for (const Finding& one : books::CheckBooks(file_)) mending += one.remedy;
  Database(file_).Execute(mending);
  mending.clear();
  for (const Finding& one : books::CheckBooks(file_)) mending += one.remedy;
  EXPECT_THAT(Found(mending), IsEmpty());
}

TEST_F(CheckBooks, TakesAnIndexOfAnotherNameAndMoreColumns) {
  EXPECT_THAT(Found("DROP INDEX Desr1_Ledger; "
                    "CREATE INDEX mine ON Desr1 (LEDGER_ID, date, TotalAmount)"),
              IsEmpty());
  EXPECT_THAT(Found("DROP INDEX mine; CREATE INDEX half ON Desr1 (Ledger_id, Date) WHERE Deleted = "
                    "0"),
              ElementsAre("hint No index of Desr1 begins with Ledger_id, Date. "
                          "[CREATE INDEX Desr1_Ledger ON Desr1 (Ledger_id, Date);]"));
}

TEST_F(CheckBooks, AnIndexOfTheSameNameWithOtherColumnsGoesFirst) {
  EXPECT_THAT(Found("DROP INDEX Desr1_Ledger; CREATE INDEX desr1_ledger ON Desr1 (Ledger_id)"),
              ElementsAre("hint No index of Desr1 begins with Ledger_id, Date. "
                          "[DROP INDEX Desr1_Ledger; "
                          "CREATE INDEX Desr1_Ledger ON Desr1 (Ledger_id, Date);]"));
  std::string mending;
  for (const Finding& one : books::CheckBooks(file_)) mending += one.remedy;
  EXPECT_THAT(Found(mending), IsEmpty());
}

TEST_F(CheckBooks, TakesOtherTypesOfTheSameMeaningAndMoreColumns) {
  EXPECT_THAT(Found("DROP TABLE EmployeeCommision; CREATE TABLE employeecommision ("
                    "EMPLOYEECOMMISION_ID bigint primary key, Employee_id int, Item_id smallint, "
                    "DateFrom datetime, QtyTo double precision, CPercent money, Remark text); "
                    "CREATE INDEX i ON EmployeeCommision (Employee_id, Item_id, DateFrom, QtyTo)"),
              IsEmpty());
}

TEST_F(CheckBooks, TellsAColumnOfAnotherType) {
  EXPECT_THAT(
      Found("DROP TABLE Color1; CREATE TABLE Color1 (Color_id VARCHAR(5), Color BLOB); "
            "DROP TABLE Hypo; "
            "CREATE TABLE Hypo (Hypo_id INTEGER, Name VARCHAR(100), Pincode INTEGER)"),
      ElementsAre("error The column Color1.Color_id is declared \"VARCHAR(5)\", where the "
                  "reports need a whole number (INTEGER).",
                  "error The column Color1.Color is declared \"BLOB\", where the reports "
                  "need text (VARCHAR(40)).",
                  "error The column Hypo.Pincode is declared \"INTEGER\", where the reports "
                  "need text (VARCHAR(10))."));
}

TEST_F(CheckBooks, ReadsAViewAsATable) {
  EXPECT_THAT(Found("ALTER TABLE Color1 RENAME TO Shades; "
                    "CREATE VIEW Color1 AS SELECT Color_id, Color FROM Shades"),
              IsEmpty());
}

// Two movements are right but for what a case spoils.
struct Spoiled {
  const char* statements;
  const char* finding;
};

constexpr const char* kSound =
    "INSERT INTO Uom1 VALUES (1, 'Nos');"
    "INSERT INTO Items1 (Item_id, Uom_id, AlternateUom_id, RelationFormula, Deleted) VALUES "
    "(5, 1, 1, 1, 0);"
    "INSERT INTO Godown1 (Godown_id, RelatedTo, Deleted) VALUES (1, 1, 0), (2, 1, 0);"
    "INSERT INTO ItemCategory1 (ItemCategory_id, RelatedTo) VALUES (1, 1), (2, 1), (3, 2);"
    "INSERT INTO Batches1 (Batch_id, Item_id, EngineNo) VALUES (8, 5, 'E1');"
    "INSERT INTO Vouchertype1 VALUES (7, 'Purchase Bill', 7, 7), (40, 'Sale', 10, 40);"
    "INSERT INTO LedgerNames1 (Ledger_id) VALUES (3);"
    "INSERT INTO Voucher1 VALUES (90, 7, 1, 0, 0), (91, 40, 1, 0, 0);"
    "INSERT INTO VoucherDetails1 (Voucher_id, Ledger_id, DebitAmt, CreditAmt) VALUES "
    "(90, 3, 0.1, 0), (90, 3, 0.2, 0), (90, 3, 0, 0.3);"
    "INSERT INTO Desr1 (Desr_id, Date, Vouchertype_id, Ledger_id, Prefix, DesrRefno, Suffix, "
    "Related_id, Optional, Deleted, YearNo) VALUES "
    "(20, '2003-04-01', 7, 3, '', 1, '', 90, 0, 0, 1),"
    "(21, '2004-04-01', 40, 3, '', 1, '', 91, 0, 0, 2);"
    "INSERT INTO DesrDetails1 (DesrDetails_id, Desr_id, Item_id, DesrDetDate, QtyDespIn, "
    "QtyDespOut, QtyReturned, BilledQty, Price) VALUES (30, 20, 5, '2003-04-01', 2, 0, 0, 2, 10),"
    "(31, 21, 5, '2004-04-01', 0, 1, 0, 1, 12);"
    "INSERT INTO GodownItem1 (GodownItem_id, Date, YearNo, Item_id, Godown_id, Batch_id, Qty, "
    "Rate, "
    "IsAdded, IsOpeningBal, Optional, GDesr_id, DesrDetails_id, GLedger_id, GRefNo, "
    "GOriginalVouchertype_id) VALUES "
    "(40, '2003-04-01', 1, 5, 1, 8, 2, 10, 1, 0, 0, 20, 30, 3, 1, 7),"
    "(41, '2004-04-01', 2, 5, 1, 8, 1, 12, 0, 0, 0, 21, 31, 3, 1, 10);";

TEST_F(CheckBooks, FindsNothingInSmallSoundBooks) { EXPECT_THAT(Found(kSound), IsEmpty()); }

TEST_F(CheckBooks, TellsEachOddityWithItsCountAndFirstKey) {
  constexpr Spoiled kSpoiled[] = {
      {"UPDATE GodownItem1 SET Item_id = NULL",
       "error 2 movements have no item, the first with GodownItem_id 40 (GodownItem1.Item_id)."},
      {"UPDATE GodownItem1 SET Item_id = 6 WHERE GodownItem_id = 41",
       "error 1 row of GodownItem1 names in Item_id what Items1 does not have, the first with "
       "GodownItem_id 41."},
      {"UPDATE GodownItem1 SET Batch_id = 0 WHERE GodownItem_id = 41",
       "error 1 movement has no godown or no batch and stays out of the stock statements, the "
       "first "
       "with GodownItem_id 41 (GodownItem1.Godown_id, Batch_id)."},
      {"UPDATE GodownItem1 SET IsAdded = NULL WHERE GodownItem_id = 41",
       "error 1 movement does not tell whether it goes in or out, the first with "
       "GodownItem_id 41 (GodownItem1.IsAdded)."},
      {"UPDATE GodownItem1 SET Optional = NULL",
       "error 2 movements have a Null in Optional or IsOpeningBal and stay out of the reports, the "
       "first with GodownItem_id 40 (GodownItem1.Optional, IsOpeningBal)."},
      {"UPDATE GodownItem1 SET Rate = NULL WHERE GodownItem_id = 40",
       "error 1 movement has no quantity or no rate, the first with GodownItem_id 40 "
       "(GodownItem1.Qty, Rate)."},
      {"UPDATE GodownItem1 SET Qty = -Qty WHERE GodownItem_id = 41",
       "error 1 movement has a negative quantity, where IsAdded should tell the direction, the "
       "first "
       "with GodownItem_id 41 (GodownItem1.Qty)."},
      {"UPDATE GodownItem1 SET Date = NULL WHERE GodownItem_id = 41",
       "warning 1 movement that is no opening balance has no date, the first with GodownItem_id "
       "41 (GodownItem1.Date)."},
      {"UPDATE Desr1 SET Deleted = 1 WHERE Desr_id = 21",
       "warning 1 movement of a deleted document still counts as stock, the first with "
       "GodownItem_id 41 (GodownItem1.GDesr_id, Desr1.Deleted)."},
      {"UPDATE GodownItem1 SET GRefNo = 9 WHERE GodownItem_id = 41",
       "warning 1 movement differs from its document in number, party, year or date, the first "
       "with "
       "GodownItem_id 41 (GodownItem1.GRefNo, GLedger_id, YearNo, Date)."},
      {"UPDATE DesrDetails1 SET BilledQty = -1 WHERE DesrDetails_id = 30",
       "warning 1 document line has a negative quantity, the first with DesrDetails_id 30 "
       "(DesrDetails1.QtyDespIn, QtyDespOut, QtyReturned, BilledQty)."},
      {"UPDATE DesrDetails1 SET QtyDespOut = 1",
       "warning 1 document line goes both in and out, the first with DesrDetails_id 30 "
       "(DesrDetails1.QtyDespIn, QtyDespOut)."},
      {"UPDATE DesrDetails1 SET Price = NULL WHERE DesrDetails_id = 31",
       "error 1 document line has a Null in its quantities or its price, the first with "
       "DesrDetails_id 31 (DesrDetails1.QtyDespIn, QtyDespOut, QtyReturned, Price)."},
      {"UPDATE DesrDetails1 SET Desr_id = 20",
       "warning 1 document has no lines, the first with Desr_id 21 (DesrDetails1.Desr_id)."},
      {"UPDATE Desr1 SET Optional = NULL WHERE Desr_id = 20",
       "error 1 document has a Null in Deleted or Optional and stays out of the reports, the first "
       "with Desr_id 20 (Desr1.Deleted, Optional)."},
      {"UPDATE Desr1 SET Vouchertype_id = 7, YearNo = 1",
       "warning 1 document number is given twice in its type and year, the first with Desr_id 20 "
       "(Desr1.Prefix, DesrRefno, Suffix)."},
      {"UPDATE Items1 SET AlternateUom_id = 0",
       "error 1 item has no unit or no alternate unit and stays out of the stock statements, the "
       "first with Item_id 5 (Items1.Uom_id, AlternateUom_id)."},
      {"UPDATE GodownItem1 SET GOriginalVouchertype_id = 7",
       "error 1 vehicle is bought more than once, and looking it up fails, the first with Batch_id "
       "8 (Batches1.EngineNo, GodownItem1.Batch_id)."},
      {"UPDATE VoucherDetails1 SET CreditAmt = 0.4 WHERE CreditAmt > 0",
       "warning 1 voucher's debits differ from its credits, the first with Voucher_id 90 "
       "(VoucherDetails1.DebitAmt, CreditAmt)."},
      {"INSERT INTO PriceListDiscount1 (Item_id, Price1) VALUES (5, 10)",
       "warning 1 price list row has a Null price, which the price list cannot show, the first "
       "with "
       "Item_id 5 (PriceListDiscount1.Price1 to Price6)."},
      {"INSERT INTO StandardRate1 VALUES (5, 10, '2004-01-01', '2003-12-31', 1, 0)",
       "warning 1 standard rate ends before it begins or has no rate, the first with Item_id 5 "
       "(StandardRate1.DateFrom, DateTo, Rate)."},
      {"UPDATE GodownItem1 SET IsOpeningBal = 2 WHERE GodownItem_id = 41",
       "error 1 flag is neither 0 nor 1 nor -1 in GodownItem1.IsOpeningBal, the first with "
       "GodownItem_id 41."},
      {"UPDATE Items1 SET Deleted = 'false'",
       "error 1 flag is neither 0 nor 1 nor -1 in Items1.Deleted, the first with Item_id 5."},
      {"UPDATE DesrDetails1 SET DesrDetDate = '01/04/2003'",
       "error 2 values are no ISO dates in DesrDetails1.DesrDetDate, the first with DesrDetails_id "
       "30."},
      {"INSERT INTO Terms1 (DesrTerms_id, PromisedDeliveryTime) VALUES (1, 38000.5)",
       "error 1 value is no ISO date in Terms1.PromisedDeliveryTime, the first with DesrTerms_id "
       "1."},
      {"UPDATE GodownItem1 SET YearNo = 1 WHERE GodownItem_id = 41;"
       "INSERT INTO GodownItem1 (GodownItem_id, Date, YearNo) VALUES (50, '2003-05-01', 1), "
       "(51, '2004-03-31', 1), (52, '2004-05-01', 2), (53, '2005-03-31', 2)",
       "warning 1 row of GodownItem1 has a date outside the year of YearNo, the first with "
       "GodownItem_id 41."},
      {"UPDATE Items1 SET Deleted = NULL",
       "error 1 item does not tell whether it is deleted and stays out of the reports, the first "
       "with Item_id 5 (Items1.Deleted)."},
      {"UPDATE Godown1 SET Deleted = NULL",
       "error 1 godown does not tell whether it is deleted and stays out of the stock statements, "
       "the first with Godown_id 1 (Godown1.Deleted)."},
      {"UPDATE GodownItem1 SET YearNo = NULL WHERE GodownItem_id = 41",
       "error 1 movement has no year and stays out of the reports, the first with GodownItem_id 41 "
       "(GodownItem1.YearNo)."},
      {"UPDATE DesrDetails1 SET Desr_id = 0 WHERE DesrDetails_id = 31",
       "error 1 document line has no document and stays out of the reports, the first with "
       "DesrDetails_id 31 (DesrDetails1.Desr_id)."},
      {"UPDATE ItemCategory1 SET RelatedTo = 3 WHERE ItemCategory_id = 2",
       "error The tree of ItemCategory1.RelatedTo runs in a loop (2, 3, 2): a report that is asked "
       "for one of "
       "these groups ends with an error."},
      {"UPDATE Godown1 SET RelatedTo = 9 WHERE Godown_id = 2",
       "warning 1 row of Godown1 names in RelatedTo what Godown1 does not have, the first with "
       "Godown_id 2."},
  };
  for (const Spoiled& one : kSpoiled) {
    std::filesystem::remove(file_);
    EXPECT_THAT(Found(std::string(kSound) + one.statements), Contains(one.finding))
        << one.statements;
  }
}

TEST_F(CheckBooks, NamesTheRowsThatNoReportReads) {
  std::string rows = kSound;
  for (int key = 50; key < 62; ++key) {
    rows +=
        "INSERT INTO GodownItem1 (GodownItem_id, Date, YearNo, Item_id, Godown_id, Qty, Rate, "
        "IsAdded, IsOpeningBal, Optional) VALUES (" +
        std::to_string(key) + ", '2003-04-01', 1, 5, 1, 2, 10, 1, 0, 0);";
  }
  CreateBooks(file_);
  EXPECT_THAT(books::CheckUnread(file_), IsEmpty());
  Database(file_).Execute(rows + "UPDATE Items1 SET Deleted = NULL");
  std::vector<std::string> found;
  for (const Finding& one : books::CheckUnread(file_)) found.push_back(one.sentence);
  EXPECT_THAT(found,
              ElementsAre("12 movements have no godown or no batch and stay out of the stock "
                          "statements: GodownItem_id 50, 51, 52, 53, 54, 55, 56, 57, 58, 59 and 2 "
                          "more (GodownItem1.Godown_id, Batch_id).",
                          "1 item does not tell whether it is deleted and stays out of the "
                          "reports: Item_id 5 (Items1.Deleted)."));
}

TEST_F(CheckBooks, FindsTheMonthInWhichYearsBegin) {
  // Calendar years: were April taken, a quarter of the rows would lie outside.
  std::string rows = kSound;
  for (int month = 1; month <= 12; ++month) {
    const std::string text = (month < 10 ? "0" : "") + std::to_string(month);
    const std::string key = std::to_string(100 + month);
    rows +=
        "INSERT INTO GodownItem1 (GodownItem_id, Date, YearNo, Item_id, Godown_id, Batch_id, "
        "Qty, Rate, IsAdded, IsOpeningBal, Optional) VALUES (" +
        key + ", '2003-" + text + "-15', 1, 5, 1, 8, 1, 1, 1, 0, 0), (" + key + " + 100, '2004-" +
        text + "-15', 2, 5, 1, 8, 1, 1, 1, 0, 0);";
  }
  EXPECT_THAT(Found(rows), IsEmpty());
}

TEST_F(CheckBooks, ZeroNamesNothing) {
  EXPECT_THAT(Found(std::string(kSound) +
                    "INSERT INTO Terms1 (DesrTerms_id, Desr_id, Hypo_id, Mechanic_id, Vehicle_id) "
                    "VALUES (1, 21, 0, 0, 0); UPDATE ItemCategory1 SET RelatedTo = 0 WHERE "
                    "ItemCategory_id = 1"),
              IsEmpty());
}

}  // namespace
}  // namespace pstolvane1::books
