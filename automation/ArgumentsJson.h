// Arguments and results of a call as JSON.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Calls.h"

namespace pstolvane1::automation {

using SelectOpener = std::function<RecordsetPtr(std::string_view select)>;

// The members of a JSON object, numbers as numbers and null as Null; "" is an empty object. A
// rowset argument of the operation is a SELECT, opened by the opener. Error 3001 for anything but
// an object of plain values.
[[nodiscard]] std::vector<NamedValue> ArgumentsFromJson(const Operation& operation,
                                                        std::string_view json,
                                                        const SelectOpener& open);

// A named text for each argument, rowsets opened as above.
[[nodiscard]] NamedValue ArgumentFromText(const Operation& operation, std::string_view name,
                                          std::string_view text, const SelectOpener& open);

// {"value": ..., "changed": {...}}; a rowset is null.
[[nodiscard]] std::string OutcomeAsJson(const Outcome& outcome);

}  // namespace pstolvane1::automation
