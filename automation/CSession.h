// A session as a host in C holds it.
#pragma once

#include "automation/CLiving.h"
#include "session/clsStolvane1.h"

struct pst_session {
  pstolvane1::automation::Living living;
  pstolvane1::clsStolvane1 session;
};
