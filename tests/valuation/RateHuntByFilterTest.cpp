// The hunts against a slow and plain form of themselves, which filters the rows for every link of
// the chain and keeps the rates from key to key.
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "valuation/RateHunt.h"

namespace pstolvane1 {
namespace {

const StockPeriod kPeriod{Date::FromYmd(2004, 4, 1), Date::FromYmd(2005, 3, 31)};

struct Books {
  std::vector<ActualRate> actual;
  std::vector<StandardRate> standard;
};

template <typename Row>
std::vector<Row> Filter(const std::vector<Row>& rows, const std::function<bool(const Row&)>& test) {
  std::vector<Row> kept;
  for (const Row& row : rows) {
    if (test(row)) kept.push_back(row);
  }
  return kept;
}

class ByFilter {
 public:
  ByFilter(const Books& books, enmValuationMethod method) : books_(books), method_(method) {}

  StockRates Hunt(const GodownBatch& key) {
    key_ = key;
    if (method_ == standardrate) return {StandardCost(true), StandardCost(false)};
    if (method_ == StandardPrice) return {StandardPriceOf(true), StandardPriceOf(false)};
    if (!has_opening_) Actual(true, opening_, has_opening_);
    if (opening_ == 0) Standing(true, opening_);
    if (!has_closing_) Actual(false, closing_, has_closing_);
    if (closing_ == 0 && !Standing(false, closing_)) closing_ = opening_;
    return {opening_, closing_};
  }

 private:
  static bool InTime(const ActualRate& row, bool opening) {
    return row.date && (opening ? *row.date < kPeriod.from : *row.date <= kPeriod.to);
  }
  std::vector<ActualRate> OfKey() const {
    return Filter<ActualRate>(books_.actual, [this](const ActualRate& row) {
      return row.opening && row.godown_id == key_.godown_id && row.batch_id == key_.batch_id;
    });
  }

  // The last purchase or sale, and else the opening lines.
  void Actual(bool opening, double& rate, bool& found_one) {
    std::vector<ActualRate> rows = Filter<ActualRate>(books_.actual, [&](const ActualRate& row) {
      return InTime(row, opening) && (method_ == LastPurchaseRate || row.added == false);
    });
    if (rows.empty()) {
      rows = Filter<ActualRate>(books_.actual, [](const ActualRate& row) { return row.opening; });
    }
    if (!rows.empty() && rows.back().opening) rows = OfKey();
    rate = rows.empty() ? 0 : rows.back().rate;
    if (!rows.empty() && !rows.back().opening) found_one = true;
  }

  // The standards behind them; false where the opening rate is to stand in for the closing.
  bool Standing(bool opening, double& rate) {
    if (method_ == LastPurchaseRate) {
      const auto rows = Standards(false, [&](const StandardRate& row) {
        return opening ? row.from < kPeriod.from : row.to <= kPeriod.to;
      });
      if (!rows.empty()) rate = rows.back().rate;
      return rate != 0;
    }
    for (const bool sale : {true, false}) {
      const auto rows = Standards(sale, [&](const StandardRate& row) {
        return opening ? row.from < kPeriod.from : row.to < kPeriod.to;
      });
      if (rows.empty()) continue;
      rate = rows.back().rate;
      return true;
    }
    const auto inward = Filter<ActualRate>(books_.actual, [&](const ActualRate& row) {
      return row.added == true && row.date && *row.date < (opening ? kPeriod.from : kPeriod.to);
    });
    if (inward.empty()) return false;
    rate = inward.back().rate;
    return true;
  }

  std::vector<StandardRate> Standards(bool sale,
                                      const std::function<bool(const StandardRate&)>& test) const {
    return Filter<StandardRate>(
        books_.standard, [&](const StandardRate& row) { return row.sale == sale && test(row); });
  }
  std::vector<StandardRate> InForce(bool sale, bool opening) const {
    return Standards(sale, [opening](const StandardRate& row) {
      return opening ? row.from < kPeriod.from : row.to <= kPeriod.to;
    });
  }

