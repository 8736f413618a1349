#include "session/QueryText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fmt/format.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

struct AliasPlace {
  std::string typAliases::*alias;
  std::string_view column;
};

// In this order: an alias is itself open to the replacements behind it.
constexpr AliasPlace kAliasPlaces[] = {
    {&typAliases::taLedger, "ledgernames1.ledgername"},
    {&typAliases::taCategory, "itemcategory1.categoryname"},
    {&typAliases::taClass, "itemclass1.classname"},
    {&typAliases::taItem, "items1.itemname"},
    {&typAliases::taGodown, "godown1.godownname"},
    {&typAliases::taBatch, "batches1.batchcode"},
    {&typAliases::taEmployee, "employee1.employeename"},
    {&typAliases::taTransporter, "transportershipper1.transportershippername"},
};

// Inside a character of several bytes.
bool Continues(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

[[noreturn]] void RaiseComment(std::string_view query, std::size_t at) {
  const std::string_view before = query.substr(0, at);
  const std::size_t lines =
      static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
  const std::string_view line = before.substr(before.rfind('\n') + 1);
  const auto characters =
      std::count_if(line.begin(), line.end(), [](char c) { return !Continues(c); });
  constexpr std::size_t kAround = 32;
  std::size_t first = at - std::min(at, kAround);
  std::size_t last = std::min(at + kAround, query.size());
  while (Continues(query[first])) ++first;
  while (last < query.size() && Continues(query[last])) ++last;
  throw Error(
      ErrorNumber::kQueryRefused,
      fmt::format("line {}, column {}: a condition or an alias holds the comment sign \"{}\"",
                  lines + 1, characters + 1, query.substr(at, 2)),
      fmt::format("near ...{}", ReplaceAll(query.substr(first, last - first), "\n", " ")));
}

}  // namespace

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  const auto is_ascii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::all_of(lower.begin(), lower.end(), is_ascii)) {
    for (char& c : lower) {
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
  }
  // The root locale's rules, so that "I" is "i" also for a Turkish user.
  std::string result;
  icu::UnicodeString::fromUTF8(lower).toLower(icu::Locale::getRoot()).toUTF8String(result);
  return result;
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
  std::string result;
  result.reserve(text.size());
  std::size_t from = 0;
  while (!what.empty()) {
    const std::size_t at = text.find(what, from);
    if (at == std::string_view::npos) break;
    result.append(text, from, at - from).append(with);
    from = at + what.size();
  }
  return result.append(text, from);
}

std::string ApplyAliases(std::string_view query, const typAliases& aliases) {
  std::string text = LowerCase(query);
  for (const auto& [alias, column] : kAliasPlaces) {
    const std::string& expression = aliases.*alias;
    if (expression.empty()) continue;
    text = ReplaceAll(text, column, expression);
    if (alias == &typAliases::taGodown) {
      // Some queries name Godown1 by the correlation name god.
      text =
          ReplaceAll(text, "god.godownname", ReplaceAll(LowerCase(expression), "godown1.", "god."));
    }
  }
  return text;
}

std::string NormaliseQueryText(std::string_view query, const typAliases& aliases) {
  std::string text = LowerCase(ApplyAliases(query, aliases));
  constexpr std::array<std::array<std::string_view, 2>, 4> kRewrites = {
      {{"#", "'"}, {"false", "0"}, {"true", "1"}, {"-1", "1"}}};
  for (const auto& [what, with] : kRewrites) text = ReplaceAll(text, what, with);
  return text;
}

void RefuseComments(std::string_view query) {
  char closing = 0;  // of the quoted text or name that the place stands in
  for (std::size_t i = 0; i < query.size(); ++i) {
    const char c = query[i];
    if (closing != 0) {
      if (c == closing) closing = 0;
    } else if (c == '\'' || c == '"') {
      closing = c;
    } else if (c == '[') {
      closing = ']';
    } else if (const std::string_view sign = query.substr(i, 2); sign == "--" || sign == "/*") {
      RaiseComment(query, i);
    }
  }
}

std::string ItemStateClause(std::string_view strConsiderForSih, std::string_view strItemstate) {
  std::string clause;
  if (!strConsiderForSih.empty()) clause.append(" ").append(strConsiderForSih);
  if (strItemstate.empty()) return clause;
  if (!clause.empty()) clause.append(" and ");
  return clause.append(" (Itemstate = ")
      .append(ReplaceAll(strItemstate, ",", " Or Itemstate = "))
      .append(")");
}

bool DividesByZero(std::string_view query) {
  for (std::size_t sign = query.find('/'); sign != query.npos; sign = query.find('/', sign + 1)) {
    const std::size_t divisor = query.find_first_not_of(' ', sign + 1);
    if (divisor == query.npos || query[divisor] != '0') continue;
    if (query.find_first_of("0123456789.", divisor + 1) != divisor + 1) return true;
  }
  return false;
}

std::string SingleText(float number) {
  std::array<char, 32> text;
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, 7);
  return {text.data(), end.ptr};
}

}  // namespace pstolvane1
