#include "stock/GroupTree.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <unordered_set>

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

// A level keeps the order of groups whatever the order of the parents.
std::vector<std::size_t> LevelBelow(
    const std::unordered_multimap<std::int64_t, std::size_t>& children,
    const std::vector<StockGroup>& groups, const std::vector<std::size_t>& level) {
  std::vector<std::size_t> below;
  for (const std::size_t parent : level) {
    const auto [first, last] = children.equal_range(groups[parent].id);
    for (auto child = first; child != last; ++child) below.push_back(child->second);
  }
  std::sort(below.begin(), below.end());
  return below;
}

}  // namespace

std::vector<std::size_t> ListGroups(const std::vector<StockGroup>& groups, std::int32_t root,
                                    bool only_items) {
  if (root == kWholeTree) {
    std::vector<std::size_t> all(groups.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return all;
  }
  const auto named = std::find_if(groups.begin(), groups.end(),
                                  [root](const StockGroup& group) { return group.id == root; });
  if (named == groups.end()) return {};
  std::vector<std::size_t> listed = {static_cast<std::size_t>(named - groups.begin())};
  if (only_items) return listed;

  std::unordered_multimap<std::int64_t, std::size_t> children;
  for (std::size_t place = 0; place < groups.size(); ++place) {
    // A group at the top may name itself.
    if (groups[place].id != groups[place].related_to) {
      children.emplace(groups[place].related_to, place);
    }
  }
  std::unordered_set<std::int64_t> seen = {groups[listed[0]].id};
  std::vector<std::size_t> level = listed;
  while (!level.empty()) {
    level = LevelBelow(children, groups, level);
    for (const std::size_t place : level) {
      if (!seen.insert(groups[place].id).second) {
        throw Error(ErrorNumber::kArgumentOutOfRange,
                    "the group \"" + groups[place].name +
                        "\" stands below itself: mend its RelatedTo in the books");
      }
      listed.push_back(place);
    }
  }
  return listed;
}

}  // namespace pstolvane1
