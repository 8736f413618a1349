// stolvane run: one operation on one company's books.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/Output.h"

namespace pstolvane1::host {

struct RunOptions {
  std::string operation;
  std::vector<std::string> arguments;  // "NAME=VALUE"
  std::string books;
  std::vector<std::string> aliases;  // "taItem=EXPR"
  std::vector<std::string> filters;  // "btTypeOfentry=1"
  std::vector<std::string> rowsets;  // "recitem=SELECT ..."
  std::string books_from;
  std::string books_to;
  bool asynchronous = false;
  bool cancel = false;
  bool events = false;
  OutputOptions output;
};

// Error of the report or the books, or WrongCall.
void Run(const RunOptions& options);

// How the operation is called, with its arguments; "" for one that there is not.
[[nodiscard]] std::string UsageOfRun(std::string_view operation);

}  // namespace pstolvane1::host
