#include "host/ReportsCommand.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <memory>
#include <string_view>

#include "automation/CallInWords.h"
#include "automation/CatalogueJson.h"
#include "automation/Operations.h"
#include "host/Command.h"
#include "host/Output.h"

namespace pstolvane1::host {
namespace {

struct ReportsOptions {
  bool json = false;
  std::string operation;
};

}  // namespace

void ListReportsAsJson() { WriteText(automation::CatalogueAsJson() + "\n", {}); }

void ListReports() {
  std::string text;
  std::string_view family;
  for (const automation::Operation& operation : automation::Operations()) {
    if (operation.family != family) {
      family = operation.family;
      text += fmt::format("{}{}\n", text.empty() ? "" : "\n", family);
    }
    text += fmt::format("  {:<38} {}\n", operation.name, operation.help);
  }
  text += "\n\"stolvane reports NAME\" describes one with its arguments.\n";
  WriteText(text, {});
}

void DescribeReport(const std::string& operation) {
  WriteText(automation::Describe(automation::OperationNamed(operation)), {});
}

void AddReportsCommand(CLI::App& app, Asked& asked) {
  const auto options = std::make_shared<ReportsOptions>();
  CLI::App* reports = app.add_subcommand("reports", "The reports, or one with its arguments");
  reports->add_flag("--json", options->json, "all of them as JSON, with types and defaults");
  reports->add_option("NAME", options->operation, "the one to describe");
  reports->footer("Example:\n  stolvane reports Doc_Initial");
  reports->callback([&asked, options] {
    asked.command = [options] {
      if (options->json) {
        ListReportsAsJson();
      } else if (options->operation.empty()) {
        ListReports();
      } else {
        DescribeReport(options->operation);
      }
      return kSuccess;
    };
  });
}

}  // namespace pstolvane1::host
