// The command line: reads the words and runs the command.
#pragma once

namespace pstolvane1::host {

// Gives the exit status: 0, 1 for an error of the report or the books, 2 for a wrong call. Errors
// go to standard error.
[[nodiscard]] int RunCommandLine(int argc, char** argv);

}  // namespace pstolvane1::host
