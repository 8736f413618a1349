// Calling operations by name.
#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "automation/Arguments.h"
#include "automation/Operation.h"
#include "session/clsStolvane1.h"

namespace pstolvane1::automation {

struct Outcome {
  // What the operation returned: a flag, a rowset, or Empty when it returned nothing.
  Variant value;
  std::shared_ptr<Connection> connection;  // of an operation that returns it
  // The arguments by reference that may have changed, as they are now, except rowsets.
  std::vector<NamedValue> changed;
};

// The errors of Bind, and the operation's own.
Outcome Call(clsStolvane1& session, const Operation& operation, std::span<const NamedValue> values);
Outcome Call(clsStolvane1& session, const Operation& operation, const BoundValues& values);

// A rowset argument made of one SELECT on the session's books, disconnected from them. Error 3709
// before SetConnection.
[[nodiscard]] RecordsetPtr OpenSelect(clsStolvane1& session, std::string_view select);
// The same, opened on a rowset that is there.
void OpenSelect(clsStolvane1& session, std::string_view select, Recordset& rowset);

}  // namespace pstolvane1::automation
