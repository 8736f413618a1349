// Any bytes are refused with an error of the front end, or read into a tree that survives being
// printed and read again.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "session/data/Error.h"
#include "session/sql/Parser.h"
#include "session/sql/Print.h"
#include "tests/sql/Dump.h"

namespace {

using pstolvane1::Error;
using pstolvane1::ErrorNumber;
using namespace pstolvane1::sql;

void CheckText(std::string_view text) {
  Statement read;
  try {
    read = Parse(text);
  } catch (const Error& error) {
    if (error.Number() != ErrorNumber::kQueryRefused) std::abort();
    return;
  }
  const std::string printed = Print(read.query);
  const Statement again = Parse(printed);
  if (Dump(again.query) != Dump(read.query) || Print(again.query) != printed) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckText({reinterpret_cast<const char*>(data), size});
  return 0;
}
