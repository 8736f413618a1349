#pragma once

#include "session/data/Date.h"

namespace pstolvane1::automation {

// The day here; that of SOURCE_DATE_EPOCH, seconds since 1970, where the environment sets it.
[[nodiscard]] Date Today();

}  // namespace pstolvane1::automation
