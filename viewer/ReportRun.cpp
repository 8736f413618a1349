#include "viewer/ReportRun.h"

#include <exception>
#include <fmt/format.h>

#include "session/data/Error.h"

namespace pstolvane1::viewer {
namespace {

constexpr std::chrono::milliseconds kBetweenLooks{100};

std::string Told(const std::exception& failure) {
  const auto* error = dynamic_cast<const Error*>(&failure);
  if (error == nullptr) return failure.what();
  return error->Cause().empty() ? error->Description()
                                : error->Description() + ": " + error->Cause();
}

}  // namespace

ReportRun::Busy::Busy(ReportRun& run) : run_(run) {
  const std::lock_guard lock(run_.mutex_);
  ++run_.busy_;
  run_.abandoned_ = false;
  run_.busy_since_ = Clock::now();
}

ReportRun::Busy::~Busy() {
  const std::lock_guard lock(run_.mutex_);
  --run_.busy_;
}

ReportRun::ReportRun(const automation::CallWords& words, const Limits& limits, Presenter present)
    : limits_(limits),
      call_(words),
      locale_(Locale::Get(words.locale)),
      present_(std::move(present)) {
  thread_ = std::thread([this] {
    {
      const std::lock_guard lock(mutex_);
      queue_ = MessageQueue::OfThisThread();
      busy_ = 1;
      busy_since_ = Clock::now();
      changed_.notify_all();
    }
    Work();
  });
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return queue_ != nullptr; });
}

ReportRun::~ReportRun() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  Post([] {});
  while (true) {
    {
      const std::lock_guard lock(mutex_);
      if (ended_) break;
      if (busy_ > 0 && session_ != nullptr) session_->Abandon();
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  thread_.join();
}

void ReportRun::Work() {
  {
    clsStolvane1 session;
    {
      const std::lock_guard lock(mutex_);
      session_ = &session;
    }
    try {
      MakeReport(session);
    } catch (const std::exception& failure) {
      Change([&](State& state) {
        state.stage = abandoned_ && state.problem.empty() ? Stage::kAbandoned : Stage::kFailed;
        if (state.problem.empty()) state.problem = Told(failure);
      });
    }
    {
      const std::lock_guard lock(mutex_);
      --busy_;
      abandoned_ = false;
    }
    const auto ended = [this] {
      const std::lock_guard lock(mutex_);
      return ending_;
    };
    while (!ended()) WaitForEvents(std::chrono::seconds(1));
    shown_.reset();
    const std::lock_guard lock(mutex_);
    session_ = nullptr;
  }
  const std::lock_guard lock(mutex_);
  ended_ = true;
}

void ReportRun::MakeReport(clsStolvane1& session) {
  RecordsetPtr report;
  session.FetchProgress = [this](std::uint8_t percent, std::string_view doing) {
    Change([&](State& state) {
      state.percent = percent;
      state.doing = doing;
    });
  };
  session.FetchComplete = [&](RecordsetPtr rowset, std::int32_t /*any_count*/) {
    report = std::move(rowset);
  };
  const auto given_up = [this] {
    const std::lock_guard lock(mutex_);
    return ending_ || abandoned_;
  };
  const Variant returned = given_up() ? Variant() : call_.Run(session).value;
  if (returned.Type() == adChapter) report = returned.ToRowset();
  while (report == nullptr && session.Fetching() && !given_up()) WaitForEvents(kBetweenLooks);
  session.FetchComplete = {};
  session.FetchProgress = {};
  if (given_up()) {
    session.Abandon();
    throw Error(ErrorNumber::kArgumentOutOfRange, "the report was abandoned");
  }
  if (report == nullptr) throw automation::WrongCall("there is no such report with this choice");
  if (report->RecordCount() > limits_.lines) {
    throw automation::WrongCall(
        fmt::format("the report has {} lines, and {} is the most that is shown; ask for a shorter "
                    "period or for less at once",
                    report->RecordCount(), limits_.lines));
  }
  shown_ = std::make_unique<ShownReport>(report, call_, locale_,
                                         present_ ? present_(call_, *locale_) : Presentation{},
                                         session.ReportIsWhole());
  Change([this](State& state) {
    state.stage = Stage::kDone;
    state.head = shown_->Head();
  });
}

void ReportRun::Change(const std::function<void(State&)>& change) {
  const std::lock_guard lock(mutex_);
  change(state_);
  ++state_.version;
  changed_.notify_all();
}

ReportRun::State ReportRun::After(std::uint64_t seen, std::chrono::milliseconds at_most) const {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, at_most, [&] { return state_.version > seen; });
  return state_;
}

void ReportRun::Abandon() {
  const std::lock_guard lock(mutex_);
  if (busy_ == 0) return;
  abandoned_ = true;
  if (session_ != nullptr) session_->Abandon();
}

void ReportRun::Watch() {
  const std::lock_guard lock(mutex_);
  if (busy_ == 0 || session_ == nullptr) return;
  if (!abandoned_ && Clock::now() - busy_since_ > limits_.time) {
    abandoned_ = true;
    if (state_.stage == Stage::kRunning) {
      state_.problem = "the report took longer than it may; ask for a shorter period";
    }
  }
  if (abandoned_) session_->Abandon();
}

void ReportRun::Listen() {
  const std::lock_guard lock(mutex_);
  ++listeners_;
}

void ReportRun::Leave() {
  const std::lock_guard lock(mutex_);
  if (--listeners_ == 0) alone_since_ = Clock::now();
}

std::chrono::milliseconds ReportRun::AloneFor() const {
  const std::lock_guard lock(mutex_);
  if (listeners_ > 0) return {};
  return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - alone_since_);
}

void ReportRun::Post(std::function<void()> task) {
  const std::lock_guard lock(mutex_);
  if (queue_) queue_->Post(std::move(task));
}

}  // namespace pstolvane1::viewer
