// Pins an error: its number and its whole text.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>

#include "session/data/Error.h"

namespace pstolvane1::automation {

inline void ExpectError(const std::function<void()>& work, ErrorNumber number,
                        const std::string& text) {
  try {
    work();
    ADD_FAILURE() << "no error, expected: " << text;
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), number);
    EXPECT_EQ(error.Description(), text);
  }
}

}  // namespace pstolvane1::automation
