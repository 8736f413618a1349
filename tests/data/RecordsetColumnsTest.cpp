#include "tests/data/ExpectError.h"
#include "tests/data/MakeRowset.h"

namespace pstolvane1 {
namespace {

TEST(RecordsetColumns, AreAppendedBeforeItIsOpened) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("ItemName", adBSTR);
  rowset->Fields().Append("ItemNameSort", adVarChar, 255, adFldIsNullable);
  rowset->Fields().Append("PriceSOrt", adVarChar, 255, 6);
  EXPECT_EQ(rowset->Fields().Count(), 3);
  EXPECT_TRUE(rowset->HasColumn("itemname"));
  EXPECT_EQ(rowset->Fields("pricesort").Name(), "PriceSOrt");
  rowset->Open();
  EXPECT_EQ(rowset->Fields().Count(), 3);
  EXPECT_EQ(rowset->Fields()(1).Name(), "ItemNameSort");
  EXPECT_EQ(rowset->Fields()(1).Type(), adVarChar);
  EXPECT_EQ(rowset->Fields()(1).DefinedSize(), 255);
  EXPECT_EQ(rowset->Fields()(1).Attributes(), adFldIsNullable);
  EXPECT_EQ(rowset->Fields()(2).Attributes(), 6);
  EXPECT_EQ(rowset->Fields()(0).Attributes(), adFldDefault);
}

TEST(RecordsetColumns, AreFoundInAnyCase) {
  const RecordsetPtr rowset =
      MakeRowset({{"PartiCularsSort", adBSTR}, {"Größe", adDouble}}, {{"a", 1.5}});
  EXPECT_EQ(rowset->Collect("ParticularsSORT"), Variant("a"));
  EXPECT_EQ(rowset->Collect("GRÖßE"), Variant(1.5));
  EXPECT_EQ(rowset->Column("particularssort"), ColumnHandle{0});
  EXPECT_FALSE(rowset->HasColumn("Particulars"));
  EXPECT_FALSE(rowset->HasColumn(""));
}

TEST(RecordsetColumns, ManyAreFoundEachByItsName) {
  const RecordsetPtr rowset = Recordset::New();
  for (int i = 0; i < 300; ++i) rowset->Fields().Append("Column" + std::to_string(i), adInteger);
  rowset->Open();
  for (int i = 0; i < 300; ++i) {
    EXPECT_EQ(rowset->Column("COLUMN" + std::to_string(i)), ColumnHandle{i});
  }
}

TEST(RecordsetColumns, UnknownNameIsToldWithTheNamesThatThereAre) {
  const RecordsetPtr rowset = MakeRowset({{"Qty", adSingle}, {"Rate", adCurrency}}, {{1.0F}});
  const std::string text = "the rowset has no column \"Amount\"; it has Qty, Rate";
  ExpectError(ErrorNumber::kNoSuchColumn, text, [&] { (void)rowset->Collect("Amount"); });
  ExpectError(ErrorNumber::kNoSuchColumn, text, [&] { rowset->Collect("Amount", 1); });
  ExpectError(ErrorNumber::kNoSuchColumn, text, [&] { (void)rowset->Column("Amount"); });
  ExpectError(ErrorNumber::kNoSuchColumn, text, [&] { (void)rowset->Fields("Amount"); });
  ExpectError(ErrorNumber::kNoSuchColumn, text, [&] { (void)(*rowset->Rows().begin())["Amount"]; });
  ExpectError(ErrorNumber::kNoSuchColumn,
              "the rowset has no column number 2; it has 2, counted from 0",
              [&] { (void)rowset->Fields()(2); });
  ExpectError(ErrorNumber::kNoSuchColumn, "the rowset has no column number 7",
              [&] { (void)rowset->Int32(ColumnHandle{7}); });
}

TEST(RecordsetColumns, AppendRefusesWhatCannotBeAColumn) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("Qty", adSingle);
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "the column \"QTY\" cannot be appended: there is one of that name",
              [&] { rowset->Fields().Append("QTY", adSingle); });
  ExpectError(
      ErrorNumber::kArgumentOutOfRange,
      "the column \"Chap\" cannot be appended: a rowset that is filled by its maker holds no "
      "chapters",
      [&] { rowset->Fields().Append("Chap", adChapter); });
  ExpectError(ErrorNumber::kArgumentOutOfRange, "no column can have the type 12",
              [&] { rowset->Fields().Append("x", static_cast<DataType>(12)); });
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "the column \"x\" cannot be appended: its size is negative",
              [&] { rowset->Fields().Append("x", adVarChar, -1); });
  rowset->Open();
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "the column \"Rate\" cannot be appended: the rowset is open",
              [&] { rowset->Fields().Append("Rate", adSingle); });
  EXPECT_EQ(rowset->Fields().Count(), 1);
}

