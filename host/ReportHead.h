// What the program knows for the head of a report.
#pragma once

#include <string>

#include "automation/Today.h"
#include "host/Output.h"

namespace pstolvane1::host {

// Whether a person reads the form, with a title and columns by their labels.
[[nodiscard]] bool ShowsALook(Format format);
// The name that was given, or that of the books: a file's without its folder and suffix, or a
// database's.
[[nodiscard]] std::string CompanyOf(const OutputOptions& options);
using automation::Today;

}  // namespace pstolvane1::host
