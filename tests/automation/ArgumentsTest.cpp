// Values for arguments: what a text becomes, what is missing, what is refused and how it is told.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "automation/Arguments.h"
#include "automation/Families.h"
#include "automation/Operations.h"
#include "session/data/Error.h"
#include "tests/data/ExpectError.h"

namespace pstolvane1::automation {
namespace {

const Argument kByteArgument = Byte("b", "A byte.");
const Argument kWholeArgument = Int32("n", "A number.");
const Argument kSingleArgument = Single("s", "A single.");
const Argument kDayArgument = Day("d", "A day.");
const Argument kFlagArgument = Flag("f", "A flag.");
const Argument kTextArgument = Text("t", "A text.");
const Argument kAnyArgument{.name = "v", .type = ArgumentType::kVariant, .help = "Any."};
const Argument kMethodArgument = OneOf("m", kValuationMethod, "A method.");
const Argument kTypeArgument = OneOf("r", kReportType, "A report type.");

TEST(ValuesFromText, OfEachType) {
  EXPECT_EQ(ValueFromText(kByteArgument, "255"), Variant(255));
  EXPECT_EQ(ValueFromText(kWholeArgument, "-2147483648"), Variant(-2147483647 - 1));
  EXPECT_EQ(ValueFromText(kWholeArgument, "+7"), Variant(7));
  EXPECT_EQ(ValueFromText(kSingleArgument, "0.5"), Variant(0.5F));
  EXPECT_EQ(ValueFromText(kSingleArgument, "1e3"), Variant(1000.0F));
  EXPECT_EQ(ValueFromText(kDayArgument, "2004-02-29"), Variant(Date::FromYmd(2004, 2, 29)));
  EXPECT_EQ(ValueFromText(kFlagArgument, "TRUE"), Variant(True));
  EXPECT_EQ(ValueFromText(kFlagArgument, "false"), Variant(False));
  EXPECT_EQ(ValueFromText(kTextArgument, " 007 "), Variant(" 007 "));
  EXPECT_EQ(ValueFromText(kMethodArgument, "averagerate"), Variant(3));
  EXPECT_EQ(ValueFromText(kMethodArgument, "StandardRate"), Variant(7));
  EXPECT_EQ(ValueFromText(kTypeArgument, "rtMovement_AreaLedgerAnalysis"), Variant(25000));
}

TEST(ValuesFromText, AFlagTakesANumberAsItIsAndOneIsNotTrue) {
  EXPECT_FALSE(ValueFromText(kFlagArgument, "1").ToBoolean().IsTrue());
  EXPECT_TRUE(ValueFromText(kFlagArgument, "1").ToBoolean().IsSet());
  EXPECT_TRUE(ValueFromText(kFlagArgument, "-1").ToBoolean().IsTrue());
}

TEST(ValuesFromText, AnEnumerationLetsNumbersThroughThatItDoesNotName) {
  EXPECT_EQ(ValueFromText(kMethodArgument, "10"), Variant(10));
  EXPECT_EQ(ValueFromText(kMethodArgument, "0"), Variant(0));
}

TEST(ValuesFromText, AVariantIsTheFirstKindThatTheTextCanBe) {
  EXPECT_EQ(ValueFromText(kAnyArgument, "12"), Variant(12));
  EXPECT_EQ(ValueFromText(kAnyArgument, "3000000000"), Variant(std::int64_t{3000000000}));
  EXPECT_EQ(ValueFromText(kAnyArgument, "1.5"), Variant(1.5));
  EXPECT_EQ(ValueFromText(kAnyArgument, "2004-03-31"), Variant(Date::FromYmd(2004, 3, 31)));
  EXPECT_EQ(ValueFromText(kAnyArgument, "True"), Variant(True));
  EXPECT_EQ(ValueFromText(kAnyArgument, "nan"), Variant("nan"));
  EXPECT_EQ(ValueFromText(kAnyArgument, ""), Variant(""));
}

TEST(ValuesFromText, OfAnotherKindAreRefused) {
  const auto refused = [](const Argument& argument, const char* text, const char* what) {
    ExpectError(ErrorNumber::kTypeMismatch, what,
                [&] { static_cast<void>(ValueFromText(argument, text)); });
  };
  refused(kByteArgument, "ten", "b takes a whole number from 0 to 255, not \"ten\"");
  refused(kByteArgument, "", "b takes a whole number from 0 to 255, not \"\"");
  refused(kWholeArgument, "1.5",
          "n takes a whole number from -2147483648 to 2147483647, not \"1.5\"");
  refused(kWholeArgument, "+-1",
          "n takes a whole number from -2147483648 to 2147483647, not \"+-1\"");
  refused(kWholeArgument, "7 ",
          "n takes a whole number from -2147483648 to 2147483647, not \"7 \"");
  refused(kSingleArgument, "0,5", "s takes a decimal as 0.5, not \"0,5\"");
  refused(kSingleArgument, "inf", "s takes a decimal as 0.5, not \"inf\"");
  refused(kDayArgument, "31/03/2004", "d takes a date as 2004-03-31, not \"31/03/2004\"");
  refused(kDayArgument, "2003-02-29", "d takes a date as 2004-03-31, not \"2003-02-29\"");
  refused(kFlagArgument, "yes", "f takes a flag, true or false, not \"yes\"");
  refused(kMethodArgument, "Fifo",
          "m takes a value of enmValuationMethod: FifoRate, LifoRate, AverageRate, "
          "LastPurchaseRate, LastSaleRate, CurrentRate, standardrate, StandardPrice, SimpleAvg, or "
          "a number, not \"Fifo\"");
  refused(kTypeArgument, "rtNothing",
          "r takes a value of ReportType by name or number, not \"rtNothing\"");
}

TEST(ValuesFromText, OutOfRangeAreRefused) {
  const auto refused = [](const Argument& argument, const char* text, const char* what) {
    ExpectError(ErrorNumber::kOverflow, what,
                [&] { static_cast<void>(ValueFromText(argument, text)); });
  };
  refused(kByteArgument, "256", "b takes a whole number from 0 to 255, and 256 lies outside");
  refused(kByteArgument, "-1", "b takes a whole number from 0 to 255, and -1 lies outside");
  refused(kWholeArgument, "2147483648",
          "n takes a whole number from -2147483648 to 2147483647, and 2147483648 lies outside");
  refused(kWholeArgument, "99999999999999999999",
          "n takes a whole number from -2147483648 to 2147483647, and 99999999999999999999 is too "
          "large");
  refused(kSingleArgument, "1e39", "s takes a decimal as 0.5, and 1e39 is too large");
  refused(kFlagArgument, "40000", "f takes a flag, true or false, and 40000 lies outside");
}

const Operation& Ledgers() { return GetOperation("LedgersByCode"); }

TEST(Binding, TakesNamesInAnyCaseAndOrder) {
  const NamedValue values[] = {{"BLNREPORT", true}, {"scode", "1,41"}, {"bytyearno", "3"}};
  EXPECT_EQ(Bind(Ledgers(), values), (BoundValues{3, "1,41", True}));
}

TEST(Binding, FillsWhatIsLeftOutWithThePublishedDefaults) {
  const NamedValue values[] = {{"bytYearno", 3},
                               {"lngVouchertype_id", "10"},
                               {"dtFromDate", "2003-04-01"},
                               {"dtToDate", Date::FromYmd(2004, 3, 31)},
                               {"gScale", Null}};
  EXPECT_EQ(Bind(GetOperation("Doc_Initial"), values),
            (BoundValues{3, 10, Date::FromYmd(2003, 4, 1), Date::FromYmd(2004, 3, 31), True, 1.0F,
                         False, 0, ""}));
}

TEST(Binding, GivesEveryAliasAPlace) {
  const NamedValue values[] = {{"taGodown", "Godown1.ShortName"}};
  EXPECT_EQ(Bind(GetOperation("SetAliases"), values),
            (BoundValues{"", "Godown1.ShortName", "", "", "", "", "", ""}));
}

TEST(Binding, ConvertsNumbersOfOtherKinds) {
  const NamedValue values[] = {{"bytYearno", 3.0}, {"sCode", 41}, {"blnReport", std::int64_t{-1}}};
  EXPECT_EQ(Bind(Ledgers(), values), (BoundValues{3, "41", True}));
}

TEST(Binding, LeavesOutARowsetThatNobodyGave) {
  const NamedValue values[] = {
      {"bytYearno", 1}, {"dtFromDate", "2003-04-01"}, {"dtToDate", "2004-03-31"}};
  const BoundValues bound = Bind(GetOperation("BillWiseQuery"), values);
  EXPECT_EQ(bound.back().ToRowset(), nullptr);
}

TEST(Binding, RefusesAnUnknownNameAndShowsTheArguments) {
  const NamedValue values[] = {{"bytYear", 3}};
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "LedgersByCode: there is no argument \"bytYear\"; did you mean \"bytYearno\"?; "
              "LedgersByCode bytYearno sCode "
              "blnReport",
              [&] { static_cast<void>(Bind(Ledgers(), values)); });
}

TEST(Binding, RefusesAValueThatIsMissing) {
  const NamedValue values[] = {{"sCode", "1"}, {"blnReport", true}};
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "LedgersByCode: bytYearno is missing, a whole number from 0 to 255; LedgersByCode "
              "bytYearno sCode blnReport",
              [&] { static_cast<void>(Bind(Ledgers(), values)); });
}

