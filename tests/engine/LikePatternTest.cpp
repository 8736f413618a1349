#include <gtest/gtest.h>
#include <random>
#include <string>

#include "session/engine/sqlite/LikePattern.h"
#include "session/engine/sqlite/Utf8.h"

namespace pstolvane1::sqlite {
namespace {

// The plain way: try everything. Knows %, _ and letters.
bool FitsPlainly(std::string_view text, std::string_view pattern) {
  if (pattern.empty()) return text.find_first_not_of(' ') == std::string_view::npos;
  if (pattern[0] == '%') {
    for (std::size_t skip = 0; skip <= text.size(); ++skip) {
      if (FitsPlainly(text.substr(skip), pattern.substr(1))) return true;
    }
    return false;
  }
  if (text.empty()) return false;
  return (pattern[0] == '_' || pattern[0] == text[0]) &&
         FitsPlainly(text.substr(1), pattern.substr(1));
}

TEST(LikePattern, AgreesWithTryingEverything) {
  std::mt19937 random(3);
  const auto word = [&](std::string_view letters, std::size_t longest) {
    std::string made(random() % (longest + 1), ' ');
    for (char& c : made) c = letters[random() % letters.size()];
    return made;
  };
  int fits = 0;
  for (int i = 0; i < 50000; ++i) {
    const std::string text = word("ab ", 8);
    const std::string pattern = word("ab %_%", 6);
    const bool plain = FitsPlainly(text, pattern);
    fits += plain ? 1 : 0;
    ASSERT_EQ(LikePattern(pattern).Fits(text), plain) << "'" << text << "' '" << pattern << "'";
  }
  EXPECT_GT(fits, 5000);
}

// Some characters beyond ASCII are, without their case, ASCII letters: the kelvin sign is a k.
TEST(LikePattern, FindsAFragmentBehindAnythingAndInAnyCase) {
  for (const char* text : {"MB8A007919", "xxMB8A", "\u00e9\u0915mb8a", "mmbmb8amb"}) {
    EXPECT_TRUE(LikePattern("%Mb8A%").Fits(text)) << text;
  }
  EXPECT_FALSE(LikePattern("%Mb8A%").Fits("MB8B MB8"));
  EXPECT_TRUE(LikePattern("%kg").Fits("5 \u212aG"));
  EXPECT_TRUE(LikePattern("%\u212a%").Fits("5 kg"));
  EXPECT_TRUE(LikePattern("%\xff%").Fits("a\xff"));
}

TEST(LikePattern, TakesTimeInProportionToTheText) {
  const std::string text(100000, 'a');
  EXPECT_FALSE(LikePattern("%a%a%a%a%a%a%a%b").Fits(text));
}

TEST(Utf8, CharactersAreTakenOneByOne) {
  std::string_view text = "a\u00e9\u0915\U0001f600\xff\xc3";
  std::u32string taken;
  while (!text.empty()) taken += TakeCharacter(text);
  EXPECT_EQ(taken,
            (std::u32string{U'a', 0xe9, 0x915, 0x1f600, kStrayByte + 0xff, kStrayByte + 0xc3}));
}

TEST(Utf8, EveryCharacterComesBack) {
  for (char32_t character = 0; character < kStrayByte; character += 7) {
    if (character >= 0xd800 && character <= 0xdfff) continue;
    std::string text;
    Append(text, character);
    ASSERT_TRUE(IsUtf8(text));
    std::string_view rest = text;
    ASSERT_EQ(TakeCharacter(rest), character);
    ASSERT_TRUE(rest.empty());
  }
}

TEST(Utf8, WhatIsNotUtf8IsFound) {
  for (const char* text : {"\x80", "\xc0\x80", "\xc1\xbf", "\xe0\x80\x80", "\xed\xa0\x80",
                           "\xf0\x80\x80\x80", "\xf4\x90\x80\x80", "\xf5\x80\x80\x80",
                           "abc\xe2\x82", "a text of more than eight bytes \xff"}) {
    EXPECT_FALSE(IsUtf8(text));
    EXPECT_TRUE(IsUtf8(Repaired(text)));
  }
}

}  // namespace
}  // namespace pstolvane1::sqlite
