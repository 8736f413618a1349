#include <ostream>
#include <string>

#include "session/data/OutOfMemory.h"
#include "session/data/ThreadWork.h"
#include "session/rowset/Export.h"
#include "session/rowset/ReportView.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kStyle =
    "body{font:14px/1.4 system-ui,sans-serif;margin:2em;color:#222}"
    "table{border-collapse:collapse}"
    "th,td{padding:.25em .8em;text-align:left;vertical-align:top}"
    "th{border-bottom:2px solid #444;position:sticky;top:0;background:#fff}"
    "td.n,th.n{text-align:right;font-variant-numeric:tabular-nums;white-space:nowrap}"
    "tr.line:nth-child(even){background:#f6f6f6}"
    "tr.rule td{border-top:1px solid #444;padding:0;height:0}"
    "tr.total td{font-weight:600;border-bottom:3px double #444}"
    "tr.spacer td{height:.8em}"
    "p.note{font-size:.9em;color:#444}"
    "@media print{body{margin:0}th{position:static}thead{display:table-header-group}}";

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string_view ClassOf(ReportView::LineKind kind) {
  using enum ReportView::LineKind;
  switch (kind) {
    case kRule:
      return "rule";
    case kTotal:
      return "total";
    case kSpacer:
      return "spacer";
    case kLine:
      break;
  }
  return "line";
}

void WritePage(const Recordset& rowset, std::string_view title,
               const std::shared_ptr<const Locale>& locale, std::ostream& out) {
  const WorkInHand in_hand;
  const ReportView view(rowset, locale);
  const auto alignment = [&view](std::size_t i) {
    return view.Columns()[i].numeric ? " class=\"n\"" : "";
  };
  out << "<!doctype html>\n<html><head><meta charset=\"utf-8\"><title>" << Escaped(title)
      << "</title>\n<style>" << kStyle << "</style></head>\n<body><h1>" << Escaped(title)
      << "</h1>\n<table>\n<thead><tr>";
  for (std::size_t i = 0; i < view.Columns().size(); ++i) {
    out << "<th" << alignment(i) << '>' << Escaped(view.Columns()[i].name) << "</th>";
  }
  out << "</tr></thead>\n<tbody>\n";
  for (const ReportView::Line& line : view.Lines()) {
    in_hand.Check();
    out << "<tr class=\"" << ClassOf(line.kind) << "\">";
    for (std::size_t i = 0; i < line.cells.size(); ++i) {
      out << "<td" << alignment(i) << '>' << Escaped(line.cells[i]) << "</td>";
    }
    out << "</tr>\n";
  }
  out << "</tbody>\n</table>\n";
  for (const std::string& note : view.Notes()) {
    out << "<p class=\"note\">" << Escaped(note) << "</p>\n";
  }
  out << "</body></html>\n";
}

}  // namespace

void ExportHtml(const Recordset& rowset, std::string_view title,
                const std::shared_ptr<const Locale>& locale, std::ostream& out) {
  TellingWhatRanOut("exporting the rowset", [&] { WritePage(rowset, title, locale, out); });
}

}  // namespace pstolvane1
