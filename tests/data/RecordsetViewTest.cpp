#include <algorithm>
#include <random>
#include <string>
#include <tuple>

#include "tests/data/ExpectError.h"
#include "tests/data/MakeRowset.h"

namespace pstolvane1 {
namespace {

RecordsetPtr Items() {
  return MakeRowset({{"Id", adInteger}, {"Name", adBSTR}, {"Qty", adSingle}, {"Day", adDate}},
                    {{1, "nut", 5.0F, Date(2)},
                     {2, "Bolt", 5.0F, Date(-1.75)},
                     {3, Null, 1.0F, Date(-1.25)},
                     {4, "bolt", Null, Null},
                     {5, "Zange", -2.0F, Date(1)},
                     {6, "Ähle", 5.0F, Date(0.5)}});
}

void ExpectSorted(const char* columns, const char* ids) {
  const RecordsetPtr rowset = Items();
  rowset->Sort(columns);
  EXPECT_EQ(rowset->Sort(), columns);
  EXPECT_EQ(Shown(*rowset, "Id"), ids) << columns;
  EXPECT_EQ(Walked(*rowset, "Id"), ids) << columns;
}

TEST(Sort, PutsNullFirstIgnoresCaseAndIsStable) {
  ExpectSorted("Name", "3 2 4 1 5 6");
  ExpectSorted("Name DESC", "6 5 1 2 4 3");
  ExpectSorted("Qty", "4 5 3 1 2 6");
  ExpectSorted("Qty desc", "1 2 6 3 5 4");
}

TEST(Sort, TakesSeveralColumns) {
  ExpectSorted("Qty, Id DESC", "4 5 3 6 2 1");
  ExpectSorted(" [qty] DESC , name asc ", "2 1 6 3 5 4");
  ExpectSorted("Name, Qty", "3 4 2 1 5 6");
}

TEST(Sort, PutsDatesInTheOrderOfTimeAlsoBefore1900) { ExpectSorted("Day", "4 3 2 6 5 1"); }

TEST(Sort, WithAnEmptyTextIsTheRowsOwnOrder) {
  const RecordsetPtr rowset = Items();
  rowset->Sort("Id desc");
  rowset->Sort("");
  EXPECT_EQ(Shown(*rowset, "Id"), "1 2 3 4 5 6");
}

TEST(Sort, TellsLongTextsApartBehindTheirEqualBeginnings) {
  const RecordsetPtr rowset = MakeRowset({{"Name", adBSTR}}, {{"Hinterrad B"},
                                                              {"hinterrad a"},
                                                              {"Hinterrad"},
                                                              {"\u212A\u212A\u212Akkkkkkb"},
                                                              {"kkkkkkkkka"},
                                                              {"KKKKKKKK"}});
  rowset->Sort("Name");
  EXPECT_EQ(Shown(*rowset, "Name"),
            "Hinterrad hinterrad a Hinterrad B KKKKKKKK kkkkkkkkka \u212A\u212A\u212Akkkkkkb");
}

TEST(Sort, OfSeveralColumnsComparesThemOneAfterTheOther) {
  // A value and its place in the order.
  const std::vector<std::pair<Variant, int>> names = {
      {Null, 0}, {"", 1}, {"bolt", 2}, {"Hinterrad a", 3}, {"Hinterrad B", 4}, {"hinterrad b", 4}};
  const std::vector<std::pair<Variant, int>> numbers = {{Null, 0}, {-1, 1}, {0, 2}, {7, 3}};
  std::mt19937 random(5);
  const auto pick = [&](const auto& values) { return values[random() % values.size()]; };
  struct Line {
    int id, name, number;
  };
  std::vector<Line> lines;
  std::vector<std::vector<Variant>> rows;
  for (int id = 0; id < 300; ++id) {
    const auto [name, name_place] = pick(names);
    const auto [number, number_place] = pick(numbers);
    lines.push_back({id, name_place, number_place});
    rows.push_back({id, name, number});
  }
  const auto expect = [&](const char* columns, auto place_of) {
    std::vector<Line> sorted = lines;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&](const Line& a, const Line& b) { return place_of(a) < place_of(b); });
    std::string ids;
    for (const Line& line : sorted) ids += (ids.empty() ? "" : " ") + std::to_string(line.id);
    const RecordsetPtr rowset =
        MakeRowset({{"Id", adInteger}, {"Name", adBSTR}, {"Number", adInteger}}, rows);
    rowset->Sort(columns);
    EXPECT_EQ(Shown(*rowset, "Id"), ids) << columns;
  };
  expect("Name, Number", [](const Line& line) { return std::pair(line.name, line.number); });
  expect("Name DESC, Number", [](const Line& line) { return std::pair(-line.name, line.number); });
  expect("Number, Name DESC", [](const Line& line) { return std::pair(line.number, -line.name); });
  expect("Number DESC, Name, Id DESC",
         [](const Line& line) { return std::tuple(-line.number, line.name, -line.id); });
}

