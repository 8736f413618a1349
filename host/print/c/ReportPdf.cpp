// A report as a PDF file, for hosts in C.
#include <sstream>

#include "automation/CGuard.h"
#include "automation/CPage.h"
#include "automation/CRowset.h"
#include "automation/CSession.h"
#include "automation/Today.h"
#include "host/print/ExportPdf.h"
#include "host/print/c/pstolvane1_print_c.h"

using namespace pstolvane1::automation;

int32_t pst_report_pdf(pst_session* session, const pst_rowset* rowset, const char* operation,
                       const char* arguments, const char* company, const char* locale,
                       const char* paper, char** pdf, size_t* size) {
  return Guarded([&] {
    char*& result = Given(pdf, "place for the file");
    size_t& bytes = Given(size, "place for the file's size");
    result = nullptr;
    bytes = 0;
    const auto texts = pstolvane1::Locale::Get(TextOrNothing(locale));
    const ReportInC report{session, rowset, TextOrNothing(operation), TextOrNothing(arguments),
                           TextOrNothing(company)};
    const pstolvane1::ReportLook look = LookOf(report, *texts);
    pstolvane1::print::PrintStyle style{.day = Today().ToIso()};
    style.company.CompanyName = report.company;
    if (paper != nullptr) style.paper = paper;
    std::ostringstream out;
    out.exceptions(std::ios::badbit);
    pstolvane1::print::ExportPdf(*rowset->rows, look, texts, style, out);
    const std::string file = out.str();
    result = CopyText(file);
    bytes = file.size();
  });
}
