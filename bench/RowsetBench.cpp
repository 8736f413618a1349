// What rowsets cost: filters through an index and without, memory a row, adding, sorting, clones,
// chapters and groups.
#include <benchmark/benchmark.h>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "session/data/RecordsetAccess.h"
#include "session/data/RowGroups.h"

namespace pstolvane1 {
namespace {

constexpr std::int64_t kRowsOfAKey = 4;

// Ten columns as a stock query has them: four keys, a name, two quantities, two amounts and a day.
const std::vector<ColumnInfo> kColumns = {{"Item_Id", adInteger},   {"Godown_Id", adInteger},
                                          {"Batch_Id", adInteger},  {"Inc_Id", adInteger},
                                          {"ItemName", adVarChar},  {"QtyIn", adSingle},
                                          {"QtyOut", adDouble},     {"ValueIn", adCurrency},
                                          {"ValueOut", adCurrency}, {"VoucherDate", adDate}};

void FillRow(Chunk& chunk, std::int64_t number) {
  const std::size_t row = chunk.AddRow();
  chunk.Set(0, row, static_cast<std::int32_t>(number / kRowsOfAKey));
  chunk.Set(1, row, static_cast<std::int32_t>(number % 7));
  chunk.Set(2, row, static_cast<std::int32_t>(number % 3));
  chunk.Set(3, row, static_cast<std::int32_t>(200400 + number % 12));
  chunk.SetText(4, row, "Brake shoe " + std::to_string(number * 7919 % 1000000));
  if (number % 5 != 0) chunk.Set(5, row, static_cast<float>(number % 100));
  chunk.Set(6, row, static_cast<double>(number % 90));
  chunk.Set(7, row, number * 12345);
  chunk.Set(8, row, number * 54321);
  chunk.Set(9, row, 38000.0 + static_cast<double>(number % 1000));
}

std::shared_ptr<RowStore> MakeStore(std::int64_t rows) {
  auto store = std::make_shared<RowStore>(kColumns, RowStore::Kind::kQuery);
  for (std::int64_t number = 0; number < rows;) {
    Chunk chunk(kColumns);
    while (number < rows && !chunk.Full()) FillRow(chunk, number++);
    store->Append(std::move(chunk));
  }
  return store;
}

RecordsetPtr MakeRowset(std::int64_t rows, bool optimize = false) {
  RecordsetPtr rowset = RecordsetAccess::Over(MakeStore(rows));
  if (optimize) rowset->Fields("Item_Id").Properties()("Optimize") = true;
  return rowset;
}

void CountRows(benchmark::State& state, std::int64_t rows_a_round) {
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * rows_a_round);
}

// Every call has another text, so that each is read anew; the text is made beforehand.
void FilterOptimized(benchmark::State& state, const char* rest) {
  const RecordsetPtr rowset = MakeRowset(state.range(0), true);
  std::vector<std::string> texts;
  for (std::int64_t i = 0; i < 65536; ++i) {
    const std::int64_t key = i * 7919 % (state.range(0) / kRowsOfAKey);
    texts.push_back("Item_Id = " + std::to_string(key) + rest);
  }
  rowset->Filter("Item_Id = 0");  // the index is made once, before
  std::size_t next = 0;
  for ([[maybe_unused]] auto round : state) {
    rowset->Filter(texts[next++ & 65535]);
    benchmark::DoNotOptimize(rowset->Eof());
  }
}
BENCHMARK_CAPTURE(FilterOptimized, equality, "")->Arg(1000)->Arg(1000000);
BENCHMARK_CAPTURE(FilterOptimized, three_keys, " and Godown_Id = 3 and Batch_Id = 1")
    ->Arg(1000)
    ->Arg(1000000);

void FilterOptimizedWalk(benchmark::State& state) {
  const RecordsetPtr rowset = MakeRowset(state.range(0), true);
  const ColumnHandle value = rowset->Column("ValueIn");
  std::int64_t key = 0;
  Currency sum;
  for ([[maybe_unused]] auto round : state) {
    key = (key + 7919) % (state.range(0) / kRowsOfAKey);
    rowset->Filter("Item_Id = " + std::to_string(key));
    for (sum = Currency(); !rowset->Eof(); rowset->MoveNext()) sum += rowset->Money(value);
    benchmark::DoNotOptimize(sum);
  }
  CountRows(state, kRowsOfAKey);
}
BENCHMARK(FilterOptimizedWalk)->Arg(1000000);

void FilterScan(benchmark::State& state) {
  const RecordsetPtr rowset = MakeRowset(state.range(0));
  std::int64_t key = 0;
  for ([[maybe_unused]] auto round : state) {
    rowset->Filter("Item_Id = " + std::to_string(++key) + " and Inc_Id <= 200405");
    benchmark::DoNotOptimize(rowset->RecordCount());
  }
  CountRows(state, state.range(0));
}
BENCHMARK(FilterScan)->Arg(1000000)->Unit(benchmark::kMillisecond);

void MakeIndex(benchmark::State& state, const char* column) {
  const RecordsetPtr rowset = MakeRowset(state.range(0));
  for ([[maybe_unused]] auto round : state) {
    rowset->Fields(column).Properties()("Optimize") = true;
    rowset->Filter("[" + std::string(column) + "] = '0'");
    rowset->Filter("");
    rowset->Fields(column).Properties()("Optimize") = false;
  }
  CountRows(state, state.range(0));
}
BENCHMARK_CAPTURE(MakeIndex, whole, "Item_Id")->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MakeIndex, text, "ItemName")->Arg(1000000)->Unit(benchmark::kMillisecond);

