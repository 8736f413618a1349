// Which groups of a tree a statement lists. Pure.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pstolvane1 {

// A category, class or godown; the tree does not care which.
struct StockGroup {
  std::int64_t id;
  std::optional<std::int64_t> related_to;  // the group above; 0, or the group itself, at the top
  std::string name;
};

inline constexpr std::int32_t kWholeTree = -1;

// The groups to list, as places in groups, in the order of their lines: for kWholeTree all as they
// stand; with only_items the group named by root alone; else that group, its children, their
// children and so on, level by level, each level in the order of groups. A root that is no group
// itself, such as the 0 above the top, has no place of its own. Error 3001 that names the group
// where the tree below root runs in a circle.
[[nodiscard]] std::vector<std::size_t> ListGroups(const std::vector<StockGroup>& groups,
                                                  std::int32_t root, bool only_items);

}  // namespace pstolvane1
