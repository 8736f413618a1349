// stolvane help, version, completion and man: the program's own words about itself.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <fmt/format.h>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/CallInWords.h"
#include "automation/Nearest.h"
#include "host/Command.h"
#include "host/Completion.h"
#include "host/ManPage.h"
#include "host/Output.h"

namespace pstolvane1::host {
namespace {

// The group of the commands that tell of the program itself.
constexpr std::string_view kAboutItself = "About";

// The help of a command, or of one below another: {"books", "copy"}.
std::string HelpOn(CLI::App& app, const std::vector<std::string>& path) {
  CLI::App* at = &app;
  std::string before = "stolvane";
  for (const std::string& word : path) {
    const std::vector<CLI::App*> below = at->get_subcommands({});
    const auto next =
        std::ranges::find_if(below, [&](const CLI::App* one) { return one->get_name() == word; });
    if (next == below.end()) {
      std::vector<std::string> known(below.size());
      std::ranges::transform(below, known.begin(),
                             [](const CLI::App* one) { return one->get_name(); });
      const std::vector<std::string_view> names(known.begin(), known.end());
      throw automation::WrongCall(
          fmt::format("there is no command \"{}\"{}; \"{} --help\" lists "
                      "them",
                      word, automation::DidYouMean(word, names), before));
    }
    at = *next;
    before += " " + word;
  }
  // An application's own help is that of the command that was typed, which is "help" itself.
  return at->get_formatter()->make_help(at, before, CLI::AppFormatMode::Normal);
}

CLI::App* AddText(CLI::App& app, Asked& asked, const char* name, const char* help,
                  std::function<std::string()> text) {
  CLI::App* const command = app.add_subcommand(name, help);
  command->group(std::string(kAboutItself));
  return command->callback([&asked, text = std::move(text)] {
    asked.command = [text] {
      WriteText(text(), {});
      return kSuccess;
    };
  });
}

constexpr std::string_view kReports = "Reports";
constexpr std::size_t kWidest = 80;

constexpr const char* kTry =
    "\nTry it on invented books:\n"
    "  stolvane books sample mine.db\n"
    "  stolvane stock mine.db 2004-05 --by godown --method fifo --out stock.pdf\n";

// A line for each command; those of a group stand together in lines of their own.
std::string CommandsInShort(const CLI::App& app) {
  std::string reports, line, others;
  for (const CLI::App* command : app.get_subcommands({})) {
    if (command->get_group() == kAboutItself) continue;
    if (command->get_group() != kReports) {
      others += fmt::format("  {:<10} {}\n", command->get_name(), command->get_description());
      continue;
    }
    if (line.size() + command->get_name().size() > kWidest) {
      reports += line + "\n";
      line.clear();
    }
    line += (line.empty() ? "  " : " ") + command->get_name();
  }
  return reports + line + "\n" + others;
}

}  // namespace

std::string HelpInShort(const CLI::App& app) {
  return fmt::format(
      "{}.\n\nstolvane REPORT BOOKS [PERIOD] ... in few words, where REPORT is one of\n{}"
      "  help       All commands, or what one of them takes\n{}",
      app.get_description(), CommandsInShort(app), kTry);
}

void AddHelpCommands(CLI::App& app, Asked& asked) {
  const auto path = std::make_shared<std::vector<std::string>>();
  CLI::App* help = app.add_subcommand("help", "What a command takes");
  help->group(std::string(kAboutItself));
  help->add_option("COMMAND", *path, "the command");
  help->callback([&app, &asked, path] {
    asked.command = [&app, path] {
      WriteText(HelpOn(app, *path), {});
      return kSuccess;
    };
  });
  AddText(app, asked, "version", "The version of the program",
          [] { return std::string(PST_VERSION) + "\n"; });
  AddText(app, asked, "completion", "What bash reads to complete commands, for ~/.bashrc",
          [&app] { return BashCompletion(app); })
      ->add_option("SHELL", "bash, which is the one that there is")
      ->check(CLI::IsMember({"bash"}));
  AddText(app, asked, "man", "The manual page, for \"man -l -\"",
          [&app] { return ManPage(app, PST_VERSION); });
}

}  // namespace pstolvane1::host
