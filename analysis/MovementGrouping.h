// By what a movement analysis is cut: the report types of both sides, and what each puts into the
// query.
#pragma once

#include <cstdint>
#include <string_view>

#include "analysis/MovementFigures.h"
#include "session/ReportType.h"

namespace pstolvane1 {

// What stands in a line below a group.
enum class MovementMember { kItem, kParty };

struct MovementGrouping {
  ReportType asked;             // what a caller asks for
  ReportType sales, purchases;  // what is stored for it; purchases is `asked` where there is none
  MovementMember member;
  std::string_view name, id;  // the group's columns in the source
  // In the query: the group's key in the sums, what it joins there, the condition on one group, the
  // group's names joined to the sums, and the order of the groups and of the lines in them.
  std::string_view key, join, one, names, tables, order;
};

// The grouping that a side has under that type, asked for or stored; nullptr for any other type.
[[nodiscard]] const MovementGrouping* FindMovementGrouping(MovementSide side,
                                                           std::int32_t report_type);
// The type that is stored for it.
[[nodiscard]] ReportType StoredType(MovementSide side, const MovementGrouping& grouping);

// An area is a text of the parties' own.
[[nodiscard]] bool IsByArea(const MovementGrouping& grouping);

}  // namespace pstolvane1
