// Groups below the group that they belong to.
#pragma once

#include "session/rowset/ViewColumns.h"

namespace pstolvane1 {

// Puts the rows of each group, which begin with the outermost row that has its key, behind the
// group above it, one deeper. Groups whose upper one is not in the report stand outermost; one in a
// circle stands where it comes. What follows the last group stays the last. Nothing is moved where
// the look tells of no tree, or a key heads two groups.
void StandAsTheTree(const Recordset& rowset, const ReportLook& look, ViewColumns& view);

}  // namespace pstolvane1
