// What a person sees of a rowset on a screen, a page or a sheet: its shown columns, and the kind of
// each line.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "session/data/Recordset.h"
#include "session/rowset/Locale.h"

namespace pstolvane1 {

// A rowset with a DummySort column is a report: its twins, keys and rule columns are left out. What
// stands in a column of sums ("TotalValue", "GrpValue") is shown in the column that it sums
// ("Value"), as long as no line has a cell in both; so is the word in "Total" in the first column.
// Other rowsets show all their columns. Chapters and empty columns are always left out.
class ReportView {
 public:
  struct Column {
    std::string name;
    ColumnHandle handle;
    bool numeric;  // every text in it is a number, an amount or a quantity with its unit
  };
  enum class LineKind : std::uint8_t {
    kLine,
    kRule,    // nothing but a run of "_"
    kTotal,   // a closing line: content beside a run of "_"
    kSpacer,  // nothing at all
  };
  struct Line {
    LineKind kind;
    std::vector<std::string> cells;  // one for each shown column; Null is ""
  };

  // Reads all visible rows; the rowset's position stays. The locale tells what a number looks like.
  ReportView(const Recordset& rowset, std::shared_ptr<const Locale> locale);

  [[nodiscard]] const std::vector<Column>& Columns() const { return columns_; }
  [[nodiscard]] const std::vector<Line>& Lines() const { return lines_; }
  // What has to be said below the lines, a sentence each; mostly nothing.
  [[nodiscard]] const std::vector<std::string>& Notes() const { return notes_; }
  [[nodiscard]] const Locale& TheLocale() const { return *locale_; }

 private:
  std::shared_ptr<const Locale> locale_;
  std::vector<Column> columns_;
  std::vector<Line> lines_;
  std::vector<std::string> notes_;
};

}  // namespace pstolvane1
