#include "host/ReportsCommand.h"

#include <fmt/format.h>
#include <string>
#include <string_view>

#include "automation/CallInWords.h"
#include "automation/CatalogueJson.h"
#include "automation/Operations.h"
#include "host/Output.h"

namespace pstolvane1::host {

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
    text += automation::Describe(operation);
  }
  WriteText(text, {});
}

}  // namespace pstolvane1::host
