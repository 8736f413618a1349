#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <string>

#include "session/data/Error.h"
#include "session/sql/Parser.h"
#include "session/sql/Print.h"
#include "tests/sql/Dump.h"
#include "tests/sql/model/Evaluator.h"
#include "tests/sql/model/Generator.h"

namespace pstolvane1::sql::model {
namespace {

TEST(Generator, GivesTheSameTextsForTheSameSeed) {
  Generator one(7);
  Generator other(7);
  Generator third(8);
  std::string texts_of_third;
  std::string texts;
  for (int i = 0; i < 20; ++i) {
    const std::string text = one.Select();
    EXPECT_EQ(text, other.Select());
    texts += text;
    texts_of_third += third.Select();
  }
  EXPECT_NE(texts, texts_of_third);
}

TEST(Generator, GivesTextsThatAreReadPrintedAndReckoned) {
  Generator generator(1);
  int rows = 0;
  std::map<ErrorNumber, int> errors;
  constexpr int kTexts = 1000;
  for (int i = 0; i < kTexts; ++i) {
    const std::string text = generator.Select();
    SCOPED_TRACE(text);
    try {
      const Statement statement = Parse(text);
      EXPECT_EQ(Dump(Parse(Print(statement.query)).query), Dump(statement.query));
      rows += Evaluator(statement, SmallTables()).Run().rows.empty() ? 0 : 1;
    } catch (const Error& error) {
      ++errors[error.Number()];
      EXPECT_THAT(error.Description(), testing::StartsWith("model: "));
    }
  }
  // Most have rows to compare; some fail, in each of the ways that a query can.
  EXPECT_GT(rows, kTexts / 2);
  for (const ErrorNumber number : {ErrorNumber::kDivisionByZero, ErrorNumber::kTypeMismatch,
                                   ErrorNumber::kOverflow, ErrorNumber::kQueryRefused}) {
    EXPECT_GT(errors[number], 0) << static_cast<int>(number);
  }
  EXPECT_EQ(errors.size(), 4U);
}

}  // namespace
}  // namespace pstolvane1::sql::model
