// One list behind another.
#pragma once

#include <vector>

namespace pstolvane1::sql::model {

template <typename T>
void Append(std::vector<T>& to, const std::vector<T>& from) {
  to.insert(to.end(), from.begin(), from.end());
}

}  // namespace pstolvane1::sql::model
