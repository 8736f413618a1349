#include "host/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <cstdint>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

#include "host/BooksCommands.h"
#include "host/Output.h"
#include "host/OutputStream.h"
#include "host/ReportsCommand.h"
#include "host/RunCommand.h"
#include "host/SqlCommand.h"
#include "host/StopSignals.h"
#include "session/books/SampleBooks.h"
#include "session/data/Error.h"
#include "session/data/TextFold.h"

namespace pstolvane1::host {
namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;
constexpr int kWrongCall = 2;

struct BooksOptions {
  std::string path;
  std::string folder;
  std::string target;
  std::int64_t movements = books::kFewestMovements;
  std::uint64_t seed = 1;
};

// The options that the line is read into, and what it asks for.
struct Typed {
  BooksOptions books;
  SqlOptions sql;
  RunOptions run;
  bool reports_as_json = false;
  std::function<int()> command;
};

void AddOutput(CLI::App& command, OutputOptions& output) {
  static const std::map<std::string, Format> kFormats = {{"table", Format::kTable},
                                                         {"csv", Format::kCsv},
                                                         {"json", Format::kJson},
                                                         {"html", Format::kHtml},
                                                         {"xlsx", Format::kXlsx}};
  command
      .add_option_function<std::string>(
          "--format",
          [&output](const std::string& name) {
            const auto format =
                std::find_if(kFormats.begin(), kFormats.end(),
                             [&name](const auto& known) { return EqualFolded(known.first, name); });
            if (format == kFormats.end()) {
              throw CLI::ValidationError("--format",
                                         "takes table, csv, json, html or xlsx, not " + name);
            }
            output.format = format->second;
          },
          "table, csv, json, html or xlsx")
      ->option_text("FORMAT");
  command.add_option("--out", output.path, "write into this file")->option_text("PATH");
  command.add_option("--locale", output.locale, "locale of the texts, as en_IN")
      ->option_text("LOCALE");
}

void AddBooks(CLI::App& app, Typed& typed) {
  CLI::App* books = app.add_subcommand("books", "Make, fill and check books");
  books->require_subcommand(1);

  CLI::App* create = books->add_subcommand("create", "Empty books with the reference schema");
  create->add_option("FILE", typed.books.path, "the new file, or a server's connection string")
      ->required();
  create->callback([&typed] {
    typed.command = [&books = typed.books] { return CreateBooksFile(books.path), kSuccess; };
  });

  CLI::App* sample = books->add_subcommand("sample", "Invented books of a vehicle dealer");
  sample->add_option("FILE", typed.books.path, "the new file, or a server's connection string")
      ->required();
  sample->add_option("--movements", typed.books.movements, "stock movements")
      ->check(CLI::Range(books::kFewestMovements, books::kMostMovements))
      ->option_text("N");
  sample->add_option("--seed", typed.books.seed, "other books for another number")
      ->option_text("S");
  sample->callback([&typed] {
    typed.command = [&books = typed.books] {
      return SampleBooksFile(books.path, books.movements, books.seed), kSuccess;
    };
  });

  CLI::App* from_csv = books->add_subcommand("import", "Read TABLE.csv files, all or nothing");
  from_csv->add_option("FILE", typed.books.path, "the books; made where there are none")
      ->required();
  from_csv->add_option("DIR", typed.books.folder, "the folder of the files")->required();
  from_csv->callback([&typed] {
    typed.command = [&books = typed.books] {
      return ImportBooksFile(books.path, books.folder), kSuccess;
    };
  });

  CLI::App* copy = books->add_subcommand("copy", "Books from one engine to another");
  copy->add_option("FROM", typed.books.path, "the books that are there")->required();
  copy->add_option("TO", typed.books.target, "those that are made")->required();
  copy->callback([&typed] {
    typed.command = [&books = typed.books] {
      return CopyBooksTo(books.path, books.target), kSuccess;
    };
  });

  CLI::App* check = books->add_subcommand("check", "What is missing or odd");
  check->add_option("CONNECTION", typed.books.path, "the books")->required();
  check->callback([&typed] {
    typed.command = [&books = typed.books] {
      return CheckBooksAt(books.path) ? kSuccess : kFailure;
    };
  });
}

void AddSql(CLI::App& app, Typed& typed) {
  SqlOptions& options = typed.sql;
  CLI::App* sql = app.add_subcommand("sql", "One SELECT of the reports' dialect on any database");
  CLI::Option* const books =
      sql->add_option("--books", options.books, "the database")->option_text("CONNECTION");
  sql->add_option("TEXT", options.text, "the SELECT, or the condition")->required();
  CLI::Option* const condition =
      sql->add_option("--condition", options.condition_on,
                      "check TEXT as a condition on these tables of the reports, without books")
          ->option_text("TABLE,...")
          ->excludes(books);
  sql->add_flag("--translate", options.translate, "print the engine's text, do not run it");
  AddOutput(*sql, options.output);
  sql->callback([&typed, books, condition] {
    if (books->empty() && condition->empty()) throw CLI::RequiredError(books->get_name());
    typed.sql.output.books = typed.sql.books;
    typed.command = [&typed] { return Sql(typed.sql), kSuccess; };
  });
}

void AddReports(CLI::App& app, Typed& typed) {
  CLI::App* reports = app.add_subcommand("reports", "Every operation with its arguments");
  reports->add_flag("--json", typed.reports_as_json, "as JSON, with types and defaults");
  reports->callback([&typed] {
    typed.command = [&typed] { return ListReports(typed.reports_as_json), kSuccess; };
  });
}

void AddRun(CLI::App& app, Typed& typed) {
  automation::CallWords& call = typed.run.call;
  CLI::App* run = app.add_subcommand("run", "One report");
  run->add_option("OPERATION", call.operation, "as \"stolvane reports\" lists it")->required();
  run->add_option("ARGUMENTS", call.arguments, "the operation's own, as NAME=VALUE")
      ->option_text("NAME=VALUE ...");
  run->add_option("--books", call.books, "the books")->required()->option_text("CONNECTION");
  run->add_flag("--async", call.asynchronous, "fetch in the background");
  run->add_option("--alias", call.aliases, "what is shown in place of a name, as taItem=EXPR")
      ->allow_extra_args(false)
      ->option_text("NAME=EXPR");
  run->add_option("--filter", call.filters, "an argument of SetFilter")
      ->allow_extra_args(false)
      ->option_text("NAME=VALUE");
  run->add_option("--rowset", call.rowsets, "a rowset argument, from the same books")
      ->allow_extra_args(false)
      ->option_text("NAME=SELECT");
  run->add_flag("--cancel", call.cancel, "set CancelFetching before the call");
  run->add_flag("--events", typed.run.events, "with json: the events in order");
  run->add_option("--books-from", call.books_from, "first day of the books")->option_text("DATE");
  run->add_option("--books-to", call.books_to, "last day of the books")->option_text("DATE");
  AddOutput(*run, typed.run.output);
  run->callback([&typed] {
    typed.run.call.locale = typed.run.output.locale;
    typed.run.output.books = typed.run.call.books;
    typed.command = [&typed] { return Run(typed.run), kSuccess; };
  });
}

void Tell(const Error& error) {
  std::cerr << "stolvane: error " << static_cast<int>(error.Number()) << ": "
            << error.Description();
  if (!error.Cause().empty()) std::cerr << ": " << error.Cause();
  std::cerr << '\n';
}

// What is asked for by --help and --version.
int ShowHelp(const std::string& text) {
  try {
    WriteToStandardOutput(text);
    return kSuccess;
  } catch (const Error& error) {
    Tell(error);
    return kFailure;
  }
}

// The parser misses a command before it minds the word that stands in its place.
bool TellUnknownCommand(const CLI::App& app, const CLI::ParseError& error) {
  const CLI::App* last = &app;
  std::string path = "stolvane";
  while (!last->get_subcommands().empty()) {
    last = last->get_subcommands().front();
    path += " " + last->get_name();
  }
  const std::vector<std::string> words = last->remaining();
  if (error.get_name() != "RequiredError" || last->get_require_subcommand_min() == 0 ||
      words.empty()) {
    return false;
  }
  std::cerr << "stolvane: there is no command \"" << words.front() << "\"; \"" << path
            << " --help\" lists them\n";
  return true;
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
  OccupyClosedDescriptors();
  std::signal(SIGPIPE, SIG_IGN);  // a pager or a pipe that closes early is no failure
  CLI::App app("Finished stock and sales reports from the books of a company", "stolvane");
  app.require_subcommand(1);
  app.set_version_flag("--version", PST_VERSION);
  Typed typed;
  std::ostringstream help;
  AddBooks(app, typed);
  AddSql(app, typed);
  AddReports(app, typed);
  AddRun(app, typed);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (TellUnknownCommand(app, error)) return kWrongCall;
    if (app.exit(error, help, std::cerr) == 0) return ShowHelp(help.str());
    if (const std::string usage = automation::UsageInWords(typed.run.call.operation);
        !usage.empty()) {
      std::cerr << '\n' << usage << '\n';
    }
    return kWrongCall;
  }
  try {
    return typed.command();
  } catch (const automation::WrongCall& error) {
    std::cerr << "stolvane: " << error.what() << '\n';
    return kWrongCall;
  } catch (const StoppedBySignal& stopped) {
    EndBy(stopped.signal);
  } catch (const Error& error) {
    Tell(error);
  } catch (const std::exception& error) {
    std::cerr << "stolvane: " << error.what() << '\n';
  }
  return kFailure;
}

}  // namespace pstolvane1::host
