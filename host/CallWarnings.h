// What is likely a mistake in a call that is carried out all the same.
#pragma once

#include <string>
#include <vector>

#include "automation/CallInWords.h"
#include "host/BooksLookup.h"

namespace pstolvane1::host {

// A sentence for each: a period that ends before it begins or lies outside its year, keys that the
// books lack, a valuation that the report has no figures for. Nothing on books that cannot be
// asked. The figures of a report do not depend on it.
[[nodiscard]] std::vector<std::string> WarningsOf(const automation::CallInWords& call,
                                                  BooksLookup& books);

}  // namespace pstolvane1::host
