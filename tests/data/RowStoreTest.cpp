#include "session/data/RecordsetAccess.h"
#include "session/data/RowStore.h"
#include "tests/data/ExpectError.h"
#include "tests/data/MakeRowset.h"

namespace pstolvane1 {
namespace {

const std::vector<ColumnInfo> kColumns = {{"N", adInteger}, {"Text", adBSTR}};

std::shared_ptr<RowStore> EmptyStore() {
  return std::make_shared<RowStore>(kColumns, RowStore::Kind::kQuery);
}

// Rows numbered from first, in a chunk of that capacity.
Chunk Numbered(int first, int count, std::size_t capacity = Chunk::kRows) {
  Chunk chunk(kColumns, capacity);
  for (int i = 0; i < count; ++i) {
    const std::size_t row = chunk.AddRow();
    chunk.Set<std::int32_t>(0, row, first + i);
    chunk.SetText(1, row, "text " + std::to_string(first + i));
  }
  return chunk;
}

constexpr int kFull = Chunk::kRows;

TEST(RowStore, FindsRowsBehindAShortFirstChunk) {
  const auto store = EmptyStore();
  store->Append(Numbered(0, 3, 3));
  store->Append(Numbered(3, kFull));
  store->Append(Numbered(3 + kFull, kFull));
  store->Append(Numbered(3 + 2 * kFull, 10));
  EXPECT_EQ(store->RowCount(), 3U + 2U * kFull + 10U);
  const RecordsetPtr rowset = RecordsetAccess::Over(store);
  std::int32_t expected = 0;
  for (const Recordset::Row row : rowset->Rows()) {
    ASSERT_EQ(row.Int32(ColumnHandle{0}), expected);
    ASSERT_EQ(row.Text(ColumnHandle{1}), "text " + std::to_string(expected));
    ++expected;
  }
  EXPECT_EQ(expected, 3 + 2 * kFull + 10);
}

TEST(RowStore, TakesNoChunkBehindOneThatIsNotFull) {
  const auto store = EmptyStore();
  store->Append(Numbered(0, 2, 3));
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "rows cannot be appended behind a chunk that is not full",
              [&] { store->Append(Numbered(2, 1)); });
  const auto other = EmptyStore();
  other->Append(Numbered(0, 1, 1));
  other->Append(Numbered(1, 2, 2));
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "a chunk that is neither the first nor the last does not have 4096 rows",
              [&] { other->Append(Numbered(3, 1)); });
}

TEST(RowStore, TakesAnEmptyChunkForNone) {
  const auto store = EmptyStore();
  store->Append(Numbered(0, 0));
  store->Append(Numbered(0, 2));
  EXPECT_EQ(store->RowCount(), 2U);
}

TEST(RowStore, RowsThatArriveAppearInOpenRowsets) {
  const auto store = EmptyStore();
  const RecordsetPtr all = RecordsetAccess::Over(store);
  EXPECT_TRUE(all->Bof() && all->Eof());
  store->Append(Numbered(0, 3, 3));
  EXPECT_EQ(all->Collect("N"), Variant(0));
  const RecordsetPtr filtered = all->Clone();
  filtered->Filter("N >= 2 and N <= 4099");
  const RecordsetPtr sorted = all->Clone();
  sorted->Sort("N desc");
  sorted->MoveNext();
  const RecordsetPtr none = all->Clone();
  none->Filter("N = 4000");
  EXPECT_TRUE(none->Eof());
  all->MoveLast();
  store->Append(Numbered(3, kFull));
  store->Append(Numbered(3 + kFull, 2));
  EXPECT_EQ(all->RecordCount(), 3 + kFull + 2);
  EXPECT_EQ(all->Collect("N"), Variant(2));
  EXPECT_EQ(filtered->RecordCount(), 4098);
  EXPECT_EQ(sorted->Collect("N"), Variant(1));
  sorted->MovePrevious();
  EXPECT_EQ(sorted->Collect("N"), Variant(2));
  sorted->MovePrevious();
  EXPECT_EQ(sorted->Collect("N"), Variant(3));
  EXPECT_EQ(none->Collect("N"), Variant(4000));
}

