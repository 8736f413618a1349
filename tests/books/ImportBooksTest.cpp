#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/books/BooksFile.h"
#include "session/books/ImportBooks.h"
#include "session/books/SampleBooks.h"
#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "tests/books/BooksOnDisk.h"

namespace pstolvane1::books {
namespace {

using test::Content;
using test::Database;
using test::Folder;
using testing::ElementsAre;
using testing::IsEmpty;

class ImportBooks : public testing::Test {
 protected:
  // The rows of the query after an import of the files written so far.
  std::vector<std::string> Imported(const std::string& select) {
    books::ImportBooks(books_, from_.Path());
    return Database(books_).Rows(select);
  }
  // What an import is refused with, the folder's name cut off; nothing may be left behind.
  std::string Refusal(ErrorNumber number = ErrorNumber::kTypeMismatch) {
    std::string description = "no error";
    try {
      books::ImportBooks(books_, from_.Path());
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), number);
      description = error.Description();
    }
    EXPECT_THAT(to_.Names(), IsEmpty());
    const std::string folder = from_.Path() + "/";
    if (description.starts_with(folder)) description.erase(0, folder.size());
    return description;
  }
  // The refusal of one file.
  std::string RefusalOf(const std::string& name, const std::string& text) {
    from_.Write(name, text);
    return Refusal();
  }

  Folder from_, to_;
  std::string books_ = to_.File("new.db");
};

TEST_F(ImportBooks, ReadsEveryKindOfColumn) {
  from_.Write("Godown1.csv", "Godown_id,GodownName,RelatedTo,Deleted\n1,Main Store,1,false\n");
  from_.Write("BillByBillDetails1.csv",
              "BillByBillDetails_id,Date,AmountDr,AmountCr,RefType,OptionalDetails,ReceiptNo\n"
              "-2147483648,2004-02-29,12345.6789,-0.05,\"\",TRUE,12\n"
              "2147483647,,,,,-1,\n");
  from_.Write("Terms1.csv",
              "DesrTerms_id,PromisedDeliveryTime,DateOfSale\n"
              "1,2004-03-31T14:05:09,2004-03-31\n2,2004-03-31,\n");
  from_.Write("Items1.csv", "Item_id,RelationFormula,MaintainBatches\n7,2.5,0\n8,-3,1\n");
  EXPECT_THAT(Imported("SELECT * FROM BillByBillDetails1"),
              ElementsAre("-2147483648|(null)|(null)|(null)|2004-02-29|12345.6789|-0.05||1|12",
                          "2147483647|(null)|(null)|(null)|(null)|(null)|(null)|(null)|1|(null)"));
  Database books(books_);
  EXPECT_THAT(books.Rows("SELECT DesrTerms_id, PromisedDeliveryTime, DateOfSale FROM Terms1"),
              ElementsAre("1|2004-03-31 14:05:09|2004-03-31", "2|2004-03-31|(null)"));
  EXPECT_THAT(books.Rows("SELECT Item_id, RelationFormula, MaintainBatches FROM Items1"),
              ElementsAre("7|2.5|0", "8|-3.0|1"));
  EXPECT_THAT(books.Rows("SELECT GodownName, ShortName, typeof(Deleted) FROM Godown1"),
              ElementsAre("Main Store|(null)|integer"));
}

TEST_F(ImportBooks, TakesHeadersInAnyOrderAndCase) {
  from_.Write("uom1.csv", "UOMNAME,uom_ID\nNos,1\n");
  EXPECT_THAT(Imported("SELECT Uom_id, UomName FROM Uom1"), ElementsAre("1|Nos"));
}

TEST_F(ImportBooks, TellsTheTablesAndTheirRows) {
  from_.Write("Color1.csv", "Color_id,Color\n1,Red\n2,Blue\n");
  from_.Write("Uom1.csv", "Uom_id\n");
  from_.Write("notes.txt", "not for the books");
  const auto imported = books::ImportBooks(books_, from_.Path());
  ASSERT_EQ(imported.size(), 2U);
  EXPECT_EQ(imported[0].table, "Uom1");
  EXPECT_EQ(imported[0].rows, 0);
  EXPECT_EQ(imported[1].table, "Color1");
  EXPECT_EQ(imported[1].rows, 2);
}

TEST_F(ImportBooks, MakesNewBooksWithAllIndexes) {
  from_.Write("Uom1.csv", "Uom_id,UomName\n1,Nos\n");
  Database expected(":memory:");
  expected.Execute(SqliteSchema());
  const std::string list = "SELECT name FROM sqlite_master ORDER BY name";
  EXPECT_EQ(Imported(list), expected.Rows(list));
}

