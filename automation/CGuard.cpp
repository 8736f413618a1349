#include "automation/CGuard.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "automation/pstolvane1_c.h"
#include "session/data/OutOfMemory.h"

namespace pstolvane1::automation {
namespace {

struct LastError {
  std::string text;
  std::int32_t number = 0;
};

LastError& OfThisThread() {
  thread_local LastError last;
  return last;
}

std::string Sentence(const Error& error) {
  if (error.Cause().empty()) return error.Description();
  return error.Description() + ": " + error.Cause();
}

}  // namespace

std::int32_t KeepError() noexcept {
  // What no error of the library stands for: the platform's own "unexpected".
  constexpr std::int32_t kUnexpected = -2147418113;
  LastError& last = OfThisThread();
  last.number = kUnexpected;
  try {
    try {
      throw;
    } catch (const Error& error) {
      last.number = static_cast<std::int32_t>(error.Number());
      last.text = Visible(Sentence(error));
    } catch (const std::bad_alloc&) {
      const Error error = OutOfMemory();
      last.number = static_cast<std::int32_t>(error.Number());
      last.text = error.Description();
    } catch (const std::exception& error) {
      last.text = Visible(error.what());
    } catch (...) {
      last.text = "an exception of the host's own";
    }
  } catch (...) {
    last.text.clear();
  }
  return last.number;
}

std::string Visible(std::string_view text) {
  std::string visible;
  for (const char c : text) {
    if (c == '\0') {
      visible += "\\0";
    } else {
      visible += c;
    }
  }
  return visible;
}

char* CopyText(std::string_view text) {
  auto* copy = static_cast<char*>(std::malloc(text.size() + 1));
  if (!copy) throw std::bad_alloc();
  if (!text.empty()) std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  return copy;
}

}  // namespace pstolvane1::automation

using pstolvane1::automation::OfThisThread;

const char* pst_error_text() { return OfThisThread().text.c_str(); }

int32_t pst_error_number() { return OfThisThread().number; }

void pst_text_free(char* text) { std::free(text); }
