#include "session/data/PlanRows.h"

#include <utility>

namespace pstolvane1::shape {
namespace {

std::shared_ptr<RowStore> Read(const Plan& plan, const QueryReader& reader,
                               std::size_t first_rows) {
  auto store = std::make_shared<RowStore>(plan.columns, RowStore::Kind::kQuery);
  reader.Read(*plan.query, plan.columns, first_rows,
              [&](Chunk chunk) { store->Append(std::move(chunk)); });
  return store;
}

}  // namespace

PlanRows::PlanRows(const Plan& plan, const QueryReader& reader, std::size_t first_rows)
    : reader_(reader) {
  // Where the system has no thread left, that query is read when it is asked for.
  Await(plan, first_rows,
        reader.ReadsSideBySide() ? std::launch::async | std::launch::deferred
                                 : std::launch::deferred);
}

PlanRows::~PlanRows() {
  if (!rows_.empty()) reader_.Stop();
}

void PlanRows::Await(const Plan& plan, std::size_t first_rows, std::launch how) {
  if (plan.query) {
    // The one that is asked for first is read by the thread that asks.
    rows_.emplace(
        &plan, std::async(rows_.empty() ? std::launch::deferred : how,
                          [this, &plan, first_rows] { return Read(plan, reader_, first_rows); }));
  } else {
    Await(*plan.groups->rows, QueryReader::kSmallChunk, how);
  }
  for (const RelationPlan& relation : plan.relations) {
    Await(*relation.child, QueryReader::kSmallChunk, how);
  }
}

std::shared_ptr<RowStore> PlanRows::Take(const Plan& plan) {
  const auto found = rows_.find(&plan);
  std::shared_ptr<RowStore> rows = found->second.get();
  rows_.erase(found);
  return rows;
}

}  // namespace pstolvane1::shape
