// What a host shows in place of the usual name columns.
#pragma once

#include <string>

#include "session/data/NeedsCpp20.h"

namespace pstolvane1 {

// Each is an expression of the reports' query dialect, such as another column of the same table
// ("Items1.ItemPartNo"), that replaces the name column of its master; "" leaves the usual one.
struct typAliases {
  std::string taItem = {};
  std::string taGodown = {};
  std::string taBatch = {};
  std::string taCategory = {};
  std::string taClass = {};
  std::string taLedger = {};
  std::string taEmployee = {};
  std::string taTransporter = {};
};

}  // namespace pstolvane1
