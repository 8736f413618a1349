// The company, as a host prints it on top of a report.
#pragma once

#include <string>

#include "session/data/NeedsCpp20.h"

namespace pstolvane1 {

// Published for hosts to share among themselves; no operation takes or returns it.
struct typCompanyInfoInv {
  std::string CompanyName = {};
  std::string CompanyAddress1 = {};
  std::string CompanyAddress2 = {};
  std::string CompanyPanNo = {};
  std::string CompanySalesTaxNo = {};
  std::string CompanySalesTaxNo2 = {};
};

}  // namespace pstolvane1
