#include "host/OutputWords.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "host/Offered.h"
#include "host/print/Paper.h"
#include "session/data/Error.h"
#include "session/data/TextFold.h"

namespace pstolvane1::host {
namespace {

struct NamedFormat {
  std::string_view name;
  Format format;
};
constexpr NamedFormat kFormats[] = {{"table", Format::kTable},     {"csv", Format::kCsv},
                                    {"json", Format::kJson},       {"html", Format::kHtml},
                                    {"xlsx", Format::kXlsx},       {"sheet", Format::kSheet},
                                    {"records", Format::kRecords}, {"pdf", Format::kPdf}};
// Suffixes that are no format's name.
constexpr NamedFormat kSuffixes[] = {
    {"htm", Format::kHtml}, {"txt", Format::kTable}, {"jsonl", Format::kRecords}};

std::string NamesOfFormats() {
  std::string names;
  for (const NamedFormat& one : kFormats)
    names += (names.empty() ? "" : " ") + std::string(one.name);
  return names;
}

const NamedFormat* FormatNamed(std::span<const NamedFormat> formats, std::string_view name) {
  const auto found = std::ranges::find_if(
      formats, [name](const NamedFormat& one) { return EqualFolded(one.name, name); });
  return found == formats.end() ? nullptr : &*found;
}

void ReadFormat(OutputOptions& output, const std::string& name) {
  const NamedFormat* const format = FormatNamed(kFormats, name);
  if (format == nullptr) {
    throw CLI::ValidationError(
        "--format", "takes table, csv, json, html, xlsx, pdf, sheet or records, not " + name);
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

// What is wrong with a name of paper; "" for nothing.
std::string IsPaper(const std::string& name) {
  try {
    [[maybe_unused]] const print::Paper& known = print::PaperNamed(name);
    return {};
  } catch (const Error& error) {
    return error.Description();
  }
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
              "table, html, xlsx, pdf and sheet for people; csv, json and records for programs; "
              "without "
              "it as --out ends")
          ->option_text("FORMAT");
  Offer(*format, NamesOfFormats());
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
                  "only these, with commas between; in a table on a terminal also all, and without "
                  "it those that have room")
      ->option_text("NAME,...");
  command.add_option("--separator", output.sheet.separator, "of a sheet; without it a comma")
      ->option_text("TEXT");
  command.add_flag("--bom", output.sheet.byte_order_mark,
                   "of a sheet: the mark by which some programs know UTF-8");
  AddLook(command, output);
}

void AddLook(CLI::App& command, OutputOptions& output) {
  command
      .add_option("--company", output.company,
                  "the name on top of a report; without it that of the books")
      ->option_text("NAME")
      ->envname("STOLVANE_COMPANY");
  command
      .add_option("--letterhead", output.letterhead,
                  "a file of lines as CompanyAddress1=..., for the top of printed pages")
      ->option_text("PATH")
      ->envname("STOLVANE_LETTERHEAD");
  CLI::Option* const paper = command
                                 .add_option("--paper", output.paper,
                                             "of printed pages: A4, A3, Letter or Legal; without "
                                             "it A4")
                                 ->option_text("NAME")
                                 ->check(IsPaper);
  Offer(*paper, "A4 A3 Letter Legal");
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
