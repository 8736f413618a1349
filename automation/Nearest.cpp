#include "automation/Nearest.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "session/data/TextFold.h"

namespace pstolvane1::automation {
namespace {

char Folded(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

}  // namespace

std::size_t LettersBetween(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t above = row[j];
      const std::size_t change = Folded(a[i - 1]) == Folded(b[j - 1]) ? 0 : 1;
      row[j] = std::min({above + 1, row[j - 1] + 1, diagonal + change});
      diagonal = above;
    }
  }
  return row[b.size()];
}

std::string DidYouMean(std::string_view word, std::span<const std::string_view> names) {
  if (word.empty() || names.empty()) return {};
  const auto nearest = std::min_element(names.begin(), names.end(), [&](auto a, auto b) {
    return LettersBetween(a, word) < LettersBetween(b, word);
  });
  const auto begun = std::find_if(names.begin(), names.end(), [&](std::string_view name) {
    return word.size() >= 3 && EqualFolded(name.substr(0, word.size()), word);
  });
  const bool near = LettersBetween(*nearest, word) <= std::max<std::size_t>(1, word.size() / 3);
  if (!near && begun == names.end()) return {};
  return "; did you mean \"" + std::string(near ? *nearest : *begun) + "\"?";
}

}  // namespace pstolvane1::automation
