// What a user may get wrong, or find wrong.
#include <fstream>

#include "HostProgram.h"

namespace pstolvane1::host::test {
namespace {

class BadInput : public SampleHost {
 protected:
  static Finished Lines(const std::string& books, const std::string& condition = "") {
    return Stolvane({"run", "POrderTextQuery", "--books", books, "strFilter=" + condition});
  }
  static void ExpectConnectionError(const std::string& books, const std::string& reason) {
    const Finished finished = Lines(books);
    EXPECT_EQ(finished.status, 1);
    EXPECT_EQ(finished.out, "");
    EXPECT_EQ(finished.err, "stolvane: error 501: Unable to Connect to Database: " + reason + "\n");
  }
};

TEST_F(BadInput, BooksThatAreNotThereOrNone) {
  ExpectConnectionError(folder.File("none.db"), "The books \"" + folder.File("none.db") +
                                                    "\" cannot be opened: there is no such file.");
  ExpectConnectionError(folder.Path(),
                        "The books \"" + folder.Path() + "\" cannot be opened: it is a folder.");
  folder.Write("text.db", "These are no books, but a text that is long enough to be looked at.");
  ExpectConnectionError(folder.File("text.db"),
                        "The books \"" + folder.File("text.db") +
                            "\" cannot be opened: the file is not an SQLite database, or it is "
                            "encrypted.");
  books::test::Database(folder.File("other.db")).Execute("create table thing (id integer)");
  ExpectConnectionError(folder.File("other.db"),
                        "The database \"" + folder.File("other.db") +
                            "\" holds no books: it has none of the tables Items1, Desr1, "
                            "GodownItem1, LedgerNames1 and Voucher1.");
  ExpectConnectionError("Driver={Any};Server=books",
                        "The connection string names ODBC, which this build of the library does "
                        "not have.");
}

TEST_F(BadInput, ACommandThatDoesNotExistIsNamed) {
  EXPECT_EQ(Stolvane({"bogus"}).err,
            "stolvane: there is no command \"bogus\"; \"stolvane --help\" lists them\n");
  const Finished books = Stolvane({"books", "destroy", "books.db"});
  EXPECT_EQ(books.err,
            "stolvane: there is no command \"destroy\"; \"stolvane books --help\" lists them\n");
  EXPECT_EQ(books.status, 2);
  EXPECT_EQ(Stolvane({}).err, Stolvane({"--help"}).out);
}

TEST_F(BadInput, WhatTheParserMissesIsToldAsEveryOtherError) {
  const auto told = [](const Words& words) {
    const Finished finished = Stolvane(words);
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.out, "");
    return finished.err;
  };
  EXPECT_EQ(told({"books", "sample"}),
            "stolvane: FILE is required; \"stolvane books sample --help\" lists what it takes\n");
  EXPECT_EQ(told({"stock", "--nothing"}),
            "stolvane: BOOKS is required; \"stolvane stock --help\" lists what it takes\n");
  EXPECT_EQ(told({"books"}),
            "stolvane: a command is missing; \"stolvane books --help\" lists them\n");
}

TEST_F(BadInput, CorruptBooksGiveAnErrorAndNoReport) {
  std::string bytes = books::test::Content(Books());
  for (std::size_t at = 4096; at < bytes.size(); ++at) bytes[at] = '\x5A';
  folder.Write("corrupt.db", bytes);
  const Finished finished = Lines(folder.File("corrupt.db"));
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(finished.out, "");
  EXPECT_TRUE(finished.err.starts_with("stolvane: error ")) << finished.err;
}

TEST_F(BadInput, AConditionThatIsWrongOrWritesIsRefusedWithItsPlace) {
  const std::string before = books::test::Content(Books());
  for (const std::string condition :
       {"where Desr1.Desr_id = 1", "Desr1.Nothing = 1", "Desr1.Desr_id = 'x' +",
        "1 = 1; delete from Desr1", "1 = 1) delete from Desr1 --", "Desr1.Desr_id in (delete 1)"}) {
    const Finished finished = Lines(Books(), condition);
    EXPECT_EQ(finished.status, 1) << condition;
    EXPECT_TRUE(finished.err.starts_with("stolvane: error -2147217900: line 1, column "))
        << finished.err;
    EXPECT_NE(finished.err.find(": near ..."), std::string::npos) << finished.err;
  }
  EXPECT_EQ(books::test::Content(Books()), before);
}

TEST_F(BadInput, DivisionByZeroHasItsNumberOnBothPaths) {
  for (const char* const path : {"--async", "--format=table"}) {
    const Finished finished = Stolvane(
        {"run", "Doc_Initial", path, "--books", Books(), "bytYearno=2", "lngVouchertype_id=10",
         "dtFromDate=2004-04-01", "dtToDate=2005-03-31", "gScale=0"});
    EXPECT_EQ(finished.status, 1);
    EXPECT_EQ(finished.out, "");
    EXPECT_TRUE(finished.err.starts_with("stolvane: error 11: ")) << finished.err;
  }
}

TEST_F(BadInput, AZeroScaleOfAStockStatementIsADivisionByZero) {
  const Finished finished = Stolvane(
      {"run", "StockDetails_Itemwise", "--books", Books(), "bytYearno=2", "dtFromDate=2004-04-01",
       "dtToDate=2005-03-31", "ValuationMethod=FifoRate", "lngAny_Id1=-1", "lngAny_Id2=0",
       "blnDetailed=false", "blnAltUom=false", "sngScale=0", "blnOnlyItems=false",
       "blnShowOpening=true", "blnShowInwards=true", "blnShowOutwards=true"});
  EXPECT_EQ(finished.status, 1);
  EXPECT_TRUE(finished.err.starts_with("stolvane: error 11: ")) << finished.err;
}

}  // namespace
}  // namespace pstolvane1::host::test
