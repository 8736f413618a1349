// What stands on top of a printed page, above the heads of the columns.
#pragma once

#include <string>
#include <vector>

#include "host/print/Pen.h"
#include "session/rowset/ReportLook.h"
#include "session/typCompanyInfoInv.h"

namespace pstolvane1::print {

class PageHead {
 public:
  // The first page has the company with its address and numbers, the title and all lines of the
  // look; the others have the same in two lines.
  static PageHead OfFirstPage(const ReportLook& look, const typCompanyInfoInv& company);
  static PageHead OfOtherPages(const ReportLook& look, const typCompanyInfoInv& company);

  // With the room below it.
  [[nodiscard]] double Height(Pen& pen, double width) const;
  void Draw(Pen& pen, double x, double y, double width) const;

 private:
  struct Row {
    std::string text;
    Font font;
  };

  void Add(const std::string& text, const Font& font);

  std::vector<Row> rows_;
  Side side_ = Side::kLeft;
};

}  // namespace pstolvane1::print
