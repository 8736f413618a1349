#include <array>
#include <cmath>
#include <fmt/format.h>
#include <limits>

#include "session/data/Currency.h"
#include "session/engine/sqlite/Decimal.h"
#include "session/engine/sqlite/Functions.h"

namespace pstolvane1::sqlite {
namespace {

constexpr std::int64_t kLargestMoney = std::numeric_limits<std::int64_t>::max() / 10000;

std::string_view NameOfBits(int bits) {
  return bits == 32 ? "a 32-bit whole number" : "a 64-bit whole number";
}

bool Fits(std::int64_t x, int bits) {
  return bits != 32 || (x >= std::numeric_limits<std::int32_t>::min() &&
                        x <= std::numeric_limits<std::int32_t>::max());
}

void ReturnWhole(Call& call, std::int64_t x, int bits) {
  if (!Fits(x, bits)) ThrowOutOfRange(fmt::format("{}", x), NameOfBits(bits));
  call.Return(x);
}

void ReturnWhole(Call& call, double x, int bits) {
  constexpr double kLimit = 9223372036854775808.0;
  if (!(x >= -kLimit && x < kLimit)) ThrowOutOfRange(fmt::format("{}", x), NameOfBits(bits));
  ReturnWhole(call, static_cast<std::int64_t>(x), bits);
}

// To a multiple of 10 to the power of zeros, half away from zero: 1250 of 2 zeros is 1300.
Int128 RoundWhole(std::int64_t x, int zeros) {
  constexpr int kMostZeros = 19;  // 10^19 is more than twice any 64-bit number
  if (zeros > kMostZeros) return 0;
  const Int128 unit = PowerOfTen(zeros);
  const Int128 half = x < 0 ? -unit / 2 : unit / 2;
  return (x + half) / unit * unit;
}

void Money(Call& call) {
  if (call.IsWhole(0)) {
    const std::int64_t x = call.Whole(0);
    if (x > kLargestMoney || x < -kLargestMoney) ThrowOutOfRange(fmt::format("{}", x), "money");
    return call.Return(x);
  }
  call.Return(Currency::FromDouble(call.Number(0)).ToDouble());
}

void Round(Call& call) {
  const int places = call.Setting(1);
  if (!call.IsWhole(0)) return call.Return(RoundDecimal(call.Number(0), places));
  if (places >= 0) return call.ReturnArgument(0);
  const Int128 rounded = RoundWhole(call.Whole(0), -places);
  if (rounded != static_cast<std::int64_t>(rounded)) {
    ThrowOutOfRange("a rounded number", NameOfBits(64));
  }
  call.Return(static_cast<std::int64_t>(rounded));
}

void Finite(Call& call) {
  if (!std::isfinite(call.Number(0))) ThrowOutOfRange("a result", "a number");
  call.ReturnArgument(0);
}

void DecimalOf(Call& call) {
  const int before_point = call.Setting(1) - call.Setting(2);
  const double x = call.Number(0);
  const double rounded = RoundDecimal(x, call.Setting(2));
  if (!(std::fabs(rounded) < FromUnits(PowerOfTen(before_point), 0))) {
    ThrowOutOfRange(fmt::format("{}", x),
                    fmt::format("a decimal of {} digits before the point", before_point));
  }
  if (call.IsWhole(0)) return call.ReturnArgument(0);
  call.Return(rounded);
}

void FitsBits(Call& call) {
  if (!call.IsWhole(0)) {
    ThrowOutOfRange(fmt::format("{}", call.Number(0)), NameOfBits(call.Setting(1)));
  }
  ReturnWhole(call, call.Whole(0), call.Setting(1));
}

void Cut(Call& call) {
  if (call.IsWhole(0)) return ReturnWhole(call, call.Whole(0), call.Setting(1));
  ReturnWhole(call, std::trunc(call.Number(0)), call.Setting(1));
}

void Nearest(Call& call) {
  if (call.IsWhole(0)) return ReturnWhole(call, call.Whole(0), call.Setting(1));
  ReturnWhole(call, RoundDecimal(call.Number(0), 0), call.Setting(1));
}

void DivideWhole(Call& call) {
  const std::int64_t a = call.Whole(0);
  const std::int64_t b = call.Whole(1);
  if (b == 0) ThrowDivisionByZero();
  if (b == -1 && a == std::numeric_limits<std::int64_t>::min()) {
    ThrowOutOfRange("a quotient", NameOfBits(call.Setting(2)));
  }
  ReturnWhole(call, a / b, call.Setting(2));
}

void Modulo(Call& call) {
  const std::int64_t a = call.Whole(0);
  const std::int64_t b = call.Whole(1);
  if (b == 0) ThrowDivisionByZero();
  call.Return(b == -1 ? std::int64_t{0} : a % b);
}

void DivideReal(Call& call) {
  const double a = call.Number(0);
  const double b = call.Number(1);
  if (b == 0) ThrowDivisionByZero();
  call.Return(a / b);
}

// 10.00 / 3.0 to six places, as 1000 of 2 places by 30 of 1 place: 1000 * 10^(6 - 2 + 1) / 30 =
// 3333333, which is 3.333333.
void DivideDecimal(Call& call) {
  const int a_places = call.Setting(1);
  const int b_places = call.Setting(3);
  int places = call.Setting(4);
  const std::optional<Int128> a = UnitsOf(call.Number(0), a_places);
  const std::optional<Int128> b = UnitsOf(call.Number(2), b_places);
  if (!a || !b) ThrowOutOfRange("a number of a division", "a decimal");
  if (*b == 0) ThrowDivisionByZero();
  // Places that do not fit into 38 digits are beyond what a double can show of the quotient.
  const Int128 magnitude = *a < 0 ? -*a : *a;
  Int128 room = magnitude == 0 ? PowerOfTen(38) : PowerOfTen(38) / magnitude;
  int shift = 0;
  while (room >= 10) {
    room /= 10;
    ++shift;
  }
  const int wanted = places - a_places + b_places;
  if (wanted > shift) places -= wanted - shift;
  const int scale = places - a_places + b_places;
  const Int128 quotient = scale >= 0 ? *a * PowerOfTen(scale) / *b : *a / *b / PowerOfTen(-scale);
  call.Return(places >= 0 ? FromUnits(quotient, places)
                          : FromUnits(quotient, 0) * FromUnits(PowerOfTen(-places), 0));
}

constexpr std::array kNumberFunctions{
    ScalarFunction{"pst_money", 1, &Scalar<Money>},
    ScalarFunction{"pst_finite", 1, &Scalar<Finite>},
    ScalarFunction{"pst_round", 2, &Scalar<Round>},
    ScalarFunction{"pst_decimal", 3, &Scalar<DecimalOf>},
    ScalarFunction{"pst_fits", 2, &Scalar<FitsBits>},
    ScalarFunction{"pst_cut", 2, &Scalar<Cut>},
    ScalarFunction{"pst_nearest", 2, &Scalar<Nearest>},
    ScalarFunction{"pst_div_whole", 3, &Scalar<DivideWhole>},
    ScalarFunction{"pst_mod", 2, &Scalar<Modulo>},
    ScalarFunction{"pst_div_real", 2, &Scalar<DivideReal>},
    ScalarFunction{"pst_div_decimal", 5, &Scalar<DivideDecimal>},
};

}  // namespace

std::span<const ScalarFunction> NumberFunctions() { return kNumberFunctions; }

}  // namespace pstolvane1::sqlite
