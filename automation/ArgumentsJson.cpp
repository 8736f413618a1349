#include "automation/ArgumentsJson.h"

#include <fmt/format.h>
#include <limits>
#include <nlohmann/json.hpp>

#include "automation/Operations.h"
#include "session/data/Error.h"

namespace pstolvane1::automation {
namespace {

using Json = nlohmann::ordered_json;

[[noreturn]] void NotPlain(const std::string& problem) {
  throw Error(ErrorNumber::kArgumentOutOfRange,
              "the arguments are not a JSON object of plain values: " + problem);
}

Variant ValueOfJson(const std::string& name, const Json& json) {
  switch (json.type()) {
    case Json::value_t::null:
      return Null;
    case Json::value_t::boolean:
      return Boolean(json.get<bool>());
    case Json::value_t::number_integer:
      return json.get<std::int64_t>();
    case Json::value_t::number_unsigned:
      if (json.get<std::uint64_t>() > std::uint64_t{std::numeric_limits<std::int64_t>::max()}) {
        return json.get<double>();
      }
      return json.get<std::int64_t>();
    case Json::value_t::number_float:
      return json.get<double>();
    case Json::value_t::string:
      return json.get<std::string>();
    default:
      NotPlain(fmt::format("\"{}\" is {}", name, json.type_name()));
  }
}

Json JsonOf(const Variant& value) {
  switch (value.Type()) {
    case adBoolean:
      return value.ToBoolean().IsSet();
    case adInteger:
    case adBigInt:
      return value.ToInt64();
    case adSingle:
    case adDouble:
      return value.ToDouble();
    case adEmpty:
    case adChapter:
      return nullptr;
    default:
      return value.ToText();
  }
}

}  // namespace

NamedValue ArgumentFromText(const Operation& operation, std::string_view name,
                            std::string_view text, const SelectOpener& open) {
  const Argument* argument = FindArgument(operation, name);
  if (argument && argument->type == ArgumentType::kRowset) return {std::string(name), open(text)};
  return {std::string(name), text};
}

std::vector<NamedValue> ArgumentsFromJson(const Operation& operation, std::string_view json,
                                          const SelectOpener& open) {
  std::vector<NamedValue> values;
  if (json.empty()) return values;
  Json object;
  try {
    object = Json::parse(json);
  } catch (const Json::exception& problem) {
    NotPlain(problem.what());
  }
  if (!object.is_object()) NotPlain(fmt::format("it is {}", object.type_name()));
  for (const auto& [name, value] : object.items()) {
    if (value.is_string()) {
      values.push_back(ArgumentFromText(operation, name, value.get<std::string>(), open));
    } else {
      values.push_back({name, ValueOfJson(name, value)});
    }
  }
  return values;
}

std::string OutcomeAsJson(const Outcome& outcome) {
  Json changed = Json::object();
  for (const NamedValue& one : outcome.changed) changed[one.name] = JsonOf(one.value);
  return Json{{"value", JsonOf(outcome.value)}, {"changed", std::move(changed)}}.dump();
}

}  // namespace pstolvane1::automation
