// Reading on after a pause.
#pragma once

#include <thread>

#include "tests/engine/Reading.h"

namespace pstolvane1 {

// How many rows a statement gives behind the first, when it is read on after a pause that is longer
// than its time limit. Where the machine is too slow to read them within it, a longer one is tried.
inline std::size_t RowsBehindAPause(Provider& provider, std::string_view text) {
  constexpr milliseconds kLongest{16000};
  for (milliseconds limit{500};; limit *= 2) {
    try {
      const auto cursor = provider.TakeSnapshot(kNoLimit)->Run(text, limit);
      Chunk one(cursor->Columns(), 1);
      cursor->Read(one);
      std::this_thread::sleep_for(limit + milliseconds(100));
      return Lines(*cursor).size();
    } catch (const Error&) {
      if (limit >= kLongest) throw;
    }
  }
}

}  // namespace pstolvane1
