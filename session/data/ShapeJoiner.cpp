#include "session/data/ShapeJoiner.h"

#include <map>
#include <numeric>
#include <utility>
#include <vector>

#include "session/data/Error.h"
#include "session/data/PlanRows.h"
#include "session/data/RowKeys.h"
#include "session/data/ShapeAggregate.h"

namespace pstolvane1::shape {
namespace {

constexpr std::uint32_t kNoGroup = ChapterRows::kNoGroup;

bool AnyNull(const RowStore& store, const std::vector<int>& columns, std::uint32_t row) {
  for (const int column : columns) {
    if (store.IsNull(column, row)) return true;
  }
  return false;
}

// The rows of each group side by side, in their order. `group_of` has a group or kNoGroup per row.
void FillGroups(ChapterRows& chapters, const std::vector<std::uint32_t>& group_of,
                std::size_t groups) {
  chapters.starts.assign(groups + 1, 0);
  for (const std::uint32_t group : group_of) {
    if (group != kNoGroup) ++chapters.starts[group + 1];
  }
  std::partial_sum(chapters.starts.begin(), chapters.starts.end(), chapters.starts.begin());
  chapters.rows.resize(chapters.starts.back());
  std::vector<std::uint32_t> next(chapters.starts.begin(), chapters.starts.end() - 1);
  for (std::uint32_t row = 0; row < group_of.size(); ++row) {
    if (group_of[row] != kNoGroup) chapters.rows[next[group_of[row]]++] = row;
  }
}

// The parent's rows by the values of some columns, for all relations that use these.
struct ParentKeys {
  KeyTable keys;
  std::vector<std::uint32_t> group_of_row;

  ParentKeys(const RowStore& parent, const std::vector<int>& columns) : keys(parent, columns) {
    group_of_row.reserve(parent.RowCount());
    for (std::uint32_t row = 0; row < parent.RowCount(); ++row) {
      group_of_row.push_back(AnyNull(parent, columns, row) ? kNoGroup : keys.Add(row));
    }
  }
};

std::shared_ptr<ChapterRows> Relate(const ParentKeys& parent, std::shared_ptr<RowStore> child,
                                    const std::vector<int>& columns) {
  std::vector<std::uint32_t> group_of_child(child->RowCount(), kNoGroup);
  std::vector<CellKey> key(columns.size());
  // Rows of one group often follow each other.
  std::vector<CellKey> last_key(columns.size());
  std::uint32_t last_group = kNoGroup;
  for (std::uint32_t row = 0; row < child->RowCount(); ++row) {
    bool null = false;
    for (std::size_t i = 0; i < columns.size() && !null; ++i) {
      key[i] = CellKey::Of(*child, columns[i], row);
      null = key[i].kind == CellKey::Kind::kNull;
    }
    if (null) continue;
    if (key != last_key) {
      last_group = parent.keys.Find(key);
      last_key.swap(key);
    }
    group_of_child[row] = last_group;
  }
  static_assert(KeyTable::kNone == kNoGroup);
  auto chapters = std::make_shared<ChapterRows>();
  chapters->child = std::move(child);
  chapters->group_of_row = parent.group_of_row;
  FillGroups(*chapters, group_of_child, parent.keys.Count());
  return chapters;
}

class Joiner {
 public:
  Joiner(const Plan& plan, const QueryReader& reader, std::size_t first_rows)
      : reader_(reader), rows_(plan, reader, first_rows) {}

  std::shared_ptr<RowStore> Join(const Plan& plan, std::size_t first_rows) {
    std::shared_ptr<RowStore> store;
    if (plan.query) {
      store = rows_.Take(plan);
    } else {
      store = std::make_shared<RowStore>(plan.columns, RowStore::Kind::kQuery);
      Group(*plan.groups, *store, first_rows);
    }
    std::map<std::vector<int>, ParentKeys> keys;
    for (const RelationPlan& relation : plan.relations) {
      std::shared_ptr<RowStore> child = Join(*relation.child, QueryReader::kSmallChunk);
      reader_.CheckNotStopped();
      const ParentKeys& parent =
          keys.try_emplace(relation.parent_keys, *store, relation.parent_keys).first->second;
      const std::shared_ptr<const ChapterRows> chapters =
          Relate(parent, std::move(child), relation.child_keys);
      store->SetChapters(relation.column, chapters);
      Write(relation.aggregates, *chapters, *store);
    }
    return store;
  }

 private:
  void Group(const GroupPlan& plan, RowStore& store, std::size_t first_rows) {
    auto chapters = std::make_shared<ChapterRows>();
    chapters->child = Join(*plan.rows, QueryReader::kSmallChunk);
    const RowStore& rows = *chapters->child;
    reader_.CheckNotStopped();

    KeyTable keys(rows, plan.by);
    std::vector<std::uint32_t> group_of;
    group_of.reserve(rows.RowCount());
    for (std::uint32_t row = 0; row < rows.RowCount(); ++row) group_of.push_back(keys.Add(row));
    const std::uint32_t groups = plan.by.empty() ? 1 : keys.Count();
    FillGroups(*chapters, group_of, groups);

    std::size_t room = first_rows;
    for (std::uint32_t group = 0; group < groups; room = Chunk::kRows) {
      Chunk chunk(store.Columns(), room);
      for (; group < groups && !chunk.Full(); ++group) {
        const RowStore::Place to{&chunk, chunk.AddRow()};
        for (std::size_t i = 0; i < plan.by.size(); ++i) {
          CopyCell(rows, plan.by[i], keys.FirstRow(group), to, plan.by_columns[i]);
        }
      }
      store.Append(std::move(chunk));
    }
    for (const int column : plan.chapter_columns) store.SetChapters(column, chapters);
    Write(plan.aggregates, *chapters, store);
  }

  static void Write(const std::vector<AggregatePlan>& aggregates, const ChapterRows& chapters,
                    const RowStore& store) {
    for (const AggregatePlan& aggregate : aggregates) {
      for (std::uint32_t row = 0; row < store.RowCount(); ++row) {
        WriteAggregate(aggregate, *chapters.child, chapters.Of(row), store.At(row));
      }
    }
  }

  const QueryReader& reader_;
  PlanRows rows_;
};

}  // namespace

std::shared_ptr<RowStore> Join(const Plan& plan, const QueryReader& reader,
                               std::size_t first_rows) {
  return Joiner(plan, reader, first_rows).Join(plan, first_rows);
}

}  // namespace pstolvane1::shape
