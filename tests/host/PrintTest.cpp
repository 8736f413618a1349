// Reports on paper, as somebody asks for them.
#include "HostProgram.h"
#include "tests/CommandOutput.h"

namespace pstolvane1::host::test {
namespace {

class Print : public SampleHost {
 protected:
  static Words Sales(const Words& more) {
    Words words = {"sales", Books(), "2004-04", "--locale", "en_IN"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
  }
  // What another program says of a file in the folder.
  [[nodiscard]] std::string Says(const std::string& program, const std::string& file) const {
    return CommandOutput(program + " '" + folder.File(file) + "' -");
  }
  void ExpectParts(const std::string& text, const std::vector<std::string>& parts) const {
    for (const std::string& part : parts) {
      EXPECT_NE(text.find(part), std::string::npos) << part << '\n' << text;
    }
  }
};

TEST_F(Print, APageHasTheLetterheadTheReportAndItsNumber) {
  folder.Write("head",
               "# of the branch\n\ncompanyname = Asha Motors\r\nCompanyAddress1=12, M. G. Road\n"
               "CompanyPanNo=AAAPL1234C\n");
  const Finished finished =
      Stolvane(Sales({"--letterhead", folder.File("head"), "--out", folder.File("sales.pdf")}));
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.err, "");
  ExpectParts(Says("pdftotext -layout", "sales.pdf"),
              {"Asha Motors", "12, M. G. Road", "PAN AAAPL1234C", "Documents by party",
               "01/04/2004 to 30/04/2004", "Party", "Amount", "Jayant Hegde", "₹44,489.25", "Total",
               "₹1,71,043.88", "Page 1 of 1"});
}

TEST_F(Print, TheNameOfTheCompanyIsTheOneThatIsGiven) {
  folder.Write("head", "CompanyName=Asha Motors\nCompanyAddress1=12, M. G. Road\n");
  const Words words = Sales({"--letterhead", folder.File("head")});
  EXPECT_NE(Stolvane(words).out.find("\nAsha Motors\n"), std::string::npos);  // on other forms too
  Words named = words;
  named.insert(named.end(), {"--company", "Vinod & Co", "--out", folder.File("sales.pdf")});
  EXPECT_EQ(Stolvane(named).status, 0);
  const std::string page = Says("pdftotext -layout", "sales.pdf");
  ExpectParts(page, {"Vinod & Co", "12, M. G. Road"});
  EXPECT_EQ(page.find("Asha"), std::string::npos);
}

TEST_F(Print, PagesGoThroughAPipeAndNotOnATerminal) {
  EXPECT_TRUE(Stolvane(Sales({"--format", "pdf"})).out.starts_with("%PDF-"));
  EXPECT_NE(StolvaneOnTerminal(Sales({"--format", "pdf"}), 40, 120, "cat")
                .out.find("printed pages go into a file or to a printer: name the file with --out"),
            std::string::npos);
}

TEST_F(Print, WhatIsWrongIsTold) {
  const std::string head = folder.File("head");
  const auto refused = [&](const std::string& line) {
    folder.Write("head", "CompanyName=Asha Motors\n" + line + "\n");
    const Finished finished = Stolvane(Sales({"--letterhead", head, "--format", "pdf"}));
    EXPECT_EQ(finished.status, 1);
    return finished.err;
  };
  const std::string begins = "stolvane: error 3001: line 2 of the letterhead \"" + head + "\" ";
  EXPECT_EQ(refused("Asha Motors"), begins + "is no NAME=VALUE\n");
  EXPECT_EQ(refused("CompanyPan=1"),
            begins + "names \"CompanyPan\"; did you mean \"CompanyPanNo\"?\n");
  EXPECT_EQ(Stolvane(Sales({"--letterhead", folder.File("none"), "--format", "pdf"})).err,
            "stolvane: error 3001: cannot read the letterhead \"" + folder.File("none") + "\"\n");
  const Finished napkin = Stolvane(Sales({"--paper", "napkin"}));
  EXPECT_EQ(napkin.status, 2);
  EXPECT_NE(napkin.err.find("paper is A4, A3, Letter or Legal, not \"napkin\""), std::string::npos);
}

}  // namespace
}  // namespace pstolvane1::host::test
