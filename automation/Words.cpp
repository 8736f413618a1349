#include "automation/Words.h"

#include <fmt/format.h>
#include <vector>

#include "automation/Operations.h"
#include "session/data/Error.h"
#include "session/data/TextFold.h"

namespace pstolvane1::automation {
namespace {

constexpr std::size_t kNamesShown = 6;

Variant Day(const std::string& text, const Locale& locale) {
  if (Date::FromIso(text)) return Variant(text);
  try {
    return locale.ParseShortDate(text);
  } catch (const Error&) {
    return Variant(text);
  }
}

Variant Flag(const std::string& text) {
  if (EqualFolded(text, "yes")) return True;
  if (EqualFolded(text, "no")) return False;
  return Variant(text);
}

bool Begins(std::string_view name, std::string_view text) {
  return EqualFolded(name.substr(0, text.size()), text) ||
         (name.starts_with("rt") && EqualFolded(name.substr(2, text.size()), text));
}

Variant EnumerationName(const Argument& argument, const std::string& text) {
  const Enumeration& enumeration = *argument.enumeration;
  if (text.empty() || ValueOf(enumeration, text)) return Variant(text);
  std::vector<std::string_view> names;
  for (const EnumName& one : enumeration.values) {
    if (one.name.size() == text.size() + 2 && Begins(one.name, text)) return one.value;
    if (Begins(one.name, text)) names.push_back(one.name);
  }
  if (names.empty()) return Variant(text);
  if (names.size() == 1) return *ValueOf(enumeration, names.front());
  std::string told;
  for (std::size_t i = 0; i < names.size() && i < kNamesShown; ++i) {
    told += fmt::format("{}{}", i > 0 ? ", " : "", names[i]);
  }
  throw Error(ErrorNumber::kTypeMismatch,
              fmt::format("{}: \"{}\" is the beginning of {}{}", argument.name, text, told,
                          names.size() > kNamesShown ? " and others" : ""));
}

}  // namespace

Variant ValueFromWords(const Argument& argument, const std::string& text, const Locale& locale) {
  switch (argument.type) {
    case ArgumentType::kDate:
      return Day(text, locale);
    case ArgumentType::kBoolean:
      return Flag(text);
    case ArgumentType::kEnumeration:
      return EnumerationName(argument, text);
    default:
      return Variant(text);
  }
}

}  // namespace pstolvane1::automation
