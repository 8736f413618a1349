#include "session/data/ShapeAggregate.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "session/data/Currency.h"
#include "session/data/Date.h"
#include "session/data/Error.h"
#include "session/data/TextFold.h"

namespace pstolvane1::shape {
namespace {

std::size_t Cell(int column) { return static_cast<std::size_t>(column); }

// What an aggregate is taken of.
struct Operand {
  const RowStore& store;
  int column;
  Function function;

  [[noreturn]] void Overflow() const {
    throw Error(ErrorNumber::kOverflow, std::string(NameOf(function)) + " of " +
                                            store.Column(column).name +
                                            " is beyond the largest number of its type");
  }
};

template <typename Visit>
void ForEachValue(const Operand& operand, std::span<const std::uint32_t> rows, Visit visit) {
  for (const std::uint32_t row : rows) {
    const RowStore::Place at = operand.store.At(row);
    if (!at.chunk->IsNull(Cell(operand.column), at.row)) visit(at);
  }
}

template <typename T>
void SumWhole(const Operand& operand, std::span<const std::uint32_t> rows, RowStore::Place to,
              std::size_t cell) {
  std::int64_t sum = 0;
  bool any = false;
  ForEachValue(operand, rows, [&](RowStore::Place at) {
    any = true;
    const std::int64_t value = at.chunk->Get<T>(Cell(operand.column), at.row);
    if (__builtin_add_overflow(sum, value, &sum)) operand.Overflow();
  });
  if (any) to.chunk->Set(cell, to.row, sum);
}

template <typename T>
void SumOrAverage(const Operand& operand, std::span<const std::uint32_t> rows, RowStore::Place to,
                  std::size_t cell) {
  double sum = 0;
  std::size_t count = 0;
  ForEachValue(operand, rows, [&](RowStore::Place at) {
    ++count;
    sum += static_cast<double>(at.chunk->Get<T>(Cell(operand.column), at.row));
  });
  if (count == 0) return;
  if (!std::isfinite(sum)) operand.Overflow();
  if (operand.function == Function::kAvg) sum /= static_cast<double>(count);
  to.chunk->Set(cell, to.row, sum);
}

void SumOrAverageMoney(const Operand& operand, std::span<const std::uint32_t> rows,
                       RowStore::Place to, std::size_t cell) {
  std::int64_t units = 0;
  std::size_t count = 0;
  ForEachValue(operand, rows, [&](RowStore::Place at) {
    ++count;
    const auto value = at.chunk->Get<std::int64_t>(Cell(operand.column), at.row);
    if (__builtin_add_overflow(units, value, &units)) operand.Overflow();
  });
  if (count == 0) return;
  auto money = Currency::FromTenThousandths(units);
  if (operand.function == Function::kAvg) {
    money = Currency::FromDouble(money.ToDouble() / static_cast<double>(count));
  }
  to.chunk->Set(cell, to.row, money.TenThousandths());
}

// The row of the least or greatest value; kNone when all are Null.
constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

template <typename Read, typename Before>
std::uint32_t Extreme(const Operand& operand, std::span<const std::uint32_t> rows, Read read,
                      Before before) {
  std::uint32_t best = kNone;
  for (const std::uint32_t row : rows) {
    if (operand.store.IsNull(operand.column, row)) continue;
    if (best == kNone) {
      best = row;
      continue;
    }
    const auto value = read(row);
    const auto so_far = read(best);
    if (operand.function == Function::kMin ? before(value, so_far) : before(so_far, value)) {
      best = row;
    }
  }
  return best;
}

template <typename T>
std::uint32_t ExtremeNumber(const Operand& operand, std::span<const std::uint32_t> rows) {
  return Extreme(
      operand, rows, [&](std::uint32_t row) { return operand.store.Get<T>(operand.column, row); },
      [](T a, T b) { return a < b; });
}

std::uint32_t ExtremeRow(const Operand& operand, std::span<const std::uint32_t> rows) {
  switch (operand.store.Column(operand.column).type) {
    case adInteger:
      return ExtremeNumber<std::int32_t>(operand, rows);
    case adBigInt:
    case adCurrency:
      return ExtremeNumber<std::int64_t>(operand, rows);
    case adSingle:
      return ExtremeNumber<float>(operand, rows);
    case adDouble:
      return ExtremeNumber<double>(operand, rows);
    case adDate:
      return Extreme(
          operand, rows,
          [&](std::uint32_t row) { return Date(operand.store.Get<double>(operand.column, row)); },
          [](Date a, Date b) { return a < b; });
    default:
      return Extreme(
          operand, rows, [&](std::uint32_t row) { return operand.store.Text(operand.column, row); },
          [](std::string_view a, std::string_view b) { return CompareFolded(a, b) < 0; });
  }
}

void WriteSumOrAverage(const Operand& operand, std::span<const std::uint32_t> rows,
                       RowStore::Place to, std::size_t cell) {
  const bool sum = operand.function == Function::kSum;
  switch (operand.store.Column(operand.column).type) {
    case adInteger:
      return sum ? SumWhole<std::int32_t>(operand, rows, to, cell)
                 : SumOrAverage<std::int32_t>(operand, rows, to, cell);
    case adBigInt:
      return sum ? SumWhole<std::int64_t>(operand, rows, to, cell)
                 : SumOrAverage<std::int64_t>(operand, rows, to, cell);
    case adCurrency:
      return SumOrAverageMoney(operand, rows, to, cell);
    case adSingle:
      return SumOrAverage<float>(operand, rows, to, cell);
    default:
      return SumOrAverage<double>(operand, rows, to, cell);
  }
}

void WriteCount(const AggregatePlan& aggregate, const RowStore& chapter,
                std::span<const std::uint32_t> rows, RowStore::Place to, std::size_t cell) {
  std::size_t count = rows.size();
  if (aggregate.chapter_column) {
    count = 0;
    ForEachValue({chapter, *aggregate.chapter_column, aggregate.function}, rows,
                 [&](RowStore::Place) { ++count; });
  }
  if (count > std::numeric_limits<std::int32_t>::max()) {
    throw Error(ErrorNumber::kOverflow, "COUNT is beyond the largest number of its type");
  }
  to.chunk->Set(cell, to.row, static_cast<std::int32_t>(count));
}

template <typename T>
void CopyValue(RowStore::Place from, std::size_t column, RowStore::Place to,
               std::size_t to_column) {
  to.chunk->Set(to_column, to.row, from.chunk->Get<T>(column, from.row));
}

}  // namespace

void WriteAggregate(const AggregatePlan& aggregate, const RowStore& chapter,
                    std::span<const std::uint32_t> rows, RowStore::Place result) {
  const std::size_t cell = Cell(aggregate.column);
  if (aggregate.function == Function::kCount) {
    return WriteCount(aggregate, chapter, rows, result, cell);
  }
  const Operand operand{chapter, *aggregate.chapter_column, aggregate.function};
  switch (aggregate.function) {
    case Function::kSum:
    case Function::kAvg:
      return WriteSumOrAverage(operand, rows, result, cell);
    case Function::kMin:
    case Function::kMax:
      if (const std::uint32_t row = ExtremeRow(operand, rows); row != kNone) {
        CopyCell(chapter, operand.column, row, result, aggregate.column);
      }
      return;
    case Function::kAny:
    case Function::kCount:
      break;
  }
  if (!rows.empty()) CopyCell(chapter, operand.column, rows.front(), result, aggregate.column);
}

void CopyCell(const RowStore& from, int column, std::uint32_t row, RowStore::Place to,
              int to_column) {
  const RowStore::Place at = from.At(row);
  const std::size_t cell = Cell(column);
  const std::size_t to_cell = Cell(to_column);
  if (at.chunk->IsNull(cell, at.row)) return to.chunk->SetNull(to_cell, to.row);
  switch (from.Column(column).type) {
    case adBoolean:
      return CopyValue<std::int16_t>(at, cell, to, to_cell);
    case adInteger:
      return CopyValue<std::int32_t>(at, cell, to, to_cell);
    case adSingle:
      return CopyValue<float>(at, cell, to, to_cell);
    case adBigInt:
    case adCurrency:
      return CopyValue<std::int64_t>(at, cell, to, to_cell);
    case adDouble:
    case adDate:
      return CopyValue<double>(at, cell, to, to_cell);
    case adBSTR:
    case adVarChar:
      return to.chunk->SetText(to_cell, to.row, at.chunk->Text(cell, at.row));
    case adChapter:
    case adEmpty:
      break;
  }
}

}  // namespace pstolvane1::shape
