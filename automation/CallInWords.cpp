#include "automation/CallInWords.h"

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <utility>

#include "automation/CallTexts.h"
#include "automation/Nearest.h"
#include "automation/Operations.h"
#include "automation/Words.h"
#include "session/data/Error.h"
#include "session/data/TextFold.h"

namespace pstolvane1::automation {
namespace {

constexpr std::string_view kSynchronous = "blnReport";

[[noreturn]] void RaiseWrongCall(const std::string& problem, const Operation& operation) {
  throw WrongCall(problem, UsageInWords(operation.name));
}

// "NAME=VALUE" texts, which name arguments of the operation.
std::vector<NamedValue> SplitAll(const std::vector<std::string>& words, std::string_view what,
                                 const Operation& operation) {
  std::vector<NamedValue> values;
  for (const std::string& word : words) {
    const std::size_t equals = word.find('=');
    if (equals == 0 || equals == std::string::npos) {
      RaiseWrongCall("\"" + word + "\" is no " + std::string(what) + ": write NAME=VALUE",
                     operation);
    }
    values.push_back({word.substr(0, equals), Variant(word.substr(equals + 1))});
  }
  return values;
}

bool Names(const std::vector<NamedValue>& values, std::string_view name) {
  return std::any_of(values.begin(), values.end(),
                     [name](const NamedValue& value) { return EqualFolded(value.name, name); });
}

std::vector<NamedValue> ConnectionOf(const CallWords& words) {
  const auto date = [](const std::string& text) {
    return text.empty() ? Variant() : Variant(text);
  };
  return {{"strProvider", ""},
          {"strConnectionString", ""},
          {"strConnectionString1", words.books},
          {"AsyncConnect", False},
          {"dtFromDate", date(words.books_from)},
          {"dtToDate", date(words.books_to)}};
}

// An argument of SetFilter that is not named leaves everything in.
std::vector<NamedValue> FilterOf(const CallWords& words, const Operation& set_filter) {
  std::vector<NamedValue> values = SplitAll(words.filters, "filter", set_filter);
  for (const Argument& argument : set_filter.arguments) {
    if (Names(values, argument.name)) continue;
    const bool text = argument.type == ArgumentType::kText;
    values.push_back({std::string(argument.name), text ? Variant("") : Variant(0)});
  }
  return values;
}

bool IsWholeNumber(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// The list that a name in a key's place is from; nullptr for what is no name. What a key leads to
// may follow another argument, which is read before.
const Master* ListOfName(const Operation& operation, const Argument& argument,
                         const std::string& text, const std::vector<NamedValue>& values) {
  if (argument.type != ArgumentType::kInt32 || text.empty() || IsWholeNumber(text)) return nullptr;
  CallTexts call;
  for (const NamesWhen& one : argument.names_when) {
    const Argument* const deciding = FindArgument(operation, one.argument);
    if (deciding == nullptr) continue;
    const auto given = std::ranges::find_if(
        values, [&](const NamedValue& value) { return EqualFolded(value.name, deciding->name); });
    call[std::string(one.argument)] =
        TextOf(*deciding, given == values.end() ? EmptyValueOf(*deciding)
                                                : ValueFromText(*deciding, given->value.ToText()));
  }
  return ListOf(argument, call);
}

// Names become keys, and what people write becomes what programs write.
void ReadValues(const CallWords& words, const Operation& operation,
                std::vector<NamedValue>& values) {
  const auto locale = Locale::Get(words.locale);
  const auto for_each = [&](const auto& change) {
    for (NamedValue& one : values) {
      const Argument* argument = FindArgument(operation, one.name);
      if (argument == nullptr) continue;
      try {
        change(*argument, one.value);
      } catch (const Error& error) {
        RaiseWrongCall(error.Description(), operation);
      }
    }
  };
  for_each([&](const Argument& argument, Variant& value) {
    value = ValueFromWords(argument, value.ToText(), *locale);
  });
  if (!words.key_of) return;
  for_each([&](const Argument& argument, Variant& value) {
    const std::string text = value.ToText();
    const Master* const list = ListOfName(operation, argument, text, values);
    if (list != nullptr) value = words.key_of(*list, text);
  });
}

void LeaveOutUnread(const Operation& operation, std::vector<NamedValue>& values) {
  for (const Argument& argument : operation.arguments) {
    if (argument.IsRead() || MayBeLeftOut(argument) || Names(values, argument.name)) continue;
    values.push_back({std::string(argument.name), EmptyValueOf(argument)});
  }
}

}  // namespace

const Operation& OperationNamed(const std::string& name) {
  if (const Operation* found = FindOperation(name)) return *found;
  std::vector<std::string_view> names;
  for (const Operation& one : Operations()) names.push_back(one.name);
  throw WrongCall("there is no operation \"" + name + "\"" + DidYouMean(name, names) +
                  "; \"stolvane reports\" lists them");
}

CallInWords::CallInWords(const CallWords& words) : call_(BindCall(words)), cancel_(words.cancel) {
  const auto set = [this](std::string_view name, const auto& values_of) {
    const Operation& setting = GetOperation(name);
    settings_.push_back(BoundTo(setting, values_of(setting)));
  };
  set("SetConnection", [&](const Operation&) { return ConnectionOf(words); });
  if (!words.locale.empty()) {
    set("SetLocale", [&](const Operation&) {
      return std::vector<NamedValue>{{"name", words.locale}};
    });
  }
  if (!words.aliases.empty()) {
    set("SetAliases",
        [&](const Operation& setting) { return SplitAll(words.aliases, "alias", setting); });
  }
  if (!words.filters.empty()) {
    set("SetFilter", [&](const Operation& setting) { return FilterOf(words, setting); });
  }
}

// Bind's errors end with the operation's arguments, which the usage has as well.
CallInWords::Bound CallInWords::BoundTo(const Operation& operation,
                                        const std::vector<NamedValue>& values) {
  try {
    return {operation, Bind(operation, values)};
  } catch (const Error& error) {
    const std::string usage = "; " + UsageOf(operation);
    std::string problem = error.Description();
    if (problem.ends_with(usage)) problem.resize(problem.size() - usage.size());
    RaiseWrongCall(problem, operation);
  }
}

CallInWords::Bound CallInWords::BindCall(const CallWords& words) {
  const Operation& operation = OperationNamed(words.operation);
  std::vector<NamedValue> values = SplitAll(words.arguments, "argument", operation);
  ReadValues(words, operation, values);
  LeaveOutUnread(operation, values);
  if (!Names(values, kSynchronous) && FindArgument(operation, kSynchronous) != nullptr) {
    values.push_back({std::string(kSynchronous), Boolean(!words.asynchronous)});
  }
  for (NamedValue& given : SplitAll(words.rowsets, "rowset", operation)) {
    selects_.push_back({Recordset::New(), given.value.ToText()});
    values.push_back({std::move(given.name), selects_.back().rowset});
  }
  return BoundTo(operation, values);
}

Outcome CallInWords::Run(clsStolvane1& session) const {
  for (const Bound& setting : settings_) Call(session, setting.operation, setting.values);
  if (cancel_) session.CancelFetching(True);
  for (const Select& select : selects_) OpenSelect(session, select.text, *select.rowset);
  return Call(session, call_.operation, call_.values);
}

std::string Describe(const Operation& operation) {
  std::string text = fmt::format("  {}\n      {}\n", UsageOf(operation), operation.help);
  for (const Argument& argument : operation.arguments) {
    text += fmt::format("      {:<24} {}. {}\n", argument.name, TakesWhat(argument), argument.help);
  }
  return text;
}

std::string UsageInWords(std::string_view operation) {
  const Operation* found = FindOperation(operation);
  if (found == nullptr) return {};
  std::string usage = "usage: stolvane run ";
  usage += found->name;
  usage += " --books CONNECTION";
  for (const Slot& slot : SlotsOf(*found)) {
    const Argument& argument = *slot.argument;
    if (!argument.IsRead() || slot.name == kSynchronous) continue;
    usage += MayBeLeftOut(argument) ? fmt::format(" [{}=...]", slot.name)
                                    : fmt::format(" {}=...", slot.name);
  }
  return usage + fmt::format("\n\"stolvane reports {}\" says what each of them is\n", found->name);
}

}  // namespace pstolvane1::automation
