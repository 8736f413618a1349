// Which groups of a tree a statement lists.
#include <gtest/gtest.h>

#include "session/data/Error.h"
#include "valuation/GroupTree.h"

namespace pstolvane1 {
namespace {

// By name, as the query gives them.
const std::vector<StockGroup> kGroups = {
    {.id = 4, .related_to = 2, .name = "Brakes"},  {.id = 5, .related_to = 3, .name = "Cars"},
    {.id = 6, .related_to = 2, .name = "Lamps"},   {.id = 2, .related_to = 1, .name = "Spares"},
    {.id = 1, .related_to = 0, .name = "Stock"},   {.id = 7, .related_to = 4, .name = "Shoes"},
    {.id = 3, .related_to = 1, .name = "Vehicles"}};

std::vector<std::string> Names(std::int32_t root, bool only_items = false) {
  std::vector<std::string> names;
  for (const std::size_t place : ListGroups(kGroups, root, only_items)) {
    names.push_back(kGroups[place].name);
  }
  return names;
}
using List = std::vector<std::string>;

TEST(GroupTree, MinusOneListsEveryGroupOnceInTheirOrder) {
  EXPECT_EQ(Names(-1), (List{"Brakes", "Cars", "Lamps", "Spares", "Stock", "Shoes", "Vehicles"}));
  EXPECT_EQ(Names(-1, true), Names(-1));
}

TEST(GroupTree, AGroupIsFollowedByItsTreeLevelByLevel) {
  EXPECT_EQ(Names(1), (List{"Stock", "Spares", "Vehicles", "Brakes", "Cars", "Lamps", "Shoes"}));
  EXPECT_EQ(Names(2), (List{"Spares", "Brakes", "Lamps", "Shoes"}));
}

TEST(GroupTree, OnlyItemsListsTheNamedGroupAlone) { EXPECT_EQ(Names(2, true), (List{"Spares"})); }

TEST(GroupTree, AGroupThatIsNotThereListsNothing) { EXPECT_EQ(Names(99), List()); }

TEST(GroupTree, AGroupThatIsNotThereStillListsWhatStandsBelowIt) {
  EXPECT_EQ(Names(0), (List{"Stock", "Spares", "Vehicles", "Brakes", "Cars", "Lamps", "Shoes"}));
  EXPECT_EQ(Names(0, true), List());
}

TEST(GroupTree, ATopGroupMayNameItself) {
  const std::vector<StockGroup> groups = {{1, 1, "Top"}, {2, 1, "Below"}};
  EXPECT_EQ(ListGroups(groups, 1, false), (std::vector<std::size_t>{0, 1}));
}

TEST(GroupTree, AGroupThatNamesNoneStandsBelowNothing) {
  const std::vector<StockGroup> groups = {{1, 0, "Top"}, {2, std::nullopt, "Loose"}};
  EXPECT_EQ(ListGroups(groups, 0, false), (std::vector<std::size_t>{0}));
}

TEST(GroupTree, ACircleThatTheNamedGroupDoesNotReachIsNotSeen) {
  const std::vector<StockGroup> groups = {{1, 0, "Top"}, {2, 3, "Second"}, {3, 2, "Third"}};
  EXPECT_EQ(ListGroups(groups, 1, false), (std::vector<std::size_t>{0}));
  EXPECT_EQ(ListGroups(groups, -1, false), (std::vector<std::size_t>{0, 1, 2}));
}

TEST(GroupTree, ACircleIsAnErrorThatNamesTheGroup) {
  const std::vector<StockGroup> groups = {{1, 3, "First"}, {2, 1, "Second"}, {3, 2, "Third"}};
  try {
    (void)ListGroups(groups, 1, false);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kArgumentOutOfRange);
    EXPECT_EQ(error.Description(),
              "the group \"First\" stands below itself: mend its RelatedTo in the books");
  }
}

}  // namespace
}  // namespace pstolvane1
