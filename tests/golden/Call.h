// Calls an operation by its name with arguments as text.
#pragma once

#include "CaseFile.h"
#include "session/clsStolvane1.h"

namespace pstolvane1::golden {

// Optional arguments may be missing. A std::runtime_error tells of an unknown operation or
// argument.
RecordsetPtr Call(clsStolvane1& session, const CaseFile& file, Boolean blnReport);

// The settings of the case: cancel, locale, alias, filter.
void Apply(clsStolvane1& session, const CaseFile& file);

}  // namespace pstolvane1::golden
