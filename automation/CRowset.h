// A rowset as a host in C holds it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "automation/CLiving.h"
#include "session/data/Recordset.h"

// Has a position of its own in the rowset, so that reading row after row only moves forward.
struct pst_rowset {
  explicit pst_rowset(pstolvane1::RecordsetPtr rowset);
  ~pst_rowset();
  pst_rowset(const pst_rowset&) = delete;
  pst_rowset& operator=(const pst_rowset&) = delete;

  pstolvane1::automation::Living living;
  pstolvane1::RecordsetPtr rows;
  std::vector<std::string> names;
  std::int32_t row = -1;  // where `rows` stands
};

namespace pstolvane1::automation {

// A new handle of the host's.
[[nodiscard]] pst_rowset* HandOver(RecordsetPtr rowset);

}  // namespace pstolvane1::automation
