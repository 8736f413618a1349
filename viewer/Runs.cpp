#include "viewer/Runs.h"

#include <algorithm>
#include <fmt/format.h>

namespace pstolvane1::viewer {
namespace {

constexpr std::chrono::milliseconds kBetweenLooks{50};

}  // namespace

Runs::Runs(const Limits& limits, Presenter present)
    : limits_(limits), present_(std::move(present)), watcher_([this] { Watch(); }) {}

Runs::~Runs() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  end_.notify_all();
  watcher_.join();
}

std::string Runs::Open(const automation::CallWords& words) {
  MakeRoom();
  const auto full = [this] { return runs_.size() >= limits_.reports; };
  const auto refuse = [this] {
    throw automation::WrongCall(fmt::format(
        "{} reports are open, and no more can be: close a page first", limits_.reports));
  };
  {
    const std::lock_guard lock(mutex_);
    if (full()) refuse();
  }
  auto run = std::make_shared<ReportRun>(words, limits_, present_);
  const std::lock_guard lock(mutex_);
  if (full()) refuse();
  std::string name = std::to_string(++last_);
  runs_.emplace(name, std::move(run));
  return name;
}

void Runs::MakeRoom() {
  const ByName runs = Copy();
  if (runs.size() < limits_.reports) return;
  const auto longest = std::ranges::max_element(
      runs, {}, [](const ByName::value_type& run) { return run.second->AloneFor(); });
  if (longest != runs.end() && longest->second->AloneFor() > limits_.spare) Close(longest->first);
}

std::shared_ptr<ReportRun> Runs::Find(const std::string& name) const {
  const std::lock_guard lock(mutex_);
  const auto found = runs_.find(name);
  return found == runs_.end() ? nullptr : found->second;
}

void Runs::Close(const std::string& name) {
  std::shared_ptr<ReportRun> closed;  // ends once the lock is free
  const std::lock_guard lock(mutex_);
  const auto found = runs_.find(name);
  if (found == runs_.end()) return;
  closed = std::move(found->second);
  runs_.erase(found);
}

std::size_t Runs::Count() const {
  const std::lock_guard lock(mutex_);
  return runs_.size();
}

Runs::ByName Runs::Copy() const {
  const std::lock_guard lock(mutex_);
  return runs_;
}

void Runs::Watch() {
  while (true) {
    {
      std::unique_lock lock(mutex_);
      if (end_.wait_for(lock, kBetweenLooks, [this] { return ending_; })) return;
    }
    for (const auto& [name, run] : Copy()) {
      run->Watch();
      if (run->AloneFor() > limits_.alone) Close(name);
    }
  }
}

}  // namespace pstolvane1::viewer
