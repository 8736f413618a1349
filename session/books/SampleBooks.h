// Invented books of a vehicle and parts dealer, for trying reports and for measuring them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace pstolvane1::books {

inline constexpr std::int64_t kFewestMovements = 2'000;
inline constexpr std::int64_t kMostMovements = 10'000'000;

// Called from time to time while the books are made; done counts up to total.
using SampleProgress =
    std::function<void(std::string_view stage, std::int64_t done, std::int64_t total)>;

// Three accounting years from 1 April 2003 to 31 March 2006, with exactly this many rows of
// GodownItem1 and data for every report. The same bytes for the same movements and seed, with the
// same version of SQLite. Time is linear in movements, memory does not grow with them beyond the
// masters. Error 501 when the file exists or cannot be written, 3001 when movements is outside its
// bounds; then there is no file. On a server the books are made in the first schema of the
// search_path, which holds none yet.
void SampleBooks(const std::string& connection, std::int64_t movements = kFewestMovements,
                 std::uint64_t seed = 1, const SampleProgress& progress = {});

}  // namespace pstolvane1::books
