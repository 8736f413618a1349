#include "host/Completion.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "automation/Arguments.h"
#include "automation/Calls.h"
#include "automation/Operations.h"

namespace pstolvane1::host {
namespace {

// Before and behind the cases of single commands.
constexpr const char* kStart =
    "_stolvane() {\n"
    "  local word=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]} names=\n"
    "  local IFS=$' \\t\\n'\n";
constexpr const char* kEnd =
    "  if [[ $word == -* || $command == run || $COMP_CWORD -le 2 ]]; then\n"
    "    mapfile -t COMPREPLY < <(compgen -W \"$names\" -- \"$word\")\n"
    "  fi\n"
    "  [[ ${#COMPREPLY[@]} -gt 0 ]] || mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n"
    "  [[ ${COMPREPLY[0]} == *= ]] && compopt -o nospace\n"
    "}\n"
    "complete -F _stolvane stolvane\n";

std::string OptionsOf(const CLI::App& command) {
  std::string names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) names += " --" + name;
  }
  for (const CLI::App* below : command.get_subcommands({})) names += " " + below->get_name();
  return names;
}

std::string ArgumentsOf(const automation::Operation& operation) {
  std::string names;
  for (const automation::Slot& slot : automation::SlotsOf(operation)) {
    if (slot.argument->IsRead()) names += fmt::format(" {}=", slot.name);
  }
  return names;
}

}  // namespace

std::string BashCompletion(const CLI::App& app) {
  std::string commands, operations;
  std::string script = kStart;
  script += "  case $command in\n";
  for (const CLI::App* command : app.get_subcommands({})) {
    commands += " " + command->get_name();
    script += fmt::format("    {}) names='{}' ;;\n", command->get_name(), OptionsOf(*command));
  }
  script += "  esac\n  if [[ $command == run ]]; then\n    case ${COMP_WORDS[2]} in\n";
  for (const automation::Operation& operation : automation::Operations()) {
    operations += fmt::format(" {}", operation.name);
    script += fmt::format("      {}) names+='{}' ;;\n", operation.name, ArgumentsOf(operation));
  }
  script += fmt::format(
      "    esac\n  fi\n"
      "  [[ $COMP_CWORD -eq 2 && ($command == run || $command == reports) ]] && names+='{}'\n"
      "  [[ $COMP_CWORD -eq 1 ]] && names='{}'\n",
      operations, commands);
  return script + kEnd;
}

}  // namespace pstolvane1::host
