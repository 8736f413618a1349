// stolvane sql: one SELECT of the reports' dialect on any database.
#pragma once

#include <string>

#include "host/Output.h"

namespace pstolvane1::host {

struct SqlOptions {
  std::string books;
  std::string text;
  std::string condition_on;  // tables: the text is a condition on them, which is checked alone
  bool typed = false;        // texts come from the standard input, one after the other
  bool translate = false;    // print the engine's text instead of running it
  OutputOptions output;
};

void Sql(const SqlOptions& options);

}  // namespace pstolvane1::host
