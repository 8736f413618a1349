// Memory that runs out, as an error of the library.
#pragma once

#include <new>
#include <string_view>
#include <utility>

#include "session/data/Error.h"

namespace pstolvane1 {

// "while reading the rows: out of memory"; the last three words alone, for which no memory is
// needed, where there is no room for the others.
[[nodiscard]] inline Error OutOfMemory(std::string_view doing = {}) noexcept {
  try {
    const Error alone(ErrorNumber::kOutOfMemory, "out of memory");
    return doing.empty() ? alone : alone.While(doing);
  } catch (const std::bad_alloc&) {
    return {ErrorNumber::kOutOfMemory, "out of memory"};
  }
}

// What the work gives. Memory that runs out in it is error 7, told with what was being done; other
// errors pass. What the work has begun is undone as by any exception.
template <typename Work>
decltype(auto) TellingWhatRanOut(std::string_view doing, Work&& work) {
  try {
    return std::forward<Work>(work)();
  } catch (const std::bad_alloc&) {
    throw OutOfMemory(doing);
  }
}

}  // namespace pstolvane1
