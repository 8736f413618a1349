#include "host/RunCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>
#include <utility>

#include "automation/ReportTitles.h"
#include "host/CallWarnings.h"
#include "host/Command.h"
#include "host/OutputWords.h"
#include "host/ProgressBar.h"
#include "host/ReportHead.h"
#include "host/StopSignals.h"
#include "session/clsStolvane1.h"
#include "session/rowset/Export.h"
#include "session/rowset/ReportView.h"

namespace pstolvane1::host {
namespace {

using automation::CallInWords;

constexpr double kLastPercentSynchronous = 20;
constexpr double kLastPercentAsynchronous = 60;
constexpr std::int32_t kMostClosingLines = 4;

// Nothing but a rule and a total, if that.
bool HasNoLines(const Recordset& report) {
  if (report.RecordCount() > kMostClosingLines) return false;
  const ReportView view(report, Locale::Get("en_IN"));
  return std::ranges::none_of(view.Lines(), [](const ReportView::Line& line) {
    return line.kind == ReportView::LineKind::kLine;
  });
}

void WarnOf(const std::string& sentence) { std::cerr << "stolvane: warning: " << sentence << '\n'; }

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
      if (bar_) bar_->Show(percent / last, message);
    };
    session_.FetchComplete = [this](RecordsetPtr rowset, std::int32_t any_count) {
      events_.push_back({{"name", "FetchComplete"}, {"anyCount", any_count}});
      delivered_ = std::move(rowset);
      any_count_ = any_count;
    };
  }

  void Call(const CallInWords& call) {
    bar_.emplace("FetchingData");
    const Variant returned = call.Run(session_).value;
    if (returned.Type() == adChapter) delivered_ = returned.ToRowset();
    while (delivered_ == nullptr && session_.Fetching()) {
      WaitForEvents(std::chrono::milliseconds(200));
    }
    bar_.reset();
  }

  void Warn(const CallInWords& call, BooksLookup& books) const {
    if (options_.quiet) return;
    for (const std::string& sentence : WarningsOf(call, books)) WarnOf(sentence);
    if (!session_.ReportIsWhole()) {
      WarnOf("the report was cancelled: lines may be missing, and its totals are of those it has");
    } else if (delivered_ != nullptr && HasNoLines(*delivered_)) {
      WarnOf("the report has no lines");
    }
  }

  // From any thread.
  void Abandon() { session_.Abandon(); }

  void WriteResult(const CallInWords& call, BooksLookup& books) {
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
      Write(*delivered_, LookAt(call, books), options_.output, json);
    } else if (options_.output.format == Format::kJson) {
      WriteText(json() + '\n', options_.output);
    }
  }

 private:
  [[nodiscard]] pstolvane1::ReportLook LookAt(const CallInWords& call, BooksLookup& books) const {
    if (!ShowsALook(options_.output.format)) return {};
    return automation::LookOf(call, CompanyOf(options_.output), books.Keys(),
                              *Locale::Get(options_.output.locale), Today());
  }

  const RunOptions& options_;
  std::optional<ProgressBar> bar_;  // while the report is made
  clsStolvane1 session_;
  nlohmann::ordered_json events_ = nlohmann::ordered_json::array();
  RecordsetPtr delivered_;
  std::optional<std::int32_t> any_count_;
};

}  // namespace

void Run(const RunOptions& options, BooksLookup& books) {
  automation::CallWords words = options.call;
  words.key_of = [&books](const automation::Master& names, const std::string& name) {
    return books.KeyOf(names, name);
  };
  const CallInWords call(words);
  Session session(options);
  DoUntilSignal([&] { session.Abandon(); },
                [&] {
                  session.Call(call);
                  session.Warn(call, books);
                  session.WriteResult(call, books);
                });
}

void AddRunCommand(CLI::App& app, Asked& asked) {
  const auto options = std::make_shared<RunOptions>();
  automation::CallWords& call = options->call;
  CLI::App* run = app.add_subcommand("run", "One report, with all its arguments");
  run->add_option_function<std::string>(
         "OPERATION",
         [&asked, &call](const std::string& operation) {
           call.operation = operation;
           asked.operation = operation;
         },
         "as \"stolvane reports\" lists it")
      ->required();
  run->add_option("ARGUMENTS", call.arguments, "the operation's own, as NAME=VALUE")
      ->option_text("NAME=VALUE ...");
  run->add_option("--books", call.books, "the books")->required()->option_text("CONNECTION");
  run->add_flag("--async", call.asynchronous, "fetch in the background");
  run->add_option("--alias", call.aliases, "what is shown in place of a name, as taItem=EXPR")
      ->allow_extra_args(false)
      ->option_text("NAME=EXPR");
  run->add_option("--filter", call.filters, "an argument of SetFilter")
      ->allow_extra_args(false)
      ->option_text("NAME=VALUE");
  run->add_option("--rowset", call.rowsets, "a rowset argument, from the same books")
      ->allow_extra_args(false)
      ->option_text("NAME=SELECT");
  run->add_flag("--cancel", call.cancel, "set CancelFetching before the call");
  run->add_flag("--events", options->events, "with json: the events in order");
  run->add_option("--books-from", call.books_from, "first day of the books")->option_text("DATE");
  run->add_option("--books-to", call.books_to, "last day of the books")->option_text("DATE");
  AddOutput(*run, options->output);
  AddQuiet(*run, options->quiet);
  run->footer(
      "A name stands for a key where the books have it once, \"fifo\" for FifoRate, yes and no for "
      "a flag.\nExample:\n"
      "  stolvane run Doc_Initial --books mine.db lngVouchertype_id=10 dtFromDate=2004-04-01 "
      "dtToDate=2005-03-31");
  run->callback([&asked, options] {
    options->call.locale = options->output.locale;
    options->output.books = options->call.books;
    asked.command = [options] {
      BooksLookup books(options->call.books);
      Run(*options, books);
      return kSuccess;
    };
  });
}

}  // namespace pstolvane1::host
