// The rows of a plan's queries, before they are joined.
#pragma once

#include <cstddef>
#include <future>
#include <map>
#include <memory>

#include "session/data/QueryReader.h"
#include "session/data/RowStore.h"
#include "session/data/ShapePlan.h"

namespace pstolvane1::shape {

// Where the engine reads side by side, each query but the first is read by a thread of its own from
// the object's making on. The others are read when their rows are asked for. An object that goes
// before all were asked for ends the threads that still read, and waits for them.
class PlanRows {
 public:
  // The first chunk of the plan's own query has room for first_rows rows. The plan must outlive the
  // object.
  PlanRows(const Plan& plan, const QueryReader& reader, std::size_t first_rows);
  ~PlanRows();
  PlanRows(const PlanRows&) = delete;
  PlanRows& operator=(const PlanRows&) = delete;

  // The rows of the query of the plan or of one inside it, once. The error that ended them.
  [[nodiscard]] std::shared_ptr<RowStore> Take(const Plan& plan);

 private:
  void Await(const Plan& plan, std::size_t first_rows, std::launch how);

  const QueryReader& reader_;
  std::map<const Plan*, std::future<std::shared_ptr<RowStore>>> rows_;
};

}  // namespace pstolvane1::shape
