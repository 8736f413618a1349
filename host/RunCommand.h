// stolvane run: one operation on one company's books.
#pragma once

#include "automation/CallInWords.h"
#include "host/Output.h"

namespace pstolvane1::host {

struct RunOptions {
  automation::CallWords call;
  bool events = false;
  OutputOptions output;
};

// Error of the report or the books, or WrongCall.
void Run(const RunOptions& options);

}  // namespace pstolvane1::host
