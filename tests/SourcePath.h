// Where the tests find the files that they read.
#pragma once

#include <string>

namespace pstolvane1 {

// The full path of a file or folder that is named from the root of the sources.
[[nodiscard]] std::string SourcePath(const std::string& from_root);

}  // namespace pstolvane1
