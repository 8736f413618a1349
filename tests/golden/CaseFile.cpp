#include "CaseFile.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace pstolvane1::golden {
namespace {

constexpr std::size_t kLongRule = 10;

// Some locales part a number from its symbol with it; in a file nobody could tell it from a blank.
const std::string kNoBreakSpace = "\u00A0";
const std::string kShownNoBreakSpace = "<nbsp>";

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size()) {
    text.replace(at, what.size(), with);
  }
  return text;
}

std::string Trim(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? std::string()
                                    : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

// Bars inside quotes belong to the cell.
std::vector<std::string> SplitCells(const std::string& line) {
  std::vector<std::string> cells(1);
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') quoted = !quoted;
    if (c == '|' && !quoted) {
      cells.emplace_back();
    } else {
      cells.back() += c;
    }
  }
  for (std::string& cell : cells) cell = Trim(cell);
  return cells;
}

std::pair<std::string, std::string> SplitAssignment(const std::string& line) {
  const std::size_t at = line.find('=');
  if (at == std::string::npos) return {Trim(line), ""};
  return {Trim(line.substr(0, at)), Trim(line.substr(at + 1))};
}

// The lines of the file with a block's end at a blank line.
class Reader {
 public:
  explicit Reader(const std::string& path) : path_(path), in_(path) {
    if (!in_) throw std::runtime_error(path + ": cannot be read");
  }
  bool Next(std::string& line) {
    if (!std::getline(in_, line)) return false;
    ++number_;
    return true;
  }
  bool NextOfBlock(std::string& line) { return Next(line) && !Trim(line).empty(); }
  [[noreturn]] void Refuse(const std::string& reason) const {
    throw std::runtime_error(path_ + ":" + std::to_string(number_) + ": " + reason);
  }

 private:
  std::string path_;
  std::ifstream in_;
  int number_ = 0;
};

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

void ReadExpectation(Reader& reader, CaseFile& file, std::string line) {
  bool in_events = false;
  do {
    file.expected += line + '\n';
    if (line == "expect events") {
      file.has_events = in_events = true;
    } else if (in_events && !Trim(line).empty()) {
      file.events.push_back(Trim(line));
    }
  } while (reader.Next(line));
}

// Tables alone, with comments.
void ReadBooks(const std::string& path, CaseFile& file) {
  Reader reader(path);
  for (std::string line; reader.Next(line);) {
    if (Trim(line).empty() || line.starts_with('#')) continue;
    if (!line.starts_with("table ")) reader.Refuse("shared books hold tables alone");
    file.books.push_back(ReadTable(reader, Trim(line.substr(6))));
  }
}

}  // namespace

CaseFile ReadCase(const std::string& path, const std::string& books_folder) {
  Reader reader(path);
  CaseFile file;
  std::string line;
  while (reader.Next(line)) {
    std::istringstream words(line);
    std::string word, rest;
    words >> word;
    std::getline(words, rest);
    rest = Trim(rest);
    if (word.empty()) continue;
    if (word.starts_with('#')) {
      file.comment.push_back(line);
    } else if (word == "books") {
      ReadBooks(books_folder + "/" + rest + ".books", file);
    } else if (word == "table") {
      file.books.push_back(ReadTable(reader, rest));
    } else if (word == "set") {
      file.settings.push_back(SplitAssignment(rest));
    } else if (word == "call") {
      file.operation = rest;
      while (reader.NextOfBlock(line)) file.arguments.push_back(SplitAssignment(line));
    } else if (word == "expect") {
      ReadExpectation(reader, file, line);
    } else {
      reader.Refuse("neither books, table, set, call nor expect: " + word);
    }
  }
  if (file.comment.empty()) reader.Refuse("the case does not say what it shows");
  if (file.operation.empty()) reader.Refuse("the case has no call");
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

std::string Aligned(const std::vector<std::vector<std::string>>& lines) {
  // Counted in characters, not bytes.
  const auto width_of = [](const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
      return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
  };
  std::vector<std::size_t> widths;
  for (const auto& line : lines) {
    widths.resize(std::max(widths.size(), line.size()));
    for (std::size_t i = 0; i < line.size(); ++i)
      widths[i] = std::max(widths[i], width_of(line[i]));
  }
  std::string text;
  for (const auto& line : lines) {
    std::string row;
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (i > 0) row += " | ";
      row += line[i];
      if (i + 1 < line.size()) row.append(widths[i] - width_of(line[i]), ' ');
    }
    row.resize(row.find_last_not_of(' ') + 1);
    text += row + '\n';
  }
  return text;
}

std::string OnItsSide(const std::vector<std::vector<std::string>>& lines) {
  std::vector<std::vector<std::string>> turned(lines.front().size());
  for (const std::vector<std::string>& line : lines) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      turned[i].push_back(line[i] == kNullCell ? std::string() : line[i]);
    }
  }
  return Aligned(turned);
}

std::string CellOf(const std::string& value) {
  const std::string text = Replaced(value, kNoBreakSpace, kShownNoBreakSpace);
  if (text.size() >= kLongRule && text.find_first_not_of('_') == std::string::npos) {
    return "_ x " + std::to_string(text.size());
  }
  const bool plain = !text.empty() && text.find_first_of("|\"") == std::string::npos &&
                     text.front() != ' ' && text.back() != ' ' && text != kNullCell;
  if (plain) return text;
  std::string cell = "\"";
  for (const char c : text) {
    if (c == '"') cell += '"';
    cell += c;
  }
  return cell + '"';
}

std::string TextOf(const std::string& cell) {
  std::string text = cell;
  if (cell.size() >= 2 && cell.front() == '"' && cell.back() == '"') {
    text.clear();
    for (std::size_t i = 1; i + 1 < cell.size(); ++i) {
      if (cell[i] == '"') ++i;
      text += cell[i];
    }
  }
  return Replaced(text, kShownNoBreakSpace, kNoBreakSpace);
}

}  // namespace pstolvane1::golden
