// What must hold between whole month ledgers, and between them and the stock statements, on random
// books.
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "Ledgers.h"
#include "stock/RandomBooks.h"

namespace pstolvane1 {
namespace {

constexpr std::uint32_t kBooks = 2;
constexpr int kYears = 2;
constexpr int kItems[] = {1, 2, 3};

// Calls check(session, year) for both years of each of the books, and tells where it failed.
template <typename Check>
void OnRandomBooks(Check&& check) {
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    const std::unique_ptr<golden::SmallBooks> books = RandomBooks(seed, {.years = kYears});
    for (int year = 1; year <= kYears; ++year) {
      SCOPED_TRACE("books " + std::to_string(seed) + ", year " + std::to_string(year));
      LedgerSession session(*books, year);
      check(session, year);
    }
  }
}

// From within July to within December.
StockPeriod HalfOf(int year) {
  return {Date::FromYmd(2002 + year, 7, 10), Date::FromYmd(2002 + year, 12, 15)};
}

// A rate is rounded at the fourth place before it meets some hundred pieces.
void ExpectNear(const StockFigure& figure, const StockFigure& other) {
  EXPECT_EQ(figure.quantity, other.quantity);
  EXPECT_NEAR(figure.value.ToDouble(), other.value.ToDouble(), 0.02);
}

TEST(RandomLedgers, TheClosingOfAMonthIsTheOpeningOfTheNext) {
  OnRandomBooks([](LedgerSession& session, int year) {
    for (const enmValuationMethod method : kMonthlyMethods) {
      const Ledger whole = session.OfItem(method, YearOf(year), 1);
      ASSERT_EQ(whole.months.size(), 12U);
      Currency before = whole.opening.value;
      for (const LedgerLine& month : whole.months) {
        EXPECT_EQ(month.opening, before) << "method " << method << ", " << month.month;
        before = month.closing.value;
      }
    }
  });
}

// From July, and from January of the next calendar year.
TEST(RandomLedgers, ALedgerThatBeginsLaterGoesOnWhereTheYearStands) {
  OnRandomBooks([](LedgerSession& session, int year) {
    for (const enmValuationMethod method : kMonthlyMethods) {
      const StockPeriod period = YearOf(year);
      const Ledger whole = session.OfItem(method, period, 2);
      for (const std::size_t skipped : {std::size_t{3}, std::size_t{9}}) {
        const Date from =
            skipped == 3 ? Date::FromYmd(2002 + year, 7, 1) : Date::FromYmd(2003 + year, 1, 1);
        const Ledger later = session.OfItem(method, {from, period.to}, 2);
        EXPECT_EQ(later.opening, whole.months[skipped - 1].closing) << "method " << method;
        // The simple average forgets what went out before it begins.
        if (method == SimpleAvg) continue;
        const std::vector<LedgerLine> rest(
            whole.months.begin() + static_cast<std::ptrdiff_t>(skipped), whole.months.end());
        EXPECT_EQ(later.months, rest) << "method " << method;
      }
    }
  });
}

TEST(RandomLedgers, TheMonthsSumToTheTotals) {
  OnRandomBooks([](LedgerSession& session, int year) {
    for (const enmValuationMethod method : kMonthlyMethods) {
      const Ledger ledger = session.OfItem(method, HalfOf(year), 1);
      StockFigures sums;
      for (const LedgerLine& month : ledger.months) {
        sums.inwards += month.inwards;
        sums.outwards += month.outwards;
      }
      sums.closing = ledger.months.back().closing;
      EXPECT_EQ(ledger.totals, sums) << "method " << method;
      sums.opening = ledger.opening;
      const StockProfit profit = ReckonStockProfit(sums);
      const bool shown = profit.balance < Currency() || sums.outwards.quantity > 0;
      EXPECT_EQ(ledger.profit, shown ? profit.GrossProfit() : Currency()) << "method " << method;
    }
  });
}

TEST(RandomLedgers, OpeningAndInMinusOutIsTheClosingOfEveryMonth) {
  OnRandomBooks([](LedgerSession& session, int year) {
    for (const enmValuationMethod method : kMonthlyMethods) {
      const Ledger ledger = session.OfItem(method, HalfOf(year), 3);
      float left = ledger.opening.quantity;
      for (const LedgerLine& month : ledger.months) {
        left += month.inwards.quantity - month.outwards.quantity;
        EXPECT_EQ(month.closing.quantity, left) << "method " << method << ", " << month.month;
      }
    }
  });
}

TEST(RandomLedgers, WhatMovesIsTheSameUnderEveryMethod) {
  OnRandomBooks([](LedgerSession& session, int year) {
    const Ledger fifo = session.OfItem(FifoRate, HalfOf(year), 2);
    for (const enmValuationMethod method : kMonthlyMethods) {
      const Ledger other = session.OfItem(method, HalfOf(year), 2);
      ASSERT_EQ(other.months.size(), fifo.months.size());
      for (std::size_t i = 0; i < fifo.months.size(); ++i) {
        EXPECT_EQ(other.months[i].inwards, fifo.months[i].inwards) << "method " << method;
        EXPECT_EQ(other.months[i].outwards, fifo.months[i].outwards) << "method " << method;
      }
    }
  });
}

// Of the methods that ask the same of the books.
TEST(RandomLedgers, OpeningAndLastClosingAreThoseOfTheStockStatement) {
  OnRandomBooks([](LedgerSession& session, int year) {
    const StockPeriod period = HalfOf(year);
    for (const int item : kItems) {
      for (const enmValuationMethod method :
           {FifoRate, LifoRate, LastPurchaseRate, LastSaleRate, standardrate, StandardPrice}) {
        // The first item has a price, which the ledger of the last sale does not read; the others
        // have none, and the ledger of the price looks at purchases for them.
        if (method == LastSaleRate && item == 1) continue;
        if (method == StandardPrice && item != 1) continue;
        SCOPED_TRACE("method " + std::to_string(method) + ", item " + std::to_string(item));
        const Ledger ledger = session.OfItem(method, period, item);
        StockFigures statement = session.Statement(method, period, item);
        // The statement counts what lies before the period twice.
        if (method == FifoRate) statement.closing.quantity -= statement.opening.quantity;
        EXPECT_EQ(ledger.opening, statement.opening);
        EXPECT_EQ(ledger.months.back().closing, statement.closing);
      }
    }
  });
}

TEST(RandomLedgers, TheAveragesAreThoseOfTheStockStatementButForTheRounding) {
  OnRandomBooks([](LedgerSession& session, int year) {
    for (const int item : kItems) {
      SCOPED_TRACE("item " + std::to_string(item));
      const StockPeriod half = HalfOf(year);
      const Ledger average = session.OfItem(AverageRate, half, item);
      const StockFigures statement = session.Statement(AverageRate, half, item);
      ExpectNear(average.months.back().closing, statement.closing);
      // Later the statement averages its opening over the inwards of all years.
      if (year == 1) ExpectNear(average.opening, statement.opening);
      // A simple average that begins with the year has nothing to forget.
      const Ledger simple = session.OfItem(SimpleAvg, YearOf(year), item);
      const StockFigures of_the_year = session.Statement(SimpleAvg, YearOf(year), item);
      ExpectNear(simple.opening, of_the_year.opening);
      ExpectNear(simple.months.back().closing, of_the_year.closing);
    }
  });
}

void ExpectSum(const Ledger& group, const std::vector<Ledger>& parts) {
  StockFigure opening;
  StockFigures totals;
  std::vector<LedgerLine> months(group.months.size());
  for (const Ledger& part : parts) {
    opening += part.opening;
    totals += part.totals;
    ASSERT_EQ(part.months.size(), months.size());
    for (std::size_t i = 0; i < months.size(); ++i) {
      const LedgerLine& month = part.months[i];
      months[i].month = month.month;
      months[i].inwards += month.inwards;
      months[i].outwards += month.outwards;
      months[i].closing += month.closing;
      months[i].opening += month.opening;
    }
  }
  EXPECT_EQ(group.opening, opening);
  EXPECT_EQ(group.months, months);
  EXPECT_EQ(group.totals, totals);
}

TEST(RandomLedgers, ItemsSumToTheirCategoryAndTheirClass) {
  OnRandomBooks([](LedgerSession& session, int year) {
    for (const enmValuationMethod method : kMonthlyMethods) {
      SCOPED_TRACE("method " + std::to_string(method));
      const StockPeriod period = HalfOf(year);
      std::vector<Ledger> items;
      for (const int item : kItems) items.push_back(session.OfItem(method, period, item));
      ExpectSum(session.Of(&clsStolvane1::Monthly_Categorywise, method, period, 2),
                {items[1], items[2]});
      ExpectSum(session.Of(&clsStolvane1::Monthly_Classwise, method, period, 1),
                {items[0], items[1]});
    }
  });
}

TEST(RandomLedgers, ItemsInAGodownSumToTheGodown) {
  OnRandomBooks([](LedgerSession& session, int year) {
    for (const enmValuationMethod method : kMonthlyMethods) {
      SCOPED_TRACE("method " + std::to_string(method));
      const StockPeriod period = HalfOf(year);
      std::vector<Ledger> items;
      for (const int item : kItems) items.push_back(session.InGodown(method, period, item, 2));
      ExpectSum(session.Of(&clsStolvane1::Monthly_Godownwise, method, period, 2), items);
    }
  });
}

// The hunted rates and the simple average look beyond the godown.
TEST(RandomLedgers, TheGodownsOfAnItemSumToItWhereEachIsValuedByItself) {
  OnRandomBooks([](LedgerSession& session, int year) {
    for (const enmValuationMethod method : {FifoRate, LifoRate, AverageRate}) {
      SCOPED_TRACE("method " + std::to_string(method));
      const StockPeriod period = HalfOf(year);
      std::vector<Ledger> godowns;
      for (const int godown : {1, 2, 3}) {
        godowns.push_back(session.InGodown(method, period, 1, godown));
      }
      ExpectSum(session.OfItem(method, period, 1), godowns);
    }
  });
}

}  // namespace
}  // namespace pstolvane1
