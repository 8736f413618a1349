#include "viewer/Forms.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "automation/ArgumentWords.h"
#include "automation/Operations.h"
#include "automation/ReportTitles.h"
#include "automation/ShortForms.h"
#include "viewer/Question.h"

namespace pstolvane1::viewer {
namespace {

using automation::Argument;
using automation::ArgumentType;
using automation::Operation;
using Json = nlohmann::ordered_json;

constexpr std::size_t kMostNames = 50;
// Every database refuses its query, as is meant: a form of it could only fail.
constexpr std::string_view kNeverAnswered = "RtoSalesDetails1";

// A search needs conditions, and a person begins with all that there is to find.
struct FirstCondition {
  std::string_view operation, argument, text;
};
constexpr std::string_view kOfVehicles = "Batches1.EngineNo <> ''";
constexpr std::string_view kWithBuyers = "Where Terms1.Despatchto <> ''";
constexpr FirstCondition kFirstConditions[] = {
    {"AutoSearch", "strVouchertype", kOfVehicles},
    {"AutoSearch", "strBuyerFilter", kWithBuyers},
    {"RTOInsSearch", "strVouchertype", kOfVehicles},
    {"RTOInsSearch", "strBuyerFilter", kWithBuyers},
    {"AutoSearchServices", "strVouchertypeFilter", "Vouchertype1.SubRelatedTo = 39"},
};

std::string Dumped(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

bool IsAsked(const Argument& argument) {
  return argument.IsRead() && argument.type != ArgumentType::kRowset &&
         argument.name != "blnReport";
}

// What the short words give an operation without a choice, as "NAME=VALUE; ...".
std::string_view FixedOf(const Operation& operation) {
  for (const automation::ShortForm& form : automation::ShortForms()) {
    if (form.operation == operation.name) return form.fixed;
  }
  return {};
}

std::string FixedValue(const Operation& operation, const Argument& argument) {
  const std::string text = "; " + std::string(FixedOf(operation)) + ";";
  const std::string start = "; " + std::string(argument.name) + "=";
  const std::size_t at = text.find(start);
  if (at == std::string::npos) return {};
  const std::size_t begin = at + start.size();
  return text.substr(begin, text.find(';', begin) - begin);
}

std::string PresetOf(const Operation& operation, const Argument& argument) {
  if (std::string fixed = FixedValue(operation, argument); !fixed.empty()) return fixed;
  for (const FirstCondition& one : kFirstConditions) {
    if (one.operation == operation.name && one.argument == argument.name) {
      return std::string(one.text);
    }
  }
  if (const auto choices = automation::ChoicesOf(operation.name, argument.name); !choices.empty()) {
    return std::string(choices.front().value);
  }
  if (!argument.all.empty()) return std::string(argument.all);
  if (!argument.preset.empty()) return std::string(argument.preset);
  if (argument.enumeration != nullptr) {
    for (const automation::ReportTypeRule& rule : operation.report_types) {
      if (operation.decided_by == argument.name) {
        return automation::NameOf(*argument.enumeration, rule.asked);
      }
    }
  }
  if (argument.type == ArgumentType::kBoolean) return "false";
  return argument.type == ArgumentType::kSingle ? "1" : "";
}

Json ScaleValues() {
  Json values = Json::array();
  for (const automation::ScaleWords& scale : automation::Scales()) {
    values.push_back({{"name", fmt::format("{:.0f}", scale.divisor)}, {"words", scale.words}});
  }
  return values;
}

// Of those that decide the report type, the values that there is a report for.
Json ValuesOf(const Operation& operation, const Argument& argument) {
  if (argument.type == ArgumentType::kSingle) return ScaleValues();
  Json values = Json::array();
  for (const auto& choice : automation::ChoicesOf(operation.name, argument.name)) {
    values.push_back({{"name", choice.value}, {"words", choice.words}});
  }
  if (argument.enumeration == nullptr) return values;
  for (const EnumName& one : argument.enumeration->values) {
    const bool decides = operation.decided_by == argument.name;
    const bool has_report = std::ranges::any_of(
        operation.report_types,
        [&](const automation::ReportTypeRule& rule) { return rule.asked == one.value; });
    const bool its_own = std::ranges::any_of(
        operation.report_types,
        [&](const automation::ReportTypeRule& rule) { return rule.stored == one.value; });
    if (decides ? !has_report : !its_own) continue;
    values.push_back(
        {{"name", one.name}, {"words", automation::WordsOf(*argument.enumeration, one.value)}});
  }
  return values;
}

// The lists that a key is picked from, each with the argument and the value that it is for.
Json ListsOf(const Argument& argument) {
  Json lists = Json::array();
  const auto add = [&lists](const automation::NamesWhen& one) {
    lists.push_back({{"argument", one.argument},
                     {"value", one.value},
                     {"names", one.names->word},
                     {"label", automation::LabelOf(*one.names)}});
  };
  if (argument.master != nullptr) add({{}, {}, argument.master});
  std::ranges::for_each(argument.names_when, add);
  return lists;
}

Json Described(const Operation& operation, const Argument& argument) {
  return {{"name", argument.name},
          {"label", automation::LabelOf(argument)},
          {"help", argument.help},
          {"type", automation::NameOf(argument.type)},
          {"needed", !automation::MayBeLeftOut(argument)},
          {"preset", PresetOf(operation, argument)},
          {"all", argument.all},
          {"values", ValuesOf(operation, argument)},
          {"lists", ListsOf(argument)}};
}

Json Described(const Operation& operation) {
  Json arguments = Json::array();
  for (const Argument& argument : operation.arguments) {
    if (IsAsked(argument)) arguments.push_back(Described(operation, argument));
  }
  return {{"operation", operation.name},
          {"words", automation::TitleOf(operation, std::nullopt)},
          {"help", operation.help},
          {"arguments", std::move(arguments)}};
}

}  // namespace

std::string FormsAsJson(const Books& books) {
  Json families = Json::array();
  for (const Operation& operation : automation::Operations()) {
    if (!IsReport(operation) || operation.name == kNeverAnswered) continue;
    const std::string_view words = automation::FamilyInWords(operation.family);
    auto family =
        std::ranges::find_if(families, [&](const Json& one) { return one["words"] == words; });
    if (family == families.end()) {
      families.push_back({{"words", words}, {"reports", Json::array()}});
      family = std::prev(families.end());
    }
    (*family)["reports"].push_back(Described(operation));
  }
  Json years = Json::array();
  for (const Year& year : books.years()) {
    years.push_back({{"number", year.number},
                     {"name", year.name},
                     {"from", year.first.ToIso()},
                     {"to", year.last.ToIso()}});
  }
  return Dumped({{"families", std::move(families)}, {"years", std::move(years)}});
}

std::string NamesAsJson(const Books& books, const automation::Master& names,
                        const std::string& text) {
  const RecordsetPtr found = books.names(names, text);
  const ColumnHandle key = found->Column(names.key), name = found->Column(names.name);
  Json list = Json::array();
  for (const Recordset::Row row : found->Rows()) {
    if (list.size() == kMostNames) break;
    if (!row.IsNull(key)) list.push_back({{"key", row.Int32(key)}, {"name", row.Text(name)}});
  }
  return Dumped(list);
}

}  // namespace pstolvane1::viewer
