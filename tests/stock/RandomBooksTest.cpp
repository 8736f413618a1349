// What must hold between the figures of whole statements, on random books.
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "RandomBooks.h"
#include "session/clsStolvane1.h"
#include "valuation/StockFigures.h"

namespace pstolvane1 {
namespace {

constexpr enmValuationMethod kMethods[] = {
    FifoRate, LifoRate, AverageRate, LastPurchaseRate, LastSaleRate, standardrate, StandardPrice};
using Entry = decltype(&clsStolvane1::StockDetails_Itemwise);
constexpr Entry kGrouped[] = {&clsStolvane1::StockDetails_Categorywise,
                              &clsStolvane1::StockDetails_Classwise,
                              &clsStolvane1::StockDetails_Godownwise};

struct Period {
  std::uint8_t year = 1;
  Date from = Date::FromYmd(2003, 7, 1), to = Date::FromYmd(2003, 12, 31);
};
const Period kSecondYear{2, Date::FromYmd(2004, 7, 1), Date::FromYmd(2004, 12, 31)};

using Key = std::pair<std::int64_t, std::int64_t>;  // item, godown

// A statement as its twins tell it.
struct Statement {
  std::map<Key, StockFigures> keys;            // its lines by godown
  std::map<std::int64_t, StockFigures> items;  // the items' headers, or their lines under groups
  StockFigures groups;                         // the sum of the groups' lines
  std::string total;                           // "TotalValueOp TotalValueIn ..." as shown
};

class Session {
 public:
  explicit Session(const golden::SmallBooks& books) {
    session_.SetLocale("en_IN");
    session_.SetConnection("", "", books.ConnectionString(), False);
  }

  Statement Ask(Entry entry, enmValuationMethod method, const Period& period) {
    const RecordsetPtr report =
        (session_.*entry)(period.year, period.from, period.to, method, -1, 0, True, True, False, 1,
                          False, True, True, True, "", "");
    Statement statement;
    for (const Recordset::Row row : report->Rows()) Read(*report, row, statement);
    return statement;
  }
  Statement Items(enmValuationMethod method, const Period& period) {
    return Ask(&clsStolvane1::StockDetails_Itemwise, method, period);
  }

 private:
  static void Read(const Recordset& report, const Recordset::Row& row, Statement& statement) {
    const auto column = [&](const char* name) { return report.Column(name); };
    if (!row.IsNull(column("TotalValue"))) {
      for (const char* name : {"TotalValueOp", "TotalValueIn", "TotalValueOut", "TotalValue"}) {
        statement.total += std::string(row.Text(column(name))) + " ";
      }
    }
    if (row.IsNull(column("QtyOpSort"))) return;
    const auto side = [&](const std::string& name) {
      return StockFigure{row.Single(report.Column("Qty" + name + "Sort")),
                         row.Money(report.Column("Value" + name + "Sort"))};
    };
    const StockFigures figures{side("Op"), side("In"), side("Out"), side("Cl")};
    if (row.IsNull(column("Item_Id"))) {
      statement.groups += figures;
    } else if (!report.HasColumn("Godown_Id") || row.IsNull(column("Godown_Id"))) {
      statement.items[row.Int64(column("Item_Id"))] += figures;
    } else {
      statement.keys[{row.Int64(column("Item_Id")), row.Int64(column("Godown_Id"))}] = figures;
    }
  }

