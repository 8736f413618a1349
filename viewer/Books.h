// What the viewer asks of the books besides reports.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "automation/Masters.h"
#include "host/print/ExportPdf.h"
#include "session/data/Date.h"
#include "session/data/Recordset.h"
#include "viewer/Presentation.h"

namespace pstolvane1::viewer {

struct Year {
  std::int32_t number;
  std::string name;  // "2004-05"
  Date first, last;
};

// Asked by several threads at once. Errors are the connection's.
struct Books {
  std::string connection;
  std::function<std::vector<Year>()> years;  // oldest first
  // Key and name, by name, of those that hold the text in any case.
  std::function<RecordsetPtr(const automation::Master& names, const std::string& text)> names;
  // The name of a key; "" for none.
  std::function<std::string(const automation::Master& names, std::int32_t key)> name_of;
  // How pages are printed, and whose letterhead they have.
  std::function<print::PrintStyle()> paper;
  Presenter present;
};

}  // namespace pstolvane1::viewer