TEST_F(ImportBooks, AddsToBooksThatExist) {
  CreateBooks(books_);
  Database(books_).Execute("INSERT INTO Uom1 VALUES (1, 'Nos')");
  from_.Write("Uom1.csv", "Uom_id,UomName\n2,Set\n");
  EXPECT_THAT(Imported("SELECT UomName FROM Uom1 ORDER BY Uom_id"), ElementsAre("Nos", "Set"));
}

TEST_F(ImportBooks, LeavesExistingBooksAsTheyWereOnAnError) {
  CreateBooks(books_);
  Database(books_).Execute("INSERT INTO Uom1 VALUES (2, 'Nos')");
  const std::string before = Content(books_);
  from_.Write("Uom1.csv", "Uom_id,UomName\n1,Set\n2,Kit\n");
  try {
    books::ImportBooks(books_, from_.Path());
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(),
              from_.File("Uom1.csv") + ":3:1: a row with the key 2 is there already");
  }
  EXPECT_TRUE(Content(books_) == before);
  EXPECT_THAT(to_.Names(), ElementsAre("new.db"));
}

TEST_F(ImportBooks, RefusesBooksThatAreNone) {
  to_.Write("new.db", "this is no database, but a text that is long enough to be looked at");
  from_.Write("Uom1.csv", "Uom_id\n1\n");
  try {
    books::ImportBooks(books_, from_.Path());
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kConnection);
    EXPECT_EQ(error.Description(),
              "cannot write the books \"" + books_ + "\": file is not a database");
  }
}

TEST_F(ImportBooks, RefusesAFolderWithoutFiles) {
  EXPECT_EQ(Refusal(ErrorNumber::kConnection),
            "the folder \"" + from_.Path() + "\" has no files named TABLE.csv");
}

TEST_F(ImportBooks, RefusesAFolderThatIsNotThere) {
  try {
    books::ImportBooks(books_, "/nowhere/at/all");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kConnection);
    EXPECT_EQ(error.Description(),
              "cannot read the folder \"/nowhere/at/all\": No such file or directory");
  }
}

TEST_F(ImportBooks, RefusesAnUnknownTable) {
  EXPECT_EQ(RefusalOf("Items.csv", "Item_id\n1\n"),
            "Items.csv:1:1: the books have no table \"Items\"");
}

TEST_F(ImportBooks, RefusesTwoFilesForOneTable) {
  from_.Write("Uom1.csv", "Uom_id\n1\n");
  EXPECT_EQ(RefusalOf("uom1.csv", "Uom_id\n2\n"),
            "uom1.csv:1:1: the table has a file already, \"Uom1.csv\"");
}

TEST_F(ImportBooks, RefusesAFileWithoutAHeader) {
  EXPECT_EQ(RefusalOf("Uom1.csv", "\n\n"), "Uom1.csv:1:1: the file has no header");
}

TEST_F(ImportBooks, RefusesAnUnknownColumnWhereItStands) {
  EXPECT_EQ(RefusalOf("Uom1.csv", "Uom_id,Name\n1,Nos\n"),
            "Uom1.csv:1:8: the table Uom1 has no column \"Name\"");
}

TEST_F(ImportBooks, RefusesAColumnNamedTwice) {
  EXPECT_EQ(RefusalOf("Uom1.csv", "Uom_id,UomName,uomname\n"),
            "Uom1.csv:1:16: the column \"uomname\" is named twice");
}

TEST_F(ImportBooks, RefusesAHeaderWithoutTheKey) {
  EXPECT_EQ(RefusalOf("ItemDetailsAsLedger.csv", "Item_id\n1\n"),
            "ItemDetailsAsLedger.csv:1:1: the key column \"YearNo\" is missing");
}

TEST_F(ImportBooks, RefusesAnEmptyKey) {
  EXPECT_EQ(RefusalOf("Uom1.csv", "UomName,Uom_id\nNos,\n"),
            "Uom1.csv:2:5: Uom_id: a key may not be empty");
}

TEST_F(ImportBooks, RefusesADoubledKey) {
  EXPECT_EQ(RefusalOf("ItemDetailsAsLedger.csv", "YearNo,Item_id\n1,5\n2,5\n1,5\n"),
            "ItemDetailsAsLedger.csv:4:1: a row with the key 1, 5 is there already");
}

TEST_F(ImportBooks, RefusesRowsOfTheWrongLength) {
  EXPECT_EQ(RefusalOf("Uom1.csv", "Uom_id,UomName\n1\n"),
            "Uom1.csv:2:1: the row has 1 fields and the header 2");
  EXPECT_EQ(RefusalOf("Uom1.csv", "Uom_id,UomName\n1,Nos,x\n"),
            "Uom1.csv:2:7: the row has 3 fields and the header 2");
}

