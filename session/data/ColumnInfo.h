// What a rowset says of one of its columns.
#pragma once

#include <string>

#include "session/data/DataType.h"

namespace pstolvane1 {

struct ColumnInfo {
  std::string name;
  DataType type = adEmpty;
  int defined_size = 0;  // characters of an adVarChar; 0 where there is no limit
  int attributes = adFldDefault;
};

}  // namespace pstolvane1
