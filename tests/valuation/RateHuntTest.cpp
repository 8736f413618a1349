// The rates that stock is valued at by last purchase, last sale, standard cost and standard price.
#include <gtest/gtest.h>
#include <vector>

#include "valuation/RateHunt.h"

namespace pstolvane1 {
namespace {

const StockPeriod kYear{Date::FromYmd(2004, 4, 1), Date::FromYmd(2005, 3, 31)};
const Date kBefore = Date::FromYmd(2004, 2, 10);
const Date kFirstDay = kYear.from;
const Date kWithin = Date::FromYmd(2004, 8, 15);
const Date kLastDay = kYear.to;
const GodownBatch kKey{1, 1}, kOtherKey{2, 1};

ActualRate In(double rate, Date date) { return {.rate = rate, .date = date, .added = true}; }
ActualRate Out(double rate, Date date) { return {.rate = rate, .date = date, .added = false}; }
ActualRate Opening(double rate, const GodownBatch& key) {
  return {.rate = rate,
          .opening = true,
          .added = true,
          .godown_id = key.godown_id,
          .batch_id = key.batch_id};
}
StandardRate Cost(double rate, Date from, Date to) {
  return {.rate = rate, .from = from, .to = to, .sale = false};
}
StandardRate Price(double rate, Date from, Date to) {
  return {.rate = rate, .from = from, .to = to, .sale = true};
}

struct Item {
  std::vector<ActualRate> actual;
  std::vector<StandardRate> standard = {};

