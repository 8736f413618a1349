// The options that every command with a result has.
#pragma once

#include "host/Output.h"

namespace CLI {
class App;
}

namespace pstolvane1::host {

// --format, --out, --columns, --separator, --bom, and those of AddLook. Without --format the suffix
// of --out decides.
void AddOutput(CLI::App& command, OutputOptions& output);
// --company, --letterhead, --paper, --locale and --currency.
void AddLook(CLI::App& command, OutputOptions& output);
// --quiet.
void AddQuiet(CLI::App& command, bool& quiet);

}  // namespace pstolvane1::host
