#include "valuation/MonthAverage.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace pstolvane1 {
namespace {

double Of(float single) { return static_cast<double>(single); }
float Sum(float a, double b) { return ToSingle(Of(a) + b); }

// The number that a single shows, without the noise behind its seventh digit. The last decimal of
// the values depends on it.
double ThroughText(float single) {
  std::array<char, 32> text;
  const auto end = std::to_chars(text.begin(), text.end(), Of(single), std::chars_format::general,
                                 std::numeric_limits<float>::digits10 + 1);
  double number = 0;
  std::from_chars(text.begin(), end.ptr, number);
  return number;
}

}  // namespace

void MonthAverage::AddYear(const BalanceYear& year) {
  const double rate = year.entering == 0 ? 0 : year.entering_value / year.entering;
  const double base = year.year == 1 ? year.balance : year.entering;
  entered_ = Sum(entered_, base);
  balance_ = ToSingle(year.balance);
  Currency value = ValueAt(base, rate);
  const double openings = year.opening_balance.value_or(Of(priced_));
  if (value == Currency() && year.balance != 0 && openings == 0) {
    const StandardRate* cost =
        LastRate(costs_, [&](const StandardRate& one) { return one.year <= year.year; });
    if (cost) value = ValueAt(year.balance, cost->rate);
  }
  priced_ = balance_;
  // The first year's base is net of what went out already.
  if (year.year != 1) gone_ = Sum(gone_, year.entering - year.balance);
  if (entered_ != 0) {
    value_ =
        ValueAt(std::fabs((value_ + value).ToDouble() / Of(entered_)), Of(entered_) - Of(gone_));
  }
  entered_ = Left();
  gone_ = 0;
}

void MonthAverage::AddBefore(const StockFigure& inwards, const StockFigure& outwards) {
  entered_ = Sum(entered_, Of(inwards.quantity));
  value_ += inwards.value;
  gone_ = Sum(gone_, Of(outwards.quantity));
  balance_ = ToSingle(Of(balance_) + Of(inwards.quantity) - Of(outwards.quantity));
}

void MonthAverage::AddMonth(const StockFigure& inwards, const StockFigure& outwards) {
  AddBefore(inwards, outwards);
  priced_ = Sum(priced_, Of(inwards.quantity));
}

float MonthAverage::Left() const { return Sum(entered_, -Of(gone_)); }

StockFigure MonthAverage::Position() const {
  if (entered_ == 0) return {Left(), {}};
  const Currency rate = Currency::FromDouble(std::fabs(value_.ToDouble() / ThroughText(entered_)));
  return {Left(), ValueAt(ThroughText(Left()), rate.ToDouble())};
}

bool MonthAverage::IsUnpriced() const {
  return balance_ != 0 && priced_ == 0 && Position().value == Currency();
}

Currency MonthAverage::UnpricedOpening(Date first_day) const {
  if (!IsUnpriced()) return {};
  const StandardRate* cost =
      LastRate(costs_, [&](const StandardRate& one) { return one.from < first_day; });
  return cost ? ValueAt(Of(balance_), cost->rate) : Currency();
}

Currency MonthAverage::UnpricedMonth(const CalendarMonth& month) const {
  if (!IsUnpriced()) return {};
  const StandardRate* cost = LastRate(
      costs_, [&](const StandardRate& one) { return MonthOf(one.from).Key() <= month.Key(); });
  return cost ? ValueAt(Of(balance_), cost->rate) : Currency();
}

}  // namespace pstolvane1
