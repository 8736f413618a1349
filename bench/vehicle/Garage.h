// The books of the vehicle benchmark.
#pragma once

#include <cstdint>
#include <string>

namespace pstolvane1::bench {

// A year from 1 April 2003 with so many service bills of four lines and so many financed sales of
// two: 12 models, 300 parts, 20 kinds of labour, 40 mechanics, 12 financiers, a vehicle for each
// four bills. A bill in 50 has a warranty line, and a third have complaints.
void MakeGarage(const std::string& path, std::int64_t bills);

// So many movements of vehicles, a purchase and a sale of each, ten vehicles to a purchase bill and
// one to a sale, which is paid in half.
void MakeShowroom(const std::string& path, std::int64_t movements);

}  // namespace pstolvane1::bench