TEST(RowStore, IndexKnowsRowsThatArriveLater) {
  const auto store = EmptyStore();
  const RecordsetPtr rowset = RecordsetAccess::Over(store);
  rowset->Fields("N").Properties()("Optimize") = true;
  store->Append(Numbered(0, 5, 5));
  rowset->Filter("N = 6");
  EXPECT_EQ(rowset->RecordCount(), 0);
  store->Append(Numbered(5, 5));
  EXPECT_EQ(rowset->RecordCount(), 1);
  rowset->Filter("N = 7");
  EXPECT_EQ(Shown(*rowset, "N"), "7");
}

TEST(RowStore, RowsOfAQueryCannotBeWritten) {
  const auto store = EmptyStore();
  store->Append(Numbered(0, 2));
  const RecordsetPtr rowset = RecordsetAccess::Over(store);
  const std::string text = "the rows of a query cannot be written";
  ExpectError(ErrorNumber::kArgumentOutOfRange, text, [&] { rowset->AddNew(); });
  ExpectError(ErrorNumber::kArgumentOutOfRange, text, [&] { rowset->Delete(); });
  ExpectError(ErrorNumber::kArgumentOutOfRange, text, [&] { rowset->Update(); });
  ExpectError(ErrorNumber::kArgumentOutOfRange, text, [&] { rowset->Collect("N", 1); });
  ExpectError(ErrorNumber::kArgumentOutOfRange, text, [&] { rowset->Fields("N").Value(1); });
  ExpectError(ErrorNumber::kArgumentOutOfRange, text,
              [&] { rowset->SetText(ColumnHandle{1}, "x"); });
}

TEST(RowStore, AttachOpensAClosedRowsetOnly) {
  const RecordsetPtr rowset = Recordset::New();
  const auto store = EmptyStore();
  store->Append(Numbered(0, 2));
  RecordsetAccess::Attach(*rowset, store);
  EXPECT_EQ(RecordsetAccess::Store(*rowset), store);
  EXPECT_EQ(Shown(*rowset, "N"), "0 1");
  ExpectError(ErrorNumber::kArgumentOutOfRange, "the rowset is open already; close it first",
              [&] { RecordsetAccess::Attach(*rowset, store); });
}

// Parents 0, 1 and 2; children of 0 are the child rows 1 and 3, of 2 the child row 0.
RecordsetPtr ParentWithChapters() {
  auto child = std::make_shared<RowStore>(kColumns, RowStore::Kind::kQuery);
  child->Append(Numbered(100, 5));
  auto parent = std::make_shared<RowStore>(
      std::vector<ColumnInfo>{{"N", adInteger}, {"Text", adBSTR}, {"Chap", adChapter}},
      RowStore::Kind::kQuery);
  parent->Append(Numbered(0, 3));
  auto chapters = std::make_shared<ChapterRows>();
  chapters->child = child;
  chapters->group_of_row = {1, ChapterRows::kNoGroup, 0};
  chapters->starts = {0, 1, 3};
  chapters->rows = {0, 1, 3};
  parent->SetChapters(2, chapters);
  return RecordsetAccess::Over(parent);
}

TEST(Chapter, HoldsTheChildrenOfTheCurrentRow) {
  const RecordsetPtr parent = ParentWithChapters();
  std::string all;
  for (; !parent->Eof(); parent->MoveNext()) {
    const RecordsetPtr chapter = parent->Fields("chap").Value().ToRowset();
    all += std::to_string(chapter->RecordCount()) + ":" + Walked(*chapter, "N") + ";";
  }
  EXPECT_EQ(all, "2:101 103;0:;1:100;");
  EXPECT_EQ(parent->Fields("Chap").Type(), adChapter);
}

