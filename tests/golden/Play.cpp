#include "Play.h"

#include <algorithm>
#include <filesystem>

#include "Call.h"
#include "session/modStolvane1.h"

namespace pstolvane1::golden {
namespace {

// A rowset of more columns stands on its side.
constexpr int kMostColumns = 40;

std::string CellText(const Variant& value) {
  if (value.IsNull() || value.IsEmpty()) return {};
  return CellOf(value.Type() == adCurrency ? value.ToCurrency().ToText() : value.ToText());
}

std::string TableOf(Recordset& rowset) {
  std::vector<Cells> lines(1);
  for (int column = 0; column < rowset.Fields().Count(); ++column) {
    const Field field = rowset.Fields()(column);
    lines[0].push_back(field.Name() + " " + std::to_string(field.Type()));
  }
  for (const Recordset::Row row : rowset.Rows()) {
    Cells& line = lines.emplace_back();
    for (int column = 0; column < rowset.Fields().Count(); ++column) {
      line.push_back(CellText(row[ColumnHandle{column}]));
    }
  }
  return Aligned(rowset.Fields().Count() > kMostColumns ? Turned(lines) : lines);
}

std::string TableOf(Recordset& rowset, const Cells& columns) {
  std::vector<ColumnHandle> places;
  for (const std::string& name : columns) places.push_back(rowset.Column(name));
  std::vector<Cells> lines = {columns};
  for (const Recordset::Row row : rowset.Rows()) {
    Cells& line = lines.emplace_back();
    for (const ColumnHandle place : places) line.push_back(CellText(row[place]));
  }
  return Aligned(lines);
}

// A fetch that is slow to begin repeats the percentage that it has: how often is no part of a
// report.
void Record(clsStolvane1& session, Outcome& outcome) {
  session.FetchProgress = [&outcome](std::uint8_t percent, std::string_view message) {
    if (percent == 0 && message == "FetchingData" && outcome.events.empty()) return;
    const std::string event = std::to_string(percent) + " " + std::string(message);
    if (outcome.events.empty() || outcome.events.back() != event) outcome.events.push_back(event);
  };
  session.FetchComplete = [&outcome](const RecordsetPtr& rowset, std::int32_t any_count) {
    outcome.rowset = rowset;
    outcome.any_count = any_count;
    outcome.events.push_back("FetchComplete " + std::to_string(any_count));
  };
}

Outcome PlayCall(clsStolvane1& session, const TextCall& call, Path path) {
  Outcome outcome;
  Record(session, outcome);
  try {
    const RecordsetPtr returned = Call(session, call, path == Path::kSynchronous);
    if (returned) outcome.rowset = returned;
    for (int round = 0; round < 1000 && !outcome.rowset; ++round) {
      (void)WaitForEvents(std::chrono::milliseconds(10));
    }
  } catch (const Error& error) {
    outcome.error = error;
  }
  return outcome;
}

// The only path of a case that names one.
Path PathOf(const CaseFile& file, Path path) {
  for (const auto& [what, value] : file.settings) {
    if (what != "path") continue;
    if (value != "synchronous" && value != "asynchronous") {
      throw std::runtime_error("no such path: " + value);
    }
    path = value == "synchronous" ? Path::kSynchronous : Path::kAsynchronous;
  }
  return path;
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
  path = PathOf(file, path);
  // As in a new program: what an earlier report on this thread has left is gone.
  *modStolvane1::OfThisThread() = modStolvane1();
  clsStolvane1 session;
  Apply(session, file, connection);
  Outcome outcome;
  for (const TextCall& call : file.calls) {
    outcome = PlayCall(session, call, path);
    const bool delivered = outcome.rowset && !outcome.error;
    if (!delivered && &call != &file.calls.back()) {
      throw std::runtime_error(call.operation +
                               " delivered nothing: " + Expectation(outcome, outcome.any_count));
    }
  }
  return outcome;
}

std::string Expectation(const Outcome& outcome, const std::optional<std::int32_t>& any_count,
                        const Cells& columns) {
  if (outcome.error) {
    return "expect error " + std::to_string(static_cast<std::int32_t>(outcome.error->Number())) +
           "\n" + outcome.error->Description() + "\n";
  }
  if (!outcome.rowset) return "expect nothing\n";
  return "expect" + (any_count ? " anyCount " + std::to_string(*any_count) : std::string()) + "\n" +
         (columns.empty() ? TableOf(*outcome.rowset) : TableOf(*outcome.rowset, columns));
}

std::string ExpectationLike(const CaseFile& file, const Outcome& outcome, Path path) {
  constexpr std::string_view kCount = "expect anyCount ";
  const TextExpectation& expected = file.expected;
  std::optional<std::int32_t> any_count = outcome.any_count;
  if (path == Path::kSynchronous && expected.line.starts_with(kCount)) {
    any_count = std::stoi(expected.line.substr(kCount.size()));
  }
  std::string text = Expectation(outcome, any_count, expected.Columns());
  if (outcome.error && expected.IsError() && expected.description.empty()) {
    text.resize(text.find('\n') + 1);
  }
  return text;
}

std::string EventBlock(const std::vector<std::string>& events) {
  std::string text = "\nexpect events\n";
  for (const std::string& event : events) text += event + "\n";
  return text;
}

}  // namespace pstolvane1::golden
