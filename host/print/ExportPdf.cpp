#include "host/print/ExportPdf.h"

#include <fmt/format.h>

#include "host/print/PageBreaks.h"
#include "host/print/PageHead.h"
#include "host/print/Paper.h"
#include "host/print/Pen.h"
#include "host/print/TableOnPaper.h"
#include "session/data/OutOfMemory.h"
#include "session/data/ThreadWork.h"
#include "session/rowset/ReportView.h"

namespace pstolvane1::print {
namespace {

constexpr Font kFoot{8};
constexpr double kHeightOfFoot = 18;
constexpr double kMargin = TableOnPaper::kMargin;

class Pages {
 public:
  Pages(const ReportLook& look, const PrintStyle& style, TableOnPaper& table, Pen& pen)
      : table_(table),
        pen_(pen),
        width_(table.PaperWidth() - 2 * kMargin),
        first_(PageHead::OfFirstPage(look, style.company)),
        others_(PageHead::OfOtherPages(look, style.company)) {}

  void Draw() {
    const double room = table_.PaperHeight() - 2 * kMargin - kHeightOfFoot - table_.HeightOfHeads();
    const auto pages = BreakIntoPages(
        table_.Lines(), room - first_.Height(pen_, width_), room - others_.Height(pen_, width_),
        [this](std::size_t line) { return table_.HeightOfContinued(line); });
    const std::size_t all = pages.size() * table_.Sheets();
    for (const LinesOfAPage& lines : pages) {
      for (std::size_t sheet = 0; sheet < table_.Sheets(); ++sheet) {
        pen_.BeginPage(table_.PaperWidth(), table_.PaperHeight());
        DrawTable(sheet, lines);
        DrawFoot(++number_, all, sheet);
        pen_.EndPage();
      }
    }
  }

 private:
  void DrawTable(std::size_t sheet, const LinesOfAPage& lines) {
    const bool is_first = lines.first == 0;
    const PageHead& head = is_first ? first_ : others_;
    head.Draw(pen_, kMargin, kMargin, width_);
    double y = kMargin + head.Height(pen_, width_);
    table_.DrawHeads(sheet, y);
    y += table_.HeightOfHeads();
    if (!is_first) {
      table_.DrawContinued(sheet, lines.first, y);
      y += table_.HeightOfContinued(lines.first);
    }
    for (std::size_t line = lines.first; line < lines.end; ++line) {
      in_hand_.Check();
      table_.DrawLine(sheet, line, y);
      y += table_.Lines()[line].height;
    }
  }

  void DrawFoot(std::size_t page, std::size_t pages, std::size_t sheet) {
    const double y = table_.PaperHeight() - kMargin - Pen::LineHeight(kFoot.size);
    if (table_.Sheets() > 1) {
      pen_.Text(fmt::format("Columns: part {} of {}", sheet + 1, table_.Sheets()), kFoot, kMargin,
                y, width_, Side::kLeft);
    }
    pen_.Text(fmt::format("Page {} of {}", page, pages), kFoot, kMargin, y, width_, Side::kRight);
  }

  const WorkInHand in_hand_;
  TableOnPaper& table_;
  Pen& pen_;
  double width_;  // between the margins
  PageHead first_, others_;
  std::size_t number_ = 0;  // of the last page
};

}  // namespace

void ExportPdf(const Recordset& rowset, const ReportLook& look,
               const std::shared_ptr<const Locale>& locale, const PrintStyle& style,
               std::ostream& out) {
  TellingWhatRanOut("printing the rowset", [&] {
    const WorkInHand in_hand;
    const Paper& paper = PaperNamed(style.paper);
    const ReportView view(rowset, locale, look);
    Pen pen(out, {look.title, style.company.CompanyName, style.day});
    TableOnPaper table(view, paper, pen);
    Pages(look, style, table, pen).Draw();
    pen.Finish();
  });
}

}  // namespace pstolvane1::print
