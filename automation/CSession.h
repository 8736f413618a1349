// A session as a host in C holds it.
#pragma once

#include <string_view>

#include "automation/CHandles.h"
#include "automation/CLiving.h"
#include "session/clsStolvane1.h"

struct pst_session {
  pst_session() {
    pstolvane1::automation::Handles::Add(this, pstolvane1::automation::HandleKind::kSession);
  }
  ~pst_session() { pstolvane1::automation::Handles::Remove(this); }
  pst_session(const pst_session&) = delete;
  pst_session& operator=(const pst_session&) = delete;

  pstolvane1::automation::Living living;
  pstolvane1::clsStolvane1 session;
};

namespace pstolvane1::automation {

// The session behind a handle of this thread; error 91 for any other.
[[nodiscard]] inline pst_session& Mine(pst_session* session) {
  Handles::CheckMine(session, HandleKind::kSession);
  return *session;
}
// "" where none is given.
[[nodiscard]] inline std::string_view TextOrNothing(const char* text) {
  return text ? std::string_view(text) : std::string_view();
}

}  // namespace pstolvane1::automation
