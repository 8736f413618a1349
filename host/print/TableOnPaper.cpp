#include "host/print/TableOnPaper.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "session/data/ThreadWork.h"

namespace pstolvane1::print {
namespace {

using LineKind = ReportView::LineKind;

constexpr double kRule = 0.5, kRuleOfHeads = 1;  // thickness, points
// In the letters' size.
constexpr double kIndent = 1.2;  // for each level
constexpr double kHeightOfRule = 0.5, kHeightOfSpacer = 0.7;
constexpr double kBelowHeads = 0.35, kAboveGroup = 0.3;
constexpr double kLeastOfText = 9;   // a text that is broken keeps so much
constexpr double kMostOfWord = 18;   // a longer word is broken
constexpr double kDoubleRule = 2;    // between the two lines below a total, points
constexpr double kBelowTotal = 4.5;  // points
constexpr std::size_t kMostContinued = 5;

bool IsBold(const ReportView::Line& line) {
  return line.kind == LineKind::kGroup || line.kind == LineKind::kTotal;
}

bool HasLines(const ReportView& view) {
  return !view.Columns().empty() && std::ranges::any_of(view.Lines(), [](const auto& line) {
    return line.kind == LineKind::kLine || line.kind == LineKind::kGroup;
  });
}

bool HasDepth(const ReportView::Line& line) {
  return line.kind != LineKind::kRule && line.kind != LineKind::kSpacer;
}

double WidestWord(Pen& pen, const std::string& text, bool bold) {
  double widest = 0;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    widest = std::max(widest,
                      pen.WidthOfOnePoint(std::string_view(text).substr(start, end - start), bold));
    start = end + 1;
  }
  return widest;
}

}  // namespace

TableOnPaper::TableOnPaper(const ReportView& view, const Paper& paper, Pen& pen)
    : view_(view), pen_(pen), notes_(view.Notes()) {
  if (!HasLines(view)) notes_.emplace_back("(no lines)");
  std::vector<ColumnNeed> needs;
  for (std::size_t i = 0; i < view.Columns().size(); ++i) needs.push_back(NeedOf(i));
  fit_ = FitColumns(needs, paper, kMargin);
  paper_width_ = fit_.across ? paper.height : paper.width;
  paper_height_ = fit_.across ? paper.width : paper.height;
  heads_ = MeasureHeads();
  MeasureLines();
  FindGroups();
}

// --- Measures ---

ColumnNeed TableOnPaper::NeedOf(std::size_t column) {
  const WorkInHand in_hand;
  const ReportView::Column& its = view_.Columns()[column];
  const double head = WidestWord(pen_, its.label, true);
  ColumnNeed need{head, head, !its.unit_of.empty()};
  for (const Line& line : view_.Lines()) {
    in_hand.Check();
    const std::string& text = line.cells[column];
    if (text.empty() || RunsOver(line)) continue;
    const double indent = kIndent * view_.IndentOf(line, column);
    const double whole = indent + pen_.WidthOfOnePoint(text, IsBold(line));
    need.whole = std::max(need.whole, whole);
    if (its.numeric || whole <= need.broken) continue;
    const double word = indent + std::min(WidestWord(pen_, text, IsBold(line)), kMostOfWord);
    need.broken = std::max(need.broken, std::min(whole, std::max(word, kLeastOfText)));
  }
  if (its.numeric) need.broken = need.whole;
  return need;
}

TableOnPaper::Sheet TableOnPaper::SheetAt(std::size_t at) const {
  const double width = fit_.WidthOf(fit_.sheets[at]);
  return {fit_.sheets[at], (paper_width_ - width) / 2, width};
}

Font TableOnPaper::FontOf(const Line& line) const { return {fit_.size, IsBold(line)}; }

double TableOnPaper::IndentOf(const Line& line, std::size_t column) const {
  return kIndent * fit_.size * view_.IndentOf(line, column);
}

bool TableOnPaper::RunsOver(const Line& line) const {
  return view_.Columns().size() > 1 && line.is_heading;
}

