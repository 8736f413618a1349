// A name of a public enumeration with its value.
#pragma once

#include <cstdint>
#include <string_view>

#include "session/data/NeedsCpp20.h"

namespace pstolvane1 {

struct EnumName {
  std::string_view name;
  std::int32_t value;
};

}  // namespace pstolvane1
