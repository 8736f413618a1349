#include "host/RunCommand.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>
#include <utility>

#include "automation/Arguments.h"
#include "automation/Calls.h"
#include "automation/Operations.h"
#include "host/ProgressBar.h"
#include "host/ReportsCommand.h"
#include "host/WrongCall.h"
#include "session/clsStolvane1.h"
#include "session/data/TextFold.h"
#include "session/rowset/Export.h"

namespace pstolvane1::host {
namespace {

using automation::Argument;
using automation::ArgumentType;
using automation::NamedValue;
using automation::Operation;

constexpr std::string_view kSynchronous = "blnReport";
constexpr double kLastPercentSynchronous = 20;
constexpr double kLastPercentAsynchronous = 60;

[[noreturn]] void RaiseWrongCall(const std::string& problem, const Operation& operation) {
  throw WrongCall(problem + "\n\n" + UsageOfRun(operation.name));
}

// "NAME=VALUE" texts, which name arguments of the operation.
std::vector<NamedValue> SplitAll(const std::vector<std::string>& texts, std::string_view what,
                                 const Operation& operation) {
  std::vector<NamedValue> values;
  for (const std::string& text : texts) {
    const std::size_t equals = text.find('=');
    if (equals == 0 || equals == std::string::npos) {
      RaiseWrongCall("\"" + text + "\" is no " + std::string(what) + ": write NAME=VALUE",
                     operation);
    }
    values.push_back({text.substr(0, equals), Variant(text.substr(equals + 1))});
  }
  return values;
}

// What was wrong with the typed arguments is a wrong call; Bind's errors show the right ones.
automation::BoundValues Checked(const Operation& operation, const std::vector<NamedValue>& values) {
  try {
    return automation::Bind(operation, values);
  } catch (const Error& error) {
    const std::string usage = "; " + automation::UsageOf(operation);
    std::string problem = error.Description();
    if (problem.ends_with(usage)) problem.resize(problem.size() - usage.size());
    RaiseWrongCall(problem, operation);
  }
}

class Session {
 public:
  explicit Session(const RunOptions& options) : options_(options) {
    const double last = options.asynchronous ? kLastPercentAsynchronous : kLastPercentSynchronous;
    session_.OnConnect = [this](std::string_view text) {
      events_.push_back({{"name", "OnConnect"}, {"ErrString", text}});
    };
    session_.FetchProgress = [this, last](std::uint8_t percent, std::string_view message) {
      if (options_.events) {
        events_.push_back(
            {{"name", "FetchProgress"}, {"bytFetchPercent", percent}, {"strmessage", message}});
      }
      bar_.Show(percent / last, message);
    };
    session_.FetchComplete = [this](RecordsetPtr rowset, std::int32_t any_count) {
      events_.push_back({{"name", "FetchComplete"}, {"anyCount", any_count}});
      delivered_ = std::move(rowset);
      any_count_ = any_count;
    };
  }

  // The session's own operations, from the options that name their arguments.
  void SetUp() {
    CallMember("SetConnection", {{"strProvider", ""},
                                 {"strConnectionString", ""},
                                 {"strConnectionString1", options_.books},
                                 {"AsyncConnect", False},
                                 {"dtFromDate", OrEmpty(options_.books_from)},
                                 {"dtToDate", OrEmpty(options_.books_to)}});
    if (!options_.output.locale.empty())
      CallMember("SetLocale", {{"name", options_.output.locale}});
    if (!options_.aliases.empty()) {
      CallMember("SetAliases",
                 SplitAll(options_.aliases, "alias", automation::GetOperation("SetAliases")));
    }
    if (!options_.filters.empty()) CallMember("SetFilter", Filters());
    if (options_.cancel) CallMember("CancelFetching", {{"CancelFetching", True}});
  }

