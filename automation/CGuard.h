// The boundary to C: an exception becomes a number and a text that is kept for the caller.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/data/Error.h"

namespace pstolvane1::automation {

// Keeps the exception in flight as this thread's last error and gives its number.
std::int32_t KeepError() noexcept;

// Runs the work; 0, or the number of what it threw.
template <typename Work>
std::int32_t Guarded(const Work& work) noexcept {
  try {
    work();
    return 0;
  } catch (...) {
    return KeepError();
  }
}

// The object behind a pointer; error 91 "no session was given" for none.
template <typename T>
T& Given(T* pointer, const char* what) {
  if (pointer) return *pointer;
  throw Error(ErrorNumber::kObjectNotSet, std::string("no ") + what + " was given");
}

// A text in which zero bytes are written as "\\0", as C would end at them.
[[nodiscard]] std::string Visible(std::string_view text);

// A copy that the caller frees with pst_text_free.
[[nodiscard]] char* CopyText(std::string_view text);

}  // namespace pstolvane1::automation
