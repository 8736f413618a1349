// Writes the lines of a movement analysis.
#pragma once

#include <optional>
#include <string>

#include "analysis/MovementAnalysis.h"
#include "analysis/MovementLayout.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {

// The group of a line, or the party of an item report's group.
struct MovementGroup {
  Variant name;
  std::int64_t id = 0;
  std::string area;
};

// A line below a group.
struct MovementLine {
  Variant item_name, party_name;
  std::int64_t item_id = 0, party_id = 0;
  Variant unit;
  double rate_in = 0, rate_out = 0;  // not scaled
  MovementFigures figures;
  // What the second quantity twins hold; they leave out what was added to the line.
  double own_in = 0, own_out = 0;
};

// Belongs to one row builder. Money is divided by sngScale (error 11 for a scale of 0). DummySort
// keeps the lines of a group together; a summary has it on its closing lines alone.
class MovementWriter {
 public:
  MovementWriter(ReportFrame& frame, const MovementArguments& arguments,
                 const MovementGrouping& grouping, const MovementLayout& layout);

  // A heading, whose figures are known at the area's end.
  void AddArea(const std::string& area);
  void CloseArea(const MovementSums& sums);
  void AddGroup(const MovementGroup& group);
  void CloseGroup(const MovementSums& sums);  // and a spacer below its lines
  void AddLine(const MovementGroup& group, const MovementLine& line);
  // The closing lines.
  void AddTotals(const MovementSums& sums);

  // The first twins of the line in hand; without what went out none of the returns.
  void WriteLineTwins(const MovementFigures& figures);

  ReportWriter& Lines() { return lines_; }
  const MovementColumns& Columns() const { return columns_; }
  [[nodiscard]] std::string MoneyText(double unscaled) const;

 private:
  // A zero balance is left out, but in the report's own figures.
  enum class ZeroBalance { kLeftOut, kShown };

  void WriteSide(const MovementLine& line, bool in);
  void WriteFigures(const MovementFigureColumns& to, const MovementFigures& figures,
                    ZeroBalance zero);
  void WriteReturned(ColumnHandle to, const MovementFigures& figures);
  // Unlike the texts, they hold zeros.
  void WriteTwins(const MovementTwinColumns& to, const MovementFigures& figures);
  void WriteKeys(const MovementGroup& group, const MovementLine& line);
  [[nodiscard]] double Average(const MovementFigures& figures) const;
  [[nodiscard]] double Scaled(double money) const;
  [[nodiscard]] std::int64_t LineNumber() const;
  [[nodiscard]] std::int64_t HeadNumber();

  const MovementArguments& arguments_;
  const MovementGrouping& grouping_;
  const MovementColumns& columns_;
  double days_;
  bool numbered_;  // DummySort is written on all lines
  bool related_;
  ReportWriter lines_;
  std::int64_t counter_ = 0;
  Bookmark area_{}, group_{};
};

}  // namespace pstolvane1
