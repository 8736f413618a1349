#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "session/data/Error.h"
#include "session/sql/Parser.h"
#include "session/sql/Print.h"
#include "session/sql/Refusal.h"
#include "tests/SourcePath.h"
#include "tests/sql/CaseFile.h"
#include "tests/sql/Dump.h"

namespace pstolvane1::sql {
namespace {

std::string ErrorOf(const std::string& text) {
  try {
    const Statement statement = Parse(text);
    return "accepted: " + Print(statement.query);
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kQueryRefused);
    return error.Description();
  }
}

std::string DumpOf(const std::string& text) { return Dump(Parse(text).query); }

// The dump of the one value that "select ..." selects.
std::string ValueOf(const std::string& text) {
  const Statement statement = Parse("select " + text);
  return Dump(*statement.query.branches[0].select.items[0].value);
}

std::string ConditionOf(const std::string& text) {
  const Statement statement = Parse("select 1 where " + text);
  return Dump(*statement.query.branches[0].select.where);
}

class ParserCases : public testing::TestWithParam<const char*> {};

// Each accepted form is printed, read again and printed again: texts and trees agree.
TEST_P(ParserCases, GiveWhatTheFileSays) {
  const std::string folder = SourcePath("tests/sql/parser/");
  for (const TextCase& one : ReadCaseFile(folder + GetParam() + ".case")) {
    SCOPED_TRACE(one.where);
    if (one.is_error) {
      EXPECT_EQ(ErrorOf(one.input), one.expected);
      continue;
    }
    try {
      const Statement statement = Parse(one.input);
      const std::string printed = Print(statement.query);
      EXPECT_EQ(printed, one.expected);
      const Statement again = Parse(printed);
      EXPECT_EQ(Dump(again.query), Dump(statement.query));
      EXPECT_EQ(Print(again.query), printed);
    } catch (const Error& error) {
      ADD_FAILURE() << error.Description();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Files, ParserCases,
                         testing::Values("expressions", "conditions", "tables", "queries", "names",
                                         "refused"),
                         [](const auto& file) { return std::string(file.param); });

TEST(Parser, OperatorsBindAsTheDialectSays) {
  EXPECT_EQ(ValueOf("1 + 2 * 3"), "(+ 1 (* 2 3))");
  EXPECT_EQ(ValueOf("(1 + 2) * 3"), "(* (+ 1 2) 3)");
  EXPECT_EQ(ValueOf("1 - 2 - 3"), "(- (- 1 2) 3)");
  EXPECT_EQ(ValueOf("1 - (2 - 3)"), "(- 1 (- 2 3))");
  EXPECT_EQ(ValueOf("12 / 4 % 5 * 6"), "(* (% (/ 12 4) 5) 6)");
  EXPECT_EQ(ValueOf("-1 * - -2"), "(* (minus 1) (minus (minus 2)))");
  EXPECT_EQ(ConditionOf("a = 1 or b = 2 and not c = 3 or d = 4"),
            "(or [ (= ``.`a` 1) (and [ (= ``.`b` 2) (not (= ``.`c` 3)) ]) (= ``.`d` 4) ])");
  EXPECT_EQ(ConditionOf("(a = 1 or b = 2) and c = 3"),
            "(and [ (or [ (= ``.`a` 1) (= ``.`b` 2) ]) (= ``.`c` 3) ])");
  EXPECT_EQ(ConditionOf("a + 1 between b and c + 2 and d = 1"),
            "(and [ (between (+ ``.`a` 1) ``.`b` (+ ``.`c` 2)) (= ``.`d` 1) ])");
}

TEST(Parser, AnOnBelongsToTheNearestJoinThatHasNone) {
  EXPECT_EQ(DumpOf("select 1 from a inner join b inner join c on b.x = c.x on a.x = b.x"),
            DumpOf("select 1 from a inner join (b inner join c on b.x = c.x) on a.x = b.x"));
  EXPECT_EQ(DumpOf("select 1 from a join b join c on 1 = 1 join d on 2 = 2 on 3 = 3"),
            DumpOf("select 1 from a join ((b join c on 1 = 1) join d on 2 = 2) on 3 = 3"));
  EXPECT_NE(DumpOf("select 1 from a join b on 1 = 1 join c on 2 = 2"),
            DumpOf("select 1 from a join (b join c on 1 = 1) on 2 = 2"));
  EXPECT_EQ(
      DumpOf("select 1 from ((a join b on 1 = 1) left join c on 2 = 2) right join d on 3 = 3"),
      DumpOf("select 1 from a join b on 1 = 1 left join c on 2 = 2 right join d on 3 = 3"));
}

TEST(Parser, IdsAreDenseAndPlacesPointIntoTheText) {
  const Statement statement =
      Parse("select a.x + 1 as y\nfrom t as a inner join (select x from u) as b on a.x = b.x");
  EXPECT_EQ(statement.selects, 2U);
  EXPECT_EQ(statement.tables, 4U);
  EXPECT_EQ(statement.expressions, 7U);
  const Select& select = statement.query.branches[0].select;
  const auto* sum = select.items[0].value->As<Arithmetic>();
  ASSERT_NE(sum, nullptr);
  EXPECT_EQ(PlaceText(statement.text, select.items[0].value->place), "line 1, column 12");
  EXPECT_EQ(PlaceText(statement.text, sum->right->place), "line 1, column 14");
  EXPECT_EQ(PlaceText(statement.text, select.items[0].alias.place), "line 1, column 19");
  EXPECT_EQ(PlaceText(statement.text, select.from[0]->place), "line 2, column 13");
  EXPECT_EQ(select.items[0].value->height, 2U);
}

TEST(Parser, ColumnsOfAnErrorCountCharacters) {
  EXPECT_EQ(
      ErrorOf("select 'ä€𝄞' from from"),
      "line 1, column 19: expected a table, found \"from\", a word of the language; as a name "
      "it stands in brackets");
}

std::string Repeated(std::string_view part, std::size_t times) {
  std::string text;
  for (std::size_t i = 0; i < times; ++i) text += part;
  return text;
}

TEST(ParserLimits, TextsOfTheLargestSizeAreReadAndLargerOnesRefused) {
  const std::string select = "select 1";
  const std::string largest = select + std::string(Limits::kTextBytes - select.size(), ' ');
  EXPECT_EQ(Print(Parse(largest).query), "SELECT 1");
  EXPECT_EQ(ErrorOf(largest + " "), "line 1, column 1: the text is longer than 1048576 bytes");
}

TEST(ParserLimits, TokensAreCounted) {
  EXPECT_EQ(ErrorOf("select 1 where a in (1" + Repeated(",1", 50'000) + ")"),
            "line 1, column 100016: the text has more than 100000 words and signs");
  EXPECT_NO_THROW((void)Parse("select 1 where a in (1" + Repeated(",1", 49'000) + ")"));
}

TEST(ParserLimits, NestingOfAnyKindIsRefusedBeforeTheStackEnds) {
  const std::string too_deep =
      "parentheses, subqueries, NOT and signs nest more than 100 levels deep";
  const auto refuses = [&too_deep](const std::string& text) {
    EXPECT_THAT(ErrorOf(text), testing::EndsWith(too_deep)) << text.substr(0, 60);
  };
  constexpr std::size_t kMany = 10'000;
  refuses("select " + Repeated("(", kMany) + "1" + Repeated(")", kMany));
  refuses("select " + Repeated("- ", kMany) + "1");
  refuses("select 1 where " + Repeated("not ", kMany) + "a = 1");
  refuses("select " + Repeated("(select ", kMany) + "1" + Repeated(")", kMany));
  refuses("select * from " + Repeated("(select * from ", kMany) + "t" + Repeated(") as t", kMany));
  refuses("select * from " + Repeated("(", kMany) + "t" + Repeated(")", kMany));
  refuses("select * from t" + Repeated(" join t", kMany));
  refuses("select " + Repeated("case when 1 = 1 then ", kMany) + "1" + Repeated(" end", kMany));
  refuses("select " + Repeated("abs(", kMany) + "1" + Repeated(")", kMany));
  refuses("select " + Repeated("cast(", kMany) + "1" + Repeated(" as int)", kMany));
  refuses("select 1 where " + Repeated("a in (", kMany) + "1" + Repeated(")", kMany));
  refuses("select 1 where " + Repeated("exists (select 1 where ", kMany) + "1 = 1" +
          Repeated(")", kMany));
  refuses(Repeated("(", kMany) + "select 1" + Repeated(")", kMany));
}

TEST(ParserLimits, NestingOfNinetyLevelsIsRead) {
  EXPECT_EQ(ValueOf(Repeated("(", 90) + "1" + Repeated(")", 90)), "1");
  const Statement statement =
      Parse("select * from " + Repeated("(select * from ", 40) + "t" + Repeated(") as t", 40));
  EXPECT_EQ(Dump(Parse(Print(statement.query)).query), Dump(statement.query));
}

TEST(ParserLimits, LongChainsAreFlatOrRefused) {
  const std::string ors = "a = 1" + Repeated(" or a = 1", 10'000);
  EXPECT_EQ(Parse("select 1 where " + ors).query.branches[0].select.where->height, 3U);
  EXPECT_EQ(ErrorOf("select 1" + Repeated(" + 1", 300)),
            "line 1, column 1030: the expression nests more than 256 levels deep");
  EXPECT_NO_THROW((void)Parse("select 1" + Repeated(" + 1", 255)));
  EXPECT_EQ(ErrorOf("select 1 from t" + Repeated(" cross join t", 300)),
            "line 1, column 3332: tables nest more than 256 levels deep");
  EXPECT_EQ(Parse("select 1" + Repeated(" union select 1", 499)).selects, 500U);
}

// Each level of subqueries could carry a chain of its own; the height counts through all of them.
TEST(ParserLimits, HeightCountsThroughSubqueries) {
  std::string text = "1";
  for (int i = 0; i < 10; ++i) text = "(select " + text + Repeated(" + 1", 30) + ")";
  EXPECT_THAT(ErrorOf("select " + text),
              testing::EndsWith("the expression nests more than 256 levels deep"));
}

// As many as each engine takes.
TEST(ParserLimits, TablesAndUnionsHaveLimits) {
  const std::string many = "select 1 from t" + Repeated(", t", 63);
  EXPECT_NO_THROW((void)Parse(many));
  EXPECT_NO_THROW((void)Parse(many + " where 1 in (" + many + ")"));
  EXPECT_NO_THROW((void)Parse("select 1 from (" + many + ") as d" + Repeated(", t", 63)));
  for (const char* const one : {", t", " cross join t", " join t on 1 = 1", ", (select 1) as d"}) {
    EXPECT_EQ(ErrorOf(many + one), "line 1, column 1: a FROM has more than 64 tables") << one;
  }
  const std::string unions = "select 1" + Repeated(" union all select 1", 499);
  EXPECT_NO_THROW((void)Parse(unions));
  EXPECT_EQ(ErrorOf(unions + " union select 1"),
            "line 1, column 1: a UNION has more than 500 members");
  EXPECT_EQ(ErrorOf("select 1 union all (" + unions + ")"),
            "line 1, column 1: a UNION has more than 500 members");
}

TEST(ParserLimits, ColumnsAndNamesHaveLimits) {
  EXPECT_NO_THROW((void)Parse("select 1" + Repeated(", 1", 999)));
  EXPECT_EQ(ErrorOf("select 1" + Repeated(", 1", 1000)),
            "line 1, column 1: a list has more than 1000 members");
  EXPECT_EQ(ErrorOf("select 1 order by 1" + Repeated(", 1", 1000)),
            "line 1, column 10: a list has more than 1000 members");
  EXPECT_NO_THROW((void)Parse("select " + std::string(128, 'x')));
  EXPECT_EQ(ErrorOf("select " + std::string(129, 'x')),
            "line 1, column 8: the name is longer than 128 bytes");
  EXPECT_EQ(ErrorOf("select 1 as '" + std::string(129, 'x') + "'"),
            "line 1, column 13: the name is longer than 128 bytes");
}

}  // namespace
}  // namespace pstolvane1::sql
