#include "session/sql/Names.h"

#include <algorithm>

namespace pstolvane1::sql {
namespace {

char Folded(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::string FoldedName(std::string_view name) {
  std::string folded(name);
  std::ranges::transform(folded, folded.begin(), Folded);
  return folded;
}

bool SameName(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, Folded, Folded);
}

}  // namespace pstolvane1::sql
