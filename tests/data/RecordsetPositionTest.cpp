#include "tests/data/ExpectError.h"
#include "tests/data/MakeRowset.h"

namespace pstolvane1 {
namespace {

RecordsetPtr Numbers(int count) {
  std::vector<std::vector<Variant>> rows;
  for (int i = 1; i <= count; ++i) rows.push_back({i});
  return MakeRowset({{"N", adInteger}}, rows);
}

int N(const RecordsetPtr& rowset) { return rowset->Int32(ColumnHandle{0}); }

constexpr auto kNoCurrentRow = ErrorNumber::kNoCurrentRecord;

TEST(RecordsetPosition, EmptyRowsetIsAtBothEnds) {
  const RecordsetPtr rowset = Numbers(0);
  EXPECT_TRUE(rowset->Bof());
  EXPECT_TRUE(rowset->Eof());
  EXPECT_EQ(rowset->RecordCount(), 0);
  rowset->MoveFirst();
  rowset->MoveLast();
  EXPECT_TRUE(rowset->Bof() && rowset->Eof());
  const std::string text = "there is no current row: the rowset has no rows";
  ExpectError(kNoCurrentRow, text, [&] { rowset->MoveNext(); });
  ExpectError(kNoCurrentRow, text, [&] { rowset->MovePrevious(); });
  ExpectError(kNoCurrentRow, text, [&] { (void)rowset->Collect("N"); });
  ExpectError(kNoCurrentRow, text, [&] { (void)rowset->Bookmark(); });
  ExpectError(kNoCurrentRow, text, [&] { rowset->Delete(); });
  ExpectError(kNoCurrentRow, text, [&] { rowset->Update(); });
}

TEST(RecordsetPosition, MovesFromEndToEnd) {
  const RecordsetPtr rowset = Numbers(2);
  EXPECT_EQ(N(rowset), 1);
  rowset->MoveNext();
  EXPECT_EQ(N(rowset), 2);
  EXPECT_FALSE(rowset->Eof());
  rowset->MoveNext();
  EXPECT_TRUE(rowset->Eof());
  EXPECT_FALSE(rowset->Bof());
  ExpectError(kNoCurrentRow, "there is no current row: the rowset is behind its last row",
              [&] { rowset->MoveNext(); });
  ExpectError(kNoCurrentRow, "there is no current row: the rowset is behind its last row",
              [&] { (void)rowset->Collect("N"); });
  rowset->MovePrevious();
  EXPECT_EQ(N(rowset), 2);
  rowset->MovePrevious();
  EXPECT_EQ(N(rowset), 1);
  rowset->MovePrevious();
  EXPECT_TRUE(rowset->Bof());
  EXPECT_FALSE(rowset->Eof());
  ExpectError(kNoCurrentRow, "there is no current row: the rowset is before its first row",
              [&] { rowset->MovePrevious(); });
  ExpectError(kNoCurrentRow, "there is no current row: the rowset is before its first row",
              [&] { (void)rowset->Collect("N"); });
  rowset->MoveNext();
  EXPECT_EQ(N(rowset), 1);
  rowset->MoveLast();
  EXPECT_EQ(N(rowset), 2);
  rowset->MoveFirst();
  EXPECT_EQ(N(rowset), 1);
}

TEST(RecordsetPosition, WalksOverMoreRowsThanAChunkHolds) {
  const RecordsetPtr rowset = Numbers(10000);
  int expected = 0;
  for (; !rowset->Eof(); rowset->MoveNext()) EXPECT_EQ(N(rowset), ++expected);
  EXPECT_EQ(expected, 10000);
  for (rowset->MoveLast(); !rowset->Bof(); rowset->MovePrevious()) EXPECT_EQ(N(rowset), expected--);
  EXPECT_EQ(expected, 0);
}

TEST(RecordsetPosition, BookmarkLeadsBackOnTheRowsetAndOnAClone) {
  const RecordsetPtr rowset = Numbers(5);
  rowset->MoveNext();
  const Bookmark second = rowset->Bookmark();
  rowset->MoveLast();
  rowset->Bookmark(second);
  EXPECT_EQ(N(rowset), 2);
  const RecordsetPtr clone = rowset->Clone();
  EXPECT_EQ(N(clone), 1);
  clone->Bookmark(second);
  EXPECT_EQ(N(clone), 2);
  clone->MoveNext();
  EXPECT_EQ(N(clone), 3);
  EXPECT_EQ(N(rowset), 2);
}

TEST(RecordsetPosition, BookmarkStaysValidWhileOtherRowsComeAndGo) {
  const RecordsetPtr rowset = Numbers(5);
  rowset->MoveLast();
  const Bookmark fifth = rowset->Bookmark();
  rowset->MoveFirst();
  rowset->Delete();
  rowset->MoveNext();
  rowset->Delete();
  rowset->AddNew();
  rowset->Collect("N", 6);
  rowset->Update();
  rowset->Bookmark(fifth);
  EXPECT_EQ(N(rowset), 5);
  EXPECT_EQ(Shown(*rowset, "N"), "3 4 5 6");
}

TEST(RecordsetPosition, BookmarkOfARowThatIsGoneIsAnError) {
  const RecordsetPtr rowset = Numbers(3);
  const Bookmark first = rowset->Bookmark();
  rowset->Delete();
  ExpectError(kNoCurrentRow, "the row of the bookmark is gone", [&] { rowset->Bookmark(first); });
  ExpectError(kNoCurrentRow, "the row of the bookmark is gone",
              [&] { rowset->Bookmark(Bookmark{99}); });
  rowset->MoveFirst();
  EXPECT_EQ(N(rowset), 2);
}

TEST(RecordsetPosition, BookmarkOfARowThatTheFilterHidesLeadsThereAndOnward) {
  const RecordsetPtr rowset = Numbers(6);
  rowset->Bookmark(Bookmark{2});
  const Bookmark third = rowset->Bookmark();
  rowset->Filter("N = 1 or N = 2 or N = 5");
  rowset->Bookmark(third);
  EXPECT_EQ(N(rowset), 3);
  EXPECT_EQ(rowset->RecordCount(), 3);
  rowset->MoveNext();
  EXPECT_EQ(N(rowset), 5);
  rowset->Bookmark(third);
  rowset->MovePrevious();
  EXPECT_EQ(N(rowset), 2);
}

TEST(RecordsetDelete, LeavesAGapFromWhichTheNextMoveGoesOn) {
  const RecordsetPtr rowset = Numbers(4);
  rowset->MoveNext();
  rowset->Delete();
  EXPECT_FALSE(rowset->Bof());
  EXPECT_FALSE(rowset->Eof());
  ExpectError(kNoCurrentRow, "there is no current row: the row was deleted",
              [&] { (void)rowset->Collect("N"); });
  ExpectError(kNoCurrentRow, "there is no current row: the row was deleted",
              [&] { rowset->Delete(); });
  EXPECT_EQ(rowset->RecordCount(), 3);
  rowset->MoveNext();
  EXPECT_EQ(N(rowset), 3);
  rowset->Delete();
  rowset->MovePrevious();
  EXPECT_EQ(N(rowset), 1);
}

TEST(RecordsetDelete, WalkThatDeletesEveryOtherRowSkipsNone) {
  const RecordsetPtr rowset = Numbers(7);
  for (; !rowset->Eof(); rowset->MoveNext()) {
    if (N(rowset) % 2 == 0) rowset->Delete();
  }
  EXPECT_EQ(Shown(*rowset, "N"), "1 3 5 7");
}

TEST(RecordsetDelete, OfTheLastRowThatIsLeftMakesItEmpty) {
  const RecordsetPtr rowset = Numbers(1);
  rowset->Delete();
  EXPECT_TRUE(rowset->Bof());
  EXPECT_TRUE(rowset->Eof());
  EXPECT_EQ(rowset->RecordCount(), 0);
}

TEST(RecordsetDelete, OfTheEndRowsMovesOverTheGapToTheEnd) {
  const RecordsetPtr rowset = Numbers(3);
  rowset->MoveLast();
  rowset->Delete();
  EXPECT_FALSE(rowset->Eof());
  rowset->MoveNext();
  EXPECT_TRUE(rowset->Eof());
  rowset->MoveFirst();
  rowset->Delete();
  rowset->MovePrevious();
  EXPECT_TRUE(rowset->Bof());
  EXPECT_EQ(Shown(*rowset, "N"), "2");
}

TEST(RecordsetAddNew, IsTheCurrentRowAtOnceAndVisibleAfterUpdate) {
  const RecordsetPtr rowset = Numbers(2);
  const RecordsetPtr clone = rowset->Clone();
  rowset->AddNew();
  rowset->Collect("N", 3);
  EXPECT_EQ(N(rowset), 3);
  EXPECT_EQ(rowset->RecordCount(), 2);
  EXPECT_EQ(clone->RecordCount(), 2);
  const Bookmark added = rowset->Bookmark();
  ExpectError(kNoCurrentRow, "the row of the bookmark is gone", [&] { clone->Bookmark(added); });
  rowset->Update();
  EXPECT_EQ(rowset->RecordCount(), 3);
  EXPECT_EQ(Walked(*clone, "N"), "1 2 3");
  rowset->MoveFirst();
  rowset->Bookmark(added);
  EXPECT_EQ(N(rowset), 3);
}

TEST(RecordsetAddNew, IsUpdatedByEveryMoveAndByTheNextAddNew) {
  const RecordsetPtr rowset = Numbers(0);
  rowset->AddNew();
  rowset->Collect("N", 1);
  rowset->AddNew();
  rowset->Collect("N", 2);
  EXPECT_EQ(rowset->RecordCount(), 1);
  rowset->MoveFirst();
  EXPECT_EQ(rowset->RecordCount(), 2);
  EXPECT_EQ(N(rowset), 1);
  rowset->AddNew();
  rowset->Filter("N > 0");
  EXPECT_EQ(rowset->RecordCount(), 2);
  rowset->Filter("");
  EXPECT_EQ(Shown(*rowset, "N"), "1 2 (null)");
  rowset->AddNew();
  EXPECT_EQ(rowset->Clone()->RecordCount(), 4);
}

TEST(RecordsetAddNew, IsTakenBackByDelete) {
  const RecordsetPtr rowset = Numbers(2);
  rowset->AddNew();
  rowset->Collect("N", 3);
  rowset->Delete();
  EXPECT_EQ(rowset->RecordCount(), 2);
  rowset->MovePrevious();
  EXPECT_EQ(N(rowset), 2);
  rowset->AddNew();
  rowset->Collect("N", 4);
  rowset->Delete();
  rowset->MoveNext();
  EXPECT_TRUE(rowset->Eof());
  EXPECT_EQ(Shown(*rowset, "N"), "1 2");
}

TEST(RecordsetAddNew, ThatIsNotUpdatedWhenTheRowsetIsClosedStaysForClones) {
  const RecordsetPtr rowset = Numbers(1);
  const RecordsetPtr clone = rowset->Clone();
  rowset->AddNew();
  rowset->Collect("N", 2);
  rowset->Close();
  EXPECT_EQ(Shown(*clone, "N"), "1 2");
}

TEST(RecordsetAddNew, OfTwoClonesAtOnceKeepsTheOrderOfTheirComing) {
  const RecordsetPtr rowset = Numbers(1);
  const RecordsetPtr clone = rowset->Clone();
  rowset->AddNew();
  rowset->Collect("N", 2);
  clone->AddNew();
  clone->Collect("N", 3);
  clone->Update();
  EXPECT_EQ(Shown(*clone, "N"), "1 3");
  rowset->Update();
  EXPECT_EQ(Shown(*clone, "N"), "1 2 3");
}

TEST(RecordsetClone, HasItsOwnPositionFilterAndOrder) {
  const RecordsetPtr rowset = Numbers(4);
  rowset->Filter("N >= 2");
  rowset->Sort("N desc");
  rowset->MoveNext();
  const RecordsetPtr clone = rowset->Clone(adLockUnspecified);
  EXPECT_EQ(Shown(*clone, "N"), "1 2 3 4");
  EXPECT_EQ(N(clone), 1);
  EXPECT_EQ(clone->Filter(), "");
  EXPECT_EQ(clone->Sort(), "");
  clone->Filter("N = 4");
  EXPECT_EQ(Shown(*rowset, "N"), "4 3 2");
  EXPECT_EQ(N(rowset), 3);
}

TEST(RecordsetClone, KeepsTheRowsWhenTheFirstRowsetIsClosed) {
  const RecordsetPtr rowset = Numbers(3);
  const RecordsetPtr clone = rowset->Clone();
  rowset->Close();
  EXPECT_EQ(Walked(*clone, "N"), "1 2 3");
  const RecordsetPtr again = clone->Clone();
  clone->Close();
  EXPECT_EQ(Shown(*again, "N"), "1 2 3");
}

TEST(RecordsetClone, SeesWhatAnotherWritesAtOnce) {
  const RecordsetPtr rowset = Numbers(2);
  const RecordsetPtr clone = rowset->Clone();
  rowset->Collect("N", 10);
  EXPECT_EQ(N(clone), 10);
  clone->Collect("N", 11);
  rowset->Update();
  EXPECT_EQ(N(rowset), 11);
}

TEST(RecordsetClone, OnARowThatAnotherDeletesStandsInTheGap) {
  const RecordsetPtr rowset = Numbers(3);
  const RecordsetPtr clone = rowset->Clone();
  rowset->MoveNext();
  clone->MoveNext();
  rowset->Delete();
  ExpectError(kNoCurrentRow, "there is no current row: the row was deleted",
              [&] { (void)clone->Collect("N"); });
  EXPECT_FALSE(clone->Eof());
  clone->MoveNext();
  EXPECT_EQ(N(clone), 3);
  EXPECT_EQ(clone->RecordCount(), 2);
}

TEST(RecordsetClone, WithAnEditOfARowThatAnotherDeletesLosesIt) {
  const RecordsetPtr rowset = Numbers(3);
  const RecordsetPtr clone = rowset->Clone();
  clone->Filter("N > 0");
  clone->Collect("N", 9);
  rowset->Delete();
  clone->MoveNext();
  EXPECT_EQ(N(clone), 2);
  EXPECT_EQ(Shown(*clone, "N"), "2 3");
}

TEST(RecordsetRows, RunOverTheVisibleRowsAndLeaveThePosition) {
  const RecordsetPtr rowset = Numbers(5);
  rowset->MoveNext();
  rowset->Clone()->Delete();  // the first
  rowset->Filter("N <> 4");
  rowset->Bookmark(Bookmark{1});
  int sum = 0;
  for (const Recordset::Row row : rowset->Rows()) sum += row.Int32(ColumnHandle{0});
  EXPECT_EQ(sum, 2 + 3 + 5);
  EXPECT_EQ(N(rowset), 2);
  const auto rows = rowset->Rows();
  auto at = rows.begin();
  EXPECT_EQ((*at++)["N"], Variant(2));
  EXPECT_EQ((*at)["n"], Variant(3));
  EXPECT_EQ((*at).Bookmark(), Bookmark{2});
}

}  // namespace
}  // namespace pstolvane1
