// stolvane books: create, sample, import, check.
#include "HostProgram.h"

namespace pstolvane1::host::test {
namespace {

class BooksCommands : public SampleHost {
 protected:
  [[nodiscard]] std::string File() const { return folder.File("books.db"); }
};

TEST_F(BooksCommands, CreateMakesEmptyBooksThatGiveEmptyReports) {
  EXPECT_EQ(Stolvane({"books", "create", File()}).out, "Empty books: " + File() + "\n");
  const Finished report =
      Stolvane({"run", "Doc_Initial", "--books", File(), "bytYearno=1", "lngVouchertype_id=10",
                "dtFromDate=2004-04-01", "dtToDate=2005-03-31"});
  EXPECT_EQ(report.status, 0) << report.err;
  EXPECT_NE(report.out.find("Total"), std::string::npos);
  const Finished again = Stolvane({"books", "create", File()});
  EXPECT_EQ(again.status, 1);
  EXPECT_TRUE(again.err.starts_with("stolvane: error 501: ")) << again.err;
}

TEST_F(BooksCommands, SampleGivesTheSameBytesForTheSameArguments) {
  const std::string one = folder.File("one.db"), two = folder.File("two.db"),
                    other = folder.File("other.db");
  EXPECT_EQ(Stolvane({"books", "sample", one, "--movements", "3000", "--seed", "4"}).status, 0);
  EXPECT_EQ(Stolvane({"books", "sample", two, "--movements", "3000", "--seed", "4"}).status, 0);
  EXPECT_EQ(Stolvane({"books", "sample", other, "--movements", "3000", "--seed", "5"}).status, 0);
  EXPECT_EQ(books::test::Content(one), books::test::Content(two));
  EXPECT_NE(books::test::Content(one), books::test::Content(other));
  EXPECT_EQ(books::test::Database(one).Whole("select count(*) from godownitem1"), 3000);
  EXPECT_EQ(Stolvane({"books", "sample", folder.File("few.db"), "--movements", "10"}).status, 2);
}

TEST_F(BooksCommands, ImportIsAllOrNothing) {
  folder.Write("Uom1.csv", "Uom_id,UomName\n1,Nos\nx,Kg\n");
  const Finished bad = Stolvane({"books", "import", File(), folder.Path()});
  EXPECT_EQ(bad.status, 1);
  EXPECT_EQ(bad.err, "stolvane: error 13: " + folder.File("Uom1.csv") +
                         ":3:1: Uom_id: \"x\" is not a whole number of 32 bits\n");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"Uom1.csv"});
  folder.Write("Uom1.csv", "Uom_id,UomName\n1,Nos\n2,Kg\n");
  const Finished good = Stolvane({"books", "import", File(), folder.Path()});
  EXPECT_EQ(good.status, 0) << good.err;
  EXPECT_EQ(good.out, "Uom1                             2 rows\n");
}

TEST_F(BooksCommands, ImportNamesWhatNoReportWillRead) {
  folder.Write("Items1.csv",
               "Item_id,ItemName,Uom_id,AlternateUom_id,RelationFormula,Deleted\n"
               "5,Bolt,1,1,1,0\n6,Nut,1,1,1,\n");
  folder.Write(
      "GodownItem1.csv",
      "GodownItem_id,Date,YearNo,Item_id,Godown_id,Qty,Rate,IsAdded,IsOpeningBal,Optional\n"
      "40,2003-04-01,1,5,1,2,10,1,0,0\n");
  const Finished done = Stolvane({"books", "import", File(), folder.Path()});
  EXPECT_EQ(done.status, 0);
  EXPECT_EQ(done.out,
            "Items1                           2 rows\n"
            "GodownItem1                      1 rows\n");
  EXPECT_EQ(done.err,
            "stolvane: warning: 1 movement has no godown or no batch and stays out of the stock "
            "statements: GodownItem_id 40 (GodownItem1.Godown_id, Batch_id).\n"
            "stolvane: warning: 1 item does not tell whether it is deleted and stays out of the "
            "reports: Item_id 6 (Items1.Deleted).\n");
}

TEST_F(BooksCommands, CheckTellsWhatIsMissing) {
  const Finished fine = Stolvane({"books", "check", Books()});
  EXPECT_EQ(fine.status, 0);
  EXPECT_EQ(fine.out, "Nothing is missing or odd.\n");
  EXPECT_EQ(Stolvane({"books", "create", File()}).status, 0);
  books::test::Database(File()).Execute("alter table Desr1 drop column Narration");
  const Finished broken = Stolvane({"books", "check", File()});
  EXPECT_EQ(broken.status, 1);
  EXPECT_TRUE(broken.out.starts_with("error: ")) << broken.out;
  EXPECT_NE(broken.out.find("Narration"), std::string::npos);
}

// Aliases and conditions of hosts may use what the reference schema does not have.
TEST_F(BooksCommands, CopyNamesWhatItHasNoPlaceFor) {
  folder.Write("books.db", books::test::Content(Books()));
  const std::string to = folder.File("to.db");
  {
    books::test::Database books(File());
    books.Execute("alter table Items1 add column Shelf text");
    books.Execute("create table Notes (Note_id integer)");
  }
  const Finished refused = Stolvane({"books", "copy", File(), to});
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.err,
            "stolvane: error 3001: nothing is copied: the reference schema has no place for "
            "Items1.Shelf, Notes; say leave-out to copy the rest\n");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"books.db"});
  const Finished copied = Stolvane({"books", "copy", File(), to, "--leave-out"});
  EXPECT_EQ(copied.status, 0) << copied.err;
  EXPECT_TRUE(copied.out.ends_with("left out: Items1.Shelf\nleft out: Notes\n")) << copied.out;
  EXPECT_EQ(books::test::Database(to).Whole("select count(*) from GodownItem1"), 2000);
}

TEST_F(BooksCommands, CopyTellsTheRowWithATextInPlaceOfANumber) {
  folder.Write("books.db", books::test::Content(Books()));
  books::test::Database(File()).Execute("update Items1 set Uom_id = 'abc' where Item_id = 3");
  const Finished copied = Stolvane({"books", "copy", File(), folder.File("to.db")});
  EXPECT_EQ(copied.status, 1);
  EXPECT_NE(copied.err.find("copying Items1 (Item_id 3: Uom_id)"), std::string::npos) << copied.err;
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"books.db"});
}

}  // namespace
}  // namespace pstolvane1::host::test
