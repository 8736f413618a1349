// After an analysis that fails, the session gives the next one.
#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <string>

#include "RandomTrade.h"
#include "session/clsStolvane1.h"
#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

const Date kFrom = Date::FromYmd(2003, 4, 1), kTo = Date::FromYmd(2005, 3, 31);
constexpr std::uint8_t kYear = 2;

struct BadCall {
  std::string name;
  std::int32_t error;
  std::function<RecordsetPtr(clsStolvane1& session)> call;
  friend void PrintTo(const BadCall& bad, std::ostream* to) { *to << bad.name; }
};

RecordsetPtr Sales(clsStolvane1& session, std::int32_t type, float scale = 1) {
  auto reptype = static_cast<ReportType>(type);
  return session.CustomerItemwise_Analysis(reptype, kYear, -1, kFrom, kTo, True, True, scale);
}

RecordsetPtr Days(clsStolvane1& session, std::int32_t type, float scale = 1) {
  auto reptype = static_cast<ReportType>(type);
  return session.CustomerItemDaily_Analysis(reptype, kYear, 1, 0, kFrom, kTo, True, False, scale);
}

RecordsetPtr Commission(clsStolvane1& session, std::int32_t type) {
  auto reptype = static_cast<ReportType>(type);
  return session.Commission_Initial(reptype, kYear, kFrom, kTo, True);
}

constexpr std::int32_t kRefused = -2147217900, kNoRow = 3021, kNothing = 91, kByZero = 11;

const BadCall kBadCalls[] = {
    {"UnknownTypeOfAnalysis", kRefused, [](auto& session) { return Sales(session, 9999); }},
    {"UnknownTypeOfDays", kRefused, [](auto& session) { return Days(session, 9999); }},
    {"UnknownTypeOfCommission", kRefused, [](auto& session) { return Commission(session, 9999); }},
    {"RelatedItemsWithoutItems", kNothing,
     [](auto& session) { return Sales(session, rtMovement_SalesReturns_ItemRelationAnalysis); }},
    {"ScaleOfNothing", kByZero,
     [](auto& session) { return Sales(session, rtMovement_LedgerAnalysis, 0); }},
    {"ScaleOfNothingByDay", kByZero,
     [](auto& session) { return Days(session, rtMovement_LedgerDailyAnalysis, 0); }},
    {"ScaleOfNothingByCategory", kByZero,
     [](auto& session) { return session.CategoryWise_Initial(False, kYear, kFrom, kTo, 0, 10); }},
    {"ItemWithoutTheColor", kNoRow,
     [](auto& session) { return session.Colorwise_Monthly(kYear, kFrom, kTo, 1, "9"); }},
    {"ColorThatIsNoKey", kRefused,
     [](auto& session) { return session.Colorwise_Daily(kYear, kFrom, kTo, 1, "red"); }},
    {"ConditionThatIsNone", kRefused,
     [](auto& session) {
       return session.Colorwise_Initial(kYear, kFrom, kTo, 0, True, False, "one");
     }},
    {"VoucherTypesThatAreNone", kRefused,
     [](auto& session) {
       return session.ItemWise_DlyBkup(kYear, kFrom, kTo, -1, 0, "Vouchertype1.Nothing = 1");
     }},
};

class AfterABadCall : public testing::TestWithParam<BadCall> {};

std::size_t Lines(clsStolvane1& session) {
  const RecordsetPtr report = Sales(session, rtMovement_LedgerAnalysis);
  return static_cast<std::size_t>(report->RecordCount());
}

TEST_P(AfterABadCall, TheSessionGivesTheNextReport) {
  const std::unique_ptr<golden::SmallBooks> books = RandomTrade(1);
  clsStolvane1 session;
  session.SetLocale("en_IN");
  session.SetConnection("", "", books->ConnectionString(), False);
  const std::size_t lines = Lines(session);
  EXPECT_GT(lines, 2U);
  try {
    (void)GetParam().call(session);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(static_cast<std::int32_t>(error.Number()), GetParam().error) << error.what();
  }
  EXPECT_EQ(Lines(session), lines);
}

INSTANTIATE_TEST_SUITE_P(Analysis, AfterABadCall, testing::ValuesIn(kBadCalls),
                         [](const auto& tested) { return tested.param.name; });

std::int32_t ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return static_cast<std::int32_t>(error.Number());
  }
  return 0;
}

TEST(LinesAgain, OfAReportThatFailedAreNotThere) {
  const std::unique_ptr<golden::SmallBooks> books = RandomTrade(1);
  clsStolvane1 session;
  session.SetConnection("", "", books->ConnectionString(), False);
  const std::function<void()> failing[] = {
      [&] { (void)session.Colorwise_Initial(kYear, kFrom, kTo, 0, True, False, "one"); },
      [&] { (void)session.Colorwise_Monthly(kYear, kFrom, kTo, 1, "red"); },
      [&] { (void)session.Colorwise_Daily(kYear, kFrom, kTo, 1, "red"); },
      [&] { (void)session.ItemWise_DlyBkup(kYear, kFrom, kTo, -1, 0, "one"); }};
  const std::function<void()> again[] = {
      [&] { (void)session.mColorwise_Initial(); }, [&] { (void)session.mColorwise_Monthly(); },
      [&] { (void)session.mColorwise_Daily(); }, [&] { (void)session.mItemwise_DlyBreakup(); }};
  for (std::size_t i = 0; i < std::size(failing); ++i) {
    EXPECT_EQ(ErrorOf(failing[i]), kRefused) << i;
    EXPECT_EQ(ErrorOf(again[i]), kNothing) << i;
  }
}

}  // namespace
}  // namespace pstolvane1
