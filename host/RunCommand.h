// stolvane run: one operation on one company's books.
#pragma once

#include "automation/CallInWords.h"
#include "host/BooksLookup.h"
#include "host/Output.h"

namespace pstolvane1::host {

struct RunOptions {
  automation::CallWords call;
  bool events = false;
  bool quiet = false;  // no warnings
  OutputOptions output;
};

// Warnings go to standard error, before the result. Error of the report or the books, or WrongCall.
void Run(const RunOptions& options, BooksLookup& books);

}  // namespace pstolvane1::host
