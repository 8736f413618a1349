#include "session/data/RowGroups.h"
#include "tests/data/ExpectError.h"
#include "tests/data/MakeRowset.h"

namespace pstolvane1 {
namespace {

RecordsetPtr Movements() {
  return MakeRowset({{"Item_Id", adInteger}, {"Batch", adBSTR}, {"Qty", adDouble}},
                    {{2, "a", 1.0},
                     {1, "A", 2.0},
                     {2, "A", 3.0},
                     {Null, "b", 4.0},
                     {1, "b", 5.0},
                     {2, "a", 6.0},
                     {Null, "B", 7.0}});
}

std::string Quantities(const RowGroups::Group& group) {
  std::string text;
  for (const Recordset::Row row : group) text += row["Qty"].ToText();
  return text;
}

TEST(RowGroups, ComeInTheOrderOfTheirFirstRows) {
  const RecordsetPtr rowset = Movements();
  const RowGroups groups = rowset->GroupBy({"item_id"});
  ASSERT_EQ(groups.Count(), 3U);
  std::string all;
  for (const RowGroups::Group& group : groups) all += Quantities(group) + " ";
  EXPECT_EQ(all, "136 25 47 ");
  EXPECT_EQ(groups[0].First()["Qty"], Variant(1.0));
  EXPECT_EQ(groups[0].Last()["Qty"], Variant(6.0));
  EXPECT_EQ(groups[0][1]["Qty"], Variant(3.0));
  EXPECT_EQ(groups[0].Count(), 3U);
}

TEST(RowGroups, KeyOnSeveralColumnsIgnoringCase) {
  const RowGroups groups = Movements()->GroupBy({"Item_Id", "Batch"});
  std::string all;
  for (const RowGroups::Group& group : groups) all += Quantities(group) + " ";
  EXPECT_EQ(all, "136 2 47 5 ");
}

TEST(RowGroups, AreLookedUpByValuesOfAnyNumberType) {
  const RowGroups groups = Movements()->GroupBy({"Item_Id", "Batch"});
  EXPECT_EQ(Quantities(groups.Find({2, "A"})), "136");
  EXPECT_EQ(Quantities(groups.Find({2.0, "a"})), "136");
  EXPECT_EQ(Quantities(groups.Find({Currency::FromText("2"), "a"})), "136");
  EXPECT_EQ(Quantities(groups.Find({std::int64_t{1}, "B"})), "5");
  EXPECT_EQ(Quantities(groups.Find({Null, "b"})), "47");
  EXPECT_TRUE(groups.Find({2, "c"}).Empty());
  EXPECT_TRUE(groups.Find({2.5, "a"}).Empty());
  EXPECT_TRUE(groups.Find({"2", "a"}).Empty());
}

TEST(RowGroups, AreLookedUpByARowOfAnotherRowset) {
  const RowGroups groups = Movements()->GroupBy({"Item_Id"});
  const RecordsetPtr items =
      MakeRowset({{"Name", adBSTR}, {"Id", adCurrency}}, {{"Nut", 1}, {"Bolt", 2}, {"Pin", 3}});
  std::string all;
  for (const Recordset::Row row : items->Rows()) {
    all += Quantities(groups.Find(row, {items->Column("Id")})) + " ";
  }
  EXPECT_EQ(all, "25 136  ");
}

// Values as columns of every type hold them, each against the key 2 or the like.
TEST(RowGroups, KeysAreEqualByValueWhateverTheirTypes) {
  const auto count = [](DataType type, const std::vector<std::vector<Variant>>& rows,
                        const Variant& key) {
    return MakeRowset({{"Key", type}}, rows)->GroupBy({"Key"}).Find({key}).Count();
  };
  const Variant money = Currency::FromText("2.5");
  EXPECT_EQ(count(adInteger, {{2}, {-2}, {2}}, 2.0), 2U);
  EXPECT_EQ(count(adInteger, {{2}, {Null}}, std::int64_t{2} - (std::int64_t{1} << 40)), 0U);
  EXPECT_EQ(count(adBigInt, {{2}, {Null}, {2}}, 2), 2U);
  EXPECT_EQ(count(adSingle, {{2.5F}, {2.25F}, {2.5F}}, money), 2U);
  EXPECT_EQ(count(adDouble, {{2.5}, {0.1}}, money), 1U);
  EXPECT_EQ(count(adDouble, {{0.1}, {1.0 / 3.0}}, Currency::FromText("0.1")), 1U);
  EXPECT_EQ(count(adDouble, {{0.1}, {1.0 / 3.0}}, 1.0 / 3.0), 1U);
  EXPECT_EQ(count(adDouble, {{-0.0}, {0.0}}, 0), 2U);
  EXPECT_EQ(count(adCurrency, {{2.5}, {2}}, 2.5F), 1U);
  EXPECT_EQ(count(adCurrency, {{2.5}, {2}}, 2), 1U);
  EXPECT_EQ(count(adBoolean, {{Boolean(1)}, {true}, {false}}, true), 2U);
  EXPECT_EQ(count(adDate, {{Date(-0.5)}, {Date(0.5)}, {Date(1)}}, Date(0.5)), 2U);
  EXPECT_EQ(count(adDate, {{Date(2)}}, 2), 0U);
  EXPECT_EQ(count(adVarChar, {{"BOLT"}, {"bolt"}, {"bolt "}}, "Bolt"), 2U);
}

TEST(RowGroups, AreMany) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("Id", adInteger);
  rowset->Fields().Append("Name", adBSTR);
  rowset->Open();
  for (int i = 0; i < 20000; ++i) {
    rowset->AddNew();
    rowset->Collect("Id", i % 5000 - 2500);
    rowset->Collect("Name", "name " + std::to_string(i % 5000));
  }
  rowset->Update();
  const RowGroups by_id = rowset->GroupBy({"Id"});
  const RowGroups by_name = rowset->GroupBy({"Name"});
  ASSERT_EQ(by_id.Count(), 5000U);
  ASSERT_EQ(by_name.Count(), 5000U);
  for (int i = 0; i < 5000; ++i) {
    ASSERT_EQ(by_id.Find({i - 2500}).Count(), 4U);
    ASSERT_EQ(by_name.Find({"NAME " + std::to_string(i)}).First()["Id"], Variant(i - 2500));
  }
}

TEST(RowGroups, HoldTheVisibleRowsInTheRowsetsOrder) {
  const RecordsetPtr rowset = Movements();
  rowset->Filter("Qty > 1");
  rowset->Sort("Qty desc");
  const RowGroups groups = rowset->GroupBy({"Item_Id"});
  std::string all;
  for (const RowGroups::Group& group : groups) all += Quantities(group) + " ";
  EXPECT_EQ(all, "74 63 52 ");
  EXPECT_EQ(rowset->Collect("Qty"), Variant(7.0));
}

TEST(RowGroups, KeepTheRowsWhenTheRowsetGoes) {
  RecordsetPtr rowset = Movements();
  const RowGroups groups = rowset->GroupBy({"Item_Id"});
  rowset.reset();
  EXPECT_EQ(Quantities(groups[0]), "136");
}

TEST(RowGroups, OfNoRowsAreNone) {
  const RecordsetPtr rowset = Movements();
  rowset->Filter("Qty = 99");
  const RowGroups groups = rowset->GroupBy({"Item_Id"});
  EXPECT_EQ(groups.Count(), 0U);
  EXPECT_TRUE(groups.begin() == groups.end());
  EXPECT_TRUE(groups.Find({1}).Empty());
}

TEST(RowGroups, RefuseWhatIsNoKey) {
  const RecordsetPtr rowset = Movements();
  ExpectError(ErrorNumber::kArgumentOutOfRange, "rows are grouped by at least one column",
              [&] { (void)rowset->GroupBy({}); });
  ExpectError(ErrorNumber::kNoSuchColumn,
              "the rowset has no column \"Item\"; it has Item_Id, Batch, Qty",
              [&] { (void)rowset->GroupBy({"Item"}); });
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "the rows are grouped by 1 columns, the key has 2 values", [&] {
                (void)rowset->GroupBy({"Item_Id"}).Find({1, 2});
              });
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "a key is made of plain values; Empty and rowsets are none",
              [&] { (void)rowset->GroupBy({"Item_Id"}).Find({Variant()}); });
}

}  // namespace
}  // namespace pstolvane1
