// Whose books they are, as it stands on top of printed pages.
#pragma once

#include <string>

#include "session/typCompanyInfoInv.h"

namespace pstolvane1::host {

// Reads a file of lines NAME=VALUE, UTF-8, by the names of the record's members in any case:
// CompanyName=Asha Motors. Empty lines and lines that begin with "#" say nothing. Error 3001, with
// the file and the line, for any other line and for a file that cannot be read.
[[nodiscard]] typCompanyInfoInv ReadLetterhead(const std::string& path);

}  // namespace pstolvane1::host
