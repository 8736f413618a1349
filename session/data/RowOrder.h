// The order that a Sort text asks for.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace pstolvane1 {

class RowStore;

// "Column [ASC|DESC], ..." over the columns of one store. Null stands first (last in a descending
// column), text ignores case, True stands before False, and rows that are equal in all columns stay
// in the order of their numbers. Empty: the rows' own order.
class RowOrder {
 public:
  RowOrder() = default;
  // Error 3265 for a column that is not there; error 3001, with the place, for a text that cannot
  // be read, and for a chapter.
  RowOrder(const RowStore& store, std::string_view columns);

  [[nodiscard]] bool Empty() const { return keys_.empty(); }
  [[nodiscard]] bool Uses(const std::vector<bool>& columns) const;  // any of those marked
  // The rows stay as they are when the work of the thread is abandoned: error -2147217900.
  void SortRows(const RowStore& store, std::vector<std::uint32_t>& rows) const;
  [[nodiscard]] bool Before(const RowStore& store, std::uint32_t a, std::uint32_t b) const;

 private:
  struct Key {
    int column;
    bool descending;
  };
  std::vector<Key> keys_;
};

}  // namespace pstolvane1
