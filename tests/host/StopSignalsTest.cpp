// Ctrl-C in the command line host.
#include <chrono>
#include <csignal>

#include "HostProgram.h"

namespace pstolvane1::host::test {
namespace {

class StopSignals : public SampleHost {};

constexpr const char* kForHours =
    "(select count(*) from godownitem1 as a inner join godownitem1 as b on a.qty <> b.rate + 0.5 "
    "inner join godownitem1 as c on c.qty <> b.rate + a.qty inner join godownitem1 as d on "
    "d.qty <> c.rate)";

// The program ends by the signal itself, and soon.
TEST_F(StopSignals, AbandonWhatRunsAndLeaveNoFile) {
  const std::string file = folder.File("never.csv");
  const std::string condition = "strBillFilter=" + std::string(kForHours) + " > 0";
  const Words report = {"run",
                        "Doc_Initial",
                        "--books",
                        Books(),
                        "bytYearno=2",
                        "lngVouchertype_id=10",
                        "dtFromDate=2004-04-01",
                        "dtToDate=2004-04-30",
                        condition,
                        "--out",
                        file};
  Words in_background = report;
  in_background.emplace_back("--async");
  const Words query = {"sql",   "--books", Books(),
                       "--out", file,      "select " + std::string(kForHours) + " as n"};
  const Words many_lines = {
      "sql",
      "--books",
      Books(),
      "--format",
      "csv",
      "--out",
      file,
      "select a.qty as a, b.qty as b, c.qty as c from godownitem1 as a inner join godownitem1 as b "
      "on a.qty <> b.rate inner join godownitem1 as c on c.qty <> b.rate"};
  const Words sample = {"books", "sample", folder.File("never.db"), "--movements", "10000000"};
  for (const Words& words : {report, in_background, query, many_lines, sample}) {
    for (const int signal : {SIGINT, SIGTERM}) {
      const auto begin = std::chrono::steady_clock::now();
      const Finished finished = StolvaneWithSignal(words, signal, 500);
      EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::minutes(1));
      EXPECT_EQ(finished.status, 128 + signal) << finished.err;
      EXPECT_EQ(finished.err, "");
      EXPECT_EQ(folder.Names(), std::vector<std::string>());
    }
  }
}

// Also while a table is looked through before its first row.
TEST_F(StopSignals, EndTheCopyingOfBooksAndLeaveNoFile) {
  const books::test::Folder endless;
  books::test::Database(endless.File("books.db"))
      .Execute(
          "create view Uom1 as with recursive numbers(n) as (select 1 union all select n + 1 from "
          "numbers) select n as Uom_id, 'Nos' as UomName from numbers");
  const Finished finished = StolvaneWithSignal(
      {"books", "copy", endless.File("books.db"), folder.File("never.db")}, SIGINT, 500);
  EXPECT_EQ(finished.status, 128 + SIGINT) << finished.err;
  EXPECT_EQ(finished.err, "");
  EXPECT_EQ(folder.Names(), std::vector<std::string>());
}

}  // namespace
}  // namespace pstolvane1::host::test
