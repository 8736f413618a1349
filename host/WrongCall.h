// A command line that cannot be carried out as it was typed.
#pragma once

#include <stdexcept>
#include <string>

namespace pstolvane1::host {

// Ends the program with status 2 and its text on standard error.
class WrongCall : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace pstolvane1::host