TEST(RecordsetOpen, NeedsColumnsAndAClosedRowset) {
  const RecordsetPtr rowset = Recordset::New();
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "a rowset without columns cannot be opened: append its columns, or name a query",
              [&] { rowset->Open(); });
  rowset->Fields().Append("Qty", adSingle);
  rowset->Open();
  ExpectError(ErrorNumber::kArgumentOutOfRange, "the rowset is open already; close it first",
              [&] { rowset->Open(); });
}

TEST(RecordsetOpen, MayBeOpenedAnewWithItsColumnsAfterItWasClosed) {
  const RecordsetPtr rowset = MakeRowset({{"Qty", adSingle}}, {{1.0F}, {2.0F}});
  rowset->Close();
  rowset->Open();
  EXPECT_EQ(rowset->RecordCount(), 0);
  EXPECT_EQ(rowset->Fields().Count(), 1);
}

TEST(RecordsetOpen, EveryMemberThatNeedsAnOpenRowsetSaysSo) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("Qty", adSingle);
  const auto expect_not_open = [](auto&& call) {
    ExpectError(ErrorNumber::kNotOpen, "the rowset is not open", call);
  };
  expect_not_open([&] { rowset->Close(); });
  expect_not_open([&] { (void)rowset->Collect("Qty"); });
  expect_not_open([&] { rowset->Collect("Qty", 1); });
  expect_not_open([&] { (void)rowset->Int32(ColumnHandle{0}); });
  expect_not_open([&] { rowset->AddNew(); });
  expect_not_open([&] { rowset->Update(); });
  expect_not_open([&] { rowset->Delete(); });
  expect_not_open([&] { rowset->MoveFirst(); });
  expect_not_open([&] { rowset->MoveLast(); });
  expect_not_open([&] { rowset->MoveNext(); });
  expect_not_open([&] { rowset->MovePrevious(); });
  expect_not_open([&] { (void)rowset->Bof(); });
  expect_not_open([&] { (void)rowset->Eof(); });
  expect_not_open([&] { (void)rowset->Bookmark(); });
  expect_not_open([&] { rowset->Bookmark(Bookmark{0}); });
  expect_not_open([&] { (void)rowset->RecordCount(); });
  expect_not_open([&] { rowset->Filter("Qty = 1"); });
  expect_not_open([&] { rowset->Filter(0); });
  expect_not_open([&] { (void)rowset->Filter(); });
  expect_not_open([&] { rowset->Find("Qty = 1"); });
  expect_not_open([&] { rowset->Sort("Qty"); });
  expect_not_open([&] { (void)rowset->Sort(); });
  expect_not_open([&] { (void)rowset->Clone(); });
  expect_not_open([&] { (void)rowset->Rows(); });
  expect_not_open([&] { (void)rowset->MemoryUsed(); });
  expect_not_open([&] { (void)rowset->Fields("Qty").Properties()("Optimize").Value(); });
}

TEST(RecordsetProperties, OfARowsetIsTheInitialFetchSize) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Properties()("initial fetch size") = 1;
  EXPECT_EQ(rowset->Properties()("Initial Fetch Size").Value(), Variant(1));
  ExpectError(ErrorNumber::kArgumentOutOfRange, "\"Initial Fetch Size\" cannot be -1",
              [&] { rowset->Properties()("Initial Fetch Size") = -1; });
  ExpectError(ErrorNumber::kNoSuchColumn,
              "a rowset has no property \"Optimize\"; it has \"Initial Fetch Size\"",
              [&] { (void)rowset->Properties()("Optimize"); });
}

TEST(RecordsetProperties, OfAFieldIsOptimizeWhichClonesShare) {
  const RecordsetPtr rowset = MakeRowset({{"Item_Id", adInteger}}, {{1}});
  EXPECT_EQ(rowset->Fields("Item_Id").Properties()("OPTIMIZE").Value(), Variant(False));
  rowset->Fields("Item_Id").Properties()("Optimize") = True;
  EXPECT_EQ(rowset->Clone()->Fields("Item_Id").Properties()("Optimize").Value(), Variant(True));
  rowset->Fields("Item_Id").Properties()("Optimize").Value(false);
  EXPECT_EQ(rowset->Fields("Item_Id").Properties()("Optimize").Value(), Variant(False));
  ExpectError(ErrorNumber::kNoSuchColumn, "a field has no property \"Index\"; it has \"Optimize\"",
              [&] { (void)rowset->Fields("Item_Id").Properties()("Index"); });
}

}  // namespace
}  // namespace pstolvane1
