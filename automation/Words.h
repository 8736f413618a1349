// What people write for a value: more than programs do.
#pragma once

#include <string>
#include <string_view>

#include "automation/Operation.h"
#include "session/data/Variant.h"
#include "session/rowset/Locale.h"

namespace pstolvane1::automation {

// The value in the form that Bind takes: a date in the locale's order ("31/03/2004") as well as in
// ISO, yes and no for a flag, the beginning of an enumeration's name where only one name has it
// ("fifo"; of a report type also without "rt"). Any other text as it is. Error 13 for a beginning
// of several names, which it lists.
[[nodiscard]] Variant ValueFromWords(const Argument& argument, const std::string& text,
                                     const Locale& locale);

}  // namespace pstolvane1::automation