// A text that runs over takes as many lines on each sheet as on this one.
double TableOnPaper::NarrowestSheet() const {
  double narrowest = paper_width_;
  for (const auto& columns : fit_.sheets) narrowest = std::min(narrowest, fit_.WidthOf(columns));
  return narrowest;
}

double TableOnPaper::HeightOf(const Line& line) {
  const Font font = FontOf(line);
  if (RunsOver(line)) {
    return pen_.Height(line.cells.front(), font, NarrowestSheet() - IndentOf(line, 0));
  }
  double height = Pen::LineHeight(fit_.size);
  for (std::size_t i = 0; i < line.cells.size(); ++i) {
    const std::string& text = line.cells[i];
    if (text.empty() || view_.Columns()[i].numeric) continue;
    const double width = fit_.widths[i] - IndentOf(line, i);
    if (pen_.WidthOfOnePoint(text, font.bold) * font.size <= width) continue;
    height = std::max(height, pen_.Height(text, font, width));
  }
  return height;
}

double TableOnPaper::MeasureHeads() {
  double height = 0;
  for (std::size_t i = 0; i < view_.Columns().size(); ++i) {
    const std::string& label = view_.Columns()[i].label;
    height = std::max(height, pen_.Height(label, {fit_.size, true}, fit_.widths[i]));
  }
  return height + kBelowHeads * fit_.size;
}

// A head of a group stands with its first line, the end of a report with the line before.
void TableOnPaper::MeasureLines() {
  const WorkInHand in_hand;
  for (const Line& line : view_.Lines()) {
    in_hand.Check();
    LineOnPaper& on_paper = lines_.emplace_back();
    if (line.kind == LineKind::kRule || line.kind == LineKind::kTotal) {
      for (std::size_t before = lines_.size() - 1; before > 0; --before) {
        lines_[before - 1].with_next = true;
        if (HasDepth(view_.Lines()[before - 1])) break;
      }
    }
    switch (line.kind) {
      case LineKind::kRule:
        on_paper = {kHeightOfRule * fit_.size, true, false};
        break;
      case LineKind::kSpacer:
        on_paper = {kHeightOfSpacer * fit_.size, false, true};
        break;
      case LineKind::kGroup:
        on_paper = {kAboveGroup * fit_.size + HeightOf(line), true, false};
        break;
      case LineKind::kTotal:
        on_paper = {HeightOf(line) + kBelowTotal, false, false};
        break;
      case LineKind::kLine:
        on_paper = {HeightOf(line), false, false};
    }
  }
  for (const std::string& note : notes_) {
    lines_.push_back({fit_.size + pen_.Height(note, {fit_.size}, paper_width_ - 2 * kMargin)});
  }
}

// A line is in a group as long as it is as deep as the group's first line; where that is not deeper
// than the head itself, the head is one without figures. Any other head or total ends a group that
// is not less deep.
void TableOnPaper::FindGroups() {
  const WorkInHand in_hand;
  struct Group {
    std::size_t head;
    int depth;  // of its first line
  };
  std::vector<Group> open;
  constexpr std::size_t kNone = SIZE_MAX;
  std::size_t head = kNone;  // of a group whose first line is not found yet
  const std::vector<Line>& lines = view_.Lines();
  for (std::size_t at = 0; at < lines.size(); ++at) {
    in_hand.Check();
    const Line& line = lines[at];
    if (HasDepth(line)) {
      if (head != kNone && (line.level > lines[head].level || lines[head].is_heading)) {
        open.push_back({head, line.level});
      }
      head = kNone;
      while (!open.empty() &&
             (line.level < open.back().depth ||
              (line.kind != LineKind::kLine && line.level <= lines[open.back().head].level))) {
        open.pop_back();
      }
    }
    groups_.push_back(open.empty() || !HasDepth(line) ? at : open.back().head);
    if (line.kind == LineKind::kGroup) head = at;
  }
}

