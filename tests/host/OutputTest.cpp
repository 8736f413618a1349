// Where results go: files, devices, pipes and the standard output; and what cannot be written.
#include <fcntl.h>
#include <filesystem>
#include <future>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "HostProgram.h"

namespace pstolvane1::host::test {
namespace {

namespace fs = std::filesystem;

class Output : public SampleHost {
 protected:
  static Words Sales(const Words& more, const std::string& books = Books()) {
    Words words = {"run",
                   "Doc_Initial",
                   "--books",
                   books,
                   "bytYearno=2",
                   "lngVouchertype_id=10",
                   "dtFromDate=2004-04-01",
                   "dtToDate=2004-04-30",
                   "--locale",
                   "en_IN"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
  }
  void ExpectRefused(const std::string& out, const std::string& why,
                     const std::string& books = Books()) {
    for (const std::string format : {"table", "csv", "json", "html", "xlsx", "pdf"}) {
      const Finished finished = Stolvane(Sales({"--format", format, "--out", out}, books));
      EXPECT_EQ(finished.status, 1) << format;
      EXPECT_EQ(finished.err, "stolvane: error 3001: cannot write \"" + out + "\": " + why + "\n");
    }
  }
};

TEST_F(Output, AFullDeviceIsAnErrorInEveryFormat) {
  ExpectRefused("/dev/full", "there is no room left on the device");
}

TEST_F(Output, WhatCannotBeWrittenIsToldInOneSentence) {
  ExpectRefused(folder.File("none/report.txt"), "there is no such folder");
  ExpectRefused(folder.Path(), "it is a folder");
  fs::create_symlink(folder.File("nothing"), folder.File("link"));
  ExpectRefused(folder.File("link"), "it is a link that leads nowhere");
  folder.Write("report", "old");
  fs::create_hard_link(folder.File("report"), folder.File("second"));
  ExpectRefused(folder.File("second"), "the file has a second name");
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"link", "report", "second"}));
}

TEST_F(Output, ColumnsAreChosenInTheFormsForPeople) {
  const auto written = [](const std::string& format, const std::string& columns) {
    return Stolvane(Sales({"--format", format, "--columns", columns}));
  };
  EXPECT_TRUE(written("sheet", "amount,party").out.starts_with("Amount,Party\r\n"));
  EXPECT_TRUE(written("sheet", "all").out.starts_with("Party,Amount\r\n"));
  EXPECT_TRUE(
      written("records", "amount").out.starts_with(R"({"kind":"line","level":0,"Amount":)"));
  const std::string page = written("html", "amount").out;
  EXPECT_NE(page.find(">Amount</th>"), std::string::npos);
  EXPECT_EQ(page.find(">Party</th>"), std::string::npos);
  for (const std::string format : {"csv", "json"}) {
    const Finished finished = written(format, "amount");
    EXPECT_EQ(finished.status, 1);
    EXPECT_EQ(finished.out, "");
    EXPECT_EQ(finished.err,
              "stolvane: error 3001: csv and json hold every column; --columns chooses those of "
              "the other forms, such as sheet and records\n");
  }
}

// As a user's limit on the size of files has it; the program writes more than 2 MB.
TEST_F(Output, AFileThatWouldBecomeTooLargeIsAnErrorInEveryFormat) {
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit small{.rlim_cur = 1U << 20U, .rlim_max = before.rlim_max};
  const Words select = {"sql", "--books", Books(),
                        "select '" + std::string(200, 'x') +
                            "' as a, a.item_id, b.item_id as b from items1 a, items1 b"};
  for (const std::string format : {"table", "csv", "json", "html"}) {
    Words words = select;
    words.insert(words.end(), {"--format", format, "--out", folder.File("report")});
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const Finished finished = Stolvane(words);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_EQ(finished.status, 1) << format;
    EXPECT_EQ(finished.err, "stolvane: error 3001: cannot write \"" + folder.File("report") +
                                "\": it would become too large\n");
    EXPECT_TRUE(folder.Names().empty()) << format;
  }
}

