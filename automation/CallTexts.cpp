#include "automation/CallTexts.h"

#include "automation/Operations.h"
#include "session/data/TextFold.h"

namespace pstolvane1::automation {
std::string TextOf(const Argument& argument, const Variant& value) {
  if (argument.enumeration != nullptr) return NameOf(*argument.enumeration, value.ToInt32());
  if (value.Type() == adDate) return value.ToDate().ToIso();
  if (value.Type() == adBoolean) return value.ToBoolean() == True ? "true" : "false";
  return value.ToText();
}

CallTexts TextsOf(const Operation& operation, const BoundValues& values) {
  CallTexts texts;
  const std::vector<Slot> slots = SlotsOf(operation);
  for (std::size_t at = 0; at < slots.size(); ++at) {
    const Argument& argument = *slots[at].argument;
    const Variant& value = values.at(at);
    if (argument.type == ArgumentType::kRowset || value.IsEmpty() || value.IsNull()) continue;
    texts.emplace(slots[at].name, TextOf(argument, value));
  }
  return texts;
}

const Master* ListOf(const Argument& argument, const CallTexts& call) {
  if (argument.master != nullptr) return argument.master;
  for (const NamesWhen& one : argument.names_when) {
    if (one.argument.empty()) return one.names;
    const auto given = call.find(one.argument);
    if (given != call.end() && EqualFolded(given->second, one.value)) return one.names;
  }
  return nullptr;
}

}  // namespace pstolvane1::automation