struct BadField {
  const char* column;
  const char* text;
  const char* reason;
};

TEST_F(ImportBooks, RefusesFieldsThatDoNotFitTheirColumn) {
  constexpr BadField kBad[] = {
      {"YearNo", "1.5", "\"1.5\" is not a whole number of 32 bits"},
      {"YearNo", "2147483648", "\"2147483648\" is not a whole number of 32 bits"},
      {"YearNo", " 1", "\" 1\" is not a whole number of 32 bits"},
      {"Optional", "yes", "\"yes\" is not a flag: true, false, 1, 0 or -1"},
      {"Optional", "2", "\"2\" is not a flag: true, false, 1, 0 or -1"},
      {"AltQty", "1e3", "\"1e3\" is not a number"},
      {"AltQty", "inf", "\"inf\" is not a number"},
      {"AltQty", "1,5", "the row has 3 fields and the header 2"},
      {"Price", "0.12345", "\"0.12345\" is not an amount of at most four decimals"},
      {"Price", "1000000000000000",
       "\"1000000000000000\" is not an amount of at most four decimals"},
      {"DesrDetDate", "2003-02-29", "\"2003-02-29\" is not an ISO date, as 2004-03-31"},
      {"DesrDetDate", "31/03/2004", "\"31/03/2004\" is not an ISO date, as 2004-03-31"},
      {"DesrDetDate", "2004-03-31 10:00:00",
       "\"2004-03-31 10:00:00\" is not an ISO date, as 2004-03-31"},
      {"ClaimNo", "123456789012345678901", "the text has 21 characters and the column takes 20"},
  };
  for (const BadField& bad : kBad) {
    const std::string refusal = RefusalOf(
        "DesrDetails1.csv", std::string("DesrDetails_id,") + bad.column + "\n1," + bad.text + "\n");
    const bool of_field = !std::string_view(bad.reason).starts_with("the row");
    EXPECT_EQ(refusal, of_field
                           ? "DesrDetails1.csv:2:3: " + std::string(bad.column) + ": " + bad.reason
                           : "DesrDetails1.csv:2:5: " + std::string(bad.reason));
  }
}

TEST_F(ImportBooks, MeasuresTextInCharacters) {
  const std::string twenty = [] {
    std::string text;
    for (int i = 0; i < 20; ++i) text += "\xE0\xA4\x95";
    return text;
  }();
  from_.Write("DesrDetails1.csv", "DesrDetails_id,ClaimNo\n1," + twenty + "\n");
  EXPECT_THAT(Imported("SELECT length(ClaimNo) FROM DesrDetails1"), ElementsAre("20"));
}

TEST_F(ImportBooks, RefusesABadTimeOfDay) {
  EXPECT_EQ(
      RefusalOf("Terms1.csv", "DesrTerms_id,PromisedDeliveryTime\n1,2004-03-31 25:00:00\n"),
      "Terms1.csv:2:3: PromisedDeliveryTime: \"2004-03-31 25:00:00\" is not an ISO date, with "
      "or without a time");
}

TEST_F(ImportBooks, TellsThePlaceOfBadQuotingInTheFile) {
  EXPECT_EQ(RefusalOf("Uom1.csv", "Uom_id,UomName\r\n1,\"Nos\"x\r\n"),
            "Uom1.csv:2:8: only a comma or the end of the line may follow a closing quote");
}

// Every table of the sample, written out and read back, is the same row by row.
TEST_F(ImportBooks, ReadsBackWhatWasWrittenOut) {
  const Folder sample;
  SampleBooks(sample.File("a.db"));
  Database original(sample.File("a.db"));
  for (const Table& table : Tables()) {
    std::string header, values;
    for (const Column& column : table.columns) {
      const std::string name(column.name);
      header += (header.empty() ? "" : ",") + name;
      values += values.empty() ? "" : " || ',' || ";
      values += column.kind == ColumnKind::kText
                    ? "coalesce('\"' || replace(" + name + ", '\"', '\"\"') || '\"', '')"
                : column.kind == ColumnKind::kMoney ? "coalesce(printf('%.4f', " + name + "), '')"
                                                    : "coalesce(" + name + ", '')";
    }
    std::string text = header + "\n";
    for (const auto& row : original.Rows("SELECT " + values + " FROM " + std::string(table.name))) {
      text += row + "\n";
    }
    from_.Write(std::string(table.name) + ".csv", text);
  }
  books::ImportBooks(books_, from_.Path());
  Database copy(books_);
  for (const Table& table : Tables()) {
    const std::string all = "SELECT * FROM " + std::string(table.name);
    EXPECT_TRUE(copy.Rows(all) == original.Rows(all)) << table.name;
  }
}

}  // namespace
}  // namespace pstolvane1::books
