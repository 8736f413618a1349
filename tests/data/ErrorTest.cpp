#include <gtest/gtest.h>

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

TEST(Error, WhatIsTheDescription) {
  const Error error(ErrorNumber::kNoSuchColumn, "no column Rate");
  EXPECT_STREQ(error.what(), "no column Rate");
  EXPECT_EQ(error.Cause(), "");
}

TEST(Error, WhatHoldsTheCauseBehindTheDescription) {
  const Error error(ErrorNumber::kConnection, "Unable to Connect to Database",
                    "x.db: no such file");
  EXPECT_STREQ(error.what(), "Unable to Connect to Database: x.db: no such file");
  EXPECT_EQ(error.Description(), "Unable to Connect to Database");
  EXPECT_EQ(error.Cause(), "x.db: no such file");
}

TEST(Error, WhatWasBeingDoneStandsBeforeBoth) {
  const Error error =
      Error(ErrorNumber::kConnection, "no answer", "the host is gone").While("reading");
  EXPECT_STREQ(error.what(), "while reading: no answer: the host is gone");
}

TEST(Error, ACopyTellsTheSame) {
  const Error copy = Error(ErrorNumber::kConnection, "no answer", "the host is gone");
  const Error again(copy);  // NOLINT(performance-unnecessary-copy-initialization): what is tested
  EXPECT_STREQ(again.what(), copy.what());
}

}  // namespace
}  // namespace pstolvane1
