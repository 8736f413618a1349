// The order of a statement's stock keys.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "stock/KeyOrder.h"

namespace pstolvane1 {
namespace {

struct Line {
  Variant name;
  std::int64_t item, godown, batch, year;
};

// "item/godown/batch/year" of the lines in the order of a statement.
std::vector<std::string> InOrderOf(const std::vector<Line>& lines, DataType name_type = adBSTR) {
  const RecordsetPtr keys = Recordset::New();
  keys->Fields().Append("ItemName", name_type, 0, adFldIsNullable);
  for (const char* name : {"Item_Id", "Godown_Id", "Batch_Id", "YearNo"}) {
    keys->Fields().Append(name, adBigInt);
  }
  keys->Open();
  for (const Line& line : lines) {
    keys->AddNew();
    keys->Collect("ItemName", line.name);
    keys->Collect("Item_Id", line.item);
    keys->Collect("Godown_Id", line.godown);
    keys->Collect("Batch_Id", line.batch);
    keys->Collect("YearNo", line.year);
  }
  if (!lines.empty()) keys->Update();
  std::vector<std::string> order;
  for (const Recordset::Row& row : KeysInOrder(*keys)) {
    std::string told;
    for (const char* name : {"Item_Id", "Godown_Id", "Batch_Id", "YearNo"}) {
      told += (told.empty() ? "" : "/") + row[name].ToText();
    }
    order.push_back(told);
  }
  return order;
}

using Order = std::vector<std::string>;

TEST(KeyOrder, OfNoKeysIsNone) { EXPECT_EQ(InOrderOf({}), Order()); }

TEST(KeyOrder, GoesByNameThenByIdsThenByYear) {
  EXPECT_EQ(InOrderOf({{"Nut", 1, 1, 1, 1},
                       {"Bolt", 2, 2, 1, 2},
                       {"Bolt", 2, 2, 1, 1},
                       {"Bolt", 2, 1, 5, 1},
                       {"Axle", 3, 1, 1, 1}}),
            Order({"3/1/1/1", "2/1/5/1", "2/2/1/1", "2/2/1/2", "1/1/1/1"}));
}

TEST(KeyOrder, PassesOverCaseAndBlanksAtTheEnd) {
  EXPECT_EQ(InOrderOf({{"bolt  ", 3, 1, 1, 1},
                       {"Bolt", 2, 1, 1, 1},
                       {"BOLT a", 1, 1, 1, 1},
                       {"bolt", 4, 1, 1, 1}}),
            Order({"2/1/1/1", "3/1/1/1", "4/1/1/1", "1/1/1/1"}));
}

TEST(KeyOrder, BeginsWithTheNameless) {
  EXPECT_EQ(InOrderOf({{"", 1, 1, 1, 1}, {Null, 2, 1, 1, 1}}), Order({"2/1/1/1", "1/1/1/1"}));
}

// As under an alias of the item.
TEST(KeyOrder, TakesNumbersFlagsAndDaysByTheirSize) {
  EXPECT_EQ(InOrderOf({{10, 1, 1, 1, 1}, {9, 2, 1, 1, 1}}, adInteger),
            Order({"2/1/1/1", "1/1/1/1"}));
  EXPECT_EQ(InOrderOf({{true, 1, 1, 1, 1}, {false, 2, 1, 1, 1}}, adBoolean),
            Order({"2/1/1/1", "1/1/1/1"}));
  EXPECT_EQ(InOrderOf({{Date::FromYmd(2005, 1, 2), 1, 1, 1, 1},
                       {Date::FromYmd(2004, 12, 31), 2, 1, 1, 1}},
                      adDate),
            Order({"2/1/1/1", "1/1/1/1"}));
}

// An alias may name a column of the key's batch.
TEST(KeyOrder, PutsTheKeysOfAnItemApartWhereTheirNamesAre) {
  EXPECT_EQ(InOrderOf({{"B", 1, 1, 1, 1}, {"A", 1, 1, 2, 1}, {"B", 1, 1, 3, 1}, {"A", 2, 1, 1, 1}}),
            Order({"1/1/2/1", "2/1/1/1", "1/1/1/1", "1/1/3/1"}));
}

}  // namespace
}  // namespace pstolvane1
