// stolvane sql: one SELECT of the reports' dialect on any database.
#pragma once

#include <string>

#include "host/Output.h"

namespace pstolvane1::host {

struct SqlOptions {
  std::string books;
  std::string text;
  bool translate = false;  // print the engine's text instead of running it
  OutputOptions output;
};

void Sql(const SqlOptions& options);

}  // namespace pstolvane1::host
