// What the program says about itself.
#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <sys/wait.h>

#include "HostProgram.h"

namespace pstolvane1::host::test {
namespace {

class Help : public SampleHost {
 protected:
  static std::string Shown(const Words& words) {
    const Finished finished = Stolvane(words);
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(finished.err, "");
    return finished.out;
  }
  // What a shell makes of a script with this text in a file.
  [[nodiscard]] int Shell(const std::string& name, const std::string& text,
                          const std::string& command) const {
    folder.Write(name, text);
    const int status = std::system(("cd '" + folder.Path() + "' && " + command).c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
};

TEST_F(Help, EveryCommandHasItsHelpWithAnExample) {
  const std::string all = Shown({"help"});
  EXPECT_NE(all.find("Examples:"), std::string::npos);
  for (const char* const command :
       {"stock", "months", "sales", "pending", "list", "reports", "run", "sql"}) {
    EXPECT_NE(all.find(std::string("\n  ") + command + " "), std::string::npos) << command;
    const std::string help = Shown({"help", command});
    EXPECT_NE(help.find("Example"), std::string::npos) << command;
    EXPECT_EQ(help, Shown({command, "--help"})) << command;
  }
  EXPECT_NE(Shown({"help", "books", "copy"}).find("--leave-out"), std::string::npos);
  EXPECT_EQ(Stolvane({"help", "stok"}).err,
            "stolvane: there is no command \"stok\"; did you mean \"stock\"?; \"stolvane --help\" "
            "lists them\n");
}

// The words of a line.
Words WordsOf(const std::string& line) {
  std::istringstream text(line);
  Words words;
  for (std::string word; text >> word;) words.push_back(word);
  return words;
}

TEST_F(Help, InShortItSaysWhatCanBeDoneWithAnExampleThatWorks) {
  const std::string help = Shown({"--help"});
  EXPECT_EQ(Stolvane({}).err, help);
  EXPECT_LE(std::ranges::count(help, '\n'), 18);
  const Words told = WordsOf(help);
  for (const char* const command : {"stock", "buyers", "list", "run", "sql", "books", "help"}) {
    EXPECT_NE(std::ranges::find(told, command), told.end()) << command;
  }
  std::istringstream example(help.substr(help.find("Try it")));
  int commands = 0;
  for (std::string line; std::getline(example, line);) {
    Words words = WordsOf(line);
    if (words.front() != "stolvane") continue;
    words.erase(words.begin());
    for (std::string& word : words) {
      if (word.ends_with(".db") || word.ends_with(".pdf")) word = folder.File(word);
    }
    EXPECT_EQ(Stolvane(words).status, 0) << line;
    ++commands;
  }
  EXPECT_EQ(commands, 2);
  EXPECT_TRUE(books::test::Content(folder.File("stock.pdf")).starts_with("%PDF-"));
}

TEST_F(Help, TheVersionIsOne) {
  const std::string version = Shown({"version"});
  EXPECT_EQ(version, Shown({"--version"}));
  EXPECT_EQ(version, Shown({"-V"}));
}

TEST_F(Help, BashCompletesCommandsOptionsAndArguments) {
  const std::string script = Shown({"completion"});
  EXPECT_EQ(Shown({"completion", "bash"}), script);
  const auto completes = [&](const std::string& words, const std::string& last,
                             const std::string& wanted) {
    return Shell("completion", script,
                 "bash -c '. ./completion; compopt() { :; }; COMP_WORDS=(" + words +
                     "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _stolvane; "
                     "[[ \" ${COMPREPLY[*]} \" == *\" " +
                     wanted + " \"* ]]'") == 0 &&
           words.ends_with(last);
  };
  EXPECT_TRUE(completes("stolvane sto", "sto", "stock"));
  EXPECT_TRUE(completes("stolvane stock --met", "--met", "--method"));
  EXPECT_TRUE(completes("stolvane run Doc_", "Doc_", "Doc_Initial"));
  EXPECT_TRUE(completes("stolvane run Doc_Initial dtF", "dtF", "dtFromDate="));
  EXPECT_TRUE(completes("stolvane stock mine.db --method li", "li", "liforate"));
  EXPECT_TRUE(completes("stolvane sales mine.db --format pd", "pd", "pdf"));
  EXPECT_TRUE(completes("stolvane sales mine.db --by it", "it", "item"));
  EXPECT_FALSE(completes("stolvane prices mine.db --by it", "it", "item"));
  const std::string stock = "stolvane run StockDetails_Itemwise ";
  EXPECT_TRUE(completes(stock + "ValuationMethod =", "=", "FifoRate"));
  EXPECT_TRUE(completes(stock + "ValuationMethod = Last", "Last", "LastSaleRate"));
  EXPECT_TRUE(completes(stock + "blnAltUom = y", "y", "yes"));
  EXPECT_FALSE(completes("stolvane run Doc_Initial byt", "byt", "bytYearno="));  // not looked at
}

TEST_F(Help, TheManualPageNamesCommandsAndReports) {
  const std::string page = Shown({"man"});
  EXPECT_TRUE(page.starts_with(".TH STOLVANE 1"));
  EXPECT_NE(page.find(".SS stolvane stock BOOKS [PERIOD]"), std::string::npos);
  EXPECT_NE(page.find("\\-\\-method METHOD"), std::string::npos);
  EXPECT_NE(page.find(".SS stolvane books copy FROM TO"), std::string::npos);
  EXPECT_NE(page.find(".B Doc_Initial"), std::string::npos);
}

TEST_F(Help, SqlReadsTheStandardInputForADash) {
  EXPECT_EQ(Stolvane({"sql", "--books", Books(), "-"}).status, 1);  // there it is empty
}

TEST_F(Help, TheSuffixOfAFileDecidesItsForm) {
  for (const auto& [name, starts] : {std::pair{"years.csv", "YearNo,"},
                                     {"years.json", "{\"columns\""},
                                     {"years.html", "<!doctype html>"},
                                     {"years.xlsx", "PK"},
                                     {"years.txt", "YearNo  "}}) {
    EXPECT_EQ(Shown({"list", "years", Books(), "--out", folder.File(name)}), "");
    EXPECT_TRUE(books::test::Content(folder.File(name)).starts_with(starts)) << name;
  }
  EXPECT_EQ(Shown({"list", "years", Books(), "--format", "csv", "--out", folder.File("x.html")}),
            "");
  EXPECT_TRUE(books::test::Content(folder.File("x.html")).starts_with("YearNo,"));
}

}  // namespace
}  // namespace pstolvane1::host::test
