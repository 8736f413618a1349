#include "session/data/Error.h"

#include <utility>

namespace pstolvane1 {

Error::Error(ErrorNumber number, std::string description, std::string cause)
    : number_(number), description_(std::move(description)), cause_(std::move(cause)) {
  if (!cause_.empty()) told_ = description_ + ": " + cause_;
}

Error Error::While(std::string_view doing) const {
  return {number_, "while " + std::string(doing) + ": " + description_, cause_};
}

}  // namespace pstolvane1
