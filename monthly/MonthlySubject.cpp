#include "monthly/MonthlySubject.h"

#include <fmt/format.h>

namespace pstolvane1 {
namespace {

// A tree of groups, and the column that names a row's group.
struct TreeTexts {
  std::string_view table, id, row;
};

TreeTexts TextsOf(MonthlyTree tree) {
  switch (tree) {
    case MonthlyTree::kCategory:
      return {"itemcategory1", "itemcategory_id", "items1.itemcategory_id"};
    case MonthlyTree::kClass:
      return {"itemclass1", "itemclass_id", "items1.itemclass_id"};
    default:
      return {"godown1", "godown_id", "godownitem1.godown_id"};
  }
}

void RestrictToGroup(QueryPart& part, const MonthlyArguments& arguments, Below below) {
  const TreeTexts tree = TextsOf(arguments.tree);
  const std::int32_t id = arguments.lngAny_Id1;
  if (below == Below::kNothing || arguments.blnOnlyItems) {
    part.condition += fmt::format(" and {} = {}", tree.row, id);
    return;
  }
  part.joins += fmt::format(" inner join {0} on {0}.{1} = {2}", tree.table, tree.id, tree.row);
  part.condition +=
      fmt::format(" and ( {0}.{1} = {2} or ( {0}.relatedto = {2} and {0}.deleted = 0 ) )",
                  tree.table, tree.id, id);
}

}  // namespace

QueryPart MovementsOf(const MonthlyArguments& arguments, Below below) {
  QueryPart part = ItemsOf(arguments, "godownitem1.item_id", below);
  if (arguments.tree == MonthlyTree::kGodown) {
    RestrictToGroup(part, arguments, below);
  }
  if (arguments.tree != MonthlyTree::kGodownItem) return part;
  part.condition += fmt::format(" and godownitem1.godown_id = {}", arguments.lngAny_Id2);
  if (arguments.lngBatch_id > 0) {
    part.condition += fmt::format(" and godownitem1.batch_id = {}", arguments.lngBatch_id);
  }
  return part;
}

QueryPart ItemsOf(const MonthlyArguments& arguments, std::string_view item_id, Below below) {
  // A godown's movements are found by item and godown, and SQLite is kept from the other way round:
  // it would read those of all godowns.
  const std::string_view joined =
      arguments.tree == MonthlyTree::kGodown ? "items1.item_id + 0" : "items1.item_id";
  QueryPart part{.joins = fmt::format(" inner join items1 on {} = {}", joined, item_id),
                 .condition = "items1.deleted = 0"};
  if (IsOfOneItem(arguments)) {
    part.condition += fmt::format(" and {} = {}", item_id, arguments.lngAny_Id1);
  } else if (arguments.tree != MonthlyTree::kGodown) {
    RestrictToGroup(part, arguments, below);
  }
  return part;
}

}  // namespace pstolvane1
