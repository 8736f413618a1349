// Writes the lines of a report rowset, in report order.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "session/rowset/Locale.h"
#include "session/rowset/ReportRowset.h"

namespace pstolvane1 {

// Belongs to one row builder. Cells that a line does not write stay Null, and so does a cell whose
// value is Null. A layout without a DummySort column has none written. Money is shown in the
// locale, which must outlive the writer.
class ReportWriter {
 public:
  ReportWriter(std::span<const ReportColumn> columns, const Locale& locale);

  // A column's place, for the loop. Any case; error 3265.
  [[nodiscard]] ColumnHandle Column(std::string_view name) const { return rowset_->Column(name); }

  // Begins a line whose DummySort tells its kind: detail lines 1, then the closing kinds.
  void AddLine(std::int64_t line_class);
  // Begins a line whose DummySort is one more than that of the line before.
  void AddNextLine() { AddLine(dummy_sort_value_ + 1); }
  // Begins such a line below the line before, with all of its twins, so that a sort keeps them
  // together.
  void AddSubLine();
  // Leaves out the next DummySort.
  void SkipNumber() { ++dummy_sort_value_; }
  // The line in hand, for ReturnTo.
  [[nodiscard]] Bookmark Line() const { return rowset_->Bookmark(); }
  // Takes an earlier line in hand again, as the head of a block does whose sums are known at its
  // end. The next line begins behind the last one all the same.
  void ReturnTo(Bookmark line);
  // Ends the line; beginning another one and Finish do so as well.
  void EndLine();

  void Text(ColumnHandle column, std::string_view text) { rowset_->SetText(column, text); }
  void Value(ColumnHandle column, const Variant& value) { rowset_->Set(column, value); }
  // The same in both.
  void Text(TwinnedColumn column, std::string_view text);
  void Value(TwinnedColumn column, const Variant& value);

  // Zero is shown as well. Error 94 for Null, 13 for what is no number.
  [[nodiscard]] std::string MoneyText(const Variant& amount) const;
  void Money(ColumnHandle column, const Variant& amount) { Text(column, MoneyText(amount)); }
  // The twin holds the amount itself.
  void Money(TwinnedColumn column, const Variant& amount);

  // The finished rowset, at its first row. The writer takes no lines after it.
  [[nodiscard]] RecordsetPtr Finish();

 private:
  RecordsetPtr rowset_;
  const Locale& locale_;
  std::vector<ColumnHandle> twins_;
  bool has_dummy_sort_;
  ColumnHandle dummy_sort_{};
  std::int64_t dummy_sort_value_ = 0;
  bool in_line_ = false;
};

// "_" as often as the report's width says.
[[nodiscard]] std::string RuleText(std::size_t width);

}  // namespace pstolvane1
