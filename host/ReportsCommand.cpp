#include "host/ReportsCommand.h"

#include <fmt/format.h>
#include <string>
#include <string_view>

#include "automation/Arguments.h"
#include "automation/Calls.h"
#include "automation/CatalogueJson.h"
#include "automation/Operations.h"
#include "host/Output.h"
#include "host/Terminal.h"

namespace pstolvane1::host {
std::string Describe(const automation::Operation& operation) {
  std::string text =
      fmt::format("  {}{}\n      {}\n", automation::UsageOf(operation),
                  automation::IsBuilt(operation) ? "" : "   (not in this version)", operation.help);
  for (const automation::Argument& argument : operation.arguments) {
    text += fmt::format("      {:<24} {}. {}\n", argument.name, automation::TakesWhat(argument),
                        argument.help);
  }
  return text;
}

void ListReports(bool json) {
  if (json) {
    WriteText(automation::CatalogueAsJson() + "\n", {});
    return;
  }
  std::string text;
  std::string_view family;
  for (const automation::Operation& operation : automation::Operations()) {
    if (operation.family != family) {
      family = operation.family;
      text += fmt::format("{}{}\n", text.empty() ? "" : "\n", family);
    }
    text += Describe(operation);
  }
  WriteText(text, {});
}

}  // namespace pstolvane1::host
