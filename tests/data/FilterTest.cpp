#include "tests/data/ExpectError.h"
#include "tests/data/MakeRowset.h"

namespace pstolvane1 {
namespace {

// One row per line; Id counts them.
RecordsetPtr Stock() {
  const auto money = [](const char* text) { return Variant(Currency::FromText(text)); };
  return MakeRowset(
      {{"Id", adInteger},
       {"Name", adBSTR},
       {"Qty", adSingle},
       {"Rate", adCurrency},
       {"Day", adDate},
       {"IsAdded", adBoolean},
       {"Book_Id", adInteger},
       {"Weight", adDouble},
       {"Serial", adBigInt},
       {"Batch No", adVarChar}},
      {{1, "Bolt", 0.1F, money("10.5"), Date(38077), true, 1, 0.5, std::int64_t{10}, "A-1"},
       {2, "bolt", 2.0F, money("10.5001"), Date(38077.5), false, 0, -0.5, std::int64_t{-10}, "a-1"},
       {3, "Nut", -3.0F, money("-1"), Date(-1.25), Boolean(1), 1, 1e20, std::int64_t{1} << 62,
        "10"},
       {4, "Été", 4.0F, money("0"), Date(0), Null, 2, 2.0, std::int64_t{0}, ""},
       {5, Null, Null, Null, Null, false, Null, Null, Null, Null},
       {6, "O'Neil *", 6.0F, money("6"), Date(38078), true, -1, 6.0, std::int64_t{6}, "it's"}});
}

void ExpectShown(const char* filter, const char* ids) {
  static const RecordsetPtr plain = Stock();
  static const RecordsetPtr optimized = [] {
    RecordsetPtr rowset = Stock();
    for (int i = 0; i < rowset->Fields().Count(); ++i) {
      rowset->Fields()(i).Properties()("Optimize") = true;
    }
    return rowset;
  }();
  plain->Filter(filter);
  EXPECT_EQ(Shown(*plain, "Id"), ids) << filter;
  // No result depends on an index.
  optimized->Filter(filter);
  EXPECT_EQ(Shown(*optimized, "Id"), ids) << filter << " (optimized)";
}

TEST(Filter, ComparesWholeNumbers) {
  ExpectShown("Id = 3", "3");
  ExpectShown("Id <> 3", "1 2 4 5 6");
  ExpectShown("Id < 3", "1 2");
  ExpectShown("Id <= 3", "1 2 3");
  ExpectShown("Id > 4", "5 6");
  ExpectShown("Id >= 4", "4 5 6");
  ExpectShown("Book_Id = -1", "6");
  ExpectShown("Book_Id = +1", "1 3");
  ExpectShown("Serial > 4611686018427387903", "3");
  ExpectShown("Serial >= 4611686018427387905", "");
}

TEST(Filter, ComparesWholeNumbersWithFractionsByValue) {
  ExpectShown("Id = 3.0", "3");
  ExpectShown("Id = 3.5", "");
  ExpectShown("Id <> 3.5", "1 2 3 4 5 6");
  ExpectShown("Id < 3.5", "1 2 3");
  ExpectShown("Id >= 3.5", "4 5 6");
  ExpectShown("Id > 3.5", "4 5 6");
  ExpectShown("Id <= 3.5", "1 2 3");
  ExpectShown("Id < 30e-1", "1 2");
  ExpectShown("Serial < -9.5", "2");
}

TEST(Filter, ComparesWithNumbersBeyondTheColumnsRange) {
  ExpectShown("Id < 1e30", "1 2 3 4 5 6");
  ExpectShown("Id > 1e30", "");
  ExpectShown("Id = 1e30", "");
  ExpectShown("Id <> 1e30", "1 2 3 4 5 6");
  ExpectShown("Id >= -99999999999999999999", "1 2 3 4 5 6");
  ExpectShown("Id < -99999999999999999999", "");
  ExpectShown("Serial <= 9223372036854775807", "1 2 3 4 6");
  ExpectShown("Serial > 9223372036854775807", "");
  ExpectShown("Serial >= -9223372036854775808", "1 2 3 4 6");
  ExpectShown("Serial < -9223372036854775808", "");
  ExpectShown("Rate < 1e300", "1 2 3 4 6");
  ExpectShown("Weight < 1e400", "1 2 3 4 6");
}

TEST(Filter, ComparesMoneyExactly) {
  ExpectShown("Rate = 10.5", "1");
  ExpectShown("Rate > 10.5", "2");
  ExpectShown("Rate = 10.50005", "");
  ExpectShown("Rate > 10.50005", "2");
  ExpectShown("Rate < 10.50005", "1 3 4 6");
  ExpectShown("Rate = '6'", "6");
  ExpectShown("Rate <= -1.0000", "3");
}

TEST(Filter, ComparesFloatsInTheirOwnPrecision) {
  ExpectShown("Qty = 0.1", "1");
  ExpectShown("Qty > 0.1", "2 4 6");
  ExpectShown("Qty >= 0.1", "1 2 4 6");
  ExpectShown("Qty < 0.1", "3");
  ExpectShown("Qty <> 0.1", "2 3 4 6");
  ExpectShown("Weight = 0.5", "1");
  ExpectShown("Weight = 1e20", "3");
  ExpectShown("Weight <= -.5", "2");
}

TEST(Filter, ComparesTextIgnoringCase) {
  ExpectShown("Name = 'BOLT'", "1 2");
  ExpectShown("Name = 'éTÉ'", "4");
  ExpectShown("Name <> 'bolt'", "3 4 6");
  ExpectShown("Name > 'bolt'", "3 4 6");
  ExpectShown("Name >= 'bolt'", "1 2 3 4 6");
  ExpectShown("Name < 'n'", "1 2");
  ExpectShown("Name <= 'NUT'", "1 2 3");
  ExpectShown("Name = 'bolt '", "");
  ExpectShown("[Batch No] = ''", "4");
}

TEST(Filter, TakesADoubledQuoteForOne) {
  ExpectShown("Name = 'o''neil *'", "6");
  ExpectShown("[Batch No] = 'it''s'", "6");
  ExpectShown("[Batch No] = ''''", "");
}

TEST(Filter, FindsPatternsWithLike) {
  ExpectShown("Name LIKE 'b*'", "1 2");
  ExpectShown("Name like '%T'", "1 2 3");
  ExpectShown("Name Like '*o*'", "1 2 6");
  ExpectShown("Name Like 'o''*'", "6");
  ExpectShown("Name Not Like 'b*'", "3 4 6");
  ExpectShown("Name Like ''", "");
  ExpectShown("[Batch No] Like ''", "4");
  ExpectShown("Name Like '*'", "1 2 3 4 6");
}

TEST(Filter, ComparesDates) {
  ExpectShown("Day = #03/31/2004#", "1");
  ExpectShown("Day = #2004-03-31#", "1");
  ExpectShown("Day = #3/31/2004 12:00#", "2");
  ExpectShown("Day = #2004-03-31 12:00:00#", "2");
  ExpectShown("Day = #03/31/2004 12:00:00 PM#", "2");
  ExpectShown("Day >= #03-31-2004 # ", "1 2 6");
  ExpectShown("Day < #12/30/1899#", "3");
  ExpectShown("Day = '2004-03-31'", "1");
  ExpectShown("Day > '03/31/2004'", "2 6");
  ExpectShown("Day = #12/29/1899 06:00#", "3");
  ExpectShown("Day <> #03/31/2004#", "2 3 4 6");
}

TEST(Filter, TakesAnyNumberButZeroForTrue) {
  ExpectShown("IsAdded = True", "1 3 6");
  ExpectShown("IsAdded = False", "2 5");
  ExpectShown("IsAdded <> True", "2 5");
  ExpectShown("IsAdded = 1", "1 3 6");
  ExpectShown("IsAdded = -1", "1 3 6");
  ExpectShown("IsAdded = 0", "2 5");
  ExpectShown("IsAdded = 'true'", "1 3 6");
  ExpectShown("Book_Id = True", "1 3 4 6");
  ExpectShown("Book_Id = False", "2");
  ExpectShown("Book_Id <> True", "2");
  ExpectShown("Book_Id <> False", "1 3 4 6");
}

TEST(Filter, MeetsNullByNullAlone) {
  ExpectShown("Name = Null", "5");
  ExpectShown("Name <> Null", "1 2 3 4 6");
  ExpectShown("IsAdded = Null", "4");
  ExpectShown("Day Is Null", "5");
  ExpectShown("Day Is Not Null", "1 2 3 4 6");
  ExpectShown("Book_Id <> 1", "2 4 6");
  ExpectShown("Not Book_Id = 1", "2 4 6");
  ExpectShown("Not Book_Id = Null", "1 2 3 4 6");
}

TEST(Filter, ComparesAcrossTypesAsUsersExpect) {
  ExpectShown("Id = '3'", "3");
  ExpectShown("Id > ' 4 '", "5 6");
  ExpectShown("[Batch No] = 10", "3");
  ExpectShown("Qty = '0.1'", "1");
}

TEST(Filter, JoinsWithAndOrNotAndParentheses) {
  ExpectShown("Book_Id = 1 and Id > 1", "3");
  ExpectShown("Id = 1 or Id = 6 or Id = 3", "1 3 6");
  ExpectShown("Id = 1 Or Id = 2 And Book_Id = 1", "1");  // And binds closer
  ExpectShown("(Id = 1 Or Id = 2) And Book_Id = 0", "2");
  ExpectShown("Not (Id = 1 Or Id = 2)", "3 4 5 6");
  ExpectShown("Not (Id > 1 And Book_Id = 1)", "1 2 4 6");
  ExpectShown("Not Not Id = 1", "1");
  ExpectShown("Not Name Like 'b*'", "3 4 6");
  ExpectShown("Not Name Not Like 'b*'", "1 2");
  ExpectShown("((Id=1))or(Id=2)", "1 2");
}

TEST(Filter, ReadsTheTextsOfTheReports) {
  ExpectShown(" Id = 3", "3");
  ExpectShown(" Book_Id = 1  and Id = 3", "3");
  ExpectShown(" IsAdded = True and Id = 1", "1");
  ExpectShown(" Id = 1 and Day < #04/01/2004 # ", "1");
  ExpectShown("id=1", "1");
}

TEST(Filter, NamesMayStandInBrackets) {
  ExpectShown("[Id] = 3", "3");
  ExpectShown("[batch no] = 'a-1'", "1 2");
  const RecordsetPtr odd = MakeRowset({{"a]b", adInteger}, {"And", adInteger}}, {{1, 2}, {3, 4}});
  odd->Filter("[a]]b] = 3");
  EXPECT_EQ(Shown(*odd, "And"), "4");
  odd->Filter("[And] = 2");
  EXPECT_EQ(Shown(*odd, "And"), "2");
}

TEST(Filter, IsClearedByAnEmptyTextOrZero) {
  const RecordsetPtr rowset = Stock();
  rowset->Filter("Id = 3");
  EXPECT_EQ(rowset->Filter(), "Id = 3");
  rowset->Filter("");
  EXPECT_EQ(rowset->RecordCount(), 6);
  EXPECT_EQ(rowset->Filter(), "");
  rowset->Filter("Id = 3");
  rowset->Filter(0);
  EXPECT_EQ(rowset->RecordCount(), 6);
  rowset->Filter("Id = 3");
  rowset->Filter("  ");
  EXPECT_EQ(rowset->RecordCount(), 6);
  ExpectError(ErrorNumber::kArgumentOutOfRange, "the filter cannot be the number 1; 0 clears it",
              [&] { rowset->Filter(1); });
}

TEST(Filter, MovesToTheFirstVisibleRow) {
  const RecordsetPtr rowset = Stock();
  rowset->MoveLast();
  rowset->Filter("Book_Id = 1");
  EXPECT_EQ(rowset->Collect("Id"), Variant(1));
  rowset->Filter("Id = 99");
  EXPECT_TRUE(rowset->Bof() && rowset->Eof());
  rowset->Filter("");
  EXPECT_EQ(rowset->Collect("Id"), Variant(1));
}

TEST(Filter, LimitsMovesAndCount) {
  const RecordsetPtr rowset = Stock();
  rowset->Filter("Book_Id = 1");
  EXPECT_EQ(rowset->RecordCount(), 2);
  EXPECT_EQ(Walked(*rowset, "Id"), "1 3");
  rowset->MoveLast();
  EXPECT_EQ(rowset->Collect("Id"), Variant(3));
}

TEST(Filter, ThatCannotBeReadSaysWhereAndLeavesTheOldOne) {
  const RecordsetPtr rowset = Stock();
  rowset->Filter("Id = 3");
  const auto expect = [&](const std::string& text, int position, const std::string& problem) {
    ExpectError(ErrorNumber::kArgumentOutOfRange,
                "the filter \"" + text + "\" cannot be read at position " +
                    std::to_string(position) + ": " + problem,
                [&] { rowset->Filter(text); });
    EXPECT_EQ(Shown(*rowset, "Id"), "3");
    EXPECT_EQ(rowset->Filter(), "Id = 3");
  };
  const std::string value =
      "expected a value (a number, 'text', #date#, True, False or Null), found ";
  const std::string comparison = "expected a comparison (= <> < > <= >= Like), found ";
  expect("Id =", 5, value + "the end");
  expect("Id == 5", 5, value + "\"=\"");
  expect("Id = five", 6, value + "\"five\"");
  expect("Id = (5)", 6, value + "\"(\"");
  expect("Id", 3, comparison + "the end");
  expect("Id 5", 4, comparison + "the number 5");
  expect("Id Between 1 And 2", 4, comparison + "\"Between\"");
  expect("Id Not = 5", 8, "expected Like, found \"=\"");
  expect("Id Is 5", 7, "expected Null, found the number 5");
  expect("5 = Id", 1, "expected a column, found the number 5");
  expect("= 5", 1, "expected a column, found \"=\"");
  expect("Id = 5 and", 11, "expected a column, found the end");
  expect("Id = 5 and and Id = 6", 12, "expected a column, found \"and\"");
  expect("Id = 5 Id = 6", 8, "expected And, Or or the end, found \"Id\"");
  expect("(Id = 5", 8, "expected And, Or or \")\", found the end");
  expect("Id = 5)", 7, "expected And, Or or the end, found \")\"");
  expect("Name = 'bolt", 8, "the text that begins here has no end; expected '");
  expect("[Id = 5", 1, "the name that begins here has no end; expected ]");
  expect("Day = #3/4/2004", 7, "the date that begins here has no end; expected #");
  expect("Id = 12abc", 8, "expected a blank or a sign behind the number 12");
  expect("Id = ?", 6, "the sign \"?\" has no meaning here");
  expect("Id + 1 = 2", 4, "the sign \"+\" has no meaning here");
  expect("Name = \"bolt\"", 8, "the sign \"\"\" has no meaning here");
  expect("Name = 'é' or Id ; 1", 18, "the sign \";\" has no meaning here");
  const std::string no_day = " is not a day of the form #MM/dd/yyyy# or #yyyy-MM-dd#";
  expect("Day = #31/12/2004#", 7, "the date #31/12/2004#" + no_day);
  expect("Day = #02/30/2004#", 7, "the date #02/30/2004#" + no_day);
  expect("Day = #03/31/04#", 7, "the date #03/31/04#" + no_day);
  expect("Day = ##", 7, "the date ##" + no_day);
  expect("Day = #12:30#", 7, "the date #12:30#" + no_day);
  expect("Day = #03/31/2004 25:00#", 7, "the date #03/31/2004 25:00#" + no_day);
  expect("Day = #03/31/2004 13:00 PM#", 7, "the date #03/31/2004 13:00 PM#" + no_day);
}

TEST(Filter, OfAnUnknownColumnSaysWhere) {
  ExpectError(
      ErrorNumber::kNoSuchColumn,
      "the filter \"Id = 1 and Item = 2\" cannot be read at position 12: there is no column "
      "\"Item\"",
      [] { Stock()->Filter("Id = 1 and Item = 2"); });
  ExpectError(ErrorNumber::kNoSuchColumn,
              "the filter \"[Item Id] = 2\" cannot be read at position 1: there is no column [Item "
              "Id]",
              [] { Stock()->Filter("[Item Id] = 2"); });
}

TEST(Filter, OfValuesThatCannotBeComparedNamesColumnAndPlace) {
  const auto expect = [&](const std::string& text, int position, const std::string& problem) {
    ExpectError(ErrorNumber::kArgumentOutOfRange,
                "the filter \"" + text + "\" cannot be read at position " +
                    std::to_string(position) + ": " + problem,
                [&] { Stock()->Filter(text); });
  };
  expect("Id = 'abc'", 6,
         "the column \"Id\" holds numbers and cannot be compared with the text 'abc'");
  expect("Id = ''", 6, "the column \"Id\" holds numbers and cannot be compared with the text ''");
  expect("Id = #03/31/2004#", 6,
         "the column \"Id\" holds numbers and cannot be compared with the date 2004-03-31");
  expect("Day = 5", 7, "the column \"Day\" holds dates and cannot be compared with the number 5");
  expect("Day = 'abc'", 7,
         "the column \"Day\" holds dates and cannot be compared with the text 'abc'");
  expect("Day = True", 7, "the column \"Day\" holds dates and cannot be compared with True");
  expect("Name = True", 8, "the column \"Name\" holds text and cannot be compared with True");
  expect("Name = #03/31/2004#", 8,
         "the column \"Name\" holds text and cannot be compared with the date 2004-03-31");
  expect("IsAdded = 'yes'", 11,
         "the column \"IsAdded\" holds flags and cannot be compared with the text 'yes'");
  expect("IsAdded < True", 11,
         "the column \"IsAdded\" can be compared with a flag by = and <> only");
  expect("Book_Id < True", 11, "the column \"Book_Id\" can be compared with True by = and <> only");
  expect("Name > Null", 8, "the column \"Name\" can be compared with Null by = and <> only");
  expect("Id Like '1*'", 9,
         "LIKE compares a text column with a 'text'; the column \"Id\" holds no text");
  expect(
      "Name Like 5", 11,
      "LIKE compares a text column with a 'text'; the column \"Name\" stands before the number 5");
}

TEST(Filter, ReadsTextsAgainAfterOthersAndAfterErrors) {
  const RecordsetPtr rowset = Stock();
  const RecordsetPtr clone = rowset->Clone();
  clone->Filter("Id = 2");
  for (int round = 0; round < 3; ++round) {
    for (int i = 0; i < 100; ++i) {
      const std::string text =
          "Id = " + std::to_string(i % 7) + std::string(static_cast<std::size_t>(i), ' ');
      rowset->Filter(text);
      EXPECT_EQ(Shown(*rowset, "Id"), i % 7 == 0 ? "" : std::to_string(i % 7));
      EXPECT_THROW(clone->Filter(text + "or"), Error);
    }
  }
  EXPECT_EQ(Shown(*clone, "Id"), "2");
  clone->Collect("Id", 9);
  clone->Update();
  EXPECT_EQ(clone->RecordCount(), 0);
}

TEST(Filter, HasLimitsOfDepthAndLength) {
  const RecordsetPtr rowset = Stock();
  const auto nested = [](int depth) {
    return std::string(static_cast<std::size_t>(depth), '(') + "Id = 1" +
           std::string(static_cast<std::size_t>(depth), ')');
  };
  rowset->Filter(nested(100));
  EXPECT_EQ(Shown(*rowset, "Id"), "1");
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "the filter \"..." + std::string(60, '(') + std::string(1, '(') + "Id = 1" +
                  std::string(53, ')') +
                  "...\" cannot be read at position 101: it is nested more "
                  "than 100 deep",
              [&] { rowset->Filter(nested(101)); });
  std::string nots;
  for (int i = 0; i < 1000; ++i) nots += "Not ";
  EXPECT_THROW(rowset->Filter(nots + "Id = 1"), Error);

