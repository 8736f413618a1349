// What stands around a report.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "automation/CallInWords.h"
#include "session/rowset/Locale.h"
#include "session/rowset/ReportLook.h"

namespace pstolvane1::viewer {

struct Presentation {
  ReportLook look = {};                    // the words above it and over its columns
  std::vector<std::string> warnings = {};  // sentences on what is likely a mistake in its call
};

// Asked on the thread of the report's session, to which belongs what it gives.
using Presenter =
    std::function<Presentation(const automation::CallInWords& call, const Locale& locale)>;

}  // namespace pstolvane1::viewer
