// The locale that most tests of texts are played in.
#pragma once

#include "session/rowset/Locale.h"

namespace pstolvane1 {

inline const Locale& India() {
  static const std::shared_ptr<const Locale> locale = Locale::Get("en_IN");
  return *locale;
}

}  // namespace pstolvane1
