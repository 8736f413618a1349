#include "host/OutputWords.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "session/data/TextFold.h"

namespace pstolvane1::host {
namespace {

struct NamedFormat {
  std::string_view name;
  Format format;
};
constexpr NamedFormat kFormats[] = {{"table", Format::kTable},    {"csv", Format::kCsv},
                                    {"json", Format::kJson},      {"html", Format::kHtml},
                                    {"xlsx", Format::kXlsx},      {"sheet", Format::kSheet},
                                    {"records", Format::kRecords}};
// Suffixes that are no format's name.
constexpr NamedFormat kSuffixes[] = {
    {"htm", Format::kHtml}, {"txt", Format::kTable}, {"jsonl", Format::kRecords}};

const NamedFormat* FormatNamed(std::span<const NamedFormat> formats, std::string_view name) {
  const auto found = std::ranges::find_if(
      formats, [name](const NamedFormat& one) { return EqualFolded(one.name, name); });
  return found == formats.end() ? nullptr : &*found;
}

void ReadFormat(OutputOptions& output, const std::string& name) {
  const NamedFormat* const format = FormatNamed(kFormats, name);
  if (format == nullptr) {
    throw CLI::ValidationError("--format",
                               "takes table, csv, json, html, xlsx, sheet or records, not " + name);
  }
  output.format = format->format;
}

void FollowSuffix(OutputOptions& output) {
  std::string suffix = std::filesystem::path(output.path).extension().string();
  if (suffix.empty()) return;
  suffix.erase(0, 1);
  const NamedFormat* format = FormatNamed(kFormats, suffix);
  if (format == nullptr) format = FormatNamed(kSuffixes, suffix);
  if (format != nullptr) output.format = format->format;
}

// One name for both, as sessions take it.
void JoinCurrency(OutputOptions& output, const std::string& currency) {
  if (output.locale.find("currency=") != std::string::npos) {
    throw CLI::ValidationError("--currency", "is named by --locale already");
  }
  output.locale += (output.locale.find('@') == std::string::npos ? "@currency=" : ";currency=");
  output.locale += currency;
}

}  // namespace

void AddOutput(CLI::App& command, OutputOptions& output) {
  CLI::Option* const format =
      command
          .add_option_function<std::string>(
              "--format", [&output](const std::string& name) { ReadFormat(output, name); },
              "table, html, xlsx and sheet for people; csv, json and records for programs; without "
              "it as --out ends")
          ->option_text("FORMAT");
  command
      .add_option_function<std::string>(
          "--out",
          [&output, format](const std::string& path) {
            output.path = path;
            if (format->empty()) FollowSuffix(output);
          },
          "write into this file")
      ->option_text("PATH");
  command
      .add_option("--columns", output.columns,
                  "of a table: these columns, with commas between, or all; without it those that "
                  "have room")
      ->option_text("NAME,...");
  command.add_option("--separator", output.sheet.separator, "of a sheet; without it a comma")
      ->option_text("TEXT");
  command.add_flag("--bom", output.sheet.byte_order_mark,
                   "of a sheet: the mark by which some programs know UTF-8");
  command
      .add_option("--company", output.company,
                  "the name on top of a report; without it that of the books")
      ->option_text("NAME")
      ->envname("STOLVANE_COMPANY");
  command
      .add_option("--locale", output.locale,
                  "whose separators, dates and symbol's place, as en_IN; without it the user's own")
      ->option_text("LOCALE");
  command
      .add_option_function<std::string>(
          "--currency", [&output](const std::string& currency) { JoinCurrency(output, currency); },
          "the books' money, as INR; without it money is shown as that of the locale's country")
      ->option_text("CODE");
}

void AddQuiet(CLI::App& command, bool& quiet) {
  command.add_flag("--quiet", quiet, "no warnings about what is likely a mistake");
}

}  // namespace pstolvane1::host
