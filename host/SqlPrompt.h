// SELECTs that somebody types, one after the other.
#pragma once

#include <functional>
#include <istream>
#include <string>

#include "host/SqlCommand.h"
#include "host/SqlNames.h"

namespace pstolvane1::host {

// Reads statements, each ended by ";" or an empty line, and hands them to `run`; ".tables",
// ".columns TABLE", ".help" and ".quit" are carried out here. At a prompt it asks for lines and
// tells errors, a statement that was stopped among them, and goes on; elsewhere the first error
// ends it.
void ReadStatements(std::istream& in, bool prompt, SqlNames& names, const OutputOptions& output,
                    const std::function<void(const std::string& select)>& run);

}  // namespace pstolvane1::host
