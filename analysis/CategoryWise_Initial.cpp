#include "analysis/CategoryWise_Initial.h"

#include "session/Launch.h"

namespace pstolvane1 {

// The categories' alias acts on classes too: the text is theirs when aliases come in.
RecordsetPtr CategoryWise_Initial(ReportFrame& frame, const CategoryArguments& arguments,
                                  Boolean blnReport) {
  frame.module.Keep(arguments);
  const std::string text = frame.Normalise(ComposeCategories(arguments, frame.module.filter));
  return Launch(frame, rtCategorywise_Initial, blnReport,
                {{.source = Source::rsReport,
                  .text = arguments.blnIsclass ? OfClasses(text) : text,
                  .in_server_dialect = true}});
}

}  // namespace pstolvane1
