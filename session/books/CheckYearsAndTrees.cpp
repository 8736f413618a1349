#include <algorithm>
#include <map>
#include <set>

#include "session/books/Checks.h"
#include "session/books/Schema.h"

namespace pstolvane1::books {
namespace {

// The rows of a table in one month of the calendar and one accounting year.
struct MonthGroup {
  int year_no;
  int month;  // counted from the year 0
  long long rows;
  long long first_key;
};

// Accounting years begin in the same month every year, but nothing in the books tells which. It is
// the month for which most rows lie in the year that their number tells; with years from April on,
// March 2004 as year 1 makes April 2004 year 2. Gives the groups that lie outside.
std::vector<MonthGroup> Outside(const std::vector<MonthGroup>& groups) {
  std::vector<MonthGroup> best = groups;
  long long fewest = -1;
  for (int start = 0; start < 12; ++start) {
    const auto offset = [&](const MonthGroup& group) {
      return (group.month - start) / 12 - group.year_no;
    };
    std::map<int, long long> rows;
    for (const MonthGroup& group : groups) rows[offset(group)] += group.rows;
    const auto commonest =
        std::ranges::max_element(rows, {}, [](const auto& one) { return one.second; });
    std::vector<MonthGroup> outside;
    long long count = 0;
    for (const MonthGroup& group : groups) {
      if (offset(group) == commonest->first) continue;
      outside.push_back(group);
      count += group.rows;
    }
    if (fewest < 0 || count < fewest) {
      fewest = count;
      best = std::move(outside);
    }
  }
  return best;
}

// Walks up from every node; what comes back to a node of its own way, but is not its own parent, is
// a loop, given as "5, 7, 5".
std::set<std::string> LoopsIn(const std::map<long long, long long>& parents) {
  std::set<std::string> loops;
  std::set<long long> settled;
  for (const auto& [start, ignored] : parents) {
    std::vector<long long> way;
    long long at = start;
    for (;;) {
      const auto parent = parents.find(at);
      if (parent == parents.end() || parent->second == at || settled.contains(at)) break;
      const auto again = std::ranges::find(way, at);
      if (again != way.end()) {
        std::string text;
        for (auto one = again; one != way.end(); ++one) text += std::to_string(*one) + ", ";
        loops.insert(text + std::to_string(at));
        break;
      }
      way.push_back(at);
      at = parent->second;
    }
    settled.insert(way.begin(), way.end());
  }
  return loops;
}

}  // namespace

void CheckYears(Reader& books, bool complete, Findings& findings) {
  for (const std::string name : {"Desr1", "GodownItem1"}) {
    const std::string key(FindTable(name)->columns.front().name);
    const std::string month = books.MonthOf("Date");
    const std::string select =
        "SELECT YearNo, " + month + ", count(*), min(" + key + ") FROM " + name +
        " WHERE Date IS NOT NULL AND YearNo IS NOT NULL GROUP BY YearNo, " + month;
    if (!complete && !books.Understands(select)) continue;
    std::vector<MonthGroup> groups;
    for (const auto& row : books.Select(select)) {
      groups.push_back(
          {std::stoi(*row[0]), std::stoi(*row[1]), std::stoll(*row[2]), std::stoll(*row[3])});
    }
    long long count = 0, first = 0;
    for (const MonthGroup& group : Outside(groups)) {
      first = count == 0 ? group.first_key : std::min(first, group.first_key);
      count += group.rows;
    }
    if (count == 0) continue;
    findings.push_back({Severity::kWarning,
                        Counted(count, "row of ", "rows of ") + name +
                            (count == 1 ? " has a date" : " have dates") +
                            " outside the year of YearNo, the first with " + key + " " +
                            std::to_string(first) + ".",
                        ""});
  }
}

void CheckTrees(Reader& books, bool complete, Findings& findings) {
  for (const std::string name : {"ItemCategory1", "ItemClass1", "Godown1"}) {
    const std::string select = "SELECT " + std::string(FindTable(name)->key) + ", RelatedTo FROM " +
                               name + " WHERE RelatedTo IS NOT NULL";
    if (!complete && !books.Understands(select)) continue;
    std::map<long long, long long> parents;
    for (const auto& row : books.Select(select)) {
      parents.emplace(std::stoll(*row[0]), std::stoll(*row[1]));
    }
    for (const std::string& loop : LoopsIn(parents)) {
      findings.push_back({Severity::kError,
                          "The tree of " + name + ".RelatedTo runs in a loop (" + loop +
                              "): a report that is asked for one of these groups ends with an "
                              "error.",
                          ""});
    }
  }
}

}  // namespace pstolvane1::books
