#include "analysis/Doc_Initial.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr Doc_Initial(ReportFrame& frame, const DocumentListArguments& arguments,
                         Boolean blnReport) {
  frame.module.Keep(arguments);
  frame.module.sngScale = arguments.gScale;
  return Launch(frame, rtDoc_Initial, blnReport,
                {{Source::rsReport, ComposeDoc_Initial(arguments)}});
}

}  // namespace pstolvane1