TEST(Chapter, MovesAndFiltersApartFromItsParentAndFromOthers) {
  const RecordsetPtr parent = ParentWithChapters();
  const RecordsetPtr chapter = parent->Chapter(parent->Column("Chap"));
  const RecordsetPtr again = parent->Chapter(parent->Column("Chap"));
  chapter->MoveNext();
  EXPECT_EQ(parent->Collect("N"), Variant(0));
  EXPECT_EQ(again->Collect("N"), Variant(101));
  chapter->Filter("N = 103");
  EXPECT_EQ(Shown(*chapter, "N"), "103");
  chapter->Filter("N = 100");
  EXPECT_EQ(chapter->RecordCount(), 0);  // a child of another parent
  EXPECT_EQ(Shown(*again, "N"), "101 103");
  again->Sort("N desc");
  EXPECT_EQ(Shown(*again, "N"), "103 101");
  const RecordsetPtr clone = chapter->Clone();
  EXPECT_EQ(Shown(*clone, "N"), "101 103");
}

TEST(Chapter, OutlivesItsParent) {
  RecordsetPtr parent = ParentWithChapters();
  const RecordsetPtr chapter = parent->Chapter(parent->Column("Chap"));
  parent.reset();
  EXPECT_EQ(Walked(*chapter, "Text"), "text 101 text 103");
}

TEST(Chapter, ThatIsLongIsFilteredThroughTheIndex) {
  auto child = std::make_shared<RowStore>(kColumns, RowStore::Kind::kQuery);
  child->Append(Numbered(0, kFull));
  auto chapters = std::make_shared<ChapterRows>();
  chapters->child = child;
  chapters->starts = {0, kFull / 2};
  for (std::uint32_t row = 0; row < kFull; row += 2) chapters->rows.push_back(row);
  auto parent = std::make_shared<RowStore>(
      std::vector<ColumnInfo>{{"N", adInteger}, {"Text", adBSTR}, {"Chap", adChapter}},
      RowStore::Kind::kQuery);
  parent->Append(Numbered(0, 1));
  parent->SetChapters(2, chapters);
  const RecordsetPtr chapter = RecordsetAccess::Over(parent)->Chapter(ColumnHandle{2});
  EXPECT_EQ(chapter->RecordCount(), kFull / 2);
  chapter->Fields("N").Properties()("Optimize") = true;
  chapter->Filter("N = 1000");
  EXPECT_EQ(Shown(*chapter, "N"), "1000");
  chapter->Filter("N = 1001");
  EXPECT_EQ(chapter->RecordCount(), 0);
  chapter->Filter("N = 1000 or N = 1001 or N = 1002");
  EXPECT_EQ(Shown(*chapter, "N"), "1000 1002");
}

TEST(Chapter, IsEmptyWhileItsRowsAreNotKnown) {
  auto parent = std::make_shared<RowStore>(
      std::vector<ColumnInfo>{{"N", adInteger}, {"Text", adBSTR}, {"Chap", adChapter}},
      RowStore::Kind::kQuery);
  parent->Append(Numbered(0, 1));
  const RecordsetPtr chapter = RecordsetAccess::Over(parent)->Chapter(ColumnHandle{2});
  EXPECT_TRUE(chapter->Bof() && chapter->Eof());
}

TEST(Chapter, CannotBeWrittenComparedSortedOrGroupedBy) {
  const RecordsetPtr parent = ParentWithChapters();
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "the filter \"Chap = 1\" cannot be read at position 8: the column \"Chap\" holds "
              "rowsets, which cannot be compared",
              [&] { parent->Filter("Chap = 1"); });
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "the sort order \"Chap\" cannot be read at position 1: the column \"Chap\" holds "
              "rowsets, which have no order",
              [&] { parent->Sort("Chap"); });
  ExpectError(ErrorNumber::kTypeMismatch, "the column \"Chap\" cannot be read as a number",
              [&] { (void)parent->Int32(parent->Column("Chap")); });
  EXPECT_FALSE(parent->IsNull(parent->Column("Chap")));
}

}  // namespace
}  // namespace pstolvane1
