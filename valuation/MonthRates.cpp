#include "valuation/MonthRates.h"

#include <algorithm>
#include <cstddef>

namespace pstolvane1 {
namespace {

std::optional<Date> DayWhenItCounts(const ActualRate& rate) { return rate.date; }
std::optional<Date> DayWhenItCounts(const StandardRate& rate) { return rate.from; }

// One pass over the rows, whatever the number of months.
template <typename Rate, typename Test>
std::vector<const Rate*> LastAtPlaces(std::span<const Rate> rates, const StockPeriod& period,
                                      const std::vector<CalendarMonth>& months, Test&& test) {
  std::vector<const Rate*> last(months.size() + 1, nullptr);
  for (const Rate& rate : rates) {
    const std::optional<Date> day = DayWhenItCounts(rate);
    if (!day || !test(rate)) continue;
    if (*day < period.from) last[0] = &rate;
    const std::size_t place = PlaceOfMonth(months, *day);
    if (place < months.size()) last[place + 1] = &rate;
  }
  // Rows are in the order in which they count, so that the later of two has the greater address.
  for (std::size_t place = 2; place < last.size(); ++place) {
    last[place] = std::max(last[place], last[place - 1]);
  }
  return last;
}

template <typename Rate>
double RateAt(const Rate* row) {
  return row ? row->rate : 0;
}

// The first that is no 0 of rates that are sought one after the other.
template <typename First, typename... Others>
double FirstOf(First&& first, Others&&... others) {
  const double rate = first();
  if constexpr (sizeof...(others) > 0) {
    if (rate == 0) return FirstOf(others...);
  }
  return rate;
}

}  // namespace

MonthRates::MonthRates(std::span<const ActualRate> actual, std::span<const StandardRate> standard,
                       const StockPeriod& period, const std::vector<CalendarMonth>& months) {
  const auto actual_at = [&](auto&& test) { return LastAtPlaces(actual, period, months, test); };
  const auto standard_at = [&](bool sale) {
    return LastAtPlaces(standard, period, months,
                        [sale](const StandardRate& rate) { return rate.sale == sale; });
  };
  movements_ = actual_at([](const ActualRate&) { return true; });
  outward_ = actual_at([](const ActualRate& rate) { return rate.added == false; });
  inward_ = actual_at([](const ActualRate& rate) { return rate.added == true; });
  costs_ = standard_at(false);
  prices_ = standard_at(true);
  for (const ActualRate& rate : actual) {
    if (!rate.opening) continue;
    const GodownBatch key{rate.godown_id, rate.batch_id};
    openings_[key] = &rate;
    if (rate.added == false) outward_openings_[key] = &rate;
    if (rate.added == true) inward_openings_[key] = &rate;
  }
}

double MonthRates::OpeningOf(const Openings& openings, const GodownBatch& key) {
  const auto found = openings.find(key);
  return found == openings.end() ? 0 : found->second->rate;
}

double MonthRates::Of(enmValuationMethod method, const GodownBatch& key, std::size_t place) const {
  const auto real_or_own_opening = [&](const Places<ActualRate>& places) {
    const ActualRate* found = places[place];
    return found && !found->opening ? found->rate : OpeningOf(openings_, key);
  };
  const auto at = [place](const auto& places) {
    return [&places, place] { return RateAt(places[place]); };
  };
  const auto opening = [&key](const Openings& openings) {
    return [&openings, &key] { return OpeningOf(openings, key); };
  };
  switch (method) {
    case LastPurchaseRate:
      return FirstOf([&] { return real_or_own_opening(movements_); }, at(costs_));
    case LastSaleRate:
      return FirstOf([&] { return real_or_own_opening(outward_); }, at(prices_), at(costs_),
                     at(inward_));
    case standardrate:
      return FirstOf(at(costs_), at(movements_), opening(openings_));
    default:
      return FirstOf(at(prices_), at(outward_), opening(outward_openings_), at(costs_), at(inward_),
                     opening(inward_openings_));
  }
}

}  // namespace pstolvane1
