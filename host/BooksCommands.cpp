#include "host/BooksCommands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <fmt/format.h>
#include <functional>
#include <iostream>
#include <memory>
#include <string_view>
#include <vector>

#include "host/Command.h"
#include "host/OutputStream.h"
#include "host/ProgressBar.h"
#include "host/StopSignals.h"
#include "session/books/BooksFile.h"
#include "session/books/CheckBooks.h"
#include "session/books/CopyBooks.h"
#include "session/books/ImportBooks.h"
#include "session/books/SampleBooks.h"
#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "session/data/FetchStop.h"
#include "session/data/WaitingFor.h"
#include "session/engine/ConnectionString.h"
#include "session/engine/Engines.h"

namespace pstolvane1::host {
namespace {

// A file's path as it was typed, a server's books without a password.
std::string Named(const std::string& connection) {
  const bool file = ReadConnectionString(connection).engine == EngineKind::kSqlite;
  return file ? connection : NameOfDatabase(connection);
}

std::string RowsOf(const std::vector<books::ImportedTable>& tables) {
  std::string text;
  for (const books::ImportedTable& table : tables) {
    text += fmt::format("{:<24}{:>10} rows\n", table.table, table.rows);
  }
  return text;
}

struct BooksOptions {
  std::string path;
  std::string folder;
  std::string target;
  std::int64_t movements = books::kFewestMovements;
  std::uint64_t seed = 1;
  bool leave_out = false;
};

// Between two places where work on books tells how far it is lies at most the making of an index.
constexpr std::chrono::minutes kUntilItTells{1};

constexpr const char* kNewBooks = "the new file, or a server's connection string";

using Showing = std::function<void(double done, std::string_view doing)>;

// Does work that writes books and tells how far it is. A signal ends it where it tells, or where it
// reads other books, so that it tidies up what it has made.
void UntilSignal(const std::function<void(const Showing&)>& work) {
  FetchStop stop;
  DoUntilSignal([&stop] { stop.Stop(); },
                [&] {
                  const WaitingFor reading(stop);
                  ProgressBar bar("opening");
                  work([&](double done, std::string_view doing) {
                    if (stop.Stopped()) throw Error(ErrorNumber::kQueryRefused, "stopped");
                    bar.Show(done, doing);
                  });
                },
                kUntilItTells);
}

}  // namespace

void CreateBooksFile(const std::string& path) {
  books::CreateBooks(path);
  WriteToStandardOutput(fmt::format("Empty books: {}\n", Named(path)));
}

void SampleBooksFile(const std::string& path, std::int64_t movements, std::uint64_t seed) {
  UntilSignal([&](const Showing& show) {
    books::SampleBooks(path, movements, seed,
                       [&show](std::string_view stage, std::int64_t done, std::int64_t total) {
                         show(static_cast<double>(done) / static_cast<double>(total), stage);
                       });
  });
  WriteToStandardOutput(
      fmt::format("Sample books with {} movements: {}\n", movements, Named(path)));
}

void ImportBooksFile(const std::string& path, const std::string& folder) {
  WriteToStandardOutput(RowsOf(books::ImportBooks(path, folder)));
  for (const books::Finding& unread : books::CheckUnread(path)) {
    std::cerr << "stolvane: warning: " << unread.sentence << '\n';
  }
}

void CopyBooksTo(const std::string& from, const std::string& to, bool leave_out) {
  std::vector<books::ImportedTable> copied;
  const auto tables = static_cast<double>(books::Tables().size());
  UntilSignal([&](const Showing& show) {
    std::string at;
    double done = -1;
    const auto progress = [&](std::string_view table) {
      if (table != at) ++done;
      at = table;
      show(done / tables, table);
    };
    copied = books::CopyBooks(from, to, progress,
                              leave_out ? books::Extras::kLeftOut : books::Extras::kRefused);
  });
  std::string text = RowsOf(copied);
  if (leave_out) {
    for (const std::string& extra : books::ExtrasOf(from)) text += "left out: " + extra + "\n";
  }
  WriteToStandardOutput(text);
}

bool CheckBooksAt(const std::string& connection_string) {
  std::vector<books::Finding> findings;
  {
    ProgressBar bar("opening");
    findings = books::CheckBooks(
        connection_string, [&bar](std::string_view stage, double done) { bar.Show(done, stage); });
  }
  std::string text;
  for (const books::Finding& finding : findings) {
    text += fmt::format("{}: {}\n", books::NameOf(finding.severity), finding.sentence);
    if (!finding.remedy.empty()) text += fmt::format("    {}\n", finding.remedy);
  }
  WriteToStandardOutput(findings.empty() ? "Nothing is missing or odd.\n" : text);
  return std::none_of(findings.begin(), findings.end(), [](const books::Finding& finding) {
    return finding.severity == books::Severity::kError;
  });
}

void AddBooksCommands(CLI::App& app, Asked& asked) {
  const auto options = std::make_shared<BooksOptions>();
  CLI::App* books = app.add_subcommand("books", "Make, fill and check books");
  books->require_subcommand(1);
  const auto add = [&](const char* name, const char* help, std::function<int()> command) {
    CLI::App* const added = books->add_subcommand(name, help);
    added->callback([&asked, command = std::move(command)] { asked.command = command; });
    return added;
  };

  CLI::App* create = add("create", "Empty books with the reference schema", [options] {
    CreateBooksFile(options->path);
    return kSuccess;
  });
  create->add_option("FILE", options->path, kNewBooks)->required();

  CLI::App* sample = add("sample", "Invented books of a vehicle dealer", [options] {
    SampleBooksFile(options->path, options->movements, options->seed);
    return kSuccess;
  });
  sample->add_option("FILE", options->path, kNewBooks)->required();
  sample->add_option("--movements", options->movements, "stock movements")
      ->check(CLI::Range(books::kFewestMovements, books::kMostMovements))
      ->option_text("N");
  sample->add_option("--seed", options->seed, "other books for another number")->option_text("S");
  sample->footer("Example:\n  stolvane books sample sample.db --movements 100000");

  CLI::App* import = add("import", "Read TABLE.csv files, all or nothing", [options] {
    ImportBooksFile(options->path, options->folder);
    return kSuccess;
  });
  import->add_option("FILE", options->path, "the books; made where there are none")->required();
  import->add_option("DIR", options->folder, "the folder of the files")->required();
  import->footer("Example:\n  stolvane books import mine.db csv/");

  CLI::App* copy = add("copy", "Books from one engine to another", [options] {
    CopyBooksTo(options->path, options->target, options->leave_out);
    return kSuccess;
  });
  copy->add_option("FROM", options->path, "the books that are there")->required();
  copy->add_option("TO", options->target, "those that are made")->required();
  copy->add_flag("--leave-out", options->leave_out,
                 "without the tables and columns that the reference schema does not have");
  copy->footer("Example:\n  stolvane books copy mine.db postgresql://server/books");

  CLI::App* check = add("check", "What is missing or odd",
                        [options] { return CheckBooksAt(options->path) ? kSuccess : kFailure; });
  check->add_option("CONNECTION", options->path, "the books")->required();
  check->footer("Example:\n  stolvane books check mine.db");
}

}  // namespace pstolvane1::host
