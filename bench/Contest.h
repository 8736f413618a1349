// Reports beside the cheapest statement that one would write by hand for their figures.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "session/clsStolvane1.h"

namespace pstolvane1::bench {

// A statement by hand has the bare engine's own operators: it compares texts as they are and
// divides no money.
struct Contest {
  std::string name;
  std::function<RecordsetPtr(clsStolvane1&)> report;
  std::string by_hand;
};

struct Contests {
  const char* program;  // its name
  const char* unit;     // what its first argument counts
  std::int64_t size;    // unless that argument is given
  std::function<void(const std::string& path, std::int64_t size)> make_books;
  // items has itemnew_id, itemname, itempartno and uomname of all items.
  std::function<std::vector<Contest>(const RecordsetPtr& items)> all;
};

// PROGRAM [SIZE [ROUNDS [REPORT]]]: makes the books in a folder of its own, runs each report and
// its statement in turns, and prints the best of the rounds, 3 if not given, in seconds of
// processor time. A report is named by how its name begins. The program's exit status.
int RunContests(const Contests& contests, int count, char** arguments);

}  // namespace pstolvane1::bench
