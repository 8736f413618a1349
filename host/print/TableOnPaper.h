// The table of a report, measured for its paper and drawn line by line.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/print/ColumnFit.h"
#include "host/print/PageBreaks.h"
#include "host/print/Paper.h"
#include "host/print/Pen.h"
#include "session/rowset/ReportView.h"

namespace pstolvane1::print {

// What is drawn for the n-th line of the report stands on the same height on all sheets side by
// side. The notes of the report are further lines behind its own.
class TableOnPaper {
 public:
  static constexpr double kMargin = 34;  // on all sides of a page, points

  // Both must live as long.
  TableOnPaper(const ReportView& view, const Paper& paper, Pen& pen);

  [[nodiscard]] std::size_t Sheets() const { return fit_.sheets.size(); }
  [[nodiscard]] double PaperWidth() const { return paper_width_; }
  [[nodiscard]] double PaperHeight() const { return paper_height_; }
  [[nodiscard]] double HeightOfHeads() const { return heads_; }
  [[nodiscard]] const std::vector<LineOnPaper>& Lines() const { return lines_; }

  // y is the upper end; sheets are counted from 0, from left to right.
  void DrawHeads(std::size_t sheet, double y);
  void DrawLine(std::size_t sheet, std::size_t line, double y);
  // Above a line that begins a page within a group stands the group's head once more, with its
  // texts before the first figure: "Spare parts (continued)". Of groups in groups the innermost
  // five do so.
  [[nodiscard]] double HeightOfContinued(std::size_t line);
  void DrawContinued(std::size_t sheet, std::size_t line, double y);

 private:
  using Line = ReportView::Line;
  struct Sheet {
    const std::vector<std::size_t>& columns;
    double left, width;
  };

  [[nodiscard]] ColumnNeed NeedOf(std::size_t column);
  [[nodiscard]] Sheet SheetAt(std::size_t at) const;
  [[nodiscard]] Font FontOf(const Line& line) const;
  [[nodiscard]] double IndentOf(const Line& line, std::size_t column) const;
  [[nodiscard]] bool RunsOver(const Line& line) const;
  [[nodiscard]] double NarrowestSheet() const;
  [[nodiscard]] double HeightOf(const Line& line);
  [[nodiscard]] double MeasureHeads();
  void MeasureLines();
  void FindGroups();
  [[nodiscard]] std::vector<const Line*> GroupsAround(std::size_t line) const;
  [[nodiscard]] std::string Continued(const Line& group) const;
  [[nodiscard]] double HeightOfContinued(const Line& group);
  void DrawCells(const Sheet& sheet, const Line& line, double y);

  const ReportView& view_;
  Pen& pen_;
  std::vector<std::string> notes_;  // below the lines
  ColumnFit fit_;
  double paper_width_, paper_height_;  // as it lies
  double heads_;
  std::vector<LineOnPaper> lines_;
  // Of each line of the report, the head of the group that it stands in; itself where it is in
  // none.
  std::vector<std::size_t> groups_;
};

}  // namespace pstolvane1::print
