// The values that a shell completes for an option.
#pragma once

#include <string>

namespace CLI {
class Option;
}

namespace pstolvane1::host {

// With blanks between; the option goes on to take others as well.
void Offer(CLI::Option& option, const std::string& values);
// "" for an option that none were given for.
[[nodiscard]] std::string OfferedBy(CLI::Option& option);

}  // namespace pstolvane1::host
