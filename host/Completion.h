// Completing what somebody types in a shell.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace pstolvane1::host {

// A script that bash reads: commands and their options, the operations of "run" and their
// arguments, and the values of both. It is made of the program's commands and the operations' data.
[[nodiscard]] std::string BashCompletion(CLI::App& app);

}  // namespace pstolvane1::host