TEST(Sort, ThatCannotBeReadSaysWhereAndLeavesTheOldOne) {
  const RecordsetPtr rowset = Items();
  rowset->Sort("Id desc");
  const auto expect = [&](ErrorNumber number, const std::string& text, int position,
                          const std::string& problem) {
    ExpectError(number,
                "the sort order \"" + text + "\" cannot be read at position " +
                    std::to_string(position) + ": " + problem,
                [&] { rowset->Sort(text); });
    EXPECT_EQ(Shown(*rowset, "Id"), "6 5 4 3 2 1");
  };
  expect(ErrorNumber::kNoSuchColumn, "Item", 1, "there is no column \"Item\"");
  expect(ErrorNumber::kArgumentOutOfRange, "Id,", 4, "expected a column, found the end");
  expect(ErrorNumber::kArgumentOutOfRange, "Id up", 4,
         "expected ASC, DESC, a comma or the end, found \"up\"");
  expect(ErrorNumber::kArgumentOutOfRange, "Id desc desc", 9,
         "expected ASC, DESC, a comma or the end, found \"desc\"");
}

TEST(Sort, OfReportLinesKeepsClosingLinesLast) {
  const RecordsetPtr rowset =
      MakeRowset({{"Line", adBSTR}, {"ValueSort", adCurrency}, {"DummySort", adBigInt}},
                 {{"a", 5, 1}, {"b", 3, 1}, {"rule", Null, 2}, {"total", 8, 3}});
  rowset->Sort("DummySort, ValueSort");
  EXPECT_EQ(Shown(*rowset, "Line"), "b a rule total");
}

TEST(View, FilterAndSortWorkTogetherInEitherOrder) {
  const RecordsetPtr rowset = Items();
  rowset->Sort("Id desc");
  rowset->Filter("Qty = 5");
  EXPECT_EQ(Shown(*rowset, "Id"), "6 2 1");
  rowset->Sort("Name");
  EXPECT_EQ(Shown(*rowset, "Id"), "2 1 6");
  rowset->Filter("");
  EXPECT_EQ(Shown(*rowset, "Id"), "3 2 4 1 5 6");
}

// What comes, goes and changes while a filter is in force, with and without an index.
class ViewInForce : public testing::TestWithParam<bool> {
 protected:
  RecordsetPtr Open() {
    RecordsetPtr rowset = Items();
    if (GetParam()) rowset->Fields("Qty").Properties()("Optimize") = true;
    return rowset;
  }
};

TEST_P(ViewInForce, AddedRowIsShownWhereItMeetsTheFilter) {
  const RecordsetPtr rowset = Open();
  const RecordsetPtr clone = rowset->Clone();
  clone->Filter("Qty = 5");
  clone->MoveLast();
  rowset->AddNew();
  rowset->Collect("Id", 7);
  rowset->Collect("Qty", 5);
  rowset->Update();
  rowset->AddNew();
  rowset->Collect("Id", 8);
  rowset->Collect("Qty", 4);
  rowset->Update();
  EXPECT_EQ(Shown(*clone, "Id"), "1 2 6 7");
  EXPECT_EQ(clone->RecordCount(), 4);
  EXPECT_EQ(clone->Collect("Id"), Variant(6));
  clone->MoveNext();
  EXPECT_EQ(clone->Collect("Id"), Variant(7));
  rowset->Filter("Qty = 4");
  EXPECT_EQ(Shown(*rowset, "Id"), "8");
}

TEST_P(ViewInForce, DeletedRowIsGone) {
  const RecordsetPtr rowset = Open();
  const RecordsetPtr clone = rowset->Clone();
  clone->Filter("Qty = 5");
  clone->MoveNext();
  rowset->Bookmark(Bookmark{1});
  rowset->Delete();
  EXPECT_EQ(clone->RecordCount(), 2);
  EXPECT_EQ(Shown(*clone, "Id"), "1 6");
  clone->MoveNext();
  EXPECT_EQ(clone->Collect("Id"), Variant(6));
  clone->Filter("Qty = 5");
  EXPECT_EQ(Shown(*clone, "Id"), "1 6");
}

TEST_P(ViewInForce, EditedRowComesAndGoesAtItsUpdate) {
  const RecordsetPtr rowset = Open();
  const RecordsetPtr clone = rowset->Clone();
  clone->Filter("Qty = 5");
  rowset->MoveNext();  // 2
  rowset->Collect("Qty", 1);
  EXPECT_EQ(clone->RecordCount(), 3);
  rowset->Update();
  EXPECT_EQ(Shown(*clone, "Id"), "1 6");
  rowset->MoveNext();  // 3
  rowset->Collect("Qty", 5);
  rowset->MoveNext();
  EXPECT_EQ(Shown(*clone, "Id"), "1 3 6");
  clone->Filter("Qty = 1");
  EXPECT_EQ(Shown(*clone, "Id"), "2");
}

