// A report on paper, as a PDF file.
#pragma once

#include <iosfwd>
#include <memory>
#include <string>

#include "session/data/Recordset.h"
#include "session/rowset/Locale.h"
#include "session/rowset/ReportLook.h"
#include "session/typCompanyInfoInv.h"

namespace pstolvane1::print {

struct PrintStyle {
  typCompanyInfoInv company = {};  // on top of the first page; its name also on the others
  std::string paper = "A4";        // as PaperNamed takes it
  std::string day = {};            // ISO text of the day on which the file is made; "" is today
};

// What ExportHtml shows, on pages: the company, the title and what was asked for on top, the heads
// of the columns and the number of the page on every page. Paper and letters follow from the
// columns; those that one sheet does not hold go on sheets side by side, each with the first
// column. A line of the look that is the company's name is not shown twice. Error 3001 for unknown
// paper and on a machine without fonts, 91 without a locale.
void ExportPdf(const Recordset& rowset, const ReportLook& look,
               const std::shared_ptr<const Locale>& locale, const PrintStyle& style,
               std::ostream& out);

}  // namespace pstolvane1::print
