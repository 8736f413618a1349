#include "automation/CatalogueJson.h"

#include <nlohmann/json.hpp>

#include "automation/Arguments.h"
#include "automation/Calls.h"
#include "automation/Operations.h"
#include "automation/SortText.h"

namespace pstolvane1::automation {
namespace {

using Json = nlohmann::ordered_json;

Json DefaultOf(const Argument& argument) {
  if (!argument.optional) return nullptr;
  switch (argument.type) {
    case ArgumentType::kByte:
    case ArgumentType::kInt32:
    case ArgumentType::kEnumeration:
      return argument.preset.empty() ? 0 : ValueFromText(argument, argument.preset).ToInt32();
    case ArgumentType::kSingle:
      return argument.preset.empty() ? 0.0 : ValueFromText(argument, argument.preset).ToDouble();
    case ArgumentType::kBoolean:
      return argument.preset == "true";
    case ArgumentType::kDate:
      return Date{}.ToIso();
    case ArgumentType::kText:
      return argument.preset;
    default:
      return nullptr;
  }
}

Json Described(const Argument& argument) {
  Json json{{"name", argument.name},
            {"type", NameOf(argument.type)},
            {"optional", argument.optional},
            {"default", DefaultOf(argument)},
            {"byReference", argument.by_reference},
            {"read", argument.IsRead()},
            {"help", argument.help}};
  if (argument.enumeration) json["enumeration"] = argument.enumeration->name;
  if (!argument.members.empty()) {
    for (const auto member : argument.members) json["members"].push_back(member);
  }
  return json;
}

Json Described(const Operation& operation) {
  Json types = Json::array();
  const Enumeration& names = *Enumerations().front();
  for (const ReportTypeRule& rule : operation.report_types) {
    Json one{{"name", NameOf(names, rule.stored)}, {"value", rule.stored}};
    if (!operation.decided_by.empty()) one["when"] = rule.asked;
    types.push_back(std::move(one));
  }
  Json sorting = Json::array();
  for (const SortRule& rule : operation.sorting) {
    sorting.push_back(
        {{"when", NameOf(rule.when)}, {"dummySort", NameOf(rule.form)}, {"sort", rule.pattern}});
  }
  Json arguments = Json::array();
  for (const Argument& argument : operation.arguments) arguments.push_back(Described(argument));
  Json json{{"name", operation.name},
            {"family", operation.family},
            {"built", true},
            {"launch", NameOf(operation.launch)},
            {"returns", NameOf(operation.returns)},
            {"help", operation.help},
            {"reportTypes", std::move(types)}};
  if (!operation.decided_by.empty()) json["decidedBy"] = operation.decided_by;
  if (!sorting.empty()) json["sorting"] = std::move(sorting);
  json["arguments"] = std::move(arguments);
  return json;
}

Json Described(const Event& event) {
  Json arguments = Json::array();
  for (const EventArgument& one : event.arguments) {
    arguments.push_back({{"name", one.name}, {"type", one.type}, {"help", one.help}});
  }
  return {{"name", event.name}, {"help", event.help}, {"arguments", std::move(arguments)}};
}

Json Described(const Enumeration& enumeration) {
  Json values = Json::array();
  for (const EnumName& one : enumeration.values) {
    values.push_back({{"name", one.name}, {"value", one.value}});
  }
  return {{"name", enumeration.name}, {"values", std::move(values)}};
}

}  // namespace

std::string CatalogueAsJson() {
  Json all{
      {"operations", Json::array()}, {"events", Json::array()}, {"enumerations", Json::array()}};
  for (const Operation& one : Operations()) all["operations"].push_back(Described(one));
  for (const Event& one : Events()) all["events"].push_back(Described(one));
  for (const Enumeration* one : Enumerations()) all["enumerations"].push_back(Described(*one));
  return all.dump(2);
}

}  // namespace pstolvane1::automation
