#include "movements/MovementFilter.h"

#include <fmt/format.h>

#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

// "condition and " in a form that undated rows pass.
std::string KeepingUndated(std::string_view condition, std::string_view movements) {
  const std::size_t end = condition.rfind("and");
  return fmt::format("(({} ) or {}.date is null ) and ", condition.substr(0, end), movements);
}

}  // namespace

MovementFilter FilterOfMovements(const DocumentFilter& filter, Undated undated,
                                 std::string_view movements) {
  std::string join, documents, vouchers, groups;
  std::string condition = BuildVouchertypeFilter(filter, 5, join, 2);
  condition += BuildOptionalFilter(filter, 5, 2);
  BuildSubgroupFilter(filter, false, documents, vouchers, "", 2, groups);
  condition += groups;
  join = ReplaceAll(LowerCase(join), "godownitem1.", std::string(movements) + ".");
  condition = ReplaceAll(LowerCase(condition), "godownitem1.", std::string(movements) + ".");
  if (undated == Undated::kKept && !condition.empty()) {
    condition = KeepingUndated(condition, movements);
    join = ReplaceAll(join, "inner", "left");
  }
  return {.join = std::move(join), .condition = std::move(condition)};
}

MovementFilter FilterOfDocuments(const DocumentFilter& filter) {
  std::string join, documents, vouchers, groups;
  std::string condition = BuildVouchertypeFilter(filter, 4, join, 2);
  condition += BuildOptionalFilter(filter, 3, 2);
  BuildSubgroupFilter(filter, false, documents, vouchers, "", 2, groups);
  condition += documents;
  return {.join = LowerCase(join), .condition = LowerCase(condition)};
}

}  // namespace pstolvane1
