// The terminal that the host writes to, if there is one.
#pragma once

#include <cstddef>
#include <string>

namespace pstolvane1::host {

[[nodiscard]] bool StandardOutputIsTerminal();
[[nodiscard]] bool StandardErrorIsTerminal();
// Columns of the terminal at standard output; 0 where it does not tell.
[[nodiscard]] std::size_t TerminalWidth();

// Writes a text to standard output; on a terminal that is too small for it through the user's PAGER
// ("less -RS" where none is set). Error 3001 when standard output does not take it; a reader who
// goes away early is none.
void Show(const std::string& text);

}  // namespace pstolvane1::host
