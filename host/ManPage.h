// The manual page of the program.
#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace pstolvane1::host {

// In the roff of man(7): each command with its words and options, and the reports.
[[nodiscard]] std::string ManPage(const CLI::App& app, std::string_view version);

}  // namespace pstolvane1::host
