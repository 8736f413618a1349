// Books and questions that the tests of the viewer share.
#pragma once

#include <string>
#include <vector>

#include "automation/CallInWords.h"
#include "viewer/ReportRun.h"

namespace pstolvane1::viewer::test {

// A report on the sample books, whose years are 1 to 3, from April 2003 on.
[[nodiscard]] automation::CallWords Asked(const std::string& operation,
                                          std::vector<std::string> arguments);
// Sales of April 2004 by party: twenty lines or so.
[[nodiscard]] automation::CallWords SalesByParty();
// The state in which the report has ended.
[[nodiscard]] ReportRun::State Ended(const ReportRun& run);

}  // namespace pstolvane1::viewer::test
