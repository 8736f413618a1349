#include "tests/sql/CaseFile.h"

#include <fstream>
#include <stdexcept>

namespace pstolvane1::sql {

std::vector<TextCase> ReadCaseFile(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path);
  std::vector<TextCase> cases;
  TextCase next;
  int number = 0;
  char previous = ' ';
  for (std::string line; std::getline(file, line);) {
    const std::string where = path + ":" + std::to_string(++number);
    const bool continues = !line.empty() && line[0] == '=' && previous == '=';
    previous = line.empty() ? ' ' : line[0];
    if (line.empty() || line[0] == '#') continue;
    const std::string rest = line.size() > 2 ? line.substr(2) : "";
    if (line[0] == '~' && !cases.empty() && cases.back().is_error && next.where.empty()) {
      cases.back().on_postgres = rest;
    } else if (continues) {
      cases.back().expected += "\n" + rest;
    } else if (line[0] == '>') {
      if (next.where.empty()) {
        next.where = where;
        next.input = rest;
      } else {
        next.input += "\n" + rest;
      }
    } else if ((line[0] == '=' || line[0] == '!') && !next.where.empty()) {
      next.is_error = line[0] == '!';
      next.expected = rest;
      cases.push_back(next);
      next = {};
    } else {
      throw std::runtime_error(where + ": expected #, > or the outcome of an input");
    }
  }
  if (!next.where.empty()) throw std::runtime_error(next.where + ": no outcome");
  return cases;
}

}  // namespace pstolvane1::sql
