#include "host/Completion.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <map>

#include "automation/Arguments.h"
#include "automation/Calls.h"
#include "automation/Operations.h"
#include "host/Offered.h"

namespace pstolvane1::host {
namespace {

// Before and behind the cases of single commands. A shell parts NAME=VALUE into three words.
constexpr const char* kStart =
    "_stolvane() {\n"
    "  local word=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]} names= values=\n"
    "  local before=${COMP_WORDS[COMP_CWORD-1]} argument=\n"
    "  local IFS=$' \\t\\n'\n"
    "  [[ $before == = ]] && argument=${COMP_WORDS[COMP_CWORD-2]}\n"
    "  [[ $word == = ]] && argument=$before word=\n";
constexpr const char* kEnd =
    "  if [[ -n $values ]]; then\n"
    "    mapfile -t COMPREPLY < <(compgen -W \"$values\" -- \"$word\")\n"
    "    return\n"
    "  elif [[ $word == -* || $command == run || $COMP_CWORD -le 2 ]]; then\n"
    "    mapfile -t COMPREPLY < <(compgen -W \"$names\" -- \"$word\")\n"
    "  fi\n"
    "  [[ ${#COMPREPLY[@]} -gt 0 ]] || mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n"
    "  [[ ${COMPREPLY[0]} == *= ]] && compopt -o nospace\n"
    "}\n"
    "complete -F _stolvane stolvane\n";

// What is completed with the same values: "a|b", by these values.
using Patterns = std::map<std::string, std::string>;

void Add(Patterns& patterns, const std::string& values, const std::string& what) {
  std::string& pattern = patterns[values];
  pattern += (pattern.empty() ? "" : "|") + what;
}

std::string CasesOf(const Patterns& patterns) {
  std::string cases;
  for (const auto& [values, pattern] : patterns) {
    cases += fmt::format("    {}) values='{}' ;;\n", pattern, values);
  }
  return cases;
}

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

// "" for what takes more than a list could hold.
std::string ValuesOf(const automation::Argument& argument) {
  if (argument.type == automation::ArgumentType::kBoolean) return "yes no";
  std::string values;
  if (argument.enumeration == nullptr) return values;
  for (const EnumName& one : argument.enumeration->values) {
    values += (values.empty() ? "" : " ") + std::string(one.name);
  }
  return values;
}

std::string CasesOfOptions(CLI::App& app) {
  Patterns patterns;
  for (CLI::App* command : app.get_subcommands({})) {
    for (CLI::Option* option : command->get_options()) {
      const std::string values = OfferedBy(*option);
      if (!values.empty()) Add(patterns, values, command->get_name() + option->get_name());
    }
  }
  return CasesOf(patterns);
}

std::string CasesOfArguments() {
  Patterns patterns;
  for (const automation::Operation& operation : automation::Operations()) {
    for (const automation::Slot& slot : automation::SlotsOf(operation)) {
      const std::string values = ValuesOf(*slot.argument);
      if (values.empty() || !slot.argument->IsRead()) continue;
      Add(patterns, values, fmt::format("{}.{}", operation.name, slot.name));
    }
  }
  return CasesOf(patterns);
}

}  // namespace

std::string BashCompletion(CLI::App& app) {
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
      "  [[ $COMP_CWORD -eq 1 ]] && names='{}'\n"
      "  case $command$before in\n{}  esac\n"
      "  case ${{COMP_WORDS[2]}}.$argument in\n{}  esac\n",
      operations, commands, CasesOfOptions(app), CasesOfArguments());
  return script + kEnd;
}

}  // namespace pstolvane1::host
