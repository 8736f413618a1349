#include "vehicle/ServiceTax.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr ServiceTax(ReportFrame& frame, const ServiceTaxArguments& arguments,
                        Boolean blnReport) {
  frame.module.Keep(arguments);
  frame.UseHostItems(arguments.recitem);
  return Launch(frame, rtServiceReport, blnReport,
                {{Source::rsReport, ComposeServiceTax(arguments, frame.module.filter)}});
}

}  // namespace pstolvane1
