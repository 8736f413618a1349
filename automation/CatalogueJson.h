// The catalogue as JSON, for bindings, documents and the command line.
#pragma once

#include <string>

namespace pstolvane1::automation {

// {"operations": [...], "events": [...], "enumerations": [...]}; two blanks of indent, UTF-8.
// A default is a JSON value: null for a rowset, and for an argument that must be given.
[[nodiscard]] std::string CatalogueAsJson();

}  // namespace pstolvane1::automation
