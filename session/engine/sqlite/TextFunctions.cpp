#include <array>
#include <memory>
#include <unicode/uchar.h>

#include "session/engine/sqlite/Functions.h"
#include "session/engine/sqlite/LikePattern.h"
#include "session/engine/sqlite/Utf8.h"

namespace pstolvane1::sqlite {
namespace {

std::optional<char32_t> EscapeOf(std::string_view text) {
  std::string_view rest = text;
  const std::optional<char32_t> escape =
      rest.empty() ? std::nullopt : std::optional<char32_t>(TakeCharacter(rest));
  if (!escape || !rest.empty()) ThrowNot("\"" + std::string(text) + "\"", "one escape character");
  return escape;
}

void ReturnFits(Call& call, const LikePattern& pattern) {
  call.Return(std::int64_t{pattern.Fits(call.Text(0)) ? 1 : 0});
}

// A pattern that is the same for all rows is read once: the engine keeps it with the argument.
template <bool kHasEscape>
void Like(Call& call) {
  constexpr int kPatternArgument = 1;
  const auto* kept =
      static_cast<const LikePattern*>(sqlite3_get_auxdata(call.Context(), kPatternArgument));
  // An escape that changes from row to row would ask for another pattern.
  if (kept != nullptr && !kHasEscape) return ReturnFits(call, *kept);
  const std::optional<char32_t> escape = kHasEscape ? EscapeOf(call.Text(2)) : std::nullopt;
  auto pattern = std::make_unique<LikePattern>(call.Text(1), escape);
  ReturnFits(call, *pattern);
  if (kHasEscape) return;
  sqlite3_set_auxdata(call.Context(), kPatternArgument, pattern.release(),
                      [](void* each) { delete static_cast<LikePattern*>(each); });
}

template <UChar32 (*Map)(UChar32)>
void MapCase(Call& call) {
  std::string mapped;
  std::string_view text = call.Text(0);
  mapped.reserve(text.size());
  while (!text.empty()) {
    const std::string_view before = text;
    const char32_t character = TakeCharacter(text);
    if (character >= kStrayByte) {
      mapped += before[0];
    } else {
      Append(mapped, static_cast<char32_t>(Map(static_cast<UChar32>(character))));
    }
  }
  call.Return(mapped);
}

UChar32 Upper(UChar32 character) { return u_toupper(character); }
UChar32 Lower(UChar32 character) { return u_tolower(character); }

constexpr std::array kTextFunctions{
    ScalarFunction{"pst_like", 2, &Scalar<Like<false>>},
    ScalarFunction{"pst_like", 3, &Scalar<Like<true>>},
    ScalarFunction{"pst_upper", 1, &Scalar<MapCase<Upper>>},
    ScalarFunction{"pst_lower", 1, &Scalar<MapCase<Lower>>},
};

}  // namespace

std::span<const ScalarFunction> TextFunctions() { return kTextFunctions; }

}  // namespace pstolvane1::sqlite