  std::string many = "Id = 1000";
  while (many.size() < 900'000) many += " or Id = " + std::to_string(1000 + many.size());
  rowset->Filter(many + " or Id = 4");
  EXPECT_EQ(Shown(*rowset, "Id"), "4");
  rowset->Fields("Id").Properties()("Optimize") = true;
  rowset->Filter(many + " or Id = 5");
  EXPECT_EQ(Shown(*rowset, "Id"), "5");
  EXPECT_THROW(rowset->Filter(many + many), Error);
}

TEST(Filter, OverManyChunksFindsEveryRow) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("N", adInteger);
  rowset->Fields().Append("Text", adBSTR);
  rowset->Open();
  for (int i = 0; i < 10000; ++i) {
    rowset->AddNew();
    if (i % 7 != 0) rowset->Collect("N", i % 10);
    rowset->SetText(ColumnHandle{1}, i % 2 == 0 ? "Even" : "odd");
  }
  rowset->Update();
  int fives = 0;
  for (int i = 0; i < 10000; ++i) fives += i % 7 != 0 && i % 10 == 5 ? 1 : 0;
  rowset->Filter("N = 5");
  EXPECT_EQ(rowset->RecordCount(), fives);
  rowset->Filter("N = 5 and Text = 'EVEN'");
  EXPECT_EQ(rowset->RecordCount(), 0);
  rowset->Filter("N = 5 and Text = 'ODD' or N = Null");
  EXPECT_EQ(rowset->RecordCount(), fives + 1429);
}

TEST(Find, GoesForwardFromTheCurrentRow) {
  const RecordsetPtr rowset = Stock();
  rowset->Find("Book_Id = 1");
  EXPECT_EQ(rowset->Collect("Id"), Variant(1));
  rowset->Find("Book_Id = 1");  // the current row meets it
  EXPECT_EQ(rowset->Collect("Id"), Variant(1));
  rowset->MoveNext();
  rowset->Find("Book_Id = 1");
  EXPECT_EQ(rowset->Collect("Id"), Variant(3));
  rowset->MoveNext();
  rowset->Find("Book_Id = 1");
  EXPECT_TRUE(rowset->Eof());
  rowset->Find("Book_Id = 1");
  EXPECT_TRUE(rowset->Eof());
  rowset->MoveFirst();
  rowset->MovePrevious();
  rowset->Find("Name Like 'n*'");
  EXPECT_EQ(rowset->Collect("Id"), Variant(3));
}

TEST(Find, GoesOverVisibleRowsInTheirOrder) {
  const RecordsetPtr rowset = Stock();
  rowset->Fields("Book_Id").Properties()("Optimize") = true;
  rowset->Sort("Id desc");
  rowset->Find("Book_Id = 1");
  EXPECT_EQ(rowset->Collect("Id"), Variant(3));
  rowset->Sort("");
  rowset->Filter("Id > 1");
  rowset->Find("Book_Id = 1");
  EXPECT_EQ(rowset->Collect("Id"), Variant(3));
}

TEST(Find, ThroughAnIndexPassesOverDeletedRows) {
  const RecordsetPtr rowset = Stock();
  rowset->Fields("Book_Id").Properties()("Optimize") = true;
  rowset->Find("Book_Id = 1");
  rowset->Delete();
  rowset->Find("Book_Id = 1");
  EXPECT_EQ(rowset->Collect("Id"), Variant(3));
  rowset->Find("Book_Id = 77");
  EXPECT_TRUE(rowset->Eof());
}

TEST(Find, TakesOneComparison) {
  const RecordsetPtr rowset = Stock();
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "the criterion \"Id = 1 and Id = 2\" cannot be read at position 1: Find takes one "
              "comparison, without And, Or and Not",
              [&] { rowset->Find("Id = 1 and Id = 2"); });
  ExpectError(ErrorNumber::kArgumentOutOfRange,
              "the criterion \"\" cannot be read at position 1: expected a column, found the end",
              [&] { rowset->Find(""); });
  EXPECT_EQ(rowset->Collect("Id"), Variant(1));
}

}  // namespace
}  // namespace pstolvane1
