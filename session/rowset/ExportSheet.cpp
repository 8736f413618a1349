// What is shown, line by line with plain values: as CSV, and as JSON objects.
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>
#include <variant>

#include "session/data/OutOfMemory.h"
#include "session/data/ThreadWork.h"
#include "session/rowset/Export.h"
#include "session/rowset/ReportView.h"
#include "session/rowset/SheetCells.h"

namespace pstolvane1 {
namespace {

constexpr const char* kDoing = "exporting the rowset";

// Calls write(line, cell_of) for each line that has cells; cell_of(column) is the cell.
template <typename Write>
void ForEachLine(const Recordset& rowset, const ReportView& view, const Write& write) {
  const WorkInHand in_hand;
  for (const ReportView::Line& line : view.Lines()) {
    in_hand.Check();
    using enum ReportView::LineKind;
    if (line.kind == kRule || line.kind == kSpacer) continue;
    write(line, [&](std::size_t column) { return CellOf(view, line, column, rowset); });
  }
}

std::string SheetField(const std::string& text, std::string_view separator) {
  const bool plain = text.find_first_of("\"\r\n") == std::string::npos &&
                     text.find(separator) == std::string::npos && !text.starts_with(' ') &&
                     !text.ends_with(' ');
  if (plain) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + '"';
}

std::string Json(std::string_view text) {
  return nlohmann::json(std::string(text))
      .dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string Json(const SheetCell& cell) {
  if (std::holds_alternative<std::monostate>(cell.value)) return "null";
  if (const auto* flag = std::get_if<bool>(&cell.value)) return *flag ? "true" : "false";
  const bool number = std::holds_alternative<double>(cell.value) && !IsDay(cell);
  return number ? PlainText(cell) : Json(std::string_view(PlainText(cell)));
}

std::string_view KindOf(const ReportView::Line& line) {
  using enum ReportView::LineKind;
  if (line.kind == kTotal) return "total";
  return line.kind == kGroup ? "group" : "line";
}

}  // namespace

void ExportSheet(const Recordset& rowset, const ReportLook& look,
                 const std::shared_ptr<const Locale>& locale, const SheetStyle& style,
                 std::ostream& out) {
  TellingWhatRanOut(kDoing, [&] {
    const WorkInHand in_hand;
    const ReportView view(rowset, locale, look);
    if (style.byte_order_mark) out << "\xEF\xBB\xBF";
    for (std::size_t i = 0; i < view.Columns().size(); ++i) {
      out << (i == 0 ? "" : style.separator)
          << SheetField(view.Columns()[i].label, style.separator);
    }
    out << "\r\n";
    ForEachLine(rowset, view, [&](const ReportView::Line& line, const auto& cell_of) {
      for (std::size_t i = 0; i < line.cells.size(); ++i) {
        out << (i == 0 ? "" : style.separator)
            << SheetField(PlainText(cell_of(i)), style.separator);
      }
      out << "\r\n";
    });
  });
}

void ExportRecords(const Recordset& rowset, const ReportLook& look,
                   const std::shared_ptr<const Locale>& locale, std::ostream& out) {
  TellingWhatRanOut(kDoing, [&] {
    const WorkInHand in_hand;
    const ReportView view(rowset, locale, look);
    const bool report = rowset.HasColumn("DummySort") || look.column;
    ForEachLine(rowset, view, [&](const ReportView::Line& line, const auto& cell_of) {
      std::string text = "{";
      if (report) text += fmt::format(R"("kind":"{}","level":{})", KindOf(line), line.level);
      for (std::size_t i = 0; i < line.cells.size(); ++i) {
        if (text.size() > 1) text += ',';
        text += Json(std::string_view(view.Columns()[i].name)) + ':' + Json(cell_of(i));
      }
      out << text << "}\n";
    });
  });
}

}  // namespace pstolvane1
