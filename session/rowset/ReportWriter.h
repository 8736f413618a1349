// Writes the lines of a report rowset, in report order.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "session/rowset/CellStyle.h"
#include "session/rowset/ReportRowset.h"

namespace pstolvane1 {

// Where a value is written: a column alone, or a column and its twin.
struct Target {
  // NOLINTBEGIN(google-explicit-constructor)
  constexpr Target(ColumnHandle column) : shown(column) {}
  constexpr Target(TwinnedColumn column) : shown(column.shown), twin(column.twin) {}
  // NOLINTEND(google-explicit-constructor)

  static constexpr ColumnHandle kNone{-1};
  ColumnHandle shown;
  ColumnHandle twin = kNone;
};

// The columns of a source rowset that a document's number is made of.
struct DocumentNumberSource {
  explicit DocumentNumberSource(const Recordset& source, std::string_view prefix_name = "Prefix",
                                std::string_view number_name = "Refno",
                                std::string_view suffix_name = "Suffix");
  ColumnHandle prefix, number, suffix;
};

// Belongs to one row builder. A line begins with AddLine or AddSubLine and ends where the next one
// begins, with EndLine or with Finish. Cells that it does not write stay Null.
//
// A value is shown as text, and its twin, if the target has one, holds the value itself: Null for
// Null. Null cannot be shown as a number, an amount or a date: error 94; what is no number or date
// is error 13.
class ReportWriter {
 public:
  ReportWriter(std::span<const ReportColumn> columns, CellStyle style);

  // --- Lines

  // A line's DummySort: a class, such as 1 for details and more for closing lines; one more than
  // the number before; or none. A layout without the column has none written.
  static constexpr std::int64_t kNextNumber = std::numeric_limits<std::int64_t>::min();
  static constexpr std::int64_t kNoNumber = kNextNumber + 1;

  void AddLine(std::int64_t number = kNextNumber);
  // A line with all twins of its parent but DummySort, so that a sort keeps the two together. The
  // parent is the line in hand or the one given.
  void AddSubLine(std::int64_t number = kNextNumber) { AddSubLine(Line(), number); }
  void AddSubLine(Bookmark parent, std::int64_t number = kNextNumber);
  // Nothing but an empty text in one column.
  void AddSpacer(ColumnHandle column, std::int64_t number = kNextNumber);
  // Nothing but a rule.
  void AddRuleLine(const RuleColumn& rule, std::int64_t number = kNextNumber);
  // "Total" in its first column, and the rule again. The caller goes on with the sums.
  void AddTotalLine(ColumnHandle first, const RuleColumn& rule, std::int64_t number = kNextNumber);
  // Leaves out the next number.
  void SkipNumber() { ++number_; }

  // The line in hand, for ReturnTo.
  [[nodiscard]] Bookmark Line() const { return rowset_->Bookmark(); }
  // Takes an earlier line in hand again, such as the head of a group whose sums are known at its
  // end. The next line still comes behind the last one.
  void ReturnTo(Bookmark line);
  // Takes the line in hand out of the report. Its number is not given again.
  void RemoveLine();
  // What a line holds.
  [[nodiscard]] Recordset::Row Cells(Bookmark line) const { return rowset_->RowAt(line); }
  void EndLine();

  // --- Cells of the line in hand

  void Text(Target to, std::string_view text);
  // A key, or any value as it is: Null stays Null.
  void Value(Target to, const Variant& value);
  // The value of a source row as it is: the cheapest way for names and keys.
  void Copy(Target to, const Recordset::Row& row, ColumnHandle from);

  void Number(Target to, const Variant& value);
  void Quantity(Target to, const Variant& value, std::string_view unit);  // "12.00 Nos"
  void Rate(Target to, const Variant& value, std::string_view unit);      // "12.00/Nos"
  void Percent(Target to, const Variant& value);                          // "12.00%"
  // Zero is shown as well.
  void Money(Target to, const Variant& amount);
  // Divided by the scale; the twin holds the amount before that. Error 11 for a scale of 0.
  void ScaledMoney(Target to, const Variant& amount);
  // Zero is shown as "". So is an amount that is Null or no number.
  void MoneyOrBlank(Target to, const Variant& amount);
  void NumberOrBlank(Target to, const Variant& value);
  void QuantityOrBlank(Target to, const Variant& value, std::string_view unit);
  // By the date rule.
  void Date(Target to, const Variant& date);
  // The parts that are not empty, joined. Their twins hold them as they are, or with "" for Null.
  enum class NullParts { kStayNull, kBecomeEmpty };
  void DocumentNumber(const DocumentNumberColumns& to, const Recordset::Row& row,
                      const DocumentNumberSource& from, NullParts parts = NullParts::kStayNull);
  void Rule(const RuleColumn& rule);

  // --- For texts that a report makes of several

  [[nodiscard]] double Scaled(const Variant& amount) const;  // error 11 for a scale of 0
  [[nodiscard]] std::string NumberText(const Variant& value) const;
  [[nodiscard]] std::string MoneyText(const Variant& amount) const;
  [[nodiscard]] std::string DateText(const Variant& date) const;
  [[nodiscard]] const CellStyle& Style() const { return style_; }

  // The finished rowset, at its first row. The writer takes no lines after it.
  [[nodiscard]] RecordsetPtr Finish();

 private:
  template <typename Write>
  void Try(const Write& write);
  template <typename Append>
  void Show(Target to, const Variant& value, const Append& append);
  [[nodiscard]] const std::string& DateOf(pstolvane1::Date date);

  RecordsetPtr rowset_;
  CellStyle style_;
  std::vector<ColumnHandle> twins_;
  ColumnHandle dummy_sort_ = Target::kNone;
  std::int64_t number_ = 0;
  bool in_line_ = false;
  std::string text_;  // of the cell in hand
  // The date that was shown last: rows of one day often come together.
  pstolvane1::Date date_;
  std::string date_text_;
};

}  // namespace pstolvane1
