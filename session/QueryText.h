// What every query text passes through before it is opened. Pure texts.
#pragma once

#include <string>
#include <string_view>

#include "session/typAliases.h"

namespace pstolvane1 {

// Letters of every script, whatever the locale.
[[nodiscard]] std::string LowerCase(std::string_view text);

// Every occurrence of what, from the start, as it stands; nothing when what is empty.
[[nodiscard]] std::string ReplaceAll(std::string_view text, std::string_view what,
                                     std::string_view with);

// The query lower-cased, with each alias that is not "" in the place of its master's name column.
[[nodiscard]] std::string ApplyAliases(std::string_view query, const typAliases& aliases);

// The query with its aliases, in the form that the front end takes: all of it lower-cased, "#" as
// "'", "false" as "0", "true" as "1" and "-1" as "1". The replacements are blind: they reach into
// names, conditions and quoted texts as well, and queries are written with that in mind.
[[nodiscard]] std::string NormaliseQueryText(std::string_view query, const typAliases& aliases);

// Error -2147217900, with the place, for a comment sign outside quoted texts and names. Reports
// write none: it stands in a condition or an alias of the host, and what comes behind it would be
// lost.
void RefuseComments(std::string_view query);

// The condition on items: strConsiderForSih is a ready condition or "", strItemstate holds item
// states with commas between or is "". ("", "1,2") gives " (Itemstate = 1 Or Itemstate = 2)".
[[nodiscard]] std::string ItemStateClause(std::string_view strConsiderForSih,
                                          std::string_view strItemstate);

// The query divides by a 0 that stands in it, as by a scale of 0.
[[nodiscard]] bool DividesByZero(std::string_view query);

// A single as query text: at most seven digits, "." as separator.
[[nodiscard]] std::string SingleText(float number);

}  // namespace pstolvane1
