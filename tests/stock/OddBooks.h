// Random books in which nothing is as it should be.
#pragma once

#include <cstdint>
#include <vector>

#include "golden/CaseFile.h"

namespace pstolvane1 {

// Up to six items, some of one name, in three godowns and three years: deleted masters, units and
// batches that are missing, openings in every year and with dates, outward openings, movements
// without a date or of another year, several on one day, optional ones, fractions, and documents
// and voucher types that are not there. One in six has flags and figures that are Null.
[[nodiscard]] std::vector<golden::TextTable> OddBooks(std::uint32_t seed);

}  // namespace pstolvane1
