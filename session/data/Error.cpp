#include "session/data/Error.h"

#include <utility>

namespace pstolvane1 {

Error::Error(ErrorNumber number, std::string description)
    : number_(number), description_(std::move(description)) {}

Error Error::While(std::string_view doing) const {
  return {number_, "while " + std::string(doing) + ": " + description_};
}

}  // namespace pstolvane1
