// How a test says which error an expression raises.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "session/data/Error.h"

namespace pstolvane1 {

// The description is matched as a whole.
template <typename Call>
void ExpectError(ErrorNumber number, const std::string& description, Call&& call) {
  try {
    call();
  } catch (const Error& error) {
    EXPECT_EQ(static_cast<int>(error.Number()), static_cast<int>(number)) << error.Description();
    EXPECT_EQ(error.Description(), description);
    return;
  }
  ADD_FAILURE() << "no error was raised; expected: " << description;
}

}  // namespace pstolvane1
