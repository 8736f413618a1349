// The period of a report as people write it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/BooksLookup.h"
#include "session/data/Date.h"

namespace pstolvane1::host {

// Days in an accounting year of the books: the year of the last one.
struct Period {
  std::int32_t year;
  Date from, to;
};

// "2004-05" is the accounting year that begins in 2004, and so is "2004"; "2004-08" is a month;
// "2004-04..2004-06" months, "2004-04-10..2004-04-20" days; "" is the last year of the books.
// WrongCall for anything else, for a period that ends before it begins and for a year that the
// books do not have.
[[nodiscard]] Period PeriodOf(const std::string& text, const std::vector<AccountingYear>& years);

// "2004-05", or "2004" where the year is the calendar's.
[[nodiscard]] std::string NameOf(const AccountingYear& year);

}  // namespace pstolvane1::host
