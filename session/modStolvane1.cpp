#include "session/modStolvane1.h"

namespace pstolvane1 {

void modStolvane1::SetPeriod(Date from, Date to) {
  dtFromDate = from;
  dtToDate = to;
  strFromDateText = SqlDateText(from);
  strToDateText = SqlDateText(to);
}

const std::shared_ptr<modStolvane1>& modStolvane1::OfThisThread() {
  thread_local const std::shared_ptr<modStolvane1> variables = std::make_shared<modStolvane1>();
  return variables;
}

}  // namespace pstolvane1
