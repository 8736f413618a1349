// Any bytes are refused with an error that has a place, or read into a tree that survives being
// printed and read again; its plan over columns of every type is made or refused likewise.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "session/data/Error.h"
#include "session/data/ShapeParser.h"
#include "session/data/ShapePlan.h"

namespace {

using pstolvane1::ColumnInfo;
using pstolvane1::Error;
using pstolvane1::ErrorNumber;
namespace shape = pstolvane1::shape;

void CheckRefusal(const Error& error) {
  if (error.Number() != ErrorNumber::kQueryRefused) std::abort();
  if (error.Description().find("line ") == std::string::npos) std::abort();
}

void CheckPlan(std::string_view text) {
  try {
    (void)shape::MakePlan(text, [](std::string_view) {
      return std::vector<ColumnInfo>{{"a", pstolvane1::adInteger}, {"b", pstolvane1::adCurrency},
                                     {"c", pstolvane1::adVarChar}, {"d", pstolvane1::adDate},
                                     {"e", pstolvane1::adBoolean}, {"f", pstolvane1::adSingle}};
    });
  } catch (const Error& error) {
    CheckRefusal(error);
  }
}

void CheckText(std::string_view text) {
  std::string printed;
  try {
    printed = shape::Print(shape::Parse(text));
  } catch (const Error& error) {
    CheckRefusal(error);
    return;
  }
  if (!shape::IsCommand(text) || shape::Print(shape::Parse(printed)) != printed) std::abort();
  CheckPlan(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckText({reinterpret_cast<const char*>(data), size});
  return 0;
}
