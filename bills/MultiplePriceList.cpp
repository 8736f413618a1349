#include "bills/MultiplePriceList.h"

#include "session/Launch.h"
#include "session/data/Error.h"

namespace pstolvane1 {

namespace {

// The text ends in "and" then, which every engine refuses: this is meant.
[[noreturn]] void RefuseWithoutCondition(const Error& refusal) {
  throw Error(refusal.Number(),
              refusal.Description() +
                  "; MultiplePriceList needs a condition on its items in cosiderforsih, such as "
                  "\"items1.deleted = 0\"",
              refusal.Cause());
}

bool IsBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == text.npos; }

}  // namespace

RecordsetPtr MultiplePriceList(ReportFrame& frame, std::int32_t lngCategory_Id,
                               std::int32_t lngClass_Id, Boolean blnReport,
                               std::string_view itemstate, std::string_view cosiderforsih) {
  try {
    return Launch(frame, rtMultiplePriceList, blnReport,
                  {{Source::rsReport, ComposeMultiplePriceList(lngCategory_Id, lngClass_Id,
                                                               itemstate, cosiderforsih)}});
  } catch (const Error& error) {
    if (error.Number() != ErrorNumber::kQueryRefused || !IsBlank(cosiderforsih)) throw;
    RefuseWithoutCondition(error);
  }
}

}  // namespace pstolvane1
