// Reports in few words: what they stand for, and that they all run.
#include "HostProgram.h"
#include "automation/ShortForms.h"

namespace pstolvane1::host::test {
namespace {

class ShortCommands : public SampleHost {
 protected:
  static std::string Explained(Words words) {
    words.emplace_back("--explain");
    const Finished finished = Stolvane(words);
    EXPECT_EQ(finished.status, 0) << finished.err;
    return finished.out;
  }
  static std::string Told(const Words& words) {
    const Finished finished = Stolvane(words);
    EXPECT_EQ(finished.status, 2) << finished.out;
    return finished.err;
  }
};

TEST_F(ShortCommands, AStockStatementOfTheLastYearTakesTwoWords) {
  EXPECT_EQ(Explained({"stock", Books()}), "stolvane run StockDetails_Itemwise --books " + Books() +
                                               " \\\n  bytYearno=3"
                                               " \\\n  dtFromDate=2005-04-01"
                                               " \\\n  dtToDate=2006-03-31"
                                               " \\\n  ValuationMethod=AverageRate"
                                               " \\\n  blnDetailed=false"
                                               " \\\n  blnAltUom=false"
                                               " \\\n  sngScale=1\n");
  const Finished in_short = Stolvane({"stock", Books(), "--format", "csv"});
  const Finished in_full =
      Stolvane({"run", "StockDetails_Itemwise", "--books", Books(), "bytYearno=3",
                "dtFromDate=2005-04-01", "dtToDate=2006-03-31", "ValuationMethod=AverageRate",
                "blnDetailed=false", "blnAltUom=false", "sngScale=1", "--format", "csv"});
  EXPECT_EQ(in_short.err, "");
  EXPECT_EQ(in_short.out, in_full.out);
  EXPECT_GT(in_short.out.size(), 1000U);
}

TEST_F(ShortCommands, PeriodMethodTreeAndScaleAreChosen) {
  EXPECT_EQ(Explained({"stock", Books(), "2004-04..2004-06", "--by", "group", "--method", "fifo",
                       "--detailed", "--alt-units", "--lakhs", "--only", "Two Wheelers"}),
            "stolvane run StockDetails_Categorywise --books " + Books() +
                " \\\n  bytYearno=2"
                " \\\n  dtFromDate=2004-04-01"
                " \\\n  dtToDate=2004-06-30"
                " \\\n  ValuationMethod=fifo"
                " \\\n  lngAny_Id1=2"
                " \\\n  blnDetailed=true"
                " \\\n  blnAltUom=true"
                " \\\n  sngScale=100000"
                " \\\n  blnOnlyItems=false\n");
  EXPECT_NE(Explained({"sales", Books(), "2004-08", "--thousands"})
                .find("lngVouchertype_id=10 \\\n  dtFromDate=2004-08-01 \\\n  dtToDate=2004-08-31 "
                      "\\\n  gScale=1000"),
            std::string::npos);
}

// The line of the one item is the same as in the statement of all.
TEST_F(ShortCommands, OneItemIsShownAlone) {
  const Finished list = Stolvane({"list", "items", Books(), "--format", "csv"});
  const std::size_t line = list.out.find('\n') + 1, comma = list.out.find(',', line);
  std::string name = list.out.substr(comma + 1, list.out.find('\r', comma) - comma - 1);
  if (name.starts_with('"')) name = name.substr(1, name.size() - 2);
  const Finished one = Stolvane({"stock", Books(), "--only", name, "--format", "csv"});
  EXPECT_EQ(one.status, 0) << one.err;
  const Finished all = Stolvane({"stock", Books(), "--format", "csv"});
  const std::string its = one.out.substr(one.out.find('\n') + 1);
  EXPECT_NE(all.out.find(its.substr(0, its.find("\r\n"))), std::string::npos) << its;
  EXPECT_LT(one.out.size(), all.out.size());
}

TEST_F(ShortCommands, EveryFormRunsOnTheSampleBooks) {
  for (const automation::ShortForm& form : automation::ShortForms()) {
    Words words = {std::string(form.word), Books(), "--quiet", "--format", "csv"};
    if (Takes(form, automation::Choice::kFirstDay)) words.insert(words.begin() + 2, "2004-05");
    if (form.word != "sales" || form.by != "party") {
      bool several = false;
      for (const automation::ShortForm& other : automation::ShortForms()) {
        several = several || (other.word == form.word && other.by != form.by);
      }
      if (several) words.insert(words.end(), {"--by", std::string(form.by)});
    }
    if (form.only != nullptr && form.all.empty()) words.insert(words.end(), {"--only", "1"});
    const Finished finished = Stolvane(words);
    EXPECT_EQ(finished.status, 0) << form.word << " " << form.by << ": " << finished.err;
    EXPECT_NE(finished.out.find(','), std::string::npos) << form.word << " " << form.by;
  }
}

// Godowns stand below their item, items below their group, groups below the group above.
TEST_F(ShortCommands, WhatBelongsToALineIsMovedInBelowIt) {
  const auto shown = [](const Words& more) {
    Words words = {"stock", Books(), "2004-05", "--detailed", "--columns"};
    words.insert(words.end(), more.begin(), more.end());
    return Stolvane(words).out;
  };
  const std::string items = shown({"item"});
  EXPECT_NE(items.find("\nItem\n"), std::string::npos) << items;
  EXPECT_NE(items.find("\n  Main Store"), std::string::npos) << items;
  const std::string groups = shown({"item category", "--by", "group"});
  EXPECT_NE(groups.find("\nSpare Parts\n  Body Parts\n    "), std::string::npos) << groups;
  const std::string sold =
      Stolvane({"sales", Books(), "2004-05", "--by", "group", "--columns", "group"}).out;
  EXPECT_NE(sold.find("\nSpare Parts\n  Body Parts\n    "), std::string::npos) << sold;
  EXPECT_NE(sold.find("\nTotal"), std::string::npos) << sold;
}

TEST_F(ShortCommands, TheFirstLineOfTheDaysHasAName) {
  const std::string days = Stolvane({"days", Books(), "2004-05", "--only", "3"}).out;
  EXPECT_NE(days.find("─\nOpening and days "), std::string::npos) << days;
}

TEST_F(ShortCommands, WhatCannotBeIsToldWithWhatCould) {
  EXPECT_EQ(Told({"months", Books()}),
            "stolvane: \"months --by item\" is of one item: name it with --only\n");
  EXPECT_EQ(Told({"stock", Books(), "--by", "gowdon"}),
            "stolvane: stock --by takes item, group, class, godown, not \"gowdon\"; did you mean "
            "\"godown\"?\n");
  EXPECT_EQ(Told({"stock", Books(), "2010-11"}),
            "stolvane: the books have no year for 2010-11; they have 2003-04, 2004-05, 2005-06\n");
  EXPECT_EQ(Told({"stock", Books(), "lately"}),
            "stolvane: a period is a year as 2004-05, a month as 2004-08, or from..to as "
            "2004-04..2004-06, not \"lately\"\n");
  EXPECT_EQ(Told({"stock", Books(), "2004-06..2004-04"}),
            "stolvane: the period 2004-06..2004-04 ends before it begins\n");
  EXPECT_TRUE(Told({"stock", Books(), "--by", "group", "--only", "Two Wheeler"})
                  .starts_with("stolvane: there is no item category \"Two Wheeler\"; there is "
                               "\"Two Wheelers\""));
  for (const char* no_key : {"99999999999", "-1"}) {
    EXPECT_TRUE(Told({"stock", Books(), "--only", no_key})
                    .starts_with("stolvane: there is no item \"" + std::string(no_key) + "\""))
        << Told({"stock", Books(), "--only", no_key});
  }
}

TEST_F(ShortCommands, NamesStandForKeysInRunToo) {
  const auto statement = [](const std::string& group, const std::string& method,
                            const std::string& detailed, const std::string& from) {
    return Stolvane({"run", "StockDetails_Categorywise", "--books", Books(), "bytYearno=2",
                     "dtFromDate=" + from, "dtToDate=2005-03-31", "ValuationMethod=" + method,
                     "lngAny_Id1=" + group, "blnDetailed=" + detailed, "blnAltUom=no", "sngScale=1",
                     "blnOnlyItems=no", "--format", "csv", "--locale", "en_IN"});
  };
  const Finished by_key = statement("2", "FifoRate", "true", "2004-04-01");
  const Finished by_name = statement("two wheelers", "fifo", "yes", "01/04/2004");
  EXPECT_EQ(by_name.status, 0) << by_name.err;
  EXPECT_EQ(by_name.out, by_key.out);
}

TEST_F(ShortCommands, ListsNamesKeysAndYears) {
  const Finished years = Stolvane({"list", "years", Books(), "--format", "csv"});
  EXPECT_EQ(years.out,
            "YearNo,Year,From,To\r\n1,2003-04,2003-04-01,2004-03-31\r\n"
            "2,2004-05,2004-04-01,2005-03-31\r\n3,2005-06,2005-04-01,2006-03-31\r\n");
  const Finished groups = Stolvane({"list", "groups", Books(), "WHEELERS", "--format", "csv"});
  EXPECT_NE(groups.out.find("2,Two Wheelers\r\n"), std::string::npos) << groups.out;
  EXPECT_EQ(Stolvane({"list", "items", Books(), "100%_sure", "--format", "csv"}).out,
            "Item_id,ItemName\r\n");
  for (const automation::Master* master : automation::Masters()) {
    const Finished listed = Stolvane({"list", std::string(master->word), Books()});
    EXPECT_EQ(listed.status, 0) << listed.err;
    EXPECT_GT(listed.out.size(), 20U) << master->word;
  }
  EXPECT_TRUE(Told({"list", "item", Books()})
                  .starts_with("stolvane: there is no list of \"item\"; did you mean \"items\"?"));
}

}  // namespace
}  // namespace pstolvane1::host::test
