// Ways from one report to the one behind it.
#include <algorithm>
#include <gtest/gtest.h>
#include <map>

#include "automation/Operations.h"
#include "automation/Pictures.h"
#include "automation/Roads.h"

namespace pstolvane1::automation {
namespace {

using Texts = std::map<std::string, std::string, std::less<>>;

TextByName In(const Texts& texts) {
  return [&texts](std::string_view name) -> std::optional<std::string> {
    const auto found = texts.find(name);
    return found == texts.end() ? std::nullopt : std::optional(found->second);
  };
}

const Road& RoadBetween(std::string_view from, std::string_view to) {
  const auto found = std::ranges::find_if(
      Roads(), [&](const Road& road) { return road.from == from && road.to == to; });
  EXPECT_NE(found, Roads().end()) << from << " to " << to;
  return *found;
}

std::optional<std::vector<std::string>> Followed(const Road& road, const Texts& line,
                                                 const Texts& asked) {
  return FollowedBy(road, In(line), In(asked));
}

const Texts kYear2{{"bytYearno", "2"},         {"dtFromDate", "2004-04-10"},
                   {"dtToDate", "2004-06-20"}, {"ValuationMethod", "FifoRate"},
                   {"blnReport", "false"},     {"sngScale", "1000"},
                   {"blnAltUom", "false"},     {"lngAny_Id1", "7"}};

TEST(Roads, CarryTheQuestionToTheMonthsOfALine) {
  const auto arguments = Followed(RoadBetween("StockDetails_Itemwise", "Monthly_Itemwise"),
                                  {{"Item_Id", "25"}}, kYear2);
  ASSERT_TRUE(arguments);
  EXPECT_EQ(*arguments,
            (std::vector<std::string>{"bytYearno=2", "dtFromDate=2004-04-10", "dtToDate=2004-06-20",
                                      "ValuationMethod=FifoRate", "lngAny_Id1=25",
                                      "blnReport=false", "blnAltUom=false", "sngScale=1000"}));
}

TEST(Roads, BeginAtLinesWithTheirKeysAlone) {
  const Road& road = RoadBetween("StockDetails_Itemwise", "Monthly_GodownItemwise");
  EXPECT_FALSE(Followed(road, {}, kYear2));
  EXPECT_FALSE(Followed(road, {{"Item_Id", "25"}}, kYear2));
  EXPECT_FALSE(Followed(road, {{"Item_Id", "0"}, {"Godown_Id", "3"}}, kYear2));
  EXPECT_TRUE(Followed(road, {{"Item_Id", "25"}, {"Godown_Id", "3"}}, kYear2));
}

TEST(Roads, LeadFromAMonthToItsDaysWithinThePeriod) {
  const Road& road = RoadBetween("Monthly_Itemwise", "ItemWise_DlyBkup");
  struct Month {
    const char *number, *year, *first, *last;
  };
  for (const Month& month : {Month{"4", "2004", "2004-04-10", "2004-04-30"},
                             Month{"5", "2004", "2004-05-01", "2004-05-31"},
                             Month{"6", "2004", "2004-06-01", "2004-06-20"}}) {
    const auto arguments =
        Followed(road, {{"Month_Id", month.number}, {"Year_Id", month.year}}, kYear2);
    ASSERT_TRUE(arguments);
    EXPECT_EQ((*arguments)[1], std::string("dtFromDate=") + month.first);
    EXPECT_EQ((*arguments)[2], std::string("dtToDate=") + month.last);
    EXPECT_EQ((*arguments)[3], "Item_id=7");
  }
  const auto december = Followed(road, {{"Month_Id", "12"}, {"Year_Id", "2004"}},
                                 {{"lngAny_Id1", "7"}, {"bytYearno", "2"}});
  ASSERT_TRUE(december);
  EXPECT_EQ((*december)[2], "dtToDate=2004-12-31");
  EXPECT_FALSE(Followed(road, {{"Month_Id", "0"}, {"Year_Id", "0"}}, kYear2));
}

TEST(Roads, StandForWhatWasAskedAlone) {
  const Road& sales = RoadBetween("Doc_Initial", "CustomerItemDaily_Analysis");
  EXPECT_TRUE(Followed(sales, {{"Ledger_Id", "4"}}, {{"lngVouchertype_id", "10"}}));
  EXPECT_FALSE(Followed(sales, {{"Ledger_Id", "4"}}, {{"lngVouchertype_id", "7"}}));
}

TEST(Roads, TakeAGroupWhereTheLineHasNoItem) {
  const Road& road = RoadBetween("StockDetails_Categorywise", "Monthly_Categorywise");
  EXPECT_TRUE(Followed(road, {{"Category_Id", "4"}}, kYear2));
  EXPECT_FALSE(Followed(road, {{"Category_Id", "4"}, {"Item_Id", "9"}}, kYear2));
}

// All that a road's end asks for is given, by the road or by the report that it leads from.
TEST(Roads, GiveAllThatTheirEndsNeed) {
  for (const Road& road : Roads()) {
    const Operation& from = GetOperation(road.from);
    const Operation& to = GetOperation(road.to);
    for (const Argument& argument : to.arguments) {
      if (!argument.IsRead() || argument.optional || argument.type == ArgumentType::kRowset)
        continue;
      const std::string own = std::string(argument.name) + "=";
      const Argument* const carried = FindArgument(from, argument.name);
      EXPECT_TRUE(road.arguments.find(own) != std::string_view::npos || carried != nullptr)
          << road.from << " to " << road.to << ": " << argument.name;
    }
  }
}

TEST(Pictures, AreOfReportsThatThereAre) {
  for (const Picture& picture : Pictures()) {
    EXPECT_NE(FindOperation(picture.operation), nullptr) << picture.operation;
    EXPECT_FALSE(picture.words.empty() || picture.names.empty() || picture.values.empty());
  }
}

}  // namespace
}  // namespace pstolvane1::automation
