#include "automation/Calls.h"

#include "session/data/Error.h"
#include "session/data/OutOfMemory.h"

namespace pstolvane1::automation {

Outcome Call(clsStolvane1& session, const Operation& operation,
             std::span<const NamedValue> values) {
  return TellingWhatRanOut("reading the arguments", [&] {
    return operation.member.call(session, operation, Bind(operation, values));
  });
}

Outcome Call(clsStolvane1& session, const Operation& operation, const BoundValues& values) {
  return TellingWhatRanOut("reading the arguments",
                           [&] { return operation.member.call(session, operation, values); });
}

RecordsetPtr OpenSelect(clsStolvane1& session, std::string_view select) {
  RecordsetPtr rowset = Recordset::New();
  OpenSelect(session, select, *rowset);
  return rowset;
}

void OpenSelect(clsStolvane1& session, std::string_view select, Recordset& rowset) {
  const std::shared_ptr<Connection> connection = session.GetConnectionObject();
  if (!connection) {
    throw Error(ErrorNumber::kNoConnection, "the session is not connected to any books");
  }
  rowset.Open(select, connection, adOpenStatic, adLockReadOnly);
  rowset.ActiveConnection(nullptr);
}

}  // namespace pstolvane1::automation
