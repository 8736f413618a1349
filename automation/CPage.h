// The look of a report that a host in C has asked for.
#pragma once

#include <string_view>

#include "automation/pstolvane1_c.h"
#include "session/rowset/ReportLook.h"

namespace pstolvane1 {
class Locale;
}  // namespace pstolvane1

namespace pstolvane1::automation {

// A report with the call that gave it, as pst_report_html takes them.
struct ReportInC {
  pst_session* session = nullptr;  // none for a page without names of keys
  const pst_rowset* rowset = nullptr;
  std::string_view operation, arguments, company;
};

// Error 91 for a handle that is not this thread's; those of Bind for the call.
[[nodiscard]] ReportLook LookOf(const ReportInC& report, const Locale& locale);

}  // namespace pstolvane1::automation
