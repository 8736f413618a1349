#include <gtest/gtest.h>
#include <string>

#include "session/data/Error.h"
#include "session/data/ShapeParser.h"

namespace pstolvane1::shape {
namespace {

struct Reading {
  const char* situation;
  std::string text;
  std::string printed;
};

class ShapeParserReads : public testing::TestWithParam<Reading> {};

TEST_P(ShapeParserReads, AndPrintsInOneSpelling) {
  const std::string printed = Print(Parse(GetParam().text));
  EXPECT_EQ(printed, GetParam().printed);
  EXPECT_EQ(Print(Parse(printed)), printed);
}

INSTANTIATE_TEST_SUITE_P(
    , ShapeParserReads,
    testing::Values(
        Reading{"query_alone", "shape{select 1}", "SHAPE {select 1}"},
        Reading{"query_with_a_semicolon_behind", " SHAPE {select 1} ; ", "SHAPE {select 1}"},
        Reading{"one_chapter",
                "SHAPE {select a from p} APPEND ({select b from c} RELATE a TO b) AS chp",
                "SHAPE {select a from p} APPEND ({select b from c} RELATE [a] TO [b]) AS [chp]"},
        Reading{"keywords_in_any_case_and_no_spacing", "sHaPe{p}aPPend({c}reLAte`a`tO`b`)aS`chp`",
                "SHAPE {p} APPEND ({c} RELATE [a] TO [b]) AS [chp]"},
        Reading{"several_keys",
                "shape { p } append ( { c } relate item_id to item_id , godown_id to godown_id ,"
                " batch_id to batch_id ) as chptrans",
                "SHAPE { p } APPEND ({ c } RELATE [item_id] TO [item_id], [godown_id] TO "
                "[godown_id], [batch_id] TO [batch_id]) AS [chptrans]"},
        Reading{"chapters_side_by_side_with_append_repeated",
                "shape {p} append ({c} relate a to b) as x append ({d} relate a to b) as y",
                "SHAPE {p} APPEND ({c} RELATE [a] TO [b]) AS [x], ({d} RELATE [a] TO [b]) AS [y]"},
        Reading{"chapters_side_by_side_with_commas",
                "shape {p} append ({c} relate a to b) as x , ({d} relate a to b) as y",
                "SHAPE {p} APPEND ({c} RELATE [a] TO [b]) AS [x], ({d} RELATE [a] TO [b]) AS [y]"},
        Reading{"chapters_side_by_side_with_comma_and_append",
                "shape {p} append ({c} relate a to b) as x , append ({d} relate a to b) as y",
                "SHAPE {p} APPEND ({c} RELATE [a] TO [b]) AS [x], ({d} RELATE [a] TO [b]) AS [y]"},
        Reading{"chapter_named_inside_the_parentheses",
                "shape {p} append ({c} as chptrans relate a to b )",
                "SHAPE {p} APPEND ({c} RELATE [a] TO [b]) AS [chptrans]"},
        Reading{"chapter_named_twice_takes_the_outer_name",
                "shape {p} append ({c} as inner1 relate a to b ) as outer1",
                "SHAPE {p} APPEND ({c} RELATE [a] TO [b]) AS [outer1]"},
        Reading{"names_without_as", "shape {p} rows1 append ({c} relate a to b) x",
                "SHAPE {p} AS [rows1] APPEND ({c} RELATE [a] TO [b]) AS [x]"},
        Reading{"nested_command_in_extra_parentheses",
                "shape { p }  as rsbillbybill append (( shape {b}  as chsalebills append "
                "({r} relate billbybill_id to billbybill_id) as chreceiptbills ) "
                "relate voucher_id to voucher_id) as chsalereceiptbill",
                "SHAPE { p } AS [rsbillbybill] APPEND ((SHAPE {b} AS [chsalebills] APPEND "
                "({r} RELATE [billbybill_id] TO [billbybill_id]) AS [chreceiptbills]) "
                "RELATE [voucher_id] TO [voucher_id]) AS [chsalereceiptbill]"},
        Reading{"nested_command_without_extra_parentheses",
                "shape {p} append (shape {b} append ({r} relate c to d) as y relate a to b) as x",
                "SHAPE {p} APPEND ((SHAPE {b} APPEND ({r} RELATE [c] TO [d]) AS [y]) RELATE [a] TO "
                "[b]) AS [x]"},
        Reading{"nested_command_gives_the_chapter_its_name",
                "shape {p} append ((shape {b} as y append ({r} relate c to d) as z) relate a to b)",
                "SHAPE {p} APPEND ((SHAPE {b} AS [y] APPEND ({r} RELATE [c] TO [d]) AS [z]) RELATE "
                "[a] TO [b]) AS [y]"},
        Reading{"query_and_relation_in_doubled_parentheses",
                "shape (({p})) append (((({c})) relate a to b)) as x",
                "SHAPE {p} APPEND ({c} RELATE [a] TO [b]) AS [x]"},
        Reading{"group_by_two_columns",
                "SHAPE { select 1 }  AS Chap COMPUTE Chap BY 'ItemName','Item_Id' ",
                "SHAPE { select 1 } AS [Chap] COMPUTE [Chap] BY [ItemName], [Item_Id]"},
        Reading{"group_by_names_in_every_quote",
                "shape {p} as 'chap' compute `chap` by \"a b\", [c]]d], 'it''s', `e`",
                "SHAPE {p} AS [chap] COMPUTE [chap] BY [a b], [c]]d], [it's], [e]"},
        Reading{
            "aggregates",
            "shape {p} as chap compute chap, sum(chap.qty) as total, count(chap), "
            "Count( chap . 'qty' ) n, min(chap.d) as lo, max(chap.d) hi, avg(chap.v) as mean, "
            "any(chap.name) as name by id",
            "SHAPE {p} AS [chap] COMPUTE [chap], SUM([chap].[qty]) AS [total], COUNT([chap]) AS "
            "[COUNT], COUNT([chap].[qty]) AS [n], MIN([chap].[d]) AS [lo], MAX([chap].[d]) AS "
            "[hi], AVG([chap].[v]) AS [mean], ANY([chap].[name]) AS [name] BY [id]"},
        Reading{"aggregates_of_all_rows", "shape {p} as c compute sum(c.x) as t",
                "SHAPE {p} AS [c] COMPUTE SUM([c].[x]) AS [t]"},
        Reading{"chapter_column_renamed", "shape {p} as c compute c as details by x",
                "SHAPE {p} AS [c] COMPUTE [c] AS [details] BY [x]"},
        Reading{"aggregate_of_an_appended_chapter",
                "shape {p} append ({c} relate a to b) as x, sum(x.v) as total",
                "SHAPE {p} APPEND ({c} RELATE [a] TO [b]) AS [x], SUM([x].[v]) AS [total]"},
        Reading{"groups_over_a_nested_command",
                "shape (shape {p} append ({c} relate a to b) as x) as rows1 compute rows1 by k",
                "SHAPE (SHAPE {p} APPEND ({c} RELATE [a] TO [b]) AS [x]) AS [rows1] COMPUTE "
                "[rows1] BY [k]"},
        Reading{"grouped_rows_as_a_chapter",
                "shape {p} append ((shape {c} as d compute d by k) relate a to k) as x",
                "SHAPE {p} APPEND ((SHAPE {c} AS [d] COMPUTE [d] BY [k]) RELATE [a] TO [k]) AS "
                "[x]"},
        Reading{"a_name_that_is_an_aggregates_word",
                "shape {p} append ({c} relate count to sum) as any",
                "SHAPE {p} APPEND ({c} RELATE [count] TO [sum]) AS [any]"},
        Reading{"braces_in_the_quotes_of_a_query",
                "shape {select '}', 'it''s {', \"}\", [}] from p} as c",
                "SHAPE {select '}', 'it''s {', \"}\", [}] from p} AS [c]"},
        Reading{"braces_in_the_comments_of_a_query", "shape {select 1 -- }\n, 2 /* } */ } as c",
                "SHAPE {select 1 -- }\n, 2 /* } */ } AS [c]"},
        Reading{"braces_in_braces", "shape {select {d '2004-04-01'}} as c",
                "SHAPE {select {d '2004-04-01'}} AS [c]"}),
    [](const auto& test) { return std::string(test.param.situation); });

struct Refusal {
  const char* situation;
  std::string text;
  std::string description;
};

class ShapeParserRefuses : public testing::TestWithParam<Refusal> {};

TEST_P(ShapeParserRefuses, WithThePlaceAndWhatWasExpected) {
  try {
    const Command command = Parse(GetParam().text);
    FAIL() << "read as " << Print(command);
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kQueryRefused);
    EXPECT_EQ(error.Description(), GetParam().description);
  }
}

INSTANTIATE_TEST_SUITE_P(
    , ShapeParserRefuses,
    testing::Values(
        Refusal{
            "nothing_behind_shape", "shape",
            "line 1, column 6: expected { and a SELECT, or ( and a SHAPE command, found the end "
            "of the command"},
        Refusal{
            "select_without_braces", "shape select 1",
            "line 1, column 7: expected { and a SELECT, or ( and a SHAPE command, found select"},
        Refusal{"empty_braces", "shape {  }",
                "line 1, column 7: expected a SELECT between { and }"},
        Refusal{"brace_not_closed", "shape\n  { select 1", "line 2, column 3: this { has no }"},
        Refusal{"inner_brace_not_closed", "shape { select {d 1 }",
                "line 1, column 7: this { has no }"},
        Refusal{"quote_in_a_query_not_closed", "shape { select 'a } as c",
                "line 1, column 16: this ' has no closing '"},
        Refusal{"bracket_in_a_query_not_closed", "shape { select [a } as c",
                "line 1, column 16: this [ has no closing ]"},
        Refusal{"comment_in_a_query_not_closed", "shape { select /* } as c",
                "line 1, column 16: this comment has no */"},
        Refusal{"line_comment_takes_the_brace", "shape { select 1 -- }",
                "line 1, column 7: this { has no }"},
        Refusal{"name_quote_not_closed", "shape {p} as 'c",
                "line 1, column 14: this ' has no closing '"},
        Refusal{"empty_name", "shape {p} as ''",
                "line 1, column 14: expected a name in the quotes"},
        Refusal{"name_missing_behind_as", "shape {p} as , ",
                "line 1, column 14: expected a name, found ,"},
        Refusal{"append_without_an_item", "shape {p} append",
                "line 1, column 17: expected ( and the query of a chapter, or an aggregate, found "
                "the end of the command"},
        Refusal{
            "item_without_parentheses", "shape {p} append {c} relate a to b",
            "line 1, column 18: expected ( and the query of a chapter, or an aggregate, found {"},
        Refusal{"relate_missing", "shape {p} append ({c}) as x",
                "line 1, column 22: expected RELATE, found )"},
        Refusal{"relate_missing_and_more", "shape {p} append ({c} as y a to b) as x",
                "line 1, column 28: expected RELATE, found a"},
        Refusal{"relate_said_twice", "shape {p} append (({c} relate a to b) relate c to d) as x",
                "line 1, column 39: expected , or ), found relate"},
        Refusal{"to_missing", "shape {p} append ({c} relate a b) as x",
                "line 1, column 32: expected TO, found b"},
        Refusal{"child_column_missing", "shape {p} append ({c} relate a to ) as x",
                "line 1, column 35: expected a column of the chapter's query, found )"},
        Refusal{"comma_without_a_key", "shape {p} append ({c} relate a to b, ) as x",
                "line 1, column 38: expected a column of the parent, found )"},
        Refusal{"parenthesis_not_closed", "shape {p} append ({c} relate a to b as x",
                "line 1, column 37: expected , or ), found as"},
        Refusal{"chapter_name_missing", "shape {p} append ({c} relate a to b)",
                "line 1, column 37: expected AS and the chapter's name, found the end of the "
                "command"},
        Refusal{"comma_at_the_end", "shape {p} append ({c} relate a to b) as x,",
                "line 1, column 43: expected ( and the query of a chapter, or an aggregate, found "
                "the end of the command"},
        Refusal{"text_behind_the_command", "shape {p} append ({c} relate a to b) as x order by y",
                "line 1, column 43: expected APPEND, COMPUTE or the end of the command, found "
                "order"},
        Refusal{"compute_behind_append",
                "shape {p} as q append ({c} relate a to b) as x compute q by y",
                "line 1, column 48: expected APPEND, COMPUTE or the end of the command, found "
                "compute"},
        Refusal{"compute_of_rows_without_a_name", "shape {p} compute c by x",
                "line 1, column 11: expected AS and a name for the rows before COMPUTE, found "
                "compute"},
        Refusal{"compute_of_another_name", "shape {p} as c compute d by x",
                "line 1, column 24: expected c, the name of the rows, found d"},
        Refusal{"aggregate_of_another_name", "shape {p} as c compute c, sum(d.x) by x",
                "line 1, column 31: expected c, the name of the rows, found d"},
        Refusal{"aggregate_without_a_column", "shape {p} as c compute c, sum(c) by x",
                "line 1, column 32: expected . and a column of c, found )"},
        Refusal{"unknown_aggregate", "shape {p} as c compute c, median(c.x) by x",
                "line 1, column 27: expected c, the name of the rows, found median"},
        Refusal{"by_without_a_column", "shape {p} as c compute c by",
                "line 1, column 28: expected a column to group by, found the end of the command"},
        Refusal{"aggregate_of_a_chapter_not_appended",
                "shape {p} append ({c} relate a to b) as x, sum(y.v) as total",
                "line 1, column 48: no chapter y was appended before this"},
        Refusal{"column_counts_characters_not_bytes", "shape {sélect '€'} as",
                "line 1, column 22: expected a name, found the end of the command"}),
    [](const auto& test) { return std::string(test.param.situation); });

std::string Repeated(int times, const std::string& text) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(ShapeLimits, DepthIsRefusedWithItsPlace) {
  EXPECT_NO_THROW((void)Parse("shape " + Repeated(64, "(") + "{p}" + Repeated(64, ")")));
  try {
    (void)Parse("shape " + Repeated(100'000, "("));
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(),
              "line 1, column 71: parentheses stand more than 64 deep in each other");
  }
  EXPECT_NO_THROW((void)Parse(Repeated(16, "shape ") + "{p}"));
  try {
    (void)Parse(Repeated(100'000, "shape "));
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(),
              "line 1, column 97: commands stand more than 16 deep in each other");
  }
}

TEST(ShapeLimits, TheDeepestCommandIsReadAgainFromItsPrint) {
  // Printing puts parentheses around every command inside another, given or not.
  const std::string deepest =
      Repeated(15, "shape {p} append (") + "shape {p}" + Repeated(15, " relate a to b) as x");
  const std::string printed = Print(Parse(deepest));
  EXPECT_EQ(Print(Parse(printed)), printed);
}

TEST(ShapeLimits, LengthIsRefused) {
  EXPECT_NO_THROW((void)Parse("shape {" + std::string(999'991, 'x') + "} "));
  try {
    (void)Parse("shape {" + std::string(1'000'000, 'x') + "}");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(), "line 1, column 1: the command is longer than 1000000 bytes");
  }
}

TEST(ShapeLimits, QueriesAreCounted) {
  const std::string chapter = "({c} relate a to b) as x";
  EXPECT_NO_THROW((void)Parse("shape {p} append " + chapter + Repeated(62, "," + chapter)));
  try {
    (void)Parse("shape {p} append " + chapter + Repeated(63, "," + chapter));
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(), "line 1, column 1594: the command has more than 64 queries");
  }
}

TEST(ShapeLimits, KeysAndGroupColumnsAreCounted) {
  EXPECT_NO_THROW(
      (void)Parse("shape {p} append ({c} relate a to b" + Repeated(15, ",a to b") + ") as x"));
  try {
    (void)Parse("shape {p} append ({c} relate a to b" + Repeated(16, ",a to b") + ") as x");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(), "line 1, column 142: RELATE has more than 16 columns");
  }
  try {
    (void)Parse("shape {p} as c compute c by a" + Repeated(16, ",a"));
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(), "line 1, column 61: BY has more than 16 columns");
  }
}

TEST(ShapeCommands, BeginWithTheWordInAnyCase) {
  EXPECT_TRUE(IsCommand("SHAPE {p}"));
  EXPECT_TRUE(IsCommand(" \t\r\n shape{p}"));
  EXPECT_FALSE(IsCommand("shapes {p}"));
  EXPECT_FALSE(IsCommand("shape_1"));
  EXPECT_FALSE(IsCommand("select shape from p"));
  EXPECT_FALSE(IsCommand(""));
}

TEST(ShapePlaces, AQueryInPlaceHasThePlacesOfTheCommand) {
  const std::string text = "shape {select 1}\r\n as é append ({ select\n bad } relate a to b) as x";
  const Command command = Parse(text);
  const auto& relation = std::get<Relation>(command.appended.front());
  const auto& query = std::get<Query>(relation.child);
  const std::string moved = InPlace(text, query);
  EXPECT_EQ(moved, "\n" + std::string(15, ' ') + " select\n bad ");
  EXPECT_EQ(PlaceIn(moved, moved.find("select")), PlaceIn(text, text.rfind("select")));
  EXPECT_EQ(PlaceIn(moved, moved.find("bad")), PlaceIn(text, text.find("bad")));
  EXPECT_EQ(PlaceIn(moved, moved.find("bad")), "line 3, column 2");
}

}  // namespace
}  // namespace pstolvane1::shape
