// Dates as the texts write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pstolvane1::sql {

// The canonical text of a date that stands as text in a query: "yyyy-mm-dd" when it is midnight,
// else "yyyy-mm-dd hh:mm:ss" with a fraction of seconds, without trailing zeros, only if there is
// one. Reads MM/dd/yyyy and the ISO forms yyyy-mm-dd and yyyymmdd, each with or without a time of
// day behind a blank or "T" (hh:mm, hh:mm:ss, hh:mm:ss.fff, with AM or PM), blanks around; an empty
// or blank text is 1 January 1900. Empty for anything else and for a day that does not exist.
[[nodiscard]] std::optional<std::string> ReadDateText(std::string_view text);

}  // namespace pstolvane1::sql
