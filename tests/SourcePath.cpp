#include "tests/SourcePath.h"

namespace pstolvane1 {

std::string SourcePath(const std::string& from_root) { return PST_SOURCE_DIR "/" + from_root; }

}  // namespace pstolvane1
