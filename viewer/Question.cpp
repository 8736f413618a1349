#include "viewer/Question.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "automation/BooksRowsets.h"
#include "automation/Operations.h"

namespace pstolvane1::viewer {
namespace {

using automation::Argument;
using automation::CallWords;
using automation::LaunchKind;
using automation::ReturnKind;
using automation::WrongCall;
using Json = nlohmann::json;

std::vector<std::string> ArgumentsIn(const Json& question) {
  std::vector<std::string> texts;
  if (!question.contains("arguments")) return texts;
  if (!question["arguments"].is_object()) throw WrongCall("the arguments are no object");
  for (const auto& [name, text] : question["arguments"].items()) {
    if (!text.is_string()) throw WrongCall(fmt::format("{} is no text", name));
    texts.push_back(name + "=" + text.get<std::string>());
  }
  return texts;
}

}  // namespace

bool IsReport(const automation::Operation& operation) {
  const bool gives_rowset =
      operation.returns == ReturnKind::kRowset || operation.returns == ReturnKind::kRowsetInVariant;
  return gives_rowset && operation.launch != LaunchKind::kMember &&
         operation.launch != LaunchKind::kRowBuilder;
}

CallWords QuestionFromJson(std::string_view json, const std::string& connection,
                           const std::string& locale) {
  const Json question = Json::parse(json, nullptr, false);
  if (!question.is_object() || !question.contains("operation") ||
      !question["operation"].is_string()) {
    throw WrongCall("a question names its operation");
  }
  CallWords words;
  words.operation = question["operation"].get<std::string>();
  const automation::Operation& operation = automation::OperationNamed(words.operation);
  if (!IsReport(operation)) throw WrongCall(fmt::format("{} is no report", operation.name));
  words.arguments = ArgumentsIn(question);
  for (const Argument& argument : operation.arguments) {
    const std::string_view select = automation::SelectOfTheBooks(argument);
    if (!select.empty()) words.rowsets.push_back(fmt::format("{}={}", argument.name, select));
  }
  words.books = connection;
  words.locale = locale;
  words.asynchronous = !operation.at_once_only;
  return words;
}

}  // namespace pstolvane1::viewer
