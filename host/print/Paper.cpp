#include "host/print/Paper.h"

#include <algorithm>
#include <fmt/format.h>

#include "session/data/Error.h"
#include "session/data/TextFold.h"

namespace pstolvane1::print {
namespace {

constexpr Paper kPapers[] = {
    {"A4", 595.276, 841.89}, {"A3", 841.89, 1190.551}, {"Letter", 612, 792}, {"Legal", 612, 1008}};

}  // namespace

const Paper& PaperNamed(std::string_view name) {
  const auto* const found =
      std::ranges::find_if(kPapers, [&](const Paper& one) { return EqualFolded(one.name, name); });
  if (found != std::end(kPapers)) return *found;
  throw Error(ErrorNumber::kArgumentOutOfRange,
              fmt::format("paper is A4, A3, Letter or Legal, not \"{}\"", name));
}

}  // namespace pstolvane1::print
