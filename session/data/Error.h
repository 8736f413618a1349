// The one exception of the library, and the numbers that it carries.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "session/data/NeedsCpp20.h"

namespace pstolvane1 {

enum class ErrorNumber : std::int32_t {
  kOverflow = 6,
  kOutOfMemory = 7,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kObjectNotSet = 91,
  kInvalidUseOfNull = 94,
  kConnection = 501,
  kArgumentOutOfRange = 3001,
  kNoCurrentRecord = 3021,
  kNoSuchColumn = 3265,
  kNotOpen = 3704,
  kNoConnection = 3709,
  kQueryRefused = -2147217900,
};

// Carries every failure to the caller: a number, and one clear sentence with the place and the
// cause. Copies are cheap and do not throw what() away.
class Error : public std::exception {
 public:
  Error(ErrorNumber number, std::string description, std::string cause = {});

  [[nodiscard]] ErrorNumber Number() const noexcept { return number_; }
  [[nodiscard]] const std::string& Description() const noexcept { return description_; }
  // What lay behind it, where the description is a fixed text that does not say; else "".
  [[nodiscard]] const std::string& Cause() const noexcept { return cause_; }
  // The description, and behind it the cause if there is one: "Unable to Connect to Database:
  // books.db: no such file".
  [[nodiscard]] const char* what() const noexcept override {
    return told_.empty() ? description_.c_str() : told_.c_str();
  }

  // The same error, told with what was being done: "while opening Rs1: ..." .
  [[nodiscard]] Error While(std::string_view doing) const;

 private:
  ErrorNumber number_;
  std::string description_;
  std::string cause_;
  std::string told_;  // with the cause; empty without one
};

}  // namespace pstolvane1
