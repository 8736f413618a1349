#include "host/CommandLine.h"

#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <iostream>
#include <new>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "automation/CallInWords.h"
#include "automation/Nearest.h"
#include "host/Command.h"
#include "host/OutputStream.h"
#include "host/StopSignals.h"
#include "session/data/Error.h"
#include "session/data/OutOfMemory.h"

namespace pstolvane1::host {
namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  stolvane books sample mine.db           invented books to try the program with\n"
    "  stolvane stock mine.db                  the stock of the last year\n"
    "  stolvane stock mine.db 2004-05 --by godown --method fifo --out stock.xlsx\n"
    "  stolvane sales mine.db 2004-04..2004-06\n"
    "  stolvane list items mine.db helmet\n"
    "\"stolvane help COMMAND\" says what a command takes.";

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

// The command that the words led to, and how it is called.
struct Reached {
  const CLI::App* command;
  std::string path;  // "stolvane books"
};

Reached ReachedBy(const CLI::App& app) {
  Reached reached{&app, "stolvane"};
  while (!reached.command->get_subcommands().empty()) {
    reached.command = reached.command->get_subcommands().front();
    reached.path += " " + reached.command->get_name();
  }
  return reached;
}

// The command has others below it, and none of them stands behind it.
bool LacksACommand(const CLI::App& command, const CLI::ParseError& error) {
  return error.get_name() == "RequiredError" && command.get_require_subcommand_min() > 0;
}

// The parser misses a command before it minds the word that stands in its place.
std::string NamedWrongly(const CLI::App& command) {
  const std::vector<std::string> words = command.remaining();
  if (words.empty()) return "a command is missing";
  std::vector<std::string> known;
  for (const CLI::App* one : command.get_subcommands({})) known.push_back(one->get_name());
  const std::vector<std::string_view> names(known.begin(), known.end());
  return "there is no command \"" + words.front() + '"' +
         automation::DidYouMean(words.front(), names);
}

void TellWrongCall(const CLI::App& app, const CLI::ParseError& error,
                   const std::string& operation) {
  const Reached reached = ReachedBy(app);
  const bool lacks = LacksACommand(*reached.command, error);
  std::cerr << automation::UsageInWords(operation)
            << "stolvane: " << (lacks ? NamedWrongly(*reached.command) : error.what()) << "; \""
            << reached.path << " --help\" lists " << (lacks ? "them" : "what it takes") << '\n';
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
  OccupyClosedDescriptors();
  std::signal(SIGPIPE, SIG_IGN);  // a pager or a pipe that closes early is no failure
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not become so large is told as other failures
  CLI::App app("Finished stock and sales reports from the books of a company", "stolvane");
  app.require_subcommand(1);
  app.set_version_flag("--version,-V", PST_VERSION);
  app.footer(kExamples);
  Asked asked;
  AddShortCommands(app, asked);
  AddListCommand(app, asked);
  AddReportsCommand(app, asked);
  AddRunCommand(app, asked);
  AddServeCommand(app, asked);
  AddSqlCommand(app, asked);
  AddBooksCommands(app, asked);
  AddHelpCommands(app, asked);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const bool of_all = app.get_subcommands().empty();
    if (of_all && error.get_name() == "CallForHelp") return ShowHelp(HelpInShort(app));
    if (argc <= 1) {
      std::cerr << HelpInShort(app);
      return kWrongCall;
    }
    std::ostringstream help, problem;
    if (app.exit(error, help, problem) == 0) return ShowHelp(help.str());
    TellWrongCall(app, error, asked.operation);
    return kWrongCall;
  }
  try {
    return asked.command();
  } catch (const automation::WrongCall& error) {
    std::cerr << error.Usage() << "stolvane: " << error.what() << '\n';
    return kWrongCall;
  } catch (const StoppedBySignal& stopped) {
    EndBy(stopped.signal);
  } catch (const Error& error) {
    Tell(error);
  } catch (const std::bad_alloc&) {
    Tell(OutOfMemory());
  } catch (const std::exception& error) {
    std::cerr << "stolvane: " << error.what() << '\n';
  }
  return kFailure;
}

}  // namespace pstolvane1::host