  double StandardCost(bool opening) const {
    if (const auto costs = InForce(false, opening); !costs.empty()) return costs.back().rate;
    const auto rows = Filter<ActualRate>(
        books_.actual, [&](const ActualRate& row) { return InTime(row, opening); });
    if (!rows.empty() && !rows.back().opening) return rows.back().rate;
    const auto own = OfKey();
    return own.empty() ? 0 : own.back().rate;
  }

  double StandardPriceOf(bool opening) const {
    if (const auto prices = InForce(true, opening); !prices.empty()) return prices.back().rate;
    const auto moved = [&](bool added) {
      return Filter<ActualRate>(books_.actual, [&](const ActualRate& row) {
        return row.added == added && InTime(row, opening);
      });
    };
    if (const auto sales = moved(false); !sales.empty() && !sales.back().opening) {
      return sales.back().rate;
    }
    if (const auto own = OfKey(); !own.empty()) return own.back().rate;
    if (const auto costs = InForce(false, opening); !costs.empty()) return costs.back().rate;
    const auto inward = moved(true);
    return inward.empty() ? 0 : inward.back().rate;
  }

  const Books& books_;
  enmValuationMethod method_;
  GodownBatch key_;
  double opening_ = 0, closing_ = 0;
  bool has_opening_ = false, has_closing_ = false;
};

class RandomRates {
 public:
  explicit RandomRates(std::uint32_t seed) : random_(seed) {}

  Books Pick(enmValuationMethod method) {
    const bool costs_alone = method == LastPurchaseRate || method == standardrate;
    Books books;
    for (int i = Pick(0, 5); i > 0; --i) {
      const bool opening = Pick(0, 3) == 0;
      books.actual.push_back(
          {.rate = Rate(),
           .date = opening && Pick(0, 1) == 0 ? std::nullopt : std::optional(Day()),
           .opening = opening,
           .added = costs_alone || Pick(0, 1) == 0,
           .godown_id = Pick(1, 2),
           .batch_id = Pick(1, 2)});
    }
    for (int i = Pick(0, 3); i > 0; --i) {
      const Date from = Day();
      books.standard.push_back({.rate = Rate(),
                                .from = from,
                                .to = Date(from.Serial() + Pick(0, 500)),
                                .sale = !costs_alone && Pick(0, 1) == 0});
    }
    return books;
  }
  GodownBatch Key() { return {Pick(1, 2), Pick(1, 2)}; }

 private:
  int Pick(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }
  // Often 0, as goods that are free of charge are.
  double Rate() { return Pick(0, 3) == 0 ? 0 : Pick(1, 99); }
  // Around the first and the last day, and on them.
  Date Day() {
    const Date& edge = Pick(0, 1) == 0 ? kPeriod.from : kPeriod.to;
    return Date(edge.Serial() + Pick(-2, 2));
  }

  std::mt19937 random_;
};

TEST(RateHunt, AgreesWithFilteringForEveryLinkOnRandomRows) {
  RandomRates random(23);
  for (const enmValuationMethod method :
       {LastPurchaseRate, LastSaleRate, standardrate, StandardPrice}) {
    for (int i = 0; i < 20'000; ++i) {
      const Books books = random.Pick(method);
      ByFilter plain(books, method);
      ItemRates item(books.actual, books.standard, kPeriod);
      for (int key = 0; key < 3; ++key) {
        const GodownBatch of = random.Key();
        const StockRates expected = plain.Hunt(of), hunted = HuntRates(method, item, of);
        ASSERT_EQ(hunted.opening, expected.opening) << "method " << method << ", books " << i;
        ASSERT_EQ(hunted.closing, expected.closing) << "method " << method << ", books " << i;
      }
    }
  }
}

}  // namespace
}  // namespace pstolvane1
