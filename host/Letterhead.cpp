#include "host/Letterhead.h"

#include <algorithm>
#include <fmt/format.h>
#include <fstream>
#include <string_view>
#include <vector>

#include "automation/Nearest.h"
#include "session/data/Error.h"
#include "session/data/TextFold.h"

namespace pstolvane1::host {
namespace {

struct Member {
  std::string_view name;
  std::string typCompanyInfoInv::*text;
};
constexpr Member kMembers[] = {
    {"CompanyName", &typCompanyInfoInv::CompanyName},
    {"CompanyAddress1", &typCompanyInfoInv::CompanyAddress1},
    {"CompanyAddress2", &typCompanyInfoInv::CompanyAddress2},
    {"CompanyPanNo", &typCompanyInfoInv::CompanyPanNo},
    {"CompanySalesTaxNo", &typCompanyInfoInv::CompanySalesTaxNo},
    {"CompanySalesTaxNo2", &typCompanyInfoInv::CompanySalesTaxNo2},
};

std::string Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

// The problem with a line; "" for none.
std::string ReadLine(const std::string& line, typCompanyInfoInv& company) {
  if (line.empty() || line.front() == '#') return {};
  const std::size_t sign = line.find('=');
  if (sign == std::string::npos) return "is no NAME=VALUE";
  const std::string name = Trimmed(std::string_view(line).substr(0, sign));
  const auto* const member = std::ranges::find_if(
      kMembers, [&](const Member& one) { return EqualFolded(one.name, name); });
  if (member != std::end(kMembers)) {
    company.*member->text = Trimmed(std::string_view(line).substr(sign + 1));
    return {};
  }
  std::vector<std::string_view> known;
  for (const Member& one : kMembers) known.push_back(one.name);
  return fmt::format("names \"{}\"{}", name, automation::DidYouMean(name, known));
}

}  // namespace

typCompanyInfoInv ReadLetterhead(const std::string& path) {
  std::ifstream file(path);
  typCompanyInfoInv company;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    const std::string problem = ReadLine(Trimmed(line), company);
    if (!problem.empty()) {
      throw Error(ErrorNumber::kArgumentOutOfRange,
                  fmt::format("line {} of the letterhead \"{}\" {}", number, path, problem));
    }
  }
  if (!file.eof()) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                fmt::format("cannot read the letterhead \"{}\"", path));
  }
  return company;
}

}  // namespace pstolvane1::host
