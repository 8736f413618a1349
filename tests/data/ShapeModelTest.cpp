// The joiner against the plainest joiner there is, over random tables.
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "session/data/Recordset.h"
#include "tests/data/FakeBooks.h"

namespace pstolvane1 {
namespace {

// Values that meet across types: a few small amounts, and texts that differ in case.
Variant RandomValue(std::mt19937& random, DataType type) {
  if (random() % 6 == 0) return Null;
  const auto whole = static_cast<std::int32_t>(random() % 5) - 2;
  const double quarters = static_cast<double>(static_cast<int>(random() % 9) - 4) / 4;
  switch (type) {
    case adInteger:
      return whole;
    case adBigInt:
      return std::int64_t{whole};
    case adSingle:
      return static_cast<float>(quarters);
    case adDouble:
      return quarters;
    case adCurrency:
      return Currency::FromDouble(quarters);
    case adDate:
      return Date(quarters);
    default:
      return std::vector<std::string>{"a", "A", "b", "B", "ab", ""}[random() % 6];
  }
}

DataType RandomType(std::mt19937& random) {
  constexpr DataType kTypes[] = {adInteger,  adBigInt, adSingle, adDouble,
                                 adCurrency, adDate,   adVarChar};
  return kTypes[random() % std::size(kTypes)];
}

using Rows = std::vector<std::vector<Variant>>;

// k0, k1 ... and n, the row's number.
Rows AddRandom(FakeBooks& books, const std::string& name, const std::vector<DataType>& keys,
               std::size_t rows, std::mt19937& random) {
  FakeTable table;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    table.columns.push_back({"k" + std::to_string(i), keys[i], 0, adFldIsNullable});
  }
  table.columns.push_back({"n", adInteger, 0, adFldIsNullable});
  Rows cells;
  for (std::size_t row = 0; row < rows; ++row) {
    auto& one = cells.emplace_back();
    for (const DataType type : keys) one.push_back(RandomValue(random, type));
    one.emplace_back(static_cast<std::int32_t>(row));
  }
  table.row_count = rows;
  table.cells = [cells](std::size_t row, int) { return cells[row]; };
  books.tables[name] = std::move(table);
  return cells;
}

// "null", or a text that is the same for equal values of comparable types.
std::string KeyOf(const Variant& value, DataType type) {
  if (value.IsNull()) return "null";
  std::string text = value.ToText();
  switch (type) {
    case adVarChar:
      for (char& c : text) c = c == 'A' ? 'a' : c == 'B' ? 'b' : c;
      return "text " + text;
    case adDate:
      return "date " + std::to_string(value.ToDate().Elapsed());
    default:
      return "number " + std::to_string(value.ToDouble() + 0.0);
  }
}

std::string Numbers(Recordset& rows) {
  std::string text;
  for (const Recordset::Row row : rows.Rows()) text += row["n"].ToText() + " ";
  return text;
}

bool IsNumber(DataType type) { return type != adDate && type != adVarChar; }

TEST(ShapeModel, ChaptersAreThoseOfANestedLoop) {
  std::mt19937 random(20040401);
  for (int round = 0; round < 300; ++round) {
    const auto books = std::make_shared<FakeBooks>();
    std::vector<DataType> parent_types;
    std::vector<DataType> child_types;
    for (std::size_t i = 0; i < 1 + random() % 3; ++i) {
      parent_types.push_back(RandomType(random));
      do {
        child_types.push_back(RandomType(random));
        if (child_types.back() == parent_types[i] ||
            (IsNumber(child_types.back()) && IsNumber(parent_types[i]))) {
          break;
        }
        child_types.pop_back();
      } while (true);
    }
    const Rows parents = AddRandom(*books, "p", parent_types, random() % 40, random);
    const Rows children = AddRandom(*books, "c", child_types, random() % 60, random);
    std::string relate;
    for (std::size_t i = 0; i < parent_types.size(); ++i) {
      const std::string key = "k" + std::to_string(i);
      relate += (i == 0 ? "" : ", ") + key + " to " + key;
    }
    const RecordsetPtr rowset = Recordset::New();
    rowset->Open("shape {p} append ({c} relate " + relate + ") as chp", Connected(books));
    ASSERT_EQ(rowset->RecordCount(), static_cast<std::int32_t>(parents.size()));
    for (const auto& parent : parents) {
      std::string expected;
      for (const auto& child : children) {
        bool related = true;
        for (std::size_t i = 0; i < parent_types.size(); ++i) {
          const std::string key = KeyOf(parent[i], parent_types[i]);
          related = related && key != "null" && key == KeyOf(child[i], child_types[i]);
        }
        if (related) expected += child.back().ToText() + " ";
      }
      ASSERT_EQ(Numbers(*rowset->Fields("chp").Value().ToRowset()), expected)
          << "round " << round << ", parent " << parent.back().ToText();
      rowset->MoveNext();
    }
  }
}

TEST(ShapeModel, GroupsAreThoseOfAMap) {
  std::mt19937 random(20050331);
  for (int round = 0; round < 300; ++round) {
    const auto books = std::make_shared<FakeBooks>();
    std::vector<DataType> types;
    for (std::size_t i = 0; i < 1 + random() % 3; ++i) types.push_back(RandomType(random));
    const Rows rows = AddRandom(*books, "t", types, random() % 60, random);
    std::string by;
    for (std::size_t i = 0; i < types.size(); ++i) {
      by += (i == 0 ? "k" : ", k") + std::to_string(i);
    }
    const RecordsetPtr rowset = Recordset::New();
    rowset->Open("shape {t} as c compute c, sum(c.n) as s, count(c) as m by " + by,
                 Connected(books));

    struct Group {
      std::string numbers;
      std::int64_t sum = 0;
      int count = 0;
    };
    std::vector<std::string> order;
    std::map<std::string, Group> groups;
    for (const auto& row : rows) {
      std::string key;
      for (std::size_t i = 0; i < types.size(); ++i) key += KeyOf(row[i], types[i]) + "|";
      if (!groups.contains(key)) order.push_back(key);
      Group& group = groups[key];
      group.numbers += row.back().ToText() + " ";
      group.sum += row.back().ToInt64();
      ++group.count;
    }
    ASSERT_EQ(rowset->RecordCount(), static_cast<std::int32_t>(order.size()));
    for (const std::string& key : order) {
      std::string found;
      for (std::size_t i = 0; i < types.size(); ++i) {
        found += KeyOf(rowset->Collect("k" + std::to_string(i)), types[i]) + "|";
      }
      ASSERT_EQ(found, key) << "round " << round;
      ASSERT_EQ(Numbers(*rowset->Fields("c").Value().ToRowset()), groups[key].numbers);
      ASSERT_EQ(rowset->Collect("s").ToInt64(), groups[key].sum);
      ASSERT_EQ(rowset->Collect("m").ToInt32(), groups[key].count);
      rowset->MoveNext();
    }
  }
}

}  // namespace
}  // namespace pstolvane1
