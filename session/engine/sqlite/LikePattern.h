// The dialect's LIKE.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pstolvane1::sqlite {

// A pattern of % (any run), _ (any character), [a-z0] (one of) and [^a-z0] (none of), read once.
// Case does not count. A character behind the escape character stands for itself. A "[" without its
// "]" fits nothing. Immutable: any thread.
class LikePattern {
 public:
  explicit LikePattern(std::string_view pattern, std::optional<char32_t> escape = std::nullopt);

  // True when the whole text fits; blanks at its end do not count where the pattern does not ask
  // for them.
  [[nodiscard]] bool Fits(std::string_view text) const;

 private:
  struct Part {
    enum class Kind { kCharacter, kAny, kRun, kOneOf, kNoneOf, kNothing } kind;
    char32_t character = 0;
    std::vector<std::pair<char32_t, char32_t>> ranges = {};
  };
  [[nodiscard]] static bool FitsOne(const Part& part, char32_t character);
  // Takes from the text what the % before a part has to take, as far as the part tells.
  void PassOver(std::size_t part, std::string_view& text) const;

  std::vector<Part> parts_;
};

}  // namespace pstolvane1::sqlite
