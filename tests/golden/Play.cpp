#include "Play.h"

#include <algorithm>
#include <filesystem>

#include "Call.h"

namespace pstolvane1::golden {
namespace {

// A rowset of more columns stands on its side.
constexpr int kMostColumns = 40;

std::string CellText(const Variant& value) {
  if (value.IsNull() || value.IsEmpty()) return kNullCell;
  return CellOf(value.Type() == adCurrency ? value.ToCurrency().ToText() : value.ToText());
}

std::string TableOf(Recordset& rowset) {
  std::vector<std::vector<std::string>> lines(1);
  for (int column = 0; column < rowset.Fields().Count(); ++column) {
    const Field field = rowset.Fields()(column);
    lines[0].push_back(field.Name() + " " + std::to_string(field.Type()));
  }
  for (const Recordset::Row row : rowset.Rows()) {
    std::vector<std::string>& line = lines.emplace_back();
    for (int column = 0; column < rowset.Fields().Count(); ++column) {
      line.push_back(CellText(row[ColumnHandle{column}]));
    }
  }
  return rowset.Fields().Count() > kMostColumns ? OnItsSide(lines) : Aligned(lines);
}

void Record(clsStolvane1& session, Outcome& outcome) {
  session.FetchProgress = [&outcome](std::uint8_t percent, std::string_view message) {
    const std::string event = std::to_string(percent) + " " + std::string(message);
    if (outcome.events.empty() || outcome.events.back() != event) outcome.events.push_back(event);
  };
  session.FetchComplete = [&outcome](const RecordsetPtr& rowset, std::int32_t any_count) {
    outcome.rowset = rowset;
    outcome.any_count = any_count;
    outcome.events.push_back("FetchComplete " + std::to_string(any_count));
  };
}

}  // namespace

std::vector<std::string> AllCases() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(kCases)) {
    if (entry.path().extension() == ".case") {
      files.push_back(std::filesystem::relative(entry.path(), kCases).string());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

Outcome Play(const CaseFile& file, Path path, const std::string& connection) {
  clsStolvane1 session;
  Apply(session, file, connection);
  Outcome outcome;
  Record(session, outcome);
  try {
    const RecordsetPtr returned = Call(session, file, path == Path::kSynchronous);
    if (returned) outcome.rowset = returned;
    for (int round = 0; round < 1000 && !outcome.rowset; ++round) {
      (void)WaitForEvents(std::chrono::milliseconds(10));
    }
  } catch (const Error& error) {
    outcome.error = error;
  }
  return outcome;
}

std::string Expectation(const Outcome& outcome, const std::optional<std::int32_t>& any_count) {
  if (outcome.error) {
    return "expect error " + std::to_string(static_cast<std::int32_t>(outcome.error->Number())) +
           "\n" + outcome.error->Description() + "\n";
  }
  if (!outcome.rowset) return "expect nothing\n";
  return "expect" + (any_count ? " anyCount " + std::to_string(*any_count) : std::string()) + "\n" +
         TableOf(*outcome.rowset);
}

std::string EventBlock(const std::vector<std::string>& events) {
  std::string text = "\nexpect events\n";
  for (const std::string& event : events) text += event + "\n";
  return text;
}

// The expectation without its events.
std::string RowsetPart(const std::string& expected) {
  std::string part = expected.substr(0, expected.find("expect events"));
  while (part.ends_with("\n\n")) part.pop_back();
  return part;
}

std::optional<std::int32_t> CountOf(const CaseFile& file, const Outcome& outcome, Path path) {
  constexpr std::string_view kCount = "expect anyCount ";
  if (path == Path::kSynchronous && file.expected.starts_with(kCount)) {
    return std::stoi(file.expected.substr(kCount.size()));
  }
  return outcome.any_count;
}

}  // namespace pstolvane1::golden
