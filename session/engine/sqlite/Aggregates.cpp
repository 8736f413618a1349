#include <array>
#include <cmath>

#include "session/data/Currency.h"
#include "session/data/SureSum.h"
#include "session/engine/sqlite/Decimal.h"
#include "session/engine/sqlite/Functions.h"

namespace pstolvane1::sqlite {
namespace {

// The engine gives each group a block of zeros at its first row.
template <typename State>
State* StateOf(sqlite3_context* context) {
  auto* state = static_cast<State*>(sqlite3_aggregate_context(context, sizeof(State)));
  if (state == nullptr) throw std::bad_alloc();
  return state;
}
// At the end; nullptr when there was no row.
template <typename State>
State* StateAtEnd(sqlite3_context* context) {
  return static_cast<State*>(sqlite3_aggregate_context(context, 0));
}

struct MoneySum {
  std::int64_t units;
  bool any;
};

std::int64_t MoneyUnits(sqlite3_value* value, const Call& call) {
  if (sqlite3_value_type(value) != SQLITE_INTEGER) {
    return Currency::FromDouble(call.Number(0)).TenThousandths();
  }
  std::int64_t units = 0;
  if (__builtin_mul_overflow(sqlite3_value_int64(value), std::int64_t{10000}, &units)) {
    ThrowOutOfRange("an amount", "money");
  }
  return units;
}

void AddMoney(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  Guarded(context, [&] {
    auto* sum = StateOf<MoneySum>(context);
    const std::int64_t units = MoneyUnits(values[0], Call(context, values));
    if (__builtin_add_overflow(sum->units, units, &sum->units)) ThrowOutOfRange("a sum", "money");
    sum->any = true;
  });
}

void MoneyResult(sqlite3_context* context) {
  const auto* sum = StateAtEnd<MoneySum>(context);
  if (sum == nullptr || !sum->any) return;
  Guarded(context, [&] {
    Call call(context, nullptr);
    if (sum->units % 10000 == 0) return call.Return(sum->units / 10000);
    call.Return(Currency::FromTenThousandths(sum->units).ToDouble());
  });
}

void AddReal(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  Guarded(context, [&] {
    const double value = sqlite3_value_double(values[0]);
    if (!std::isfinite(value)) ThrowOutOfRange("a result", "a number");
    StateOf<SureSum>(context)->Add(value);
  });
}

void RealResult(sqlite3_context* context) {
  const auto* total = StateAtEnd<SureSum>(context);
  if (total == nullptr || total->count == 0) return;
  Guarded(context, [&] { Call(context, nullptr).Return(total->Result()); });
}

void RealAverage(sqlite3_context* context) {
  const auto* total = StateAtEnd<SureSum>(context);
  if (total == nullptr || total->count == 0) return;
  Guarded(context, [&] {
    Call(context, nullptr).Return(total->Result() / static_cast<double>(total->count));
  });
}

// The units in two halves, because the engine's block is aligned for 64 bits only.
struct DecimalSum {
  std::uint64_t low;
  std::int64_t high;
  int places;
  bool any;

  [[nodiscard]] Int128 Units() const {
    return static_cast<Int128>(high) * (static_cast<Int128>(1) << 64) + static_cast<Int128>(low);
  }
  void Set(Int128 units) {
    low = static_cast<std::uint64_t>(units);
    high = static_cast<std::int64_t>(units >> 64);
  }
};

void AddDecimal(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
  Guarded(context, [&] {
    auto* sum = StateOf<DecimalSum>(context);
    const Call call(context, values);
    sum->places = call.Setting(1);
    const std::optional<Int128> units = UnitsOf(call.Number(0), sum->places);
    if (!units) ThrowOutOfRange("a number", "a decimal");
    const Int128 total = sum->Units() + *units;
    if (total >= PowerOfTen(38) || total <= -PowerOfTen(38)) ThrowOutOfRange("a sum", "a decimal");
    sum->Set(total);
    sum->any = true;
  });
}

void DecimalResult(sqlite3_context* context) {
  const auto* sum = StateAtEnd<DecimalSum>(context);
  if (sum == nullptr || !sum->any) return;
  Guarded(context, [&] { Call(context, nullptr).Return(FromUnits(sum->Units(), sum->places)); });
}

struct OnlyValue {
  sqlite3_value* value;
};

void TakeOnly(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  Guarded(context, [&] {
    auto* only = StateOf<OnlyValue>(context);
    if (only->value != nullptr) {
      throw Error(ErrorNumber::kQueryRefused,
                  "a subquery that stands for a value gave more than one row");
    }
    only->value = sqlite3_value_dup(values[0]);
    if (only->value == nullptr) throw std::bad_alloc();
  });
}

// Called once for every group that began, also when the statement fails.
void OnlyResult(sqlite3_context* context) {
  auto* only = StateAtEnd<OnlyValue>(context);
  if (only == nullptr || only->value == nullptr) return;
  sqlite3_result_value(context, only->value);
  sqlite3_value_free(only->value);
  only->value = nullptr;
}

constexpr std::array kAggregateFunctions{
    AggregateFunction{"pst_sum_money", 1, &AddMoney, &MoneyResult},
    AggregateFunction{"pst_sum_real", 1, &AddReal, &RealResult},
    AggregateFunction{"pst_average_real", 1, &AddReal, &RealAverage},
    AggregateFunction{"pst_sum_decimal", 2, &AddDecimal, &DecimalResult},
    AggregateFunction{"pst_only", 1, &TakeOnly, &OnlyResult},
};

}  // namespace

std::span<const AggregateFunction> AggregateFunctions() { return kAggregateFunctions; }

}  // namespace pstolvane1::sqlite
