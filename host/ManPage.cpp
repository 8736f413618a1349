#include "host/ManPage.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "automation/Calls.h"
#include "automation/Operations.h"

namespace pstolvane1::host {
namespace {

// A line's text: what roff would take for its own is told to be text.
std::string Roff(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '\\') {
      escaped += "\\e";
    } else if (c == '-') {
      escaped += "\\-";
    } else if ((c == '.' || c == '\'') && (escaped.empty() || escaped.back() == '\n')) {
      escaped += {'\\', '&', c};
    } else {
      escaped += c;
    }
  }
  return escaped;
}

std::string Entry(const std::string& head, const std::string& text) {
  return fmt::format(".TP\n.B {}\n{}\n", Roff(head), Roff(text));
}

void AddCommand(const CLI::App& command, const std::string& before, std::string& page) {
  const std::string path = before + " " + command.get_name();
  std::string head = path, entries;
  for (const CLI::Option* option : command.get_options()) {
    const std::string name = option->get_name(true);
    if (option->get_positional()) {
      head += option->get_required() ? " " + name : " [" + name + "]";
    }
    if (option->get_description().empty() || option->check_lname("help")) continue;
    const std::string value = option->get_positional() || option->get_items_expected_max() == 0
                                  ? std::string()
                                  : " " + option->get_option_text();
    entries += Entry(option->get_positional() ? name : option->get_name() + value,
                     option->get_description());
  }
  if (command.get_subcommands({}).empty()) {
    page += fmt::format(".SS {}\n{}\n{}", Roff(head), Roff(command.get_description()), entries);
    if (!command.get_footer().empty()) {
      page += fmt::format(".PP\n.nf\n{}\n.fi\n", Roff(command.get_footer()));
    }
  }
  for (const CLI::App* below : command.get_subcommands({})) AddCommand(*below, path, page);
}

}  // namespace

std::string ManPage(const CLI::App& app, std::string_view version) {
  std::string page = fmt::format(
      ".TH STOLVANE 1 \"\" \"stolvane {}\"\n.ad l\n.SH NAME\nstolvane \\- {}\n.SH SYNOPSIS\n.B "
      "stolvane\n"
      ".I COMMAND\n[...]\n.SH COMMANDS\n",
      Roff(version), Roff(app.get_description()));
  for (const CLI::App* command : app.get_subcommands({})) AddCommand(*command, "stolvane", page);
  page += ".SH REPORTS\n";
  for (const automation::Operation& operation : automation::Operations()) {
    page += Entry(std::string(operation.name), std::string(operation.help));
  }
  return page +
         ".SH EXIT STATUS\n0, 1 for an error of the report or the books, 2 for a wrong call.\n";
}

}  // namespace pstolvane1::host
