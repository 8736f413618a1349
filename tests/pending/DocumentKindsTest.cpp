// Each row of the table of pending conditions, on both sides of each of its conditions.
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

#include "pending/DocumentKinds.h"

namespace pstolvane1 {
namespace {

constexpr std::int32_t kAllTypes[] = {0,  7,  8,  10, 11, 12, 13, 14, 15,
                                      16, 17, 18, 19, 20, 23, 24, 25};

bool Pends(std::int32_t type, std::int32_t executed_type, bool optional, float executed,
           float quantity = 10) {
  return IsPending({.type = type,
                    .executed_type = executed_type,
                    .optional = optional,
                    .quantity = quantity,
                    .executed = executed});
}

// A movement of the type is settled by these, and no others: of it 4 of 10 are executed.
void ExpectSettledBy(std::int32_t type, std::initializer_list<std::int32_t> always,
                     std::initializer_list<std::int32_t> unless_optional) {
  const auto in = [](std::int32_t one, std::initializer_list<std::int32_t> list) {
    return std::find(list.begin(), list.end(), one) != list.end();
  };
  for (const std::int32_t executed : kAllTypes) {
    SCOPED_TRACE("type " + std::to_string(type) + " executes " + std::to_string(executed));
    const bool settled = in(executed, always);
    EXPECT_EQ(Pends(type, executed, false, 4), !settled && !in(executed, unless_optional));
    EXPECT_EQ(Pends(type, executed, true, 4), !settled);
  }
}

void ExpectPendingWhileSomethingIsLeft(std::int32_t type, std::int32_t executes = 0) {
  SCOPED_TRACE("type " + std::to_string(type));
  EXPECT_TRUE(Pends(type, executes, true, 9.5F));
  EXPECT_FALSE(Pends(type, executes, true, 10));
  EXPECT_FALSE(Pends(type, executes, true, 10.5F));
}

TEST(IsPending, SaleBillsWaitForDeliveriesUnlessTheyMovedTheGoods) {
  ExpectSettledBy(10, {15}, {23, 13, 0});
  ExpectPendingWhileSomethingIsLeft(10);
  ExpectPendingWhileSomethingIsLeft(10, 13);
}

TEST(IsPending, PurchaseBillsWaitForDeliveriesUnlessTheyMovedTheGoods) {
  ExpectSettledBy(7, {14}, {24, 12, 0});
  ExpectPendingWhileSomethingIsLeft(7);
  ExpectPendingWhileSomethingIsLeft(7, 12);
}

TEST(IsPending, ReturnsAreAlwaysPendingUntilTheyAreSettled) {
  for (const auto& [type, settled_by] : {std::pair{11, 16}, std::pair{8, 17}}) {
    SCOPED_TRACE("type " + std::to_string(type));
    for (const std::int32_t executed : kAllTypes) {
      EXPECT_EQ(Pends(type, executed, false, 4), executed != settled_by && executed != 0);
      EXPECT_EQ(Pends(type, executed, true, 4), executed != settled_by);
    }
    EXPECT_TRUE(Pends(type, 0, true, 10));
    EXPECT_TRUE(Pends(type, 0, true, 10.5F));
    EXPECT_TRUE(Pends(type, 10, false, 10));
  }
}

TEST(IsPending, DeliveriesAndReturnedGoodsWaitForTheirPapers) {
  const std::pair<std::int32_t, std::int32_t> kSettled[] = {{15, 10}, {14, 7}, {17, 8}, {16, 11}};
  for (const auto& [type, settled_by] : kSettled) {
    ExpectSettledBy(type, {settled_by}, {});
    ExpectPendingWhileSomethingIsLeft(type);
  }
}

TEST(IsPending, FinishedGoodsArePendingAsOptionalMovementsOnly) {
  for (const std::int32_t executed : kAllTypes) {
    EXPECT_FALSE(Pends(20, executed, false, 4)) << executed;
    EXPECT_EQ(Pends(20, executed, true, 4), executed != 19) << executed;
  }
  ExpectPendingWhileSomethingIsLeft(20);
}

TEST(IsPending, MaterialsAreSettledByFinishedGoodsUnlessTheyAreOptional) {
  ExpectSettledBy(19, {}, {20});
  ExpectPendingWhileSomethingIsLeft(19, 20);
}

TEST(IsPending, AnyOtherTypeIsPendingWhileSomethingIsLeft) {
  for (const std::int32_t type : {0, 12, 13, 18, 23, 24, 25, 99}) {
    ExpectSettledBy(type, {}, {});
    ExpectPendingWhileSomethingIsLeft(type);
  }
}

TEST(ChainedMovement, MoreMayBeExecutedThanThereWas) {
  EXPECT_EQ((ChainedMovement{.quantity = 2, .executed = 3}.Left()), -1);
}

TEST(HeadingOf, NamesEveryListedKindAndNoOther) {
  EXPECT_EQ(HeadingOf(12), "Pending Purchase Orders:");
  EXPECT_EQ(HeadingOf(13), "Pending Sales Orders:");
  EXPECT_EQ(HeadingOf(23), "Pending Quotations:");
  EXPECT_EQ(HeadingOf(24), "Pending Enquries:");
  EXPECT_EQ(HeadingOf(10), "Deliveries to Make:");
  EXPECT_EQ(HeadingOf(7), "Deliveries to Come:");
  EXPECT_EQ(HeadingOf(14), "Purchase Bills to Come:");
  EXPECT_EQ(HeadingOf(15), "Sale Bills to Make:");
  EXPECT_EQ(HeadingOf(20), "Finished Goods to Come:");
  EXPECT_EQ(HeadingOf(19), "Materials to Send:");
  EXPECT_EQ(HeadingOf(8), "Rejections to Make:");
  EXPECT_EQ(HeadingOf(11), "Rejections to Come:");
  EXPECT_EQ(HeadingOf(16), "Sales Returns to Adjust:");
  EXPECT_EQ(HeadingOf(17), "Purchase Returns to Adjust:");
  for (const std::int32_t type : {0, 9, 18, 25, -1}) EXPECT_EQ(HeadingOf(type), "") << type;
}

std::string ListOf(std::span<const std::int32_t> types) {
  std::string text;
  for (const std::int32_t type : types) text += std::to_string(type) + " ";
  return text;
}

TEST(ChainOf, TellsWhatWaitsAndWhatExecutes) {
  const struct {
    std::int32_t type;
    std::string waiting, executing;
  } kChains[] = {
      {7, "14 ", "14 12 7 "},      {8, "17 ", "17 8 "},       {10, "15 ", "15 13 10 "},
      {11, "16 ", "16 11 "},       {12, "12 ", "12 14 7 "},   {13, "13 ", "13 15 10 "},
      {14, "7 ", "7 12 14 "},      {15, "10 ", "10 13 15 "},  {16, "11 15 ", "11 15 16 10 "},
      {17, "8 14 ", "8 14 17 7 "}, {19, "20 ", "20 19 "},     {20, "19 ", "19 20 "},
      {23, "23 ", "23 13 15 10 "}, {24, "24 ", "24 12 14 7 "}};
  for (const auto& [type, waiting, executing] : kChains) {
    const DocumentChain* const chain = ChainOf(type);
    ASSERT_NE(chain, nullptr) << type;
    EXPECT_EQ(ListOf(chain->waiting), waiting) << type;
    EXPECT_EQ(ListOf(chain->executing), executing) << type;
  }
  for (const std::int32_t type : {0, 9, 18, 25, -1}) EXPECT_EQ(ChainOf(type), nullptr) << type;
}

}  // namespace
}  // namespace pstolvane1
