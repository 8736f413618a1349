// The filters that were used last on the rows of a store.
#pragma once

#include <array>
#include <memory>
#include <string_view>

namespace pstolvane1 {

class RowFilter;
class RowStore;

// A report filters the same rowset thousands of times, by a few texts again and again or by a new
// one each time. A text that was used lately is not read again; a new one takes the place of an old
// one, and its memory when no rowset uses that any more.
class FilterCache {
 public:
  FilterCache();
  ~FilterCache();

  // The filter of a text that is not blank. Errors are those of Filter.
  [[nodiscard]] std::shared_ptr<const RowFilter> Get(const RowStore& store,
                                                     std::string_view criteria);

 private:
  std::array<std::shared_ptr<RowFilter>, 16> filters_;  // a place per hash of the text
};

}  // namespace pstolvane1
