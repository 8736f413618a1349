#include "host/StopSignals.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <thread>
#include <unistd.h>

namespace pstolvane1::host {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::array<int, 3> kStops = {SIGINT, SIGTERM, SIGHUP};
constexpr std::chrono::milliseconds kBetweenCalls{50};

std::atomic<bool>& PagerHasThem() {
  static std::atomic<bool> has{false};
  return has;
}

// Those that have their usual effect.
sigset_t SignalsToWaitFor() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : kStops) {
    struct sigaction now {};
    if (sigaction(signal, nullptr, &now) == 0 && now.sa_handler == SIG_DFL) sigaddset(&set, signal);
  }
  return set;
}

// Holds the signals back from this thread and those that it starts, and waits for them in one of
// its own.
class SignalThread {
 public:
  SignalThread(const std::function<void()>& abandon, std::chrono::seconds patience)
      : abandon_(abandon), patience_(patience) {
    const sigset_t set = SignalsToWaitFor();
    pthread_sigmask(SIG_BLOCK, &set, &mask_before_);
    signals_ = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
    end_ = eventfd(0, EFD_CLOEXEC);
    thread_ = std::thread([this] { Run(); });
  }
  ~SignalThread() {
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t told = write(end_, &one, sizeof one);
    thread_.join();
    close(signals_);
    close(end_);
    pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
  }
  SignalThread(const SignalThread&) = delete;
  SignalThread& operator=(const SignalThread&) = delete;

  [[nodiscard]] int Received() const { return received_; }

 private:
  void Run() {
    Clock::time_point since;
    while (true) {
      const int signal = Wait();
      if (ended_) return;
      if (signal != 0 && received_ == 0) {
        received_ = signal;
        since = Clock::now();
      } else if (signal != 0 || (received_ != 0 && Clock::now() - since > patience_)) {
        EndBy(received_);
      }
      if (received_ != 0) abandon_();
    }
  }

  // The next signal, or 0 when it is time for another call.
  int Wait() {
    std::array<pollfd, 2> waited{{{signals_, POLLIN, 0}, {end_, POLLIN, 0}}};
    const int at_most = received_ != 0 ? static_cast<int>(kBetweenCalls.count()) : -1;
    if (poll(waited.data(), waited.size(), at_most) < 0) return 0;
    ended_ = waited[1].revents != 0;
    signalfd_siginfo told{};
    if (waited[0].revents == 0 || read(signals_, &told, sizeof told) != sizeof told) return 0;
    return PagerHasThem() ? 0 : static_cast<int>(told.ssi_signo);
  }

  const std::function<void()>& abandon_;
  const std::chrono::seconds patience_;
  sigset_t mask_before_{};
  int signals_ = -1;
  int end_ = -1;
  std::atomic<int> received_{0};
  bool ended_ = false;
  std::thread thread_;
};

}  // namespace

void DoUntilSignal(const std::function<void()>& abandon, const std::function<void()>& work,
                   std::chrono::seconds patience) {
  std::exception_ptr failure;
  int received = 0;
  {
    const SignalThread signals(abandon, patience);
    try {
      work();
    } catch (...) {
      failure = std::current_exception();
    }
    received = signals.Received();
  }
  if (received != 0) throw StoppedBySignal{received};
  if (failure) std::rethrow_exception(failure);
}

void EndBy(int signal) {
  std::signal(signal, SIG_DFL);
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, signal);
  pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
  raise(signal);
  std::_Exit(128 + signal);
}

SignalsForThePager::SignalsForThePager() { PagerHasThem() = true; }

SignalsForThePager::~SignalsForThePager() { PagerHasThem() = false; }

FILE* SignalsForThePager::Open(const std::string& command) const {
  sigset_t none, before;
  sigemptyset(&none);
  pthread_sigmask(SIG_SETMASK, &none, &before);
  FILE* const pipe = popen(command.c_str(), "w");
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return pipe;
}

}  // namespace pstolvane1::host