void Memory(benchmark::State& state) {
  std::size_t bytes = 0;
  for ([[maybe_unused]] auto round : state) bytes = MakeRowset(state.range(0))->MemoryUsed();
  state.counters["bytes/row"] = static_cast<double>(bytes) / static_cast<double>(state.range(0));
  CountRows(state, state.range(0));
}
BENCHMARK(Memory)->Arg(1000000)->Unit(benchmark::kMillisecond);

void AddNewUpdate(benchmark::State& state) {
  for ([[maybe_unused]] auto round : state) {
    const RecordsetPtr rowset = Recordset::New();
    for (const ColumnInfo& column : kColumns) rowset->Fields().Append(column.name, column.type);
    rowset->Open();
    for (std::int64_t row = 0; row < state.range(0); ++row) {
      rowset->AddNew();
      rowset->Collect("Item_Id", row);
      rowset->Collect("ItemName", "Brake shoe");
      rowset->Collect("QtyIn", 2.5F);
      rowset->Collect("ValueIn", Currency::FromTenThousandths(row));
      rowset->Update();
    }
    benchmark::DoNotOptimize(rowset->RecordCount());
  }
  CountRows(state, state.range(0));
}
BENCHMARK(AddNewUpdate)->Arg(100000)->Unit(benchmark::kMillisecond);

void CollectByName(benchmark::State& state) {
  const RecordsetPtr rowset = MakeRowset(1000);
  for ([[maybe_unused]] auto round : state) benchmark::DoNotOptimize(rowset->Collect("ValueIn"));
}
BENCHMARK(CollectByName);

void WalkTyped(benchmark::State& state) {
  const RecordsetPtr rowset = MakeRowset(state.range(0));
  const ColumnHandle value = rowset->Column("ValueIn");
  for ([[maybe_unused]] auto round : state) {
    std::int64_t sum = 0;
    for (rowset->MoveFirst(); !rowset->Eof(); rowset->MoveNext()) {
      sum ^= rowset->Money(value).TenThousandths();
    }
    benchmark::DoNotOptimize(sum);
  }
  CountRows(state, state.range(0));
}
BENCHMARK(WalkTyped)->Arg(1000000)->Unit(benchmark::kMillisecond);

void Sort(benchmark::State& state, const char* columns) {
  const RecordsetPtr rowset = MakeRowset(state.range(0));
  for ([[maybe_unused]] auto round : state) rowset->Sort(columns);
  CountRows(state, state.range(0));
}
BENCHMARK_CAPTURE(Sort, whole, "Godown_Id, Item_Id desc")
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Sort, text, "ItemName")->Arg(1000000)->Unit(benchmark::kMillisecond);

void Clone(benchmark::State& state) {
  const RecordsetPtr rowset = MakeRowset(state.range(0));
  for ([[maybe_unused]] auto round : state) benchmark::DoNotOptimize(rowset->Clone());
}
BENCHMARK(Clone)->Arg(1000000);

void ReadChapter(benchmark::State& state) {
  auto chapters = std::make_shared<ChapterRows>();
  chapters->child = MakeStore(state.range(0));
  for (std::uint32_t row = 0; row < state.range(0); ++row) {
    if (row % kRowsOfAKey == 0) chapters->starts.push_back(row);
    chapters->rows.push_back(row);
  }
  chapters->starts.push_back(static_cast<std::uint32_t>(state.range(0)));
  std::vector<ColumnInfo> columns = kColumns;
  columns.push_back({"Chap", adChapter});
  auto store = std::make_shared<RowStore>(columns, RowStore::Kind::kQuery);
  Chunk chunk(columns);
  while (!chunk.Full()) FillRow(chunk, static_cast<std::int64_t>(chunk.RowCount()));
  store->Append(std::move(chunk));
  store->SetChapters(static_cast<int>(columns.size()) - 1, chapters);
  const RecordsetPtr parent = RecordsetAccess::Over(store);
  const ColumnHandle column = parent->Column("Chap");
  for ([[maybe_unused]] auto round : state) {
    benchmark::DoNotOptimize(parent->Chapter(column)->RecordCount());
    parent->MoveNext();
    if (parent->Eof()) parent->MoveFirst();
  }
}
BENCHMARK(ReadChapter)->Arg(1000000);

void Group(benchmark::State& state) {
  const RecordsetPtr rowset = MakeRowset(state.range(0));
  for ([[maybe_unused]] auto round : state) {
    benchmark::DoNotOptimize(rowset->GroupBy({"Item_Id", "Godown_Id", "Batch_Id"}).Count());
  }
  CountRows(state, state.range(0));
}
BENCHMARK(Group)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace pstolvane1

BENCHMARK_MAIN();
