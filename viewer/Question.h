// A report that a page asks for.
#pragma once

#include <string>
#include <string_view>

#include "automation/CallInWords.h"

namespace pstolvane1::viewer {

// {"operation", "arguments": {NAME: TEXT}} as a call on the books. Rowset arguments are
// filled from the books; a page cannot give a SELECT. WrongCall for another form, for what is no
// report, and for an argument that is no text.
[[nodiscard]] automation::CallWords QuestionFromJson(std::string_view json,
                                                     const std::string& connection,
                                                     const std::string& locale);

// A report that a person may ask for: it gives a rowset and needs no other call before it.
[[nodiscard]] bool IsReport(const automation::Operation& operation);

}  // namespace pstolvane1::viewer
