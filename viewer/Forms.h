// What a page needs to know to ask for reports.
#pragma once

#include <string>

#include "viewer/Books.h"

namespace pstolvane1::viewer {

// JSON: {"families": [{"words", "reports": [REPORT]}], "years": [{"number", "name", "from", "to"}]}
// with a REPORT as {"operation", "words", "help", "arguments": [{"name", "label", "help", "type",
// "needed", "preset", "all", "values": [{"name", "words"}], "lists": [{"argument", "value",
// "names", "label"}]}]}. Arguments that an operation does not look at, what the viewer fills itself
// and blnReport are left out; "lists" has those of Masters.h that a key is picked from, each for a
// value of another argument, or of none.
[[nodiscard]] std::string FormsAsJson(const Books& books);

// JSON: [{"key", "name"}], those that hold the text, the first fifty by name.
[[nodiscard]] std::string NamesAsJson(const Books& books, const automation::Master& names,
                                      const std::string& text);

}  // namespace pstolvane1::viewer
