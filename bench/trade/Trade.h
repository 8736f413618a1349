// The books of the benchmarks of pending documents and of the movement analyses.
#pragma once

#include <cstdint>
#include <string>

namespace pstolvane1::bench {

// A year from 1 April 2003 with so many documents of five lines, in fives: a sales order, the
// delivery that executes four fifths of it, the bill of the delivery, a purchase bill and a sales
// return. 1000 items in 60 categories and 20 classes, 1000 parties, ten employees with two slabs of
// commission for each item, a receipt of half of each sale bill. Item 1 has a tenth of the lines,
// party 1 and employee 1 a tenth of the documents. Every fourth line has free goods.
void MakeTrade(const std::string& path, std::int64_t documents);

// One order of so many lines with its delivery and its bill.
void MakeLargeOrder(const std::string& path, std::int64_t lines);

}  // namespace pstolvane1::bench
