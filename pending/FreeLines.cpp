#include "pending/FreeLines.h"

#include <fmt/format.h>

#include "session/mInternationalization.h"

namespace pstolvane1 {

std::string LiveDocuments(Date from, Date to) {
  return fmt::format("DESR1.DATE BETWEEN #{}# AND #{}# AND DESR1.DELETED = 0", SqlDateText(from),
                     SqlDateText(to));
}

}  // namespace pstolvane1
