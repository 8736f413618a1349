#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "session/data/TextFold.h"

namespace pstolvane1 {
namespace {

TEST(TextFold, IgnoresCase) {
  EXPECT_EQ(CompareFolded("Item", "iTEM"), 0);
  EXPECT_EQ(CompareFolded("ÉTÉ", "été"), 0);
  EXPECT_EQ(CompareFolded("ΣΊΓΜΑ", "σίγμα"), 0);
  EXPECT_EQ(CompareFolded("К", "к"), 0);  // Cyrillic
  EXPECT_EQ(CompareFolded("ΟΔΟΣ", "οδος"), 0);
  EXPECT_EQ(CompareFolded("οδος", "οδοσ"), 0);
  EXPECT_EQ(CompareFolded("İstanbul", "istanbul"), 0);
  EXPECT_NE(CompareFolded("ıstanbul", "istanbul"), 0);
  EXPECT_EQ(CompareFolded("5 \u00B5m", "5 \u039CM"), 0);  // the micro sign and a Greek letter
  EXPECT_TRUE(EqualFolded("\u212A", "k"));                // the Kelvin sign, three bytes long
  EXPECT_TRUE(EqualFolded("", ""));
}

TEST(TextFold, TakesOneCharacterForOne) {
  EXPECT_NE(CompareFolded("STRASSE", "straße"), 0);
  EXPECT_EQ(CompareFolded("STRAẞE", "straße"), 0);
}

TEST(TextFold, StandsInTheOrderOfCodePoints) {
  EXPECT_LT(CompareFolded("", "a"), 0);
  EXPECT_LT(CompareFolded("a", "B"), 0);
  EXPECT_GT(CompareFolded("b", "A"), 0);
  EXPECT_LT(CompareFolded("ab", "abc"), 0);
  EXPECT_LT(CompareFolded("Z", "é"), 0);
  EXPECT_LT(CompareFolded("_", "A"), 0);  // as "_" before "a"
  EXPECT_LT(CompareFolded("9", "a"), 0);
}

TEST(TextFold, ComparesBlanksAtTheEndUnlessTold) {
  EXPECT_NE(CompareFolded("a ", "A"), 0);
  EXPECT_EQ(CompareFoldedIgnoringTrailingBlanks("a  ", "A"), 0);
  EXPECT_EQ(CompareFoldedIgnoringTrailingBlanks("  ", ""), 0);
  EXPECT_NE(CompareFoldedIgnoringTrailingBlanks(" a", "a"), 0);
  EXPECT_NE(CompareFoldedIgnoringTrailingBlanks("a\t", "a"), 0);
}

TEST(TextFold, PutsBytesThatAreNoTextBehindAllOthers) {
  EXPECT_GT(CompareFolded("\xFF", "\U0010FFFF"), 0);
  EXPECT_GT(CompareFolded("a\x80", "a\U0010FFFF"), 0);
  EXPECT_LT(CompareFolded("\x80", "\x81"), 0);
  EXPECT_EQ(CompareFolded("\xC3", "\xC3"), 0);
  EXPECT_NE(CompareFolded("\xC3", "\xC3\xA9"), 0);
}

TEST(TextFold, FindsPatterns) {
  EXPECT_TRUE(LikeFolded("Brake Shoe", "BRAKE*"));
  EXPECT_TRUE(LikeFolded("Brake Shoe", "%shoe"));
  EXPECT_TRUE(LikeFolded("Brake Shoe", "*ke*ho*"));
  EXPECT_TRUE(LikeFolded("Brake Shoe", "brake shoe"));
  EXPECT_TRUE(LikeFolded("", "*"));
  EXPECT_TRUE(LikeFolded("", ""));
  EXPECT_TRUE(LikeFolded("aXbXc", "*X*c"));
  EXPECT_TRUE(LikeFolded("été", "É*É"));
  EXPECT_FALSE(LikeFolded("Brake Shoe", "brake"));
  EXPECT_FALSE(LikeFolded("Brake Shoe", "shoe*"));
  EXPECT_FALSE(LikeFolded("", "a"));
  EXPECT_FALSE(LikeFolded("a_b", "a?b"));
  EXPECT_TRUE(LikeFolded("a_b", "a_b"));
  EXPECT_FALSE(LikeFolded("axb", "a_b"));
}

TEST(TextFold, FindsPatternsInTimeThatGrowsWithTheTextOnly) {
  const std::string text(20000, 'a');
  std::string pattern;
  for (int i = 0; i < 50; ++i) pattern += "*a";
  EXPECT_FALSE(LikeFolded(text, pattern + "b"));
}

TEST(TextFold, CountsCharacters) {
  EXPECT_EQ(CountCharacters(""), 0U);
  EXPECT_EQ(CountCharacters("abc"), 3U);
  EXPECT_EQ(CountCharacters("été"), 3U);
  EXPECT_EQ(CountCharacters("\xFF"), 1U);
}

// Hash, folded form and comparison agree with one another on texts that are nearly equal.
TEST(TextFoldProperty, HashAndFoldedFormAgreeWithTheComparison) {
  const std::vector<std::string> parts = {"a", "A", "é", "É", "ſ",    "s",    "S", "[", "{",
                                          "@", "`", "Z", "z", "\x80", "\xFF", " ", "k", "\u212A"};
  std::mt19937 random(11);
  std::uniform_int_distribution<std::size_t> part(0, parts.size() - 1);
  std::uniform_int_distribution<int> length(0, 12);
  int equal = 0;
  for (int i = 0; i < 30000; ++i) {
    std::string a;
    std::string b;
    for (int left = length(random); left > 0; --left) {
      const std::size_t at = part(random);
      a += parts[at];
      b += parts[left % 5 == 0 ? part(random) : at ^ (left % 3 == 0 && at < 4 ? 1U : 0U)];
    }
    const int order = CompareFolded(a, b);
    EXPECT_EQ(order, -CompareFolded(b, a));
    EXPECT_EQ(EqualFolded(a, b), order == 0);
    const int folded_order = Folded(a).compare(Folded(b));
    EXPECT_EQ((folded_order > 0) - (folded_order < 0), order) << a << " | " << b;
    if (order == 0) {
      ++equal;
      EXPECT_EQ(HashFolded(a), HashFolded(b));
      EXPECT_TRUE(LikeFolded(a, b));
    }
  }
  EXPECT_GT(equal, 3000);
}

}  // namespace
}  // namespace pstolvane1
