#include "CaseFile.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "automation/Operations.h"

namespace pstolvane1::golden {
namespace {

// The lines of a file; a block ends at a blank line.
class Reader {
 public:
  Reader(std::istream& text, std::string name) : text_(text), name_(std::move(name)) {}
  // The next line that starts a block: its first word and the rest.
  bool NextBlock(std::string& word, std::string& rest) {
    for (std::string line; Next(line);) {
      if (Trim(line).empty()) continue;
      line_ = line;
      std::istringstream words(line);
      words >> word;
      std::getline(words, rest);
      rest = Trim(rest);
      return true;
    }
    return false;
  }
  bool NextOfBlock(std::string& line) { return Next(line) && !Trim(line).empty(); }
  // The line that NextBlock stopped at.
  [[nodiscard]] const std::string& Line() const { return line_; }
  [[noreturn]] void Refuse(const std::string& reason) const {
    throw std::runtime_error(name_ + ":" + std::to_string(number_) + ": " + reason);
  }

 private:
  bool Next(std::string& line) {
    if (!std::getline(text_, line)) return false;
    ++number_;
    return true;
  }

  std::istream& text_;
  std::string name_;
  std::string line_;
  int number_ = 0;
};

std::ifstream Opened(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error(path + ": cannot be read");
  return file;
}

std::pair<std::string, std::string> SplitAssignment(const std::string& line) {
  const std::size_t at = line.find('=');
  if (at == std::string::npos) return {Trim(line), ""};
  return {Trim(line.substr(0, at)), Trim(line.substr(at + 1))};
}

// "Doc_Initial as receipts" in its two halves; the second may be missing.
std::pair<std::string, std::string> SplitNamed(const std::string& text) {
  const std::size_t at = text.find(" as ");
  if (at == std::string::npos) return {text, ""};
  return {Trim(text.substr(0, at)), Trim(text.substr(at + 4))};
}

TextTable ReadTable(Reader& reader, const std::string& name) {
  TextTable table{.name = name, .head = {}, .rows = {}};
  std::string line;
  if (!reader.NextOfBlock(line)) reader.Refuse("a table without columns");
  table.head = SplitCells(line);
  while (reader.NextOfBlock(line)) {
    table.rows.push_back(SplitCells(line));
    if (table.rows.back().size() != table.head.size()) {
      reader.Refuse("the row has not as many cells as the table has columns");
    }
  }
  return table;
}

// Tables alone, with comments.
void ReadBooks(const std::string& path, std::vector<TextTable>& books) {
  std::ifstream text = Opened(path);
  Reader reader(text, path);
  for (std::string word, rest; reader.NextBlock(word, rest);) {
    if (word.starts_with('#')) continue;
    if (word != "table") reader.Refuse("shared books hold tables alone");
    books.push_back(ReadTable(reader, rest));
  }
}

void Put(std::vector<TextArgument>& arguments, TextArgument argument) {
  const auto found = std::find_if(arguments.begin(), arguments.end(),
                                  [&](const auto& one) { return one.name == argument.name; });
  if (found == arguments.end()) {
    arguments.push_back(std::move(argument));
  } else {
    *found = std::move(argument);
  }
}

// The lines of a call's block, put over the arguments that it starts from.
std::vector<TextArgument> ReadArguments(Reader& reader, std::vector<TextArgument> start) {
  constexpr std::string_view kRowset = "rowset ";
  std::vector<TextArgument> given;
  for (std::string line; reader.NextOfBlock(line);) {
    if (line.front() == ' ') {
      if (given.empty()) reader.Refuse("the line goes on with no argument");
      given.back().value += " " + Trim(line);
      continue;
    }
    auto [name, value] = SplitAssignment(line);
    const bool is_rowset = name.starts_with(kRowset);
    if (is_rowset) name = Trim(name.substr(kRowset.size()));
    const bool twice = std::any_of(given.begin(), given.end(),
                                   [&name = name](const auto& one) { return one.name == name; });
    if (twice) reader.Refuse("the argument " + name + " comes twice");
    given.push_back({name, value, is_rowset});
  }
  for (TextArgument& argument : given) Put(start, std::move(argument));
  return start;
}

// The named arguments of a file of calls; nothing where the file or the name is not there.
std::optional<std::vector<TextArgument>> FindArguments(const std::string& path,
                                                       const std::string& wanted) {
  if (!std::filesystem::exists(path)) return std::nullopt;
  std::ifstream text = Opened(path);
  Reader reader(text, path);
  for (std::string word, rest; reader.NextBlock(word, rest);) {
    if (word.starts_with('#')) continue;
    if (word != "arguments") reader.Refuse("a file of calls holds named arguments alone");
    const auto [name, start] = SplitNamed(rest);
    const std::optional<std::vector<TextArgument>> known =
        start.empty() ? std::vector<TextArgument>() : FindArguments(path, start);
    if (!known) reader.Refuse("there are no arguments " + start);
    std::vector<TextArgument> arguments = ReadArguments(reader, *known);
    if (name == wanted) return arguments;
  }
  return std::nullopt;
}

TextCall ReadCall(Reader& reader, const std::string& rest, const std::string& cases_folder) {
  const auto [operation, start] = SplitNamed(rest);
  if (start.empty()) return {operation, ReadArguments(reader, {})};
  std::optional<std::vector<TextArgument>> known =
      FindArguments(cases_folder + "/" + operation + "/calls", start);
  if (!known) {
    const std::string family(automation::GetOperation(operation).family);
    known = FindArguments(cases_folder + "/" + family + ".calls", start);
  }
  if (!known) reader.Refuse(operation + " has no call " + start);
  return {operation, ReadArguments(reader, *std::move(known))};
}

void ReadExpectation(Reader& reader, TextExpectation& expected) {
  const bool is_first = expected.line.empty();
  std::string line = reader.Line();
  if (line == "expect events") {
    expected.has_events = true;
    while (reader.NextOfBlock(line)) expected.events.push_back(Trim(line));
    return;
  }
  if (!is_first) reader.Refuse("a second expectation");
  expected.line = line;
  while (reader.NextOfBlock(line)) {
    if (expected.IsError()) {
      expected.description += (expected.description.empty() ? "" : "\n") + line;
    } else {
      expected.table.push_back(SplitCells(line));
    }
  }
}

}  // namespace

Cells TextExpectation::Columns() const {
  if (table.empty()) return {};
  // On its side as well as upright, a whole rowset starts with a name and a type.
  const std::string& first = table.front().front();
  const std::size_t blank = first.find_last_of(' ');
  const bool has_type =
      blank != std::string::npos &&
      std::all_of(first.begin() + static_cast<std::ptrdiff_t>(blank) + 1, first.end(),
                  [](unsigned char c) { return std::isdigit(c) != 0; });
  return has_type ? Cells() : table.front();
}

std::string TextExpectation::Text() const {
  return line + "\n" + (description.empty() ? "" : description + "\n") + Aligned(table);
}

CaseFile ReadCase(const std::string& path, const std::string& cases_folder) {
  std::ifstream text = Opened(path);
  return ReadCase(text, path, cases_folder);
}

CaseFile ReadCase(std::istream& text, const std::string& name, const std::string& cases_folder) {
  Reader reader(text, name);
  CaseFile file;
  for (std::string word, rest; reader.NextBlock(word, rest);) {
    if (word.starts_with('#')) {
      file.comment.push_back(reader.Line());
    } else if (word == "books") {
      ReadBooks(cases_folder + "/" + rest + ".books", file.books);
    } else if (word == "table") {
      file.books.push_back(ReadTable(reader, rest));
    } else if (word == "set") {
      file.settings.push_back(SplitAssignment(rest));
    } else if (word == "call") {
      file.calls.push_back(ReadCall(reader, rest, cases_folder));
    } else if (word == "expect") {
      ReadExpectation(reader, file.expected);
    } else {
      reader.Refuse("neither books, table, set, call nor expect: " + word);
    }
  }
  if (file.comment.empty()) reader.Refuse("the case does not say what it shows");
  if (file.calls.empty()) reader.Refuse("the case has no call");
  return file;
}

void RewriteCase(const std::string& path, const std::string& expected) {
  std::string kept;
  {
    std::ifstream in(path);
    for (std::string line; std::getline(in, line) && !line.starts_with("expect");) {
      kept += line + '\n';
    }
  }
  while (kept.ends_with("\n\n")) kept.pop_back();
  std::ofstream(path) << kept << '\n' << expected;
}

}  // namespace pstolvane1::golden
