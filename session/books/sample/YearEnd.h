// The change of years in the sample books.
#pragma once

#include "session/books/sample/Masters.h"

namespace pstolvane1::books::sample {

class YearEnd {
 public:
  YearEnd(Writer& writer, Masters& masters);
  // Writes what every item had and moved in the year, and carries its closing over at the simple
  // average: (opening value + inward value) / (opening quantity + inward quantity).
  void Close(int year);

 private:
  Masters& masters_;
  Statement insert_;
};

}  // namespace pstolvane1::books::sample
