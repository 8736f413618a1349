#include "session/data/Chunk.h"
#include "tests/data/ExpectError.h"

namespace pstolvane1 {
namespace {

const std::vector<ColumnInfo> kColumns = {
    {"Item_Id", adInteger}, {"Name", adBSTR}, {"Amount", adCurrency}, {"Flag", adBoolean}};

TEST(Chunk, BeginsWithNulls) {
  Chunk chunk(kColumns, 3);
  EXPECT_EQ(chunk.RowCount(), 0U);
  EXPECT_EQ(chunk.AddRow(), 0U);
  EXPECT_EQ(chunk.AddRow(), 1U);
  EXPECT_FALSE(chunk.Full());
  EXPECT_EQ(chunk.AddRow(), 2U);
  EXPECT_TRUE(chunk.Full());
  for (std::size_t column = 0; column < kColumns.size(); ++column) {
    EXPECT_TRUE(chunk.IsNull(column, 2));
  }
}

TEST(Chunk, HoldsTypedCells) {
  Chunk chunk(kColumns);
  chunk.AddRow();
  chunk.Set<std::int32_t>(0, 0, -5);
  chunk.SetText(1, 0, "Bolt");
  chunk.Set<std::int64_t>(2, 0, 12345);
  chunk.Set<std::int16_t>(3, 0, -1);
  EXPECT_EQ(chunk.Get<std::int32_t>(0, 0), -5);
  EXPECT_EQ(chunk.Text(1, 0), "Bolt");
  EXPECT_EQ(chunk.Get<std::int64_t>(2, 0), 12345);
  EXPECT_EQ(chunk.Get<std::int16_t>(3, 0), -1);
  chunk.SetNull(0, 0);
  EXPECT_TRUE(chunk.IsNull(0, 0));
  EXPECT_FALSE(chunk.IsNull(1, 0));
}

TEST(Chunk, AColumnThatIsNeverWrittenTakesABitARow) {
  const auto bytes_for_each_row = [](auto&& write) {
    Chunk chunk(kColumns);
    const std::size_t before = chunk.Bytes();
    for (std::size_t row = 0; row < Chunk::kRows; ++row) {
      chunk.AddRow();
      write(chunk, row);
    }
    return (chunk.Bytes() - before) / Chunk::kRows;
  };
  EXPECT_EQ(bytes_for_each_row([](Chunk&, std::size_t) {}), 0U);
  EXPECT_EQ(bytes_for_each_row([](Chunk& chunk, std::size_t row) {
              chunk.SetNull(0, row);
              chunk.Set<std::int64_t>(2, row, 7);
            }),
            8U);
}

TEST(Chunk, AColumnThatIsNeverWrittenIsReadAsZeros) {
  for (const std::size_t capacity : {std::size_t{3}, Chunk::kRows}) {
    Chunk chunk(kColumns, capacity);
    while (!chunk.Full()) chunk.AddRow();
    EXPECT_EQ(chunk.Get<std::int64_t>(2, capacity - 1), 0);
    EXPECT_EQ(chunk.Values<std::int16_t>(3)[0], 0);
  }
}

TEST(Chunk, AColumnMayBeWrittenFirstAfterTheChunkHasGrown) {
  Chunk chunk(kColumns, 2);
  chunk.AddRow();
  chunk.AddRow();
  chunk.Set<std::int32_t>(0, 1, 11);
  for (const std::size_t capacity : {std::size_t{64}, Chunk::kRows, 2 * Chunk::kRows}) {
    chunk.Reserve(capacity);
    while (!chunk.Full()) chunk.AddRow();
    chunk.Set<std::int64_t>(2, capacity - 1, 5);
    EXPECT_EQ(chunk.Get<std::int64_t>(2, capacity - 1), 5);
    EXPECT_EQ(chunk.Get<std::int32_t>(0, 1), 11);
    EXPECT_TRUE(chunk.IsNull(2, 0));
    EXPECT_TRUE(chunk.IsNull(0, 0));
  }
}

TEST(Chunk, KnowsTheEmptyTextFromNull) {
  Chunk chunk(kColumns);
  chunk.AddRow();
  chunk.SetText(1, 0, "");
  EXPECT_FALSE(chunk.IsNull(1, 0));
  EXPECT_EQ(chunk.Text(1, 0), "");
}

TEST(Chunk, KeepsViewsOfTextsWhileMoreAreWritten) {
  Chunk chunk(kColumns, 64);
  chunk.AddRow();
  const std::string long_text(100'000, 'x');
  chunk.SetText(1, 0, "first");
  const std::string_view first = chunk.Text(1, 0);
  for (std::size_t row = 1; row < 64; ++row) {
    chunk.AddRow();
    chunk.SetText(1, row, row % 2 == 0 ? long_text : "text " + std::to_string(row));
  }
  chunk.Reserve(4096);
  chunk.SetText(1, 0, "changed");
  const Chunk moved = std::move(chunk);
  EXPECT_EQ(first, "first");
  EXPECT_EQ(moved.Text(1, 0), "changed");
  EXPECT_EQ(moved.Text(1, 2), long_text);
  EXPECT_EQ(moved.Text(1, 63), "text 63");
  EXPECT_EQ(moved.RowCount(), 64U);
  EXPECT_EQ(moved.Capacity(), 4096U);
}

TEST(Chunk, KeepsARunOfEqualTextsOnce) {
  Chunk once(kColumns);
  Chunk run(kColumns);
  once.AddRow();
  once.SetText(1, 0, std::string(1000, 'x'));
  for (std::size_t row = 0; row < 4000; ++row) {
    run.AddRow();
    run.SetText(1, row, std::string(1000, 'x'));
  }
  EXPECT_EQ(run.Bytes(), once.Bytes());
  EXPECT_EQ(run.Text(1, 3999).size(), 1000U);
}

TEST(Chunk, NullCellsHoldNoRunTogether) {
  Chunk chunk(kColumns);
  chunk.AddRow();
  chunk.SetText(1, 0, "a");
  chunk.SetNull(1, 0);
  chunk.AddRow();
  chunk.SetText(1, 1, "a");
  EXPECT_EQ(chunk.Text(1, 1), "a");
  EXPECT_TRUE(chunk.IsNull(1, 0));
}

TEST(Chunk, KeepsATextOnceThatComesBackAfterOtherRows) {
  Chunk chunk(kColumns);
  chunk.AddRow();
  chunk.SetText(1, 0, std::string(1000, 'x'));
  const std::size_t once = chunk.Bytes();
  for (std::size_t row = 1; row < Chunk::kRows; ++row) {
    chunk.AddRow();
    if (row % 2 == 0) chunk.SetText(1, row, std::string(1000, 'x'));
  }
  EXPECT_EQ(chunk.Bytes(), once);
  EXPECT_TRUE(chunk.IsNull(1, 4093));
  EXPECT_EQ(chunk.Text(1, 4094).size(), 1000U);
}

TEST(Chunk, ReadsTextsOfEveryLength) {
  Chunk chunk(kColumns);
  std::vector<std::string> texts;
  for (const std::size_t size :
       {1U, 254U, 255U, 256U, 16378U, 16379U, 16383U, 16384U, 70000U, 3U}) {
    texts.push_back(std::string(size - 1, 'a') + static_cast<char>('a' + texts.size()));
  }
  for (const std::string& text : texts) chunk.SetText(1, chunk.AddRow(), text);
  for (std::size_t row = 0; row < texts.size(); ++row) EXPECT_EQ(chunk.Text(1, row), texts[row]);
}

TEST(Chunk, ReserveKeepsTheRows) {
  Chunk chunk(kColumns, 2);
  chunk.AddRow();
  chunk.AddRow();
  chunk.Set<std::int32_t>(0, 1, 7);
  chunk.Reserve(200);
  for (int i = 2; i < 200; ++i) chunk.AddRow();
  EXPECT_TRUE(chunk.IsNull(0, 0));
  EXPECT_EQ(chunk.Get<std::int32_t>(0, 1), 7);
  EXPECT_TRUE(chunk.IsNull(0, 199));
}

TEST(Chunk, RefusesATypeThatNoColumnCanHave) {
  ExpectError(ErrorNumber::kArgumentOutOfRange, "no column can have the type 0", [] {
    Chunk chunk({{"x", adEmpty}});
  });
}

}  // namespace
}  // namespace pstolvane1
