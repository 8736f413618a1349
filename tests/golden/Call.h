// Calls an operation by its name with arguments as text.
#pragma once

#include <cstdint>
#include <optional>

#include "CaseFile.h"
#include "automation/Arguments.h"
#include "session/clsStolvane1.h"

namespace pstolvane1::golden {

// The operation's rowset, or none. Optional arguments may be missing; an unknown operation or
// argument is error 3001.
RecordsetPtr Call(clsStolvane1& session, const TextCall& call, Boolean blnReport);

// The same with its values read beforehand.
[[nodiscard]] automation::BoundValues ValuesOf(clsStolvane1& session, const TextCall& call,
                                               Boolean blnReport);
RecordsetPtr Call(clsStolvane1& session, const std::string& operation,
                  const automation::BoundValues& values);

// The report type that the call delivers under; none where it delivers nothing.
[[nodiscard]] std::optional<std::int32_t> ReportTypeOf(const TextCall& call);

// Connects to the books with the settings of the case: cancel, locale, year, alias, filter.
void Apply(clsStolvane1& session, const CaseFile& file, const std::string& connection);

}  // namespace pstolvane1::golden
