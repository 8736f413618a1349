#include "session/data/FilterCache.h"

#include <functional>

#include "session/data/RowFilter.h"

namespace pstolvane1 {

FilterCache::FilterCache() = default;
FilterCache::~FilterCache() = default;

std::shared_ptr<const RowFilter> FilterCache::Get(const RowStore& store,
                                                  std::string_view criteria) {
  const std::size_t hash = std::hash<std::string_view>()(criteria);
  std::shared_ptr<RowFilter>& place = filters_[hash % filters_.size()];
  if (place && place->Text() == criteria) return place;
  if (place.use_count() != 1) {
    place = std::make_shared<RowFilter>(store, criteria);
    return place;
  }
  try {
    place->Read(store, {"filter", criteria});
  } catch (...) {
    place.reset();
    throw;
  }
  return place;
}

}  // namespace pstolvane1
