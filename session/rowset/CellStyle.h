// How the cells of one report are shown.
#pragma once

#include <string>

#include "session/rowset/Locale.h"

namespace pstolvane1 {

struct CellStyle {
  const Locale& locale;                // must outlive the writer
  double scale = 1;                    // scaled money is divided by it: sngScale
  bool long_date = false;              // the date rule: the long date instead of the general one
  std::string number_separator = "/";  // between the parts of a document's number
  // Some reports pass over errors: a cell that cannot be written then stays as it is, Null on a new
  // line, and the report goes on.
  bool pass_over_errors = false;
};

}  // namespace pstolvane1
