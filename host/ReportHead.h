// What the program knows for the head of a report.
#pragma once

#include <string>

#include "automation/Today.h"
#include "host/Output.h"
#include "host/print/ExportPdf.h"

namespace pstolvane1::host {

// Whether a person reads the form, with a title and columns by their labels.
[[nodiscard]] bool ShowsALook(Format format);
// The name that was given, that of the letterhead, or that of the books: a file's without its
// folder and suffix, or a database's.
[[nodiscard]] std::string CompanyOf(const OutputOptions& options);
using automation::Today;

// The letterhead under that name, the paper and today. Error 3001 for a letterhead that cannot be
// read.
[[nodiscard]] print::PrintStyle PrintStyleOf(const OutputOptions& options);

}  // namespace pstolvane1::host
