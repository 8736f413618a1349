// The lines of a report in the order that a person wants, and those that are left by a filter.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/SortText.h"
#include "session/data/Recordset.h"
#include "session/rowset/ReportView.h"

namespace pstolvane1::viewer {

// How a person wants to see the lines.
struct Wish {
  std::string sort = {};  // a shown column; "" is the report's own order
  bool descending = false;
  // Column and what is looked for in it: a part of its text in any case, or of a column of numbers
  // "> 100" with one of > < >= <= =.
  std::map<std::string, std::string> filter = {};

  friend bool operator==(const Wish&, const Wish&) = default;
};

[[nodiscard]] bool IsFiltered(const Wish& wish);

// The number that a shown text of the locale says: "₹1,200.00", "12 nos", "5%"; none for another.
[[nodiscard]] std::optional<double> NumberIn(std::string_view text, const Locale& locale);

// Belongs to the thread of the report's session.
class Arrangement {
 public:
  // The view is of the report, and stays as long as this.
  Arrangement(RecordsetPtr report, const ReportView& view, const automation::SortedReport& asked);

  // Places of the view's lines. Sorted by the column's twin; a line stays below the one that it
  // belongs to, and what closes the report stays below everything. With a text that is looked for,
  // the lines below a group or document that has it stay as well. What closes the report goes with
  // any filter: a total would not be that of the lines that are left. WrongCall for an unknown
  // column, or one that does not sort. Good until the next wish.
  [[nodiscard]] const std::vector<std::size_t>& Of(const Wish& wish);
  // The place from which on lines only close the report.
  [[nodiscard]] std::size_t Closing() const { return closing_; }
  [[nodiscard]] bool Sorts(const std::string& column) const;

 private:
  [[nodiscard]] std::vector<std::size_t> Sorted(const Wish& wish) const;
  [[nodiscard]] std::vector<std::size_t> Ranks(const Wish& wish) const;
  void Filter(const Wish& wish);
  // The line, or one that it belongs to, has the folded text in the column.
  [[nodiscard]] bool Holds(std::size_t place, std::size_t column, const std::string& folded) const;
  [[nodiscard]] std::size_t ColumnNamed(const std::string& name) const;

  const RecordsetPtr report_;
  const ReportView& view_;
  const automation::SortedReport asked_;
  const std::size_t closing_;
  const std::vector<std::size_t> owners_;  // the place that each place belongs to, or its own
  Wish arranged_;
  std::vector<std::size_t> order_;
};

}  // namespace pstolvane1::viewer
