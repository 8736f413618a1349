#include "session/sql/Ast.h"

#include <type_traits>

namespace pstolvane1::sql {

bool Expr::IsCondition() const {
  return std::visit(
      []<typename T>(const T&) {
        return std::is_same_v<T, Comparison> || std::is_same_v<T, Not> ||
               std::is_same_v<T, Logical> || std::is_same_v<T, Between> ||
               std::is_same_v<T, InList> || std::is_same_v<T, InQuery> || std::is_same_v<T, Like> ||
               std::is_same_v<T, IsNull> || std::is_same_v<T, Exists>;
      },
      node);
}

}  // namespace pstolvane1::sql
