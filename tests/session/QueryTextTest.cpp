#include <gtest/gtest.h>

#include "session/QueryText.h"
#include "tests/data/ExpectError.h"

namespace pstolvane1 {
namespace {

TEST(ApplyAliases, WithAllAliasesEmptyItOnlyLowers) {
  EXPECT_EQ(ApplyAliases("Select Items1.ItemName From Items1 Where Date > #03/31/2004#", {}),
            "select items1.itemname from items1 where date > #03/31/2004#");
}

TEST(RefuseComments, TellsTheSignAndItsPlace) {
  for (const char* const text : {"a - -1", "'--'", "[a--b] = \"/*\"", "'it''s -- so'", ""}) {
    EXPECT_NO_THROW(RefuseComments(text)) << text;
  }
  ExpectError(ErrorNumber::kQueryRefused,
              "line 1, column 5: a condition or an alias holds the comment sign \"--\"",
              [] { RefuseComments("1=1 -- and"); });
  ExpectError(ErrorNumber::kQueryRefused,
              "line 3, column 3: a condition or an alias holds the comment sign \"/*\"",
              [] { RefuseComments("'--\n'\n₹ /* and"); });
}

TEST(ApplyAliases, EachAliasReplacesEveryOccurrenceOfItsColumnAsItStands) {
  const typAliases aliases{.taItem = "Items1.ItemPartNo",
                           .taGodown = "",
                           .taBatch = "B.X",
                           .taCategory = "C.X",
                           .taClass = "L.X",
                           .taLedger = "N.X",
                           .taEmployee = "E.X",
                           .taTransporter = "T.X"};
  EXPECT_EQ(ApplyAliases("Items1.ItemName, ITEMS1.ITEMNAME, Batches1.BatchCode, "
                         "ItemCategory1.CategoryName, ItemClass1.ClassName, "
                         "LedgerNames1.LedgerName, Employee1.EmployeeName, "
                         "TransporterShipper1.TransporterShipperName, Godown1.GodownName",
                         aliases),
            "Items1.ItemPartNo, Items1.ItemPartNo, B.X, C.X, L.X, N.X, E.X, T.X, "
            "godown1.godownname");
}

TEST(ApplyAliases, AnAliasIsOpenToTheReplacementsBehindIt) {
  // The ledger comes first, so its text is found by the item's alias when it is in small letters.
  EXPECT_EQ(ApplyAliases("LedgerNames1.LedgerName", {.taItem = "I", .taLedger = "items1.itemname"}),
            "I");
  EXPECT_EQ(ApplyAliases("LedgerNames1.LedgerName", {.taItem = "I", .taLedger = "Items1.ItemName"}),
            "Items1.ItemName");
}

TEST(ApplyAliases, TheGodownAliasReachesTheCorrelationNameGod) {
  const typAliases aliases{.taGodown = "Godown1.ShortName"};
  EXPECT_EQ(ApplyAliases("Godown1.GodownName, god.GodownName", aliases),
            "Godown1.ShortName, god.shortname");
  EXPECT_EQ(NormaliseQueryText("Godown1.GodownName, god.GodownName", aliases),
            "godown1.shortname, god.shortname");
}

TEST(ApplyAliases, TheGodownAliasIsFoundInAnyCaseForTheCorrelationName) {
  EXPECT_EQ(ApplyAliases("god.godownname", {.taGodown = "GODOWN1.A + godown1.B"}), "god.a + god.b");
  EXPECT_EQ(ApplyAliases("god.godownname", {.taGodown = "Color1.Color"}), "color1.color");
  EXPECT_EQ(ApplyAliases("god.godownname, godown1.godownname", {.taItem = "I"}),
            "god.godownname, godown1.godownname");
}

TEST(NormaliseQueryText, DatesLoseTheirSigns) {
  EXPECT_EQ(NormaliseQueryText("#03/31/2004#", {}), "'03/31/2004'");
}

TEST(NormaliseQueryText, TrueFalseAndMinusOneBecomeDigits) {
  EXPECT_EQ(NormaliseQueryText(" = -1 ", {}), " = 1 ");
  EXPECT_EQ(NormaliseQueryText("True", {}), "1");
  EXPECT_EQ(NormaliseQueryText("A = FALSE And B In (0,-1) ", {}), "a = 0 and b in (0,1) ");
}

TEST(NormaliseQueryText, TheReplacementsAreBlind) {
  EXPECT_EQ(NormaliseQueryText("Name = 'Trueman -12 #4 Falseto'", {}), "name = '1man 12 '4 0to'");
  EXPECT_EQ(NormaliseQueryText("SHAPE {Select 1} APPEND", {}), "shape {select 1} append");
  EXPECT_EQ(NormaliseQueryText("0-Godownitem1.Qty, -GodownItem1.Qty", {}),
            "0-godownitem1.qty, -godownitem1.qty");
}

TEST(NormaliseQueryText, TheRewritesComeInTheirOrderAndOnce) {
  // True is 1 before "-1" is looked for; what a replacement leaves is not looked at again.
  EXPECT_EQ(NormaliseQueryText("-True", {}), "1");
  EXPECT_EQ(NormaliseQueryText("--11", {}), "-11");
  EXPECT_EQ(NormaliseQueryText("tr#ue", {}), "tr'ue");
  EXPECT_EQ(NormaliseQueryText("-#1#", {}), "-'1'");
}

TEST(NormaliseQueryText, ATextWithoutAliasesOrLiteralsPassesLowered) {
  EXPECT_EQ(NormaliseQueryText("Select [Item Name] From Items1", {}),
            "select [item name] from items1");
  EXPECT_EQ(NormaliseQueryText("", {}), "");
}

TEST(NormaliseQueryText, AliasTextIsLoweredAndRewrittenWithTheQuery) {
  EXPECT_EQ(NormaliseQueryText("Items1.ItemName", {.taItem = "Case When X = True Then 'A'"}),
            "case when x = 1 then 'a'");
}

TEST(NormaliseQueryText, LettersOfEveryScriptAreLowered) {
  EXPECT_EQ(NormaliseQueryText("Name = 'ÀÉÎ ΔΩ Ж'", {}), "name = 'àéî δω ж'");
}

TEST(ItemStateClause, JoinsItemStatesWithOr) {
  EXPECT_EQ(ItemStateClause("", "1,2"), " (Itemstate = 1 Or Itemstate = 2)");
  EXPECT_EQ(ItemStateClause("", "3"), " (Itemstate = 3)");
}

TEST(ItemStateClause, ConsiderForSihIsTakenAsItStands) {
  EXPECT_EQ(ItemStateClause("Items1.ConsiderForSih = 1", ""), " Items1.ConsiderForSih = 1");
  EXPECT_EQ(ItemStateClause("X = 1", "1,2"), " X = 1 and  (Itemstate = 1 Or Itemstate = 2)");
  EXPECT_EQ(ItemStateClause("", ""), "");
}

TEST(DividesByZero, SeesAZeroThatStandsBehindTheSign) {
  for (const char* const text : {"sum(amount)/0 as amount", "(amount) / 0", "a/1, b/0", "a/0"}) {
    EXPECT_TRUE(DividesByZero(text)) << text;
  }
  for (const char* const text : {"", "a/", "a/1", "a/0.5", "'04/01/2003'", "a/05", "0/a"}) {
    EXPECT_FALSE(DividesByZero(text)) << text;
  }
}

TEST(SingleText, IsPlainForTheScalesThatHostsUse) {
  EXPECT_EQ(SingleText(1), "1");
  EXPECT_EQ(SingleText(1000), "1000");
  EXPECT_EQ(SingleText(100000), "100000");
  EXPECT_EQ(SingleText(0.1F), "0.1");
  EXPECT_EQ(SingleText(0.33333334F), "0.3333333");
  EXPECT_EQ(SingleText(1e10F), "1e+10");
}

TEST(ReplaceAll, GoesOnBehindWhatItPutIn) {
  EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(ReplaceAll("-1-1", "-1", "1"), "11");
}

}  // namespace
}  // namespace pstolvane1
