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

// Whether this version has the operation. One that it has not is only described.
[[nodiscard]] bool IsBuilt(const Operation& operation);

// Error 3001 for an operation that is not built; the errors of Bind; and the operation's own.
Outcome Call(clsStolvane1& session, const Operation& operation, std::span<const NamedValue> values);
Outcome Call(clsStolvane1& session, const Operation& operation, const BoundValues& values);

// A rowset argument made of one SELECT on the session's books, disconnected from them. Error 3709
// before SetConnection.
[[nodiscard]] RecordsetPtr OpenSelect(clsStolvane1& session, std::string_view select);
// The same, opened on a rowset that is there.
void OpenSelect(clsStolvane1& session, std::string_view select, Recordset& rowset);

// The parameter types of an operation's member, in order; empty for one that is not built.
[[nodiscard]] std::span<const ArgumentType> ParameterTypes(const Operation& operation);

}  // namespace pstolvane1::automation
