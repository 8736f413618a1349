#include <algorithm>
#include <fmt/format.h>
#include <ostream>
#include <string>

#include "session/data/OutOfMemory.h"
#include "session/data/TextFold.h"
#include "session/data/ThreadWork.h"
#include "session/rowset/Export.h"
#include "session/rowset/ReportView.h"

namespace pstolvane1 {
namespace {

// Figures never break, and a page that is too narrow scrolls with the first column in place. On
// paper every page has the heads, and the table is as wide as the paper.
constexpr std::string_view kStyle =
    "body{font:14px/1.4 system-ui,sans-serif;margin:1.5em;color:#222;background:#fff}"
    "h1{font-size:1.4em;margin:0}p{margin:.2em 0;color:#444}p.note{font-size:.9em}"
    "div{overflow:auto;max-height:calc(100vh - 8em);margin-top:1em}"
    "table{border-collapse:separate;border-spacing:0}"
    "th,td{padding:.2em .7em;text-align:left;vertical-align:top;background:#fff}"
    "th{border-bottom:2px solid #444;position:sticky;top:0;z-index:2;vertical-align:bottom}"
    "th:first-child,td:first-child{position:sticky;left:0;z-index:1;min-width:9em}"
    "th:first-child{z-index:3}td:first-child{white-space:nowrap}"
    "td.n,th.n{text-align:right}td.n{font-variant-numeric:tabular-nums;white-space:nowrap}"
    "tr.line:nth-child(even) td{background:#f6f6f6}"
    "tr.group td{font-weight:600;padding-top:.5em}"
    "tr.rule td{border-top:1px solid #444;padding:0;height:0}"
    "tr.total td{font-weight:600;border-bottom:3px double #444}"
    "tr.spacer td{height:.6em;padding:0}"
    "@media(max-width:600px){body{margin:.5em;font-size:12px}th,td{padding:.2em .4em}"
    "th:first-child,td:first-child{min-width:6em;max-width:38vw;white-space:normal}}"
    "@page{size:A4 landscape;margin:10mm}"
    "@media print{body{margin:0}div{overflow:visible;max-height:none;margin-top:.5em}"
    "th,th:first-child,td:first-child{position:static;min-width:0;white-space:normal}"
    "thead{display:table-header-group}tr{break-inside:avoid}tr.group{break-after:avoid}"
    "table{width:100%}th,td{padding:.15em .4em}}";

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
    case kGroup:
      return "group";
    case kTotal:
      return "total";
    case kSpacer:
      return "spacer";
    case kLine:
      break;
  }
  return "line";
}

// A wide report takes smaller letters, so that the paper holds all its columns.
std::string PrintSize(const ReportView& view) {
  constexpr std::size_t kCharactersOfALine = 130;
  constexpr double kFull = 10, kSmallest = 4.5;
  std::size_t width = 0;
  for (std::size_t i = 0; i < view.Columns().size(); ++i) {
    std::size_t widest = 4;
    for (const ReportView::Line& line : view.Lines()) {
      if (!line.is_heading) widest = std::max(widest, CountCharacters(line.cells[i]));
    }
    width += widest + 1;
  }
  const double size = kFull * static_cast<double>(kCharactersOfALine) /
                      static_cast<double>(std::max(width, kCharactersOfALine));
  return fmt::format("@media print{{table{{font-size:{:.1f}pt}}}}", std::max(size, kSmallest));
}

class Page {
 public:
  Page(const ReportView& view, std::ostream& out) : view_(view), out_(out) {}

  void Write() {
    const std::string title = Escaped(view_.Look().title);
    out_ << "<!doctype html>\n<html><head><meta charset=\"utf-8\">"
         << "<meta name=\"viewport\" content=\"width=device-width\"><title>" << title
         << "</title>\n<style>" << kStyle << PrintSize(view_) << "</style></head>\n<body><h1>"
         << title << "</h1>\n";
    for (const std::string& line : view_.Look().lines) {
      out_ << "<p>" << Escaped(line) << "</p>\n";
    }
    out_ << "<div><table>\n<thead><tr>";
    for (const ReportView::Column& column : view_.Columns()) {
      out_ << "<th" << (column.numeric ? " class=\"n\"" : "") << " scope=\"col\">"
           << Escaped(column.label) << "</th>";
    }
    out_ << "</tr></thead>\n<tbody>\n";
    for (const ReportView::Line& line : view_.Lines()) {
      in_hand_.Check();
      WriteLine(line);
    }
    out_ << "</tbody>\n</table></div>\n";
    for (const std::string& note : view_.Notes()) {
      out_ << "<p class=\"note\">" << Escaped(note) << "</p>\n";
    }
    out_ << "</body></html>\n";
  }

 private:
  void WriteLine(const ReportView::Line& line) {
    out_ << "<tr class=\"" << ClassOf(line.kind) << "\">";
    for (std::size_t i = 0; i < line.cells.size(); ++i) {
      out_ << "<td" << (view_.Columns()[i].numeric ? " class=\"n\"" : "");
      if (const int indent = view_.IndentOf(line, i); indent > 0) {
        out_ << " style=\"padding-left:" << indent + 1 << ".5em\"";
      }
      out_ << '>' << Escaped(line.cells[i]) << "</td>";
    }
    out_ << "</tr>\n";
  }

  const WorkInHand in_hand_;
  const ReportView& view_;
  std::ostream& out_;
};

}  // namespace

void ExportHtml(const Recordset& rowset, const ReportLook& look,
                const std::shared_ptr<const Locale>& locale, std::ostream& out) {
  TellingWhatRanOut("exporting the rowset", [&] {
    const WorkInHand in_hand;
    const ReportView view(rowset, locale, look);
    Page(view, out).Write();
  });
}

void ExportHtml(const Recordset& rowset, std::string_view title,
                const std::shared_ptr<const Locale>& locale, std::ostream& out) {
  ExportHtml(rowset, ReportLook{.title = std::string(title)}, locale, out);
}

}  // namespace pstolvane1
