// Who is answered.
#include <gtest/gtest.h>

#include "viewer/Guard.h"

namespace pstolvane1::viewer {
namespace {

const Guard& AtPort8000() {
  static const Guard guard(8000, "abc");
  return guard;
}

TEST(Guard, KnowsItsOwnAddressAlone) {
  for (const char* host : {"127.0.0.1:8000", "localhost:8000"}) {
    EXPECT_TRUE(AtPort8000().IsHere({host, "", "", ""})) << host;
  }
  for (const char* host :
       {"", "127.0.0.1", "127.0.0.1:8001", "books.example:8000", "10.0.0.1:8000"}) {
    EXPECT_FALSE(AtPort8000().IsHere({host, "", "", ""})) << host;
  }
}

TEST(Guard, AnswersNoPageOfAnotherOrigin) {
  const char* const host = "localhost:8000";
  EXPECT_TRUE(AtPort8000().IsOwnPage({host, "", "", ""}));
  EXPECT_TRUE(AtPort8000().IsOwnPage({host, "http://localhost:8000", "same-origin", ""}));
  EXPECT_TRUE(AtPort8000().IsOwnPage({host, "", "none", ""}));
  EXPECT_FALSE(AtPort8000().IsOwnPage({host, "http://localhost:8001", "", ""}));
  EXPECT_FALSE(AtPort8000().IsOwnPage({host, "null", "", ""}));
  EXPECT_FALSE(AtPort8000().IsOwnPage({host, "", "same-site", ""}));
  EXPECT_FALSE(AtPort8000().IsOwnPage({host, "", "cross-site", ""}));
}

TEST(Guard, ReadsTheTokenFromItsOwnCookie) {
  EXPECT_TRUE(AtPort8000().HasToken({"", "", "", "a=b; stolvane-8000=abc; c=d"}));
  EXPECT_TRUE(AtPort8000().HasToken({"", "", "", "stolvane-8000=abc"}));
  for (const char* cookie : {"", "stolvane-8000=abd", "stolvane-8000=ab", "stolvane-8000=abcd",
                             "stolvane-8001=abc", "x=stolvane-8000=abc"}) {
    EXPECT_FALSE(AtPort8000().HasToken({"", "", "", cookie})) << cookie;
  }
  EXPECT_EQ(AtPort8000().CookieToSet(), "stolvane-8000=abc; Path=/; HttpOnly; SameSite=Strict");
}

TEST(Guard, MakesLongTokensThatDiffer) {
  const std::string one = Guard::NewToken();
  EXPECT_EQ(one.size(), 32U);
  EXPECT_NE(one, Guard::NewToken());
}

}  // namespace
}  // namespace pstolvane1::viewer