  StockRates Hunt(enmValuationMethod method, const GodownBatch& key = kKey) const {
    ItemRates rates(actual, standard, kYear);
    return HuntRates(method, rates, key);
  }
};

#define EXPECT_RATES(rates, opening_rate, closing_rate) \
  do {                                                  \
    const StockRates hunted = rates;                    \
    EXPECT_EQ(hunted.opening, opening_rate);            \
    EXPECT_EQ(hunted.closing, closing_rate);            \
  } while (false)

TEST(LastPurchase, OfTwoOnOneDateTheLaterLineWins) {
  EXPECT_RATES((Item{{In(5, kBefore), In(6, kBefore)}}.Hunt(LastPurchaseRate)), 6, 6);
}

TEST(LastPurchase, ThePeriodsFirstDayIsNotBeforeItAndItsLastDayIsInIt) {
  EXPECT_RATES((Item{{In(5, kBefore), In(6, kFirstDay), In(7, kLastDay)}}.Hunt(LastPurchaseRate)),
               5, 7);
}

TEST(LastPurchase, OpeningLinesInTwoGodownsEachGiveTheirOwnRate) {
  const Item item{{Opening(9, kKey), Opening(8, kOtherKey)}};
  EXPECT_RATES(item.Hunt(LastPurchaseRate, kKey), 9, 9);
  EXPECT_RATES(item.Hunt(LastPurchaseRate, kOtherKey), 8, 8);
  EXPECT_RATES(item.Hunt(LastPurchaseRate, {3, 1}), 0, 0);
}

TEST(LastPurchase, ARealPurchaseServesAllGodowns) {
  const Item item{{Opening(9, kKey), In(11, kBefore)}};
  EXPECT_RATES(item.Hunt(LastPurchaseRate, kKey), 11, 11);
  EXPECT_RATES(item.Hunt(LastPurchaseRate, kOtherKey), 11, 11);
}

TEST(LastPurchase, WithoutAnEarlierOneAndACostTheOpeningRateIsNothing) {
  EXPECT_RATES((Item{{In(12, kWithin)}}.Hunt(LastPurchaseRate)), 0, 12);
}

TEST(LastPurchase, TheStandardCostStandsIn) {
  const Item item{{}, {Cost(20, kBefore, kFirstDay), Cost(21, kFirstDay, kLastDay)}};
  EXPECT_RATES(item.Hunt(LastPurchaseRate), 20, 21);
}

TEST(LastPurchase, AClosingWithoutARateTakesTheOpenings) {
  // It began before the period and does not end within it.
  EXPECT_RATES((Item{{}, {Cost(20, kBefore, Date::FromYmd(2006, 1, 1))}}.Hunt(LastPurchaseRate)),
               20, 20);
}

// Goods that come in free of charge end the search for a purchase, and the first godown's opening
// rate then serves the second one as well.
TEST(LastPurchase, AtNothingTheFirstKeysOpeningRateClosesAllOfThem) {
  const Item item{{Opening(9, kKey), Opening(8, kOtherKey), In(0, kWithin)}};
  ItemRates rates(item.actual, item.standard, kYear);
  EXPECT_RATES(HuntRates(LastPurchaseRate, rates, kKey), 9, 9);
  EXPECT_RATES(HuntRates(LastPurchaseRate, rates, kOtherKey), 8, 9);
}

TEST(LastPurchase, AtNothingTheStandardCostStandsIn) {
  EXPECT_RATES((Item{{In(0, kBefore)}, {Cost(20, kBefore, kFirstDay)}}.Hunt(LastPurchaseRate)), 20,
               20);
}

TEST(LastPurchase, AnItemThatNoRateReachesIsWorthNothing) {
  EXPECT_RATES(Item{}.Hunt(LastPurchaseRate), 0, 0);
}

TEST(LastSale, PurchasesDoNotCount) {
  EXPECT_RATES((Item{{Out(30, kBefore), In(5, kBefore), Out(33, kWithin), In(6, kWithin)}}.Hunt(
                   LastSaleRate)),
               30, 33);
}

TEST(LastSale, PriceThenCostThenInwardStandIn) {
  const Item all{{In(7, kBefore)}, {Price(40, kBefore, kWithin), Cost(20, kBefore, kWithin)}};
  EXPECT_RATES(all.Hunt(LastSaleRate), 40, 40);
  const Item without_price{{In(7, kBefore)}, {Cost(20, kBefore, kWithin)}};
  EXPECT_RATES(without_price.Hunt(LastSaleRate), 20, 20);
  EXPECT_RATES((Item{{In(7, kBefore)}}.Hunt(LastSaleRate)), 7, 7);
}

TEST(LastSale, ItsFallbacksEndStrictlyBeforeTheLastDayAndItsSalesDoNot) {
  EXPECT_RATES((Item{{In(7, kLastDay)}, {Price(40, kFirstDay, kLastDay)}}.Hunt(LastSaleRate)), 0,
               0);
  EXPECT_RATES((Item{{Out(30, kLastDay)}}.Hunt(LastSaleRate)), 0, 30);
}

TEST(LastSale, AClosingWithoutARateTakesTheOpenings) {
  EXPECT_RATES((Item{{}, {Price(40, kBefore, kLastDay)}}.Hunt(LastSaleRate)), 40, 40);
}

TEST(LastSale, AtNothingTheFirstKeysOpeningRateClosesAllOfThem) {
  const Item item{{Opening(9, kKey), Opening(8, kOtherKey), Out(0, kWithin)}};
  ItemRates rates(item.actual, item.standard, kYear);
  EXPECT_RATES(HuntRates(LastSaleRate, rates, kKey), 9, 9);
  EXPECT_RATES(HuntRates(LastSaleRate, rates, kOtherKey), 8, 9);
}

TEST(LastSale, AFoundFallbackEndsTheHuntEvenAtNothing) {
  EXPECT_RATES(
      (Item{{}, {Price(0, kBefore, kWithin), Cost(20, kBefore, kWithin)}}.Hunt(LastSaleRate)), 0,
      0);
}

TEST(StandardCost, OneThatStartsOnTheFirstDayDoesNotValueTheOpening) {
  const Item item{{}, {Cost(20, kBefore, kFirstDay), Cost(25, kFirstDay, kWithin)}};
  EXPECT_RATES(item.Hunt(standardrate), 20, 25);
}

TEST(StandardCost, ComesBeforeActualLines) {
  EXPECT_RATES((Item{{In(5, kBefore)}, {Cost(20, kBefore, kFirstDay)}}.Hunt(standardrate)), 20, 20);
}

TEST(StandardCost, WithoutOneTheLastLineCounts) {
  EXPECT_RATES((Item{{In(5, kBefore), In(6, kLastDay)}}.Hunt(standardrate)), 5, 6);
}

TEST(StandardCost, AnOpeningLineOfAnotherGodownGivesNothing) {
  const Item item{{Opening(9, kOtherKey)}};
  EXPECT_RATES(item.Hunt(standardrate, kKey), 0, 0);
  EXPECT_RATES(item.Hunt(standardrate, kOtherKey), 9, 9);
}

TEST(StandardCost, AtNothingEndsTheHunt) {
  EXPECT_RATES((Item{{In(5, kBefore)}, {Cost(0, kBefore, kFirstDay)}}.Hunt(standardrate)), 0, 0);
}

TEST(StandardPrice, ThenSaleThenOpeningThenCostThenInward) {
  const std::vector<StandardRate> both = {Cost(20, kBefore, kFirstDay),
                                          Price(40, kBefore, kFirstDay)};
  const std::vector<StandardRate> cost = {Cost(20, kBefore, kFirstDay)};
  EXPECT_RATES((Item{{Out(30, kBefore)}, both}.Hunt(StandardPrice)), 40, 40);
  EXPECT_RATES((Item{{Opening(9, kKey), Out(30, kBefore)}, cost}.Hunt(StandardPrice)), 30, 30);
  EXPECT_RATES((Item{{Opening(9, kKey), In(7, kBefore)}, cost}.Hunt(StandardPrice)), 9, 9);
  EXPECT_RATES((Item{{In(7, kBefore)}, cost}.Hunt(StandardPrice)), 20, 20);
  EXPECT_RATES((Item{{In(7, kBefore)}}.Hunt(StandardPrice)), 7, 7);
  EXPECT_RATES(Item{}.Hunt(StandardPrice), 0, 0);
}

// A single holds no odd number above 16777216.
TEST(ValueAtRates, ShowsSinglesAndValuesWhatWasRead) {
  const StockFigures figures =
      ValueAtRates({.opening = 16777217, .closing = 16777218, .inwards = {1, {}}, .outwards = {}},
                   {.opening = 2, .closing = 3});
  EXPECT_EQ(figures.opening.quantity, 16777216.0F);
  EXPECT_EQ(figures.opening.value, Currency::FromDouble(33554434));
  EXPECT_EQ(figures.closing.value, Currency::FromDouble(50331654));
}

TEST(ValueAtRates, OfOpening10In5Out8) {
  const StockFigure in{5, Currency::FromDouble(30)}, out{8, Currency::FromDouble(64)};
  const StockFigures figures = ValueAtRates(
      {.opening = 10, .closing = 7, .inwards = in, .outwards = out}, {.opening = 4, .closing = 6});
  EXPECT_EQ(figures, (StockFigures{.opening = {10, Currency::FromDouble(40)},
                                   .inwards = in,
                                   .outwards = out,
                                   .closing = {7, Currency::FromDouble(42)}}));
}

}  // namespace
}  // namespace pstolvane1