TEST_F(Output, AFullOrClosedStandardOutputIsAnErrorOfEveryCommand) {
  const std::string text = "select 1 as one";
  const std::vector<Words> commands = {Sales({}),
                                       Sales({"--format", "csv"}),
                                       Sales({"--format", "json"}),
                                       Sales({"--format", "html"}),
                                       Sales({"--format", "pdf"}),
                                       {"reports"},
                                       {"reports", "--json"},
                                       {"sql", "--books", Books(), text},
                                       {"sql", "--books", Books(), "--translate", text},
                                       {"sql", "--condition", "Desr1", "desr1.desr_id = 1"},
                                       {"books", "check", Books()},
                                       {"--help"},
                                       {"run", "--help"},
                                       {"--version"}};
  for (const Words& words : commands) {
    SCOPED_TRACE(testing::PrintToString(words));
    const Finished full = StolvaneInto("/dev/full", words);
    EXPECT_EQ(full.status, 1);
    EXPECT_EQ(full.err,
              "stolvane: error 3001: cannot write to the standard output: there is no room left on "
              "the device\n");
    const Finished closed = StolvaneInto("", words);
    EXPECT_EQ(closed.status, 1);
    EXPECT_EQ(closed.err,
              "stolvane: error 3001: cannot write to the standard output: it is closed\n");
  }
}

TEST_F(Output, AReaderThatClosesThePipeEarlyIsNoError) {
  for (const std::string format : {"table", "csv", "json", "html", "pdf"}) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    const Finished finished =
        StolvaneInto("/dev/fd/" + std::to_string(ends[1]), Sales({"--format", format}));
    close(ends[1]);
    EXPECT_EQ(finished.status, 0) << format;
    EXPECT_EQ(finished.err, "") << format;
  }
}

TEST_F(Output, APipeIsWrittenIntoInEveryFormat) {
  const std::string pipe = folder.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string format : {"csv", "xlsx"}) {
    auto read = std::async(std::launch::async, [&pipe] { return books::test::Content(pipe); });
    const Finished finished = Stolvane(Sales({"--format", format, "--out", pipe}));
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_TRUE(read.get().starts_with(format == "csv" ? "Ledger,Amount," : "PK")) << format;
  }
  EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST_F(Output, ADescriptorsNameLeadsToWhatIsOpenThere) {
  const Finished finished = Stolvane(Sales({"--format", "csv", "--out", "/dev/stdout"}));
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_TRUE(finished.out.starts_with("Ledger,Amount,")) << finished.out;
}

TEST_F(Output, ALinkLeadsToTheFile) {
  folder.Write("report.csv", "old");
  const std::string link = folder.File("link.csv");
  fs::create_symlink(folder.File("report.csv"), link);
  const Finished finished = Stolvane(Sales({"--format", "csv", "--out", link}));
  EXPECT_EQ(finished.status, 0) << finished.err;
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_TRUE(books::test::Content(folder.File("report.csv")).starts_with("Ledger,Amount,"));
}

TEST_F(Output, AFileThatWasThereKeepsItsPermissionsAndOwner) {
  folder.Write("report.csv", "old");
  const std::string file = folder.File("report.csv");
  ASSERT_EQ(chmod(file.c_str(), 0640), 0);
  constexpr uid_t kSomebody = 12345;
  const bool may_give = chown(file.c_str(), kSomebody, kSomebody) == 0;
  const Finished finished = Stolvane(Sales({"--format", "csv", "--out", file}));
  EXPECT_EQ(finished.status, 0) << finished.err;
  struct stat now {};
  ASSERT_EQ(stat(file.c_str(), &now), 0);
  EXPECT_EQ(now.st_mode & 07777U, 0640U);
  EXPECT_EQ(now.st_uid, may_give ? kSomebody : getuid());
  EXPECT_TRUE(books::test::Content(file).starts_with("Ledger,Amount,"));
}

TEST_F(Output, TheBooksAreNeverWritten) {
  const std::string books = folder.File("company.db");
  fs::copy_file(Books(), books);
  const std::string before = books::test::Content(books);
  fs::create_symlink(books, folder.File("link.db"));
  fs::create_hard_link(books, folder.File("second.db"));
  fs::create_directory(folder.File("sub"));
  const std::string why = "it belongs to the books";
  for (const std::string out : {"company.db", "link.db", "second.db", "sub/../company.db",
                                "company.db-wal", "company.db-journal", "company.db-shm"}) {
    ExpectRefused(folder.File(out), why, books);
    ExpectRefused(folder.File(out), why, folder.File("link.db"));
  }
  EXPECT_EQ(StolvaneInto(books, {"sql", "--books", books, "select 1 as one"}).err,
            "stolvane: error 3001: cannot write to the standard output: it belongs to the books\n");
  EXPECT_EQ(books::test::Content(books), before);
  EXPECT_EQ(folder.Names(),
            (std::vector<std::string>{"company.db", "link.db", "second.db", "sub"}));
}

}  // namespace
}  // namespace pstolvane1::host::test
