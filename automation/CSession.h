// A session as a host in C holds it.
#pragma once

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
