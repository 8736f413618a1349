#include <gtest/gtest.h>

#include "session/data/Error.h"
#include "session/sql/Parser.h"
#include "tests/SourcePath.h"
#include "tests/sql/CaseFile.h"
#include "tests/sql/model/Evaluator.h"
#include "tests/sql/model/Show.h"

namespace pstolvane1::sql::model {
namespace {

// The rows in one line; of an error its number alone.
std::string Outcome(const std::string& text) {
  try {
    const Statement statement = Parse(text);
    return Show(Evaluator(statement, SmallTables()).Run());
  } catch (const Error& error) {
    return std::to_string(static_cast<int>(error.Number()));
  }
}

TEST(Evaluator, GivesTheWorkedOutMeaning) {
  for (const TextCase& one : ReadCaseFile(SourcePath("tests/sql/model/meaning.case"))) {
    SCOPED_TRACE(one.where);
    EXPECT_EQ(Outcome(one.input), one.expected);
  }
}

}  // namespace
}  // namespace pstolvane1::sql::model
