#include "host/RunCommand.h"

#include <chrono>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>
#include <utility>

#include "host/ProgressBar.h"
#include "host/StopSignals.h"
#include "session/clsStolvane1.h"
#include "session/rowset/Export.h"

namespace pstolvane1::host {
namespace {

using automation::CallInWords;

constexpr double kLastPercentSynchronous = 20;
constexpr double kLastPercentAsynchronous = 60;

class Session {
 public:
  explicit Session(const RunOptions& options) : options_(options) {
    const double last =
        options.call.asynchronous ? kLastPercentAsynchronous : kLastPercentSynchronous;
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

  void Call(const CallInWords& call) {
    const Variant returned = call.Run(session_).value;
    if (returned.Type() == adChapter) delivered_ = returned.ToRowset();
    while (delivered_ == nullptr && session_.Fetching()) {
      WaitForEvents(std::chrono::milliseconds(200));
    }
  }

  // From any thread.
  void Abandon() { session_.Abandon(); }

  void WriteResult(const CallInWords& call) {
    const std::string_view operation = call.Called().name;
    const auto report_type = call.ReportType();
    const auto json = [&] {
      nlohmann::ordered_json head;
      head["operation"] = operation;
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
      Write(*delivered_, operation, options_.output, json);
    } else if (options_.output.format == Format::kJson) {
      WriteText(json() + '\n', options_.output);
    }
  }

 private:
  const RunOptions& options_;
  ProgressBar bar_;
  clsStolvane1 session_;
  nlohmann::ordered_json events_ = nlohmann::ordered_json::array();
  RecordsetPtr delivered_;
  std::optional<std::int32_t> any_count_;
};

}  // namespace

void Run(const RunOptions& options) {
  const CallInWords call(options.call);
  Session session(options);
  DoUntilSignal([&] { session.Abandon(); },
                [&] {
                  session.Call(call);
                  session.WriteResult(call);
                });
}

}  // namespace pstolvane1::host
