// A report as a page for people, for hosts in C.
#include "automation/CPage.h"

#include <sstream>
#include <string>
#include <string_view>

#include "automation/ArgumentsJson.h"
#include "automation/BooksKeys.h"
#include "automation/CGuard.h"
#include "automation/CHandles.h"
#include "automation/CRowset.h"
#include "automation/CSession.h"
#include "automation/Calls.h"
#include "automation/Operations.h"
#include "automation/ReportTitles.h"
#include "automation/Today.h"
#include "automation/pstolvane1_c.h"
#include "session/rowset/Export.h"

namespace pstolvane1::automation {
namespace {

// The values of the call. A head shows no rowset of the host's, so none is opened.
BoundValues ValuesOf(const Operation& operation, std::string_view arguments) {
  return Bind(operation, ArgumentsFromJson(operation, arguments,
                                           [](std::string_view) { return Recordset::New(); }));
}

}  // namespace

ReportLook LookOf(const ReportInC& report, const Locale& locale) {
  if (report.session != nullptr) Handles::CheckMine(report.session, HandleKind::kSession);
  Handles::CheckMine(report.rowset, HandleKind::kRowset);
  const Operation& called = GetOperation(report.operation);
  // The look asks for names for as long as it lives, which is longer than the report's words.
  const auto keys = KeysReadBy([session = report.session](const std::string& select) {
    return OpenSelect(Mine(session).session, select);
  });
  return LookOf(called, ValuesOf(called, report.arguments), std::string(report.company), keys,
                locale, Today());
}

}  // namespace pstolvane1::automation

using namespace pstolvane1::automation;

int32_t pst_report_html(pst_session* session, const pst_rowset* rowset, const char* operation,
                        const char* arguments, const char* company, const char* locale,
                        char** html) {
  return Guarded([&] {
    char*& result = Given(html, "place for the page");
    result = nullptr;
    const auto texts = pstolvane1::Locale::Get(TextOrNothing(locale));
    const pstolvane1::ReportLook look = LookOf({session, rowset, TextOrNothing(operation),
                                                TextOrNothing(arguments), TextOrNothing(company)},
                                               *texts);
    std::ostringstream out;
    out.exceptions(std::ios::badbit);  // else a page for which there is no room would be cut
    pstolvane1::ExportHtml(*rowset->rows, look, texts, out);
    result = CopyText(out.str());
  });
}
