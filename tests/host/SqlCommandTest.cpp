// stolvane sql: one SELECT on any database.
#include <nlohmann/json.hpp>

#include "HostProgram.h"

namespace pstolvane1::host::test {
namespace {

using nlohmann::json;

class Sql : public SampleHost {
 protected:
  Sql() {
    books::test::Database other(Other());
    other.Execute(
        "create table thing (id integer primary key, name varchar(20), flag bit, price "
        "decimal(19,4), made date, weight real, big bigint, share double);"
        "insert into thing values (1, 'A \"b\"', 1, 12.5, '2004-03-31', 0.1, 9007199254740993, "
        "0.1), (2, '', 0, -0.05, null, null, null, null)");
  }
  [[nodiscard]] std::string Other() const { return folder.File("other.db"); }
};

TEST_F(Sql, ReadsADatabaseThatHoldsNoBooks) {
  const Finished finished =
      Stolvane({"sql", "--books", Other(), "--format", "json", "select * from thing order by id"});
  EXPECT_EQ(finished.status, 0) << finished.err;
  const json rowset = json::parse(finished.out);
  std::vector<int> types;
  for (const json& column : rowset.at("columns")) types.push_back(column.at("type"));
  EXPECT_EQ(types, (std::vector<int>{3, 200, 11, 6, 7, 4, 20, 5}));
  EXPECT_EQ(rowset.at("rows"), json::parse(R"([
    [1, "A \"b\"", true, "12.5000", "2004-03-31", 0.1, 9007199254740993, 0.1],
    [2, "", false, "-0.0500", null, null, null, null]])"));
}

TEST_F(Sql, CsvKeepsNullAndEmptyApart) {
  const Finished finished = Stolvane({"sql", "--books", Other(), "--format", "csv",
                                      "select name, flag, price, made from thing order by id"});
  EXPECT_EQ(finished.out,
            "name,flag,price,made\r\n\"A \"\"b\"\"\",-1,12.5000,2004-03-31\r\n\"\",0,-0.0500,\r\n");
}

TEST_F(Sql, TakesTheLiteralsOfConditions) {
  const auto ids = [this](const std::string& condition) {
    const Finished finished = Stolvane(
        {"sql", "--books", Other(), "--format", "csv", "select id from thing where " + condition});
    EXPECT_EQ(finished.status, 0) << finished.err;
    return finished.out;
  };
  EXPECT_EQ(ids("made < #01/01/2005#"), "id\r\n1\r\n");
  EXPECT_EQ(ids("made < '01/01/2005'"), "id\r\n1\r\n");
  EXPECT_EQ(ids("made between #03/31/2004# and #12/31/2004# and name <> '#'"), "id\r\n1\r\n");
  EXPECT_EQ(ids("name like 'a%'"), "id\r\n1\r\n");
  EXPECT_EQ(ids("name like 'a*'"), "id\r\n");  // the star is a letter
  EXPECT_EQ(ids("flag = True"), "id\r\n1\r\n");
  EXPECT_EQ(ids("name = '#' or [name] = 'A \"b\"'"), "id\r\n1\r\n");
}

TEST_F(Sql, TranslateShowsTheEnginesTextAndRunsNothing) {
  const Finished translated = Stolvane({"sql", "--books", Other(), "--translate",
                                        "select top 1 name from thing where made < '01/01/2005'"});
  EXPECT_EQ(translated.status, 0) << translated.err;
  EXPECT_NE(translated.out.find("'2005-01-01'"), std::string::npos);
  EXPECT_NE(translated.out.find("LIMIT 1"), std::string::npos);
}

TEST_F(Sql, NothingButOneSelectIsRead) {
  for (const std::string text :
       {"delete from thing", "select 1 as one; delete from thing", "update thing set name = 'x'",
        "attach 'x' as y", "pragma user_version = 3", "select * from sqlite_master", ""}) {
    const std::string before = books::test::Content(Other());
    const Finished finished = Stolvane({"sql", "--books", Other(), text});
    EXPECT_EQ(finished.status, 1) << text;
    EXPECT_TRUE(finished.err.starts_with("stolvane: error -2147217900: line 1, column "))
        << finished.err;
    EXPECT_EQ(books::test::Content(Other()), before);
  }
}

TEST_F(Sql, AConditionIsCheckedWithoutBooks) {
  const Finished right = Stolvane({"sql", "--condition", "Desr1, Vouchertype1",
                                   "Desr1.Date >= #04/01/2004# and Vouchertype1.RelatedTo = 10"});
  EXPECT_EQ(right.status, 0) << right.err;
  EXPECT_EQ(right.out, "Nothing is wrong with the condition.\n");
  const Finished wrong = Stolvane({"sql", "--condition", "Desr1", "Desr1.Dat >= #04/01/2004#"});
  EXPECT_EQ(wrong.status, 1);
  EXPECT_TRUE(wrong.err.starts_with("stolvane: error -2147217900: line 1, column 7: "))
      << wrong.err;
  EXPECT_EQ(Stolvane({"sql", "1 = 1"}).status, 2);
  EXPECT_EQ(Stolvane({"sql", "--books", Other(), "--condition", "Desr1", "1 = 1"}).status, 2);
}

// What somebody types, or sends from a file; at a prompt an error does not end it.
TEST_F(Sql, StatementsAreTypedOneAfterTheOther) {
  folder.Write("typed",
               ".tables\n.columns thing\nselect name\nfrom thing\nwhere id = 1;\n"
               "select count(*) as many from thing\n\n.quit\nselect never\n");
  const Finished typed = StolvaneWithInput(folder.File("typed"), {"sql", "--books", Other()});
  EXPECT_EQ(typed.status, 0) << typed.err;
  for (const char* const part :
       {"Table\n─────\nthing\n", "price", "money", "A \"b\"", "many", "2"}) {
    EXPECT_NE(typed.out.find(part), std::string::npos) << part << '\n' << typed.out;
  }
  folder.Write("wrong", "select nme from thing;\nselect 1 as one;\n");
  const Finished wrong = StolvaneWithInput(folder.File("wrong"), {"sql", "--books", Other()});
  EXPECT_EQ(wrong.status, 1);
  EXPECT_EQ(wrong.out, "");
  EXPECT_NE(wrong.err.find("unknown column \"nme\"; did you mean \"name\"?"), std::string::npos)
      << wrong.err;
}

TEST_F(Sql, ANameThatIsNotThereIsAnsweredWithTheNearest) {
  const auto told = [this](const std::string& text) {
    return Stolvane({"sql", "--books", Other(), text}).err;
  };
  EXPECT_NE(told("select id from thng").find("\"thng\"; did you mean \"thing\"?"),
            std::string::npos);
  EXPECT_NE(told("select thing.nam from thing").find("\"nam\"; did you mean \"name\"?"),
            std::string::npos);
  EXPECT_EQ(told("select quantity from thing").find("did you mean"), std::string::npos);
}

TEST_F(Sql, APromptGoesOnAfterAnError) {
  const Finished seen = StolvaneAtPrompt({"sql", "--books", Other()},
                                         "select nme from thing;\n.columns thng\nselect 6 * 7 as "
                                         "answer;\n.quit\n");
  EXPECT_EQ(seen.status, 0) << seen.out;
  for (const char* const part : {"sql> ", "unknown column \"nme\"; did you mean \"name\"?",
                                 "there is no table \"thng\"; did you mean \"thing\"?", "42"}) {
    EXPECT_NE(seen.out.find(part), std::string::npos) << part << '\n' << seen.out;
  }
}

TEST_F(Sql, ShowsAnEmptyResult) {
  const Finished finished =
      Stolvane({"sql", "--books", Other(), "select id from thing where id > 5"});
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.out, "(no lines)\n");
}

}  // namespace
}  // namespace pstolvane1::host::test