// The outermost first.
std::vector<const ReportView::Line*> TableOnPaper::GroupsAround(std::size_t line) const {
  std::vector<const Line*> groups;
  while (line < groups_.size() && groups_[line] != line && groups.size() < kMostContinued) {
    line = groups_[line];
    groups.push_back(&view_.Lines()[line]);
  }
  std::ranges::reverse(groups);
  return groups;
}

std::string TableOnPaper::Continued(const Line& group) const {
  std::string text;
  for (std::size_t i = 0; i < group.cells.size(); ++i) {
    if (i > 0 && view_.Columns()[i].numeric) break;
    if (group.cells[i].empty()) continue;
    text += (text.empty() ? "" : " · ") + group.cells[i];
  }
  return text + " (continued)";
}

double TableOnPaper::HeightOfContinued(const Line& group) {
  return kAboveGroup * fit_.size +
         pen_.Height(Continued(group), {fit_.size, true}, NarrowestSheet() - IndentOf(group, 0));
}

double TableOnPaper::HeightOfContinued(std::size_t line) {
  double height = 0;
  for (const Line* const group : GroupsAround(line)) height += HeightOfContinued(*group);
  return height;
}

// --- Drawing ---

void TableOnPaper::DrawHeads(std::size_t at, double y) {
  const Sheet sheet = SheetAt(at);
  const Font font{fit_.size, true};
  const double lower_end = y + heads_ - kBelowHeads * fit_.size;
  double x = sheet.left;
  for (const std::size_t column : sheet.columns) {
    const ReportView::Column& its = view_.Columns()[column];
    const double width = fit_.widths[column];
    pen_.Text(its.label, font, x, lower_end - pen_.Height(its.label, font, width), width,
              its.numeric ? Side::kRight : Side::kLeft);
    x += width + fit_.gap;
  }
  pen_.Line(sheet.left, lower_end, sheet.width, kRuleOfHeads);
}

void TableOnPaper::DrawLine(std::size_t at, std::size_t number, double y) {
  const Sheet sheet = SheetAt(at);
  if (number >= view_.Lines().size()) {
    const std::string& note = notes_[number - view_.Lines().size()];
    pen_.Text(note, {fit_.size}, kMargin, y + fit_.size, paper_width_ - 2 * kMargin, Side::kLeft);
    return;
  }
  const Line& line = view_.Lines()[number];
  const double lower_end = y + lines_[number].height;
  switch (line.kind) {
    case LineKind::kRule:
      return pen_.Line(sheet.left, (y + lower_end) / 2, sheet.width, kRule);
    case LineKind::kSpacer:
      return;
    case LineKind::kGroup:
      return DrawCells(sheet, line, y + kAboveGroup * fit_.size);
    case LineKind::kTotal:
      for (const double above : {kDoubleRule, 2 * kDoubleRule}) {
        pen_.Line(sheet.left, lower_end - above + kRule, sheet.width, kRule);
      }
      [[fallthrough]];
    case LineKind::kLine:
      return DrawCells(sheet, line, y);
  }
}

void TableOnPaper::DrawContinued(std::size_t at, std::size_t line, double y) {
  const Sheet sheet = SheetAt(at);
  for (const Line* const group : GroupsAround(line)) {
    const double indent = IndentOf(*group, 0);
    pen_.Text(Continued(*group), {fit_.size, true}, sheet.left + indent,
              y + kAboveGroup * fit_.size, sheet.width - indent, Side::kLeft);
    y += HeightOfContinued(*group);
  }
}

void TableOnPaper::DrawCells(const Sheet& sheet, const Line& line, double y) {
  double x = sheet.left;
  for (const std::size_t column : sheet.columns) {
    const double indent = IndentOf(line, column);
    const double width = RunsOver(line) ? sheet.width : fit_.widths[column];
    if (!line.cells[column].empty()) {
      pen_.Text(line.cells[column], FontOf(line), x + indent, y, width - indent,
                view_.Columns()[column].numeric ? Side::kRight : Side::kLeft);
    }
    x += width + fit_.gap;
  }
}

}  // namespace pstolvane1::print
