// docs/hosts.md, snippet by snippet: each stands below as it stands there, and is run.
#include <cctype>
#include <chrono>
#include <gmock/gmock.h>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "DocPage.h"
#include "automation/SortText.h"
#include "session/clsStolvane1.h"
#include "session/data/Error.h"

namespace pstolvane1::host::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// Line ends and indents are the formatter's here and the reader's there.
std::string WithoutBlanks(std::string_view text) {
  std::string rest;
  for (const char c : text) {
    if (std::isspace(static_cast<unsigned char>(c)) == 0) rest += c;
  }
  return rest;
}

class HostsDoc : public DocHost {
 protected:
  HostsDoc() : DocHost("books.db") {}
};

TEST_F(HostsDoc, SnippetsOfAHostRun) {
  // clang-format off
  clsStolvane1 session;
  const Date from = Date::FromYmd(2004, 4, 1), to = Date::FromYmd(2005, 3, 31);
  session.SetConnection("", "", "books.db", False, from, to);  // the period of the open books
  // clang-format on
  EXPECT_EQ(session.GetConnectionObject()->State(), adStateOpen);

  RecordsetPtr shown;
  std::string told;
  const auto show = [&](const RecordsetPtr& report, std::int32_t any_count) {
    shown = report;
    EXPECT_EQ(any_count, 0);
  };
  const auto bar = [&](std::uint8_t percent, std::string_view message) {
    EXPECT_LE(percent, 60);
    told = message;
  };
  // clang-format off
  session.FetchComplete = [&](RecordsetPtr report, std::int32_t any_count) { show(report, any_count); };
  session.FetchProgress = [&](std::uint8_t percent, std::string_view message) { bar(percent, message); };
  session.Doc_Initial(2, 10, from, to, False);
  while (session.Fetching()) WaitForEvents(std::chrono::milliseconds(100));
  // clang-format on
  ASSERT_NE(shown, nullptr);
  EXPECT_EQ(told, "manipulating");

  testing::internal::CaptureStdout();
  // clang-format off
  const RecordsetPtr report = session.Doc_Initial(2, 10, from, to);
  report->Sort(automation::SortText({.operation = "Doc_Initial"}, "AmountSort"));
  const ColumnHandle ledger = report->Column("Ledger");
  for (const Recordset::Row row : report->Rows()) std::cout << row.Text(ledger) << '\n';
  report->Filter("Ledger LIKE 'A*'");
  // clang-format on
  const std::string printed = testing::internal::GetCapturedStdout();
  EXPECT_TRUE(printed.ends_with("\n\nTotal\n")) << printed;
  EXPECT_GT(report->RecordCount(), 0);
  for (const Recordset::Row row : report->Rows()) EXPECT_THAT(row.Text(ledger), StartsWith("A"));

  // clang-format off
  const RecordsetPtr names = Recordset::New();
  names->Fields().Append("ItemNew_id", adInteger);
  names->Fields().Append("itemname", adVarChar, 100);
  names->Open();
  names->AddNew();
  names->Fields("ItemNew_id").Value(1);
  names->Fields("itemname").Value("Arohi 100");
  names->Update();
  // clang-format on
  EXPECT_EQ(names->RecordCount(), 1);

  const std::int32_t model = 0;
  // clang-format off
  const RecordsetPtr items = Recordset::New();
  items->Open("select Item_id as ItemNew_id, ItemName from Items1", session.GetConnectionObject());
  const RecordsetPtr bills =
      session.FreeServiceReportDaily(rtFreeServiceReportDaily, 2, from, to, True, True, 1, model, items, 0);
  // clang-format on
  EXPECT_GE(bills->RecordCount(), 2);

  testing::internal::CaptureStderr();
  // clang-format off
  try {
    session.SetConnection("", "", "nowhere.db", False);
  } catch (const Error& error) {
    std::cerr << static_cast<int>(error.Number()) << ": " << error.what() << '\n';
  }
  // clang-format on
  EXPECT_THAT(
      testing::internal::GetCapturedStderr(),
      testing::AllOf(StartsWith("501: Unable to Connect to Database: "), HasSubstr("nowhere.db")));
}

TEST_F(HostsDoc, HasNoSnippetThatIsNotRun) {
  const std::string run = WithoutBlanks(DocPage("tests/host/HostsDocTest.cpp"));
  const std::vector<std::string> snippets = Snippets(DocPage("docs/hosts.md"), "```cpp");
  EXPECT_EQ(snippets.size(), 6U);
  for (const std::string& snippet : snippets) {
    EXPECT_THAT(run, HasSubstr(WithoutBlanks(snippet))) << snippet;
  }
}

TEST_F(HostsDoc, CommandsOfThePageRun) {
  const std::vector<Words> commands = CommandsOf(DocPage("docs/hosts.md"));
  EXPECT_EQ(commands.size(), 3U);
  for (const Words& words : commands) {
    const Finished finished = Stolvane(words);
    EXPECT_EQ(finished.status, 0) << words.front() << finished.err;
    EXPECT_NE(finished.out, "") << words.front();
  }
}

}  // namespace
}  // namespace pstolvane1::host::test
