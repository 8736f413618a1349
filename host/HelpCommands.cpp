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

void AddText(CLI::App& app, Asked& asked, const char* name, const char* help,
             std::function<std::string()> text) {
  app.add_subcommand(name, help)->callback([&asked, text = std::move(text)] {
    asked.command = [text] {
      WriteText(text(), {});
      return kSuccess;
    };
  });
}

}  // namespace

void AddHelpCommands(CLI::App& app, Asked& asked) {
  const auto path = std::make_shared<std::vector<std::string>>();
  CLI::App* help = app.add_subcommand("help", "What a command takes");
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
          [&app] { return BashCompletion(app); });
  AddText(app, asked, "man", "The manual page, for \"man -l -\"",
          [&app] { return ManPage(app, PST_VERSION); });
}

}  // namespace pstolvane1::host
