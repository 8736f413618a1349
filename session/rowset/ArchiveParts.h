// Whether the parts of a workbook came into its archive whole.
#pragma once

#include <string>
#include <string_view>

namespace pstolvane1 {

// The name of the first part that does not end with the tag that closes its document, as one does
// whose text found no room on its way; "" when all of them do. Error 3001 where the bytes are no
// archive of the plain form: each part with its size before it, packed or as it is.
[[nodiscard]] std::string BrokenPart(std::string_view archive);

}  // namespace pstolvane1