TEST(Binding, TakesNullForAValueThatIsMissing) {
  const NamedValue values[] = {{"bytYearno", Null}, {"sCode", "1"}, {"blnReport", true}};
  EXPECT_THROW(static_cast<void>(Bind(Ledgers(), values)), Error);
}

TEST(Binding, RefusesANameThatComesTwice) {
  const NamedValue values[] = {{"sCode", "1"}, {"SCODE", "2"}};
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "LedgersByCode: sCode is given twice; LedgersByCode bytYearno sCode blnReport",
              [&] { static_cast<void>(Bind(Ledgers(), values)); });
}

TEST(Binding, TellsAWrongValueWithTheArguments) {
  const NamedValue text[] = {{"bytYearno", "first"}};
  ExpectError(ErrorNumber::kTypeMismatch,
              "LedgersByCode: bytYearno takes a whole number from 0 to 255, not \"first\"; "
              "LedgersByCode bytYearno sCode blnReport",
              [&] { static_cast<void>(Bind(Ledgers(), text)); });
  const NamedValue large[] = {{"bytYearno", 256}};
  ExpectError(ErrorNumber::kOverflow,
              "LedgersByCode: bytYearno takes a whole number from 0 to 255, and 256 lies outside; "
              "LedgersByCode bytYearno sCode blnReport",
              [&] { static_cast<void>(Bind(Ledgers(), large)); });
  const NamedValue fraction[] = {{"bytYearno", 1.5}};
  ExpectError(ErrorNumber::kTypeMismatch,
              "LedgersByCode: bytYearno takes a whole number from 0 to 255, not 1.5; LedgersByCode "
              "bytYearno sCode blnReport",
              [&] { static_cast<void>(Bind(Ledgers(), fraction)); });
  const NamedValue flag[] = {{"bytYearno", true}};
  ExpectError(
      ErrorNumber::kTypeMismatch,
      "LedgersByCode: bytYearno takes a whole number from 0 to 255, not True; LedgersByCode "
      "bytYearno sCode blnReport",
      [&] { static_cast<void>(Bind(Ledgers(), flag)); });
}

}  // namespace
}  // namespace pstolvane1::automation
