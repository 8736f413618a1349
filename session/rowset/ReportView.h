// What a person sees of a rowset on a screen, a page or a sheet: its shown columns, and the kind of
// each line.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "session/data/Recordset.h"
#include "session/rowset/Locale.h"
#include "session/rowset/ReportLook.h"

namespace pstolvane1 {

// A rowset with a DummySort column is a report: its twins, keys and rule columns are left out. What
// stands in a column of sums ("TotalValue", "TotValue", "GrpValue") is shown in the column that it
// sums ("Value"), as long as no line has a cell in both; so is the word in "Total" in the first
// column. Sums that stand beside the figures of the last line get a line of their own below it.
// Other rowsets show all their columns. Chapters and empty columns are always left out, and what
// the look says not to show.
class ReportView {
 public:
  struct Column {
    std::string name;
    ColumnHandle handle;
    bool numeric;  // every text in it is a number, an amount or a quantity with its unit
    std::string label;
    std::string unit_of;
    int telling;
  };
  enum class LineKind : std::uint8_t {
    kLine,
    kGroup,   // heads the deeper lines that follow
    kRule,    // nothing but a run of "_"
    kTotal,   // a closing line
    kSpacer,  // nothing at all
  };
  struct Line {
    LineKind kind;
    std::vector<std::string> cells;  // one for each shown column; Null is ""
    int level = 0;                   // 0 stands outermost
    std::optional<Bookmark> row;     // that it shows; none for a line of the view's own

    // Nothing but a text in its first cell, which may run over the next ones.
    [[nodiscard]] bool IsHeading() const;
  };

  // Reads all visible rows; the rowset's position stays. The locale tells what a number looks like.
  ReportView(const Recordset& rowset, std::shared_ptr<const Locale> locale, ReportLook look = {});

  [[nodiscard]] const std::vector<Column>& Columns() const { return columns_; }
  [[nodiscard]] const std::vector<Line>& Lines() const { return lines_; }
  // What has to be said below the lines, a sentence each; mostly nothing.
  [[nodiscard]] const std::vector<std::string>& Notes() const { return notes_; }
  [[nodiscard]] const Locale& TheLocale() const { return *locale_; }
  [[nodiscard]] const ReportLook& Look() const { return look_; }

 private:
  std::shared_ptr<const Locale> locale_;
  ReportLook look_;
  std::vector<Column> columns_;
  std::vector<Line> lines_;
  std::vector<std::string> notes_;
};

}  // namespace pstolvane1
