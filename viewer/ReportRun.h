// One report that a page has asked for, from the question until the page goes.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>

#include "automation/CallInWords.h"
#include "session/clsStolvane1.h"
#include "viewer/Presentation.h"
#include "viewer/ShownReport.h"

namespace pstolvane1::viewer {

struct Limits {
  std::size_t reports = 10;                  // open at once
  std::int32_t lines = 1'000'000;            // of one report
  std::chrono::milliseconds time{600'000};   // for one report, and for one question about it
  std::chrono::milliseconds alone{600'000};  // a report without a page that listens stays so long
  std::chrono::milliseconds spare{3'000};    // and after so long gives way to another
};

// Has a session on a thread of its own. All members may be called from any thread.
class ReportRun {
 public:
  // Where `present` is empty, columns have their own names.
  ReportRun(const automation::CallWords& words, const Limits& limits, Presenter present = {});
  // Abandons what runs, closes the session and waits for its thread.
  ~ReportRun();
  ReportRun(const ReportRun&) = delete;
  ReportRun& operator=(const ReportRun&) = delete;

  enum class Stage : std::uint8_t { kRunning, kDone, kFailed, kAbandoned };
  struct State {
    std::uint64_t version = 0;  // grows with each change
    Stage stage = Stage::kRunning;
    int percent = 0;
    std::string doing;    // the library's own word
    std::string problem;  // of kFailed, a sentence
    std::string head;     // of kDone: ShownReport::Head
  };
  // The state once it is newer than the version seen, or when the time is over.
  [[nodiscard]] State After(std::uint64_t seen, std::chrono::milliseconds at_most) const;

  // Drops the report in hand, or what is done with it; it stays asked for until that has ended.
  void Abandon();
  // Asks the session to end once more if it was abandoned or takes longer than its limit. Called
  // every few hundredths of a second.
  void Watch();

  // A page listens to it, or no longer does.
  void Listen();
  void Leave();
  // How long no page has listened; 0 while one does.
  [[nodiscard]] std::chrono::milliseconds AloneFor() const;

  // What the function makes of the finished report, on the report's own thread. Its errors come
  // here. WrongCall while there is no report.
  template <typename F>
  auto Ask(F&& question) {
    // Handed over whole: a share of the error that stayed with the other thread could be the last.
    struct Outcome {
      std::optional<std::invoke_result_t<F, ShownReport&>> answer;
      std::exception_ptr failure;
    };
    auto answered = std::make_shared<std::promise<Outcome>>();
    std::future<Outcome> answer = answered->get_future();
    Post([this, answered, asked = std::forward<F>(question)]() mutable {
      Outcome outcome;
      try {
        if (!shown_) throw automation::WrongCall("the report is not there");
        const Busy busy(*this);
        outcome.answer = asked(*shown_);
      } catch (...) {
        outcome.failure = std::current_exception();
      }
      answered->set_value(std::move(outcome));
    });
    Outcome outcome = answer.get();
    if (outcome.failure) std::rethrow_exception(std::move(outcome.failure));
    return std::move(*outcome.answer);
  }

 private:
  using Clock = std::chrono::steady_clock;
  // Marks that the session is at work, for as long as it lives.
  class Busy {
   public:
    explicit Busy(ReportRun& run);
    ~Busy();
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

   private:
    ReportRun& run_;
  };

  void Work();
  void MakeReport(clsStolvane1& session);
  void Change(const std::function<void(State&)>& change);
  void Post(std::function<void()> task);

  const Limits limits_;
  const automation::CallInWords call_;
  const std::shared_ptr<const Locale> locale_;
  const Presenter present_;
  std::unique_ptr<ShownReport> shown_;  // of the thread

  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  State state_;
  clsStolvane1* session_ = nullptr;  // while it lives
  std::shared_ptr<MessageQueue> queue_;
  bool ending_ = false, ended_ = false, abandoned_ = false;
  int busy_ = 0, listeners_ = 0;
  Clock::time_point busy_since_, alone_since_ = Clock::now();
  std::thread thread_;
};

}  // namespace pstolvane1::viewer