TEST_P(ViewInForce, RowThatItsOwnEditTakesOutStaysCurrentUntilTheNextMove) {
  const RecordsetPtr rowset = Open();
  rowset->Filter("Qty = 5");
  rowset->MoveNext();
  rowset->Collect("Qty", 1);
  rowset->Update();
  EXPECT_EQ(rowset->Collect("Id"), Variant(2));
  EXPECT_EQ(rowset->RecordCount(), 2);
  rowset->MoveNext();
  EXPECT_EQ(rowset->Collect("Id"), Variant(6));
  rowset->MovePrevious();
  EXPECT_EQ(rowset->Collect("Id"), Variant(1));
}

TEST_P(ViewInForce, WalkThatEditsTheFilteredColumnSkipsNoRow) {
  const RecordsetPtr rowset = Open();
  rowset->Filter("Qty = 5");
  std::string walked;
  for (; !rowset->Eof(); rowset->MoveNext()) {
    walked += rowset->Collect("Id").ToText();
    rowset->Collect("Qty", 0);
  }
  EXPECT_EQ(walked, "126");
  EXPECT_EQ(rowset->RecordCount(), 0);
  rowset->Filter("Qty = 0");
  EXPECT_EQ(Shown(*rowset, "Id"), "1 2 6");
}

TEST_P(ViewInForce, AddedRowThatDoesNotMeetTheFilterIsCurrentUntilTheNextMove) {
  const RecordsetPtr rowset = Open();
  rowset->Filter("Qty = 5");
  rowset->AddNew();
  rowset->Collect("Id", 9);
  rowset->Update();
  EXPECT_EQ(rowset->Collect("Id"), Variant(9));
  EXPECT_EQ(rowset->RecordCount(), 3);
  rowset->MoveNext();
  EXPECT_TRUE(rowset->Eof());
}

TEST_P(ViewInForce, FilterSeesAWriteThatIsNotUpdatedYet) {
  const RecordsetPtr rowset = Open();
  const RecordsetPtr clone = rowset->Clone();
  clone->Filter("Qty = 5");  // the index is there
  clone->Filter("");
  rowset->Collect("Qty", 77);
  clone->Filter("Qty = 77");
  EXPECT_EQ(Shown(*clone, "Id"), "1");
  clone->Filter("Qty = 5");
  EXPECT_EQ(Shown(*clone, "Id"), "2 6");
  rowset->Update();
  EXPECT_EQ(Shown(*clone, "Id"), "2 6");
}

INSTANTIATE_TEST_SUITE_P(View, ViewInForce, testing::Bool(),
                         [](const auto& param) { return param.param ? "Optimized" : "Plain"; });

TEST(View, SortedRowsMoveWhenTheirValuesDo) {
  const RecordsetPtr rowset = Items();
  const RecordsetPtr clone = rowset->Clone();
  clone->Sort("Id");
  clone->MoveNext();  // 2
  rowset->Collect("Id", 10);
  rowset->Update();
  EXPECT_EQ(Shown(*clone, "Id"), "2 3 4 5 6 10");
  EXPECT_EQ(clone->Collect("Id"), Variant(2));
  rowset->AddNew();
  rowset->Collect("Id", 0);
  rowset->Update();
  EXPECT_EQ(Shown(*clone, "Id"), "0 2 3 4 5 6 10");
  EXPECT_EQ(clone->Collect("Id"), Variant(2));
  clone->MovePrevious();
  EXPECT_EQ(clone->Collect("Id"), Variant(0));
  clone->Collect("Id", 4);
  clone->Update();
  EXPECT_EQ(Shown(*clone, "Id"), "2 3 4 4 5 6 10");
  clone->MoveNext();
  EXPECT_EQ(clone->Collect("Id"), Variant(5));
}

TEST(View, WriteToAnotherColumnLeavesTheOrder) {
  const RecordsetPtr rowset = Items();
  rowset->Sort("Name");
  rowset->Filter("Name <> Null");
  rowset->Collect("Qty", 100);
  rowset->Update();
  EXPECT_EQ(Shown(*rowset, "Id"), "2 4 1 5 6");
}

TEST(View, FilterCostsNoMemoryThatStays) {
  const RecordsetPtr rowset = Items();
  const std::size_t before = rowset->MemoryUsed();
  rowset->Filter("Qty = 5");
  rowset->Filter("");
  EXPECT_EQ(rowset->MemoryUsed(), before);
}

}  // namespace
}  // namespace pstolvane1
