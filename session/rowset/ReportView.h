// What a person sees of a rowset on a screen, a page or a sheet: its shown columns, and the kind of
// each line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
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
// the look says not to show. Where the look names columns, those alone stand in a line, and lines
// that have nothing in them are left out.
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
    // Nothing but a text in the report's first column, which may run over the next ones.
    bool is_heading = false;
  };

  // Reads all visible rows; the rowset's position stays. The locale tells what a number looks like.
  // Error 3001 where the look names a column that the report does not show.
  ReportView(const Recordset& rowset, std::shared_ptr<const Locale> locale, ReportLook look = {});

  [[nodiscard]] const std::vector<Column>& Columns() const { return columns_; }
  [[nodiscard]] const std::vector<Line>& Lines() const { return lines_; }
  // How many levels the line's cell in a column is moved in: its level in the report's first
  // column, and 0 in any other.
  [[nodiscard]] int IndentOf(const Line& line, std::size_t column) const {
    return column == first_ ? line.level : 0;
  }
  // The place of the column of that name or label in any case.
  [[nodiscard]] std::optional<std::size_t> PlaceOf(std::string_view name) const;
  // What has to be said below the lines, a sentence each; mostly nothing.
  [[nodiscard]] const std::vector<std::string>& Notes() const { return notes_; }
  [[nodiscard]] const Locale& TheLocale() const { return *locale_; }
  [[nodiscard]] const ReportLook& Look() const { return look_; }

 private:
  void KeepNamedColumns();

  std::shared_ptr<const Locale> locale_;
  ReportLook look_;
  std::vector<Column> columns_;
  std::size_t first_ = 0;  // the place of the report's first column; behind the last if not shown
  std::vector<Line> lines_;
  std::vector<std::string> notes_;
};

}  // namespace pstolvane1