  void Call(const Operation& operation, std::vector<NamedValue> values) {
    for (NamedValue& rowset : SplitAll(options_.rowsets, "rowset", operation)) {
      rowset.value = automation::OpenSelect(session_, rowset.value.ToText());
      values.push_back(std::move(rowset));
    }
    const Variant returned = automation::Call(session_, operation, values).value;
    if (returned.Type() == adChapter) delivered_ = returned.ToRowset();
    while (delivered_ == nullptr && session_.Fetching()) {
      WaitForEvents(std::chrono::milliseconds(200));
    }
  }

  void WriteResult(const Operation& operation, std::optional<std::int32_t> report_type) {
    const auto json = [&] {
      nlohmann::ordered_json head;
      head["operation"] = operation.name;
      head["reportType"] = report_type ? nlohmann::ordered_json(*report_type) : nullptr;
      head["anyCount"] = any_count_ ? nlohmann::ordered_json(*any_count_) : nullptr;
      std::string text = head.dump();
      text.pop_back();
      text += ",\"columns\":" + (delivered_ ? ColumnsAsJson(*delivered_) : std::string("null"));
      text += ",\"rows\":" + (delivered_ ? RowsAsJson(*delivered_) : std::string("null"));
      if (options_.events) text += ",\"events\":" + events_.dump();
      return text += '}';
    };
    if (delivered_ != nullptr) {
      Write(*delivered_, operation.name, options_.output, json);
    } else if (options_.output.format == Format::kJson) {
      WriteText(json() + '\n', options_.output);
    }
  }

 private:
  static Variant OrEmpty(const std::string& text) {
    return text.empty() ? Variant() : Variant(text);
  }

  void CallMember(std::string_view name, const std::vector<NamedValue>& values) {
    const Operation& operation = automation::GetOperation(name);
    const automation::BoundValues bound = Checked(operation, values);
    automation::Call(session_, operation, bound);
  }

  // An argument of SetFilter that is not named leaves everything in.
  [[nodiscard]] std::vector<NamedValue> Filters() const {
    const Operation& set_filter = automation::GetOperation("SetFilter");
    std::vector<NamedValue> values = SplitAll(options_.filters, "filter", set_filter);
    for (const Argument& argument : set_filter.arguments) {
      const bool named = std::any_of(values.begin(), values.end(), [&](const NamedValue& value) {
        return EqualFolded(value.name, argument.name);
      });
      const bool text = argument.type == ArgumentType::kText;
      if (!named) values.push_back({std::string(argument.name), text ? Variant("") : Variant(0)});
    }
    return values;
  }

  const RunOptions& options_;
  ProgressBar bar_;
  clsStolvane1 session_;
  nlohmann::ordered_json events_ = nlohmann::ordered_json::array();
  RecordsetPtr delivered_;
  std::optional<std::int32_t> any_count_;
};

}  // namespace

std::string UsageOfRun(std::string_view operation) {
  const Operation* found = automation::FindOperation(operation);
  if (found == nullptr) return {};
  return "stolvane run OPERATION --books CONNECTION [NAME=VALUE ...]\n" + Describe(*found);
}

void Run(const RunOptions& options) {
  const Operation* operation = automation::FindOperation(options.operation);
  if (operation == nullptr) {
    throw WrongCall("there is no operation \"" + options.operation +
                    "\"; \"stolvane reports\" lists them");
  }
  std::vector<NamedValue> values = SplitAll(options.arguments, "argument", *operation);
  const bool path_chosen = std::any_of(values.begin(), values.end(), [](const NamedValue& value) {
    return EqualFolded(value.name, kSynchronous);
  });
  if (!path_chosen && automation::FindArgument(*operation, kSynchronous) != nullptr) {
    values.push_back({std::string(kSynchronous), Boolean(!options.asynchronous)});
  }
  std::vector<NamedValue> with_rowsets = values;
  for (NamedValue& rowset : SplitAll(options.rowsets, "rowset", *operation)) {
    with_rowsets.push_back({std::move(rowset.name), Recordset::New()});
  }
  const automation::BoundValues bound = Checked(*operation, with_rowsets);

  Session session(options);
  session.SetUp();
  session.Call(*operation, std::move(values));
  session.WriteResult(*operation, automation::ReportTypeOf(*operation, bound));
}

}  // namespace pstolvane1::host
