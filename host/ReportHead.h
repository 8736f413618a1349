// What the program knows for the head of a report.
#pragma once

#include <string>

#include "host/Output.h"
#include "session/data/Date.h"

namespace pstolvane1::host {

// Whether a person reads the form, with a title and columns by their labels.
[[nodiscard]] bool ShowsALook(Format format);
// The name that was given, or that of the books: a file's without its folder and suffix, or a
// database's.
[[nodiscard]] std::string CompanyOf(const OutputOptions& options);
// The day here; that of SOURCE_DATE_EPOCH, seconds since 1970, where the environment sets it.
[[nodiscard]] Date Today();

}  // namespace pstolvane1::host
