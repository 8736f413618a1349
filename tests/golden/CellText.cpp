#include "CellText.h"

#include <algorithm>

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

// Counted in characters, not bytes.
std::size_t WidthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

}  // namespace

std::string Trim(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? std::string()
                                    : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

Cells SplitCells(const std::string& line) {
  Cells cells(1);
  bool quoted = false;  // a bar inside quotes belongs to the cell
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

std::string Aligned(const std::vector<Cells>& lines) {
  std::vector<std::size_t> widths;
  for (const Cells& line : lines) {
    widths.resize(std::max(widths.size(), line.size()));
    for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], WidthOf(line[i]));
  }
  std::string text;
  for (const Cells& line : lines) {
    std::string row;
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (i > 0) row += " | ";
      row += line[i];
      row.append(widths[i] - WidthOf(line[i]), ' ');
    }
    row.resize(row.find_last_not_of(" |") + 1);
    text += (row.empty() ? "|" : row) + '\n';
  }
  return text;
}

std::vector<Cells> Turned(const std::vector<Cells>& lines) {
  std::vector<Cells> turned(lines.front().size());
  for (const Cells& line : lines) {
    for (std::size_t i = 0; i < line.size(); ++i) turned[i].push_back(line[i]);
  }
  return turned;
}

std::string CellOf(const std::string& text) {
  std::string shown = Replaced(text, kNoBreakSpace, kShownNoBreakSpace);
  if (shown.size() >= kLongRule && shown.find_first_not_of('_') == std::string::npos) {
    return "_ x " + std::to_string(shown.size());
  }
  const bool plain = !shown.empty() && shown.find_first_of("|\"") == std::string::npos &&
                     shown.front() != ' ' && shown.back() != ' ';
  if (plain) return shown;
  std::string cell = "\"";
  for (const char c : shown) {
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