  clsStolvane1 session_;
};

StockFigures SumOf(const auto& lines) {
  StockFigures sum;
  for (const auto& [key, figures] : lines) sum += figures;
  return sum;
}

constexpr std::uint32_t kBooks = 10;

// Calls check with a session on each of the books, and tells which ones failed.
template <typename Check>
void OnRandomBooks(const RandomShop& shop, Check&& check) {
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    SCOPED_TRACE("books " + std::to_string(seed));
    const std::unique_ptr<golden::SmallBooks> books = RandomBooks(seed, shop);
    Session session(*books);
    check(session);
  }
}

TEST(RandomBooks, OpeningAndInMinusOutIsTheClosing) {
  OnRandomBooks({.years = 2}, [](Session& session) {
    for (const Period& period : {Period{}, kSecondYear}) {
      for (const enmValuationMethod method : kMethods) {
        for (const auto& [key, figures] : session.Items(method, period).keys) {
          const float before = figures.opening.quantity;
          const float moved = before + figures.inwards.quantity - figures.outwards.quantity;
          // FIFO counts what lies before the period twice.
          EXPECT_EQ(figures.closing.quantity, method == FifoRate ? moved + before : moved)
              << "method " << method << ", item " << key.first << ", godown " << key.second;
        }
      }
    }
  });
}

TEST(RandomBooks, LinesSumToItemsItemsToGroupsAndGroupsToTheSameTotalUnderEveryTree) {
  OnRandomBooks({.years = 2}, [](Session& session) {
    for (const enmValuationMethod method : kMethods) {
      const Statement items = session.Items(method, kSecondYear);
      std::map<std::int64_t, StockFigures> sums;
      for (const auto& [key, figures] : items.keys) sums[key.first] += figures;
      EXPECT_EQ(items.items, sums);
      for (const Entry entry : kGrouped) {
        const Statement grouped = session.Ask(entry, method, kSecondYear);
        EXPECT_EQ(grouped.items, items.items);
        EXPECT_EQ(grouped.groups, SumOf(grouped.items));
        EXPECT_EQ(grouped.total, items.total);
      }
    }
  });
}

TEST(RandomBooks, WhatMovesIsTheSameUnderEveryMethod) {
  OnRandomBooks({}, [](Session& session) {
    const Statement fifo = session.Items(FifoRate, {});
    for (const enmValuationMethod method : kMethods) {
      const Statement other = session.Items(method, {});
      for (const auto& [key, figures] : fifo.keys) {
        // A key that moves after the period alone has no line under the layers and the average.
        ASSERT_TRUE(other.keys.contains(key));
        EXPECT_EQ(other.keys.at(key).opening.quantity, figures.opening.quantity);
        EXPECT_EQ(other.keys.at(key).inwards, figures.inwards);
        EXPECT_EQ(other.keys.at(key).outwards, figures.outwards);
      }
    }
  });
}

// What is left was bought between the lowest and the highest rate.
TEST(RandomBooks, TheValueLiesBetweenTheLowestAndTheHighestRate) {
  constexpr RandomShop kShop{.years = 2, .least_rate = 7, .most_rate = 60};
  OnRandomBooks(kShop, [&](Session& session) {
    const Statement lifo = session.Items(LifoRate, kSecondYear);
    for (const enmValuationMethod method : {FifoRate, LifoRate, AverageRate}) {
      const Statement statement = session.Items(method, kSecondYear);
      for (const auto& [key, figures] : lifo.keys) {
        const auto stock = static_cast<double>(figures.closing.quantity);
        const double value = statement.keys.at(key).closing.value.ToDouble();
        EXPECT_GE(value, kShop.least_rate * stock - 0.001) << "method " << method;
        EXPECT_LE(value, kShop.most_rate * stock + 0.001) << "method " << method;
      }
    }
  });
}

TEST(RandomBooks, AtOneRateTheMethodsThatReadPurchasesAgree) {
  OnRandomBooks({.years = 2, .least_rate = 17, .most_rate = 17}, [](Session& session) {
    for (const Period& period : {Period{}, kSecondYear}) {
      const Statement lifo = session.Items(LifoRate, period);
      for (const enmValuationMethod method : {FifoRate, LifoRate, AverageRate}) {
        const Statement other = session.Items(method, period);
        for (const auto& [key, figures] : lifo.keys) {
          const auto worth = [](const StockFigure& figure) {
            return ValueAt(static_cast<double>(figure.quantity), 17);
          };
          EXPECT_EQ(other.keys.at(key).opening.value, worth(figures.opening));
          EXPECT_EQ(other.keys.at(key).closing.value, worth(figures.closing));
        }
      }
    }
  });
}

// The day before a period ends with what the period begins with.
TEST(RandomBooks, TheOpeningIsTheClosingOfTheDayBefore) {
  OnRandomBooks({}, [](Session& session) {
    const Period period;
    const Period before{1, Date::FromYmd(2003, 4, 1), Date::FromYmd(2003, 6, 30)};
    for (const enmValuationMethod method :
         {FifoRate, LifoRate, AverageRate, LastPurchaseRate, LastSaleRate}) {
      const Statement earlier = session.Items(method, before);
      const Statement later = session.Items(method, period);
      for (const auto& [key, figures] : earlier.keys) {
        ASSERT_TRUE(later.keys.contains(key));
        const StockFigure& opening = later.keys.at(key).opening;
        EXPECT_EQ(opening.value, figures.closing.value) << "method " << method;
        if (method != FifoRate) {
          EXPECT_EQ(opening.quantity, figures.closing.quantity) << "method " << method;
        }
      }
    }
  });
}

// One rate serves all godowns of an item where it was bought or sold in time.
TEST(RandomBooks, TheLastRatesAndTheStandardsValueEachItemAtOneRate) {
  OnRandomBooks({}, [](Session& session) {
    const Period year{1, Date::FromYmd(2003, 4, 1), Date::FromYmd(2004, 3, 31)};
    for (const enmValuationMethod method : {standardrate, StandardPrice}) {
      for (const auto& [key, figures] : session.Items(method, year).keys) {
        // Items 1 and 2 have a cost, item 1 a price as well.
        const double rate = method == standardrate ? (key.first == 1 ? 12 : 13) : 30;
        const bool has_one = key.first == 1 || (method == standardrate && key.first == 2);
        if (!has_one) continue;
        EXPECT_EQ(figures.opening.value,
                  ValueAt(static_cast<double>(figures.opening.quantity), rate));
        EXPECT_EQ(figures.closing.value,
                  ValueAt(static_cast<double>(figures.closing.quantity), rate));
      }
    }
  });
}

}  // namespace
}  // namespace pstolvane1
