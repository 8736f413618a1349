#include "host/TextTable.h"

#include <algorithm>
#include <ostream>
#include <sstream>
#include <string>
#include <unicode/uchar.h>
#include <unicode/utf8.h>
#include <vector>

#include "host/ColumnChoice.h"
#include "session/data/ThreadWork.h"

namespace pstolvane1::host {
namespace {

constexpr std::string_view kGap = "  ";
constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kDim = "\x1b[2m";
constexpr std::string_view kPlain = "\x1b[0m";

// In lines of at most so many columns, ended by a line end; a longer word has a line of its own.
std::string Wrapped(std::string_view text, std::size_t room) {
  std::string lines;
  std::size_t used = 0;
  while (!text.empty()) {
    const std::string_view word = text.substr(0, std::min(text.find(' '), text.size()));
    const std::size_t width = DisplayWidth(word);
    const bool new_line = used > 0 && room > 0 && used + 1 + width > room;
    if (used > 0) lines += new_line ? '\n' : ' ';
    lines += word;
    used = new_line ? width : used + width + (used > 0 ? 1 : 0);
    text.remove_prefix(std::min(word.size() + 1, text.size()));
  }
  return lines + '\n';
}

// A column's head in as few lines as fit into the width of its cells, which is at least that of its
// longest word.
struct Head {
  std::vector<std::string> lines;
  std::size_t width = 0;
};

Head HeadOf(const std::string& label, std::size_t width) {
  for (std::size_t start = 0; start < label.size();) {
    const std::size_t end = std::min(label.find(' ', start), label.size());
    width = std::max(width, DisplayWidth(std::string_view(label).substr(start, end - start)));
    start = end + 1;
  }
  Head head{{}, width};
  std::istringstream lines(Wrapped(label, width));
  for (std::string line; std::getline(lines, line);) head.lines.push_back(line);
  return head;
}

class TableWriter {
 public:
  TableWriter(const ReportView& view, bool colour, std::ostream& out, std::size_t room)
      : view_(view), colour_(colour), out_(out), room_(room) {
    for (std::size_t i = 0; i < view.Columns().size(); ++i) {
      std::size_t width = 1;
      for (const ReportView::Line& line : view.Lines()) {
        if (!line.is_heading || view.Columns().size() == 1) {
          width = std::max(width, DisplayWidth(Cell(line, i)));
        }
      }
      heads_.push_back(HeadOf(view.Columns()[i].label, width));
      widths_.push_back(heads_.back().width);
    }
    chosen_ = ColumnsThatFit(view, widths_, room);
    for (const std::size_t i : chosen_.shown) {
      full_width_ += widths_[i] + (full_width_ > 0 ? kGap.size() : 0);
    }
  }

  void Write() {
    WriteTitle();
    WriteHeads();
    Rule("─");
    for (std::size_t i = 0; i < view_.Lines().size(); ++i) {
      in_hand_.Check();
      const ReportView::Line& line = view_.Lines()[i];
      switch (line.kind) {
        case ReportView::LineKind::kLine:
          Cells(line, false);
          break;
        case ReportView::LineKind::kGroup:
          Cells(line, true);
          break;
        case ReportView::LineKind::kRule:
          Rule("─");
          break;
        case ReportView::LineKind::kTotal:
          Cells(line, true);
          Rule(i + 1 == view_.Lines().size() ? "═" : "─");
          break;
        case ReportView::LineKind::kSpacer:
          out_ << '\n';
          break;
      }
    }
    for (const std::string& note : view_.Notes()) out_ << note << '\n';
    WriteLeftOut();
  }

 private:
  [[nodiscard]] std::string Cell(const ReportView::Line& line, std::size_t column) const {
    const auto blanks = 2 * static_cast<std::size_t>(view_.IndentOf(line, column));
    return std::string(blanks, ' ') + line.cells[column];
  }

  void WriteTitle() {
    if (view_.Look().lines.empty()) return;
    Line(view_.Look().title, true);
    for (const std::string& line : view_.Look().lines) out_ << Wrapped(line, room_);
    out_ << '\n';
  }

  // The last lines of all heads stand side by side.
  void WriteHeads() {
    std::size_t most = 0;
    for (const std::size_t i : chosen_.shown) most = std::max(most, heads_[i].lines.size());
    for (std::size_t at = 0; at < most; ++at) {
      std::vector<std::string> cells(heads_.size());
      for (const std::size_t i : chosen_.shown) {
        const std::size_t missing = most - heads_[i].lines.size();
        if (at >= missing) cells[i] = heads_[i].lines[at - missing];
      }
      Line(SideBySide(cells), true);
    }
  }

  void Cells(const ReportView::Line& line, bool bold) {
    if (line.is_heading) return Line(Cell(line, 0), bold);
    std::vector<std::string> cells;
    for (std::size_t i = 0; i < line.cells.size(); ++i) cells.push_back(Cell(line, i));
    Line(SideBySide(cells), bold);
  }

  [[nodiscard]] std::string SideBySide(const std::vector<std::string>& cells) const {
    std::string text;
    for (const std::size_t i : chosen_.shown) {
      if (i != chosen_.shown.front()) text += kGap;
      const std::string blanks(widths_[i] - DisplayWidth(cells[i]), ' ');
      text += view_.Columns()[i].numeric ? blanks + cells[i] : cells[i] + blanks;
    }
    return text;
  }

  void Line(std::string text, bool bold) {
    text.erase(text.find_last_not_of(' ') + 1);
    if (bold && colour_) {
      out_ << kBold << text << kPlain << '\n';
    } else {
      out_ << text << '\n';
    }
  }

  void WriteLeftOut() {
    if (chosen_.left_out.empty()) return;
    std::string names;
    for (const std::string& name : chosen_.left_out) names += (names.empty() ? "" : ", ") + name;
    out_ << Wrapped("No room for: " + names + ". --columns chooses, \"all\" shows all.", room_);
  }

  void Rule(std::string_view stroke) {
    if (colour_) out_ << kDim;
    for (std::size_t i = 0; i < full_width_; ++i) out_ << stroke;
    if (colour_) out_ << kPlain;
    out_ << '\n';
  }

  const WorkInHand in_hand_;
  const ReportView& view_;
  bool colour_;
  std::ostream& out_;
  std::size_t room_;
  std::vector<Head> heads_;
  std::vector<std::size_t> widths_;
  ChosenColumns chosen_;
  std::size_t full_width_ = 0;
};

}  // namespace

std::size_t DisplayWidth(std::string_view text) {
  std::size_t width = 0;
  const auto length = static_cast<int32_t>(text.size());
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  for (int32_t i = 0; i < length;) {
    UChar32 c = 0;
    U8_NEXT(bytes, i, length, c);
    if (c < 0) {
      ++width;  // a byte that is no UTF-8 shows as one replacement character
      continue;
    }
    const int8_t kind = u_charType(c);
    if (kind == U_NON_SPACING_MARK || kind == U_ENCLOSING_MARK || kind == U_FORMAT_CHAR) continue;
    const int wide = u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH);
    width += wide == U_EA_FULLWIDTH || wide == U_EA_WIDE ? 2 : 1;
  }
  return width;
}

void WriteTable(const ReportView& view, bool colour, std::ostream& out, std::size_t room) {
  if (view.Columns().empty()) {
    if (!view.Look().lines.empty()) out << view.Look().title << '\n';
    out << "(no lines)\n";
    return;
  }
  TableWriter(view, colour, out, room).Write();
}

}  // namespace pstolvane1::host
