#include "valuation/GroupTree.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <unordered_set>

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

using Children = std::unordered_multimap<std::int64_t, std::size_t>;

// A group that names itself stands at the top, and below nothing; so does one that names none.
Children ChildrenOf(const std::vector<StockGroup>& groups) {
  Children children;
  for (std::size_t place = 0; place < groups.size(); ++place) {
    const std::optional<std::int64_t> parent = groups[place].related_to;
    if (parent && *parent != groups[place].id) children.emplace(*parent, place);
  }
  return children;
}

// A level keeps the order of groups whatever the order of the parents.
std::vector<std::size_t> LevelBelow(const Children& children,
                                    const std::vector<std::int64_t>& parents) {
  std::vector<std::size_t> below;
  for (const std::int64_t parent : parents) {
    const auto [first, last] = children.equal_range(parent);
    for (auto child = first; child != last; ++child) below.push_back(child->second);
  }
  std::sort(below.begin(), below.end());
  return below;
}

void ListTreeBelow(const std::vector<StockGroup>& groups, std::int64_t root,
                   std::vector<std::size_t>& listed) {
  const Children children = ChildrenOf(groups);
  std::unordered_set<std::int64_t> seen = {root};
  std::vector<std::int64_t> parents = {root};
  while (!parents.empty()) {
    const std::vector<std::size_t> level = LevelBelow(children, parents);
    parents.clear();
    for (const std::size_t place : level) {
      const StockGroup& group = groups[place];
      if (!seen.insert(group.id).second) {
        throw Error(ErrorNumber::kArgumentOutOfRange,
                    "the group \"" + group.name +
                        "\" stands below itself: mend its RelatedTo in the books");
      }
      listed.push_back(place);
      parents.push_back(group.id);
    }
  }
}

}  // namespace

std::vector<std::size_t> ListGroups(const std::vector<StockGroup>& groups, std::int32_t root,
                                    bool only_items) {
  std::vector<std::size_t> listed;
  if (root == kWholeTree) {
    listed.resize(groups.size());
    std::iota(listed.begin(), listed.end(), std::size_t{0});
    return listed;
  }
  const auto named = std::find_if(groups.begin(), groups.end(),
                                  [root](const StockGroup& group) { return group.id == root; });
  if (named != groups.end()) listed.push_back(static_cast<std::size_t>(named - groups.begin()));
  if (!only_items) ListTreeBelow(groups, root, listed);
  return listed;
}

}  // namespace pstolvane1
