// The reports that pages have open.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "viewer/ReportRun.h"

namespace pstolvane1::viewer {

// All members may be called from any thread.
class Runs {
 public:
  explicit Runs(const Limits& limits, Presenter present = {});
  ~Runs();
  Runs(const Runs&) = delete;
  Runs& operator=(const Runs&) = delete;

  // The new report's name. When as many are open as may be, the one that has been alone for the
  // longest time is closed for it; WrongCall when none has been so for Limits::spare.
  [[nodiscard]] std::string Open(const automation::CallWords& words);
  // nullptr for an unknown name.
  [[nodiscard]] std::shared_ptr<ReportRun> Find(const std::string& name) const;
  void Close(const std::string& name);
  [[nodiscard]] std::size_t Count() const;

 private:
  using ByName = std::map<std::string, std::shared_ptr<ReportRun>>;

  void Watch();
  void MakeRoom();
  [[nodiscard]] ByName Copy() const;

  const Limits limits_;
  const Presenter present_;
  mutable std::mutex mutex_;
  std::condition_variable end_;
  bool ending_ = false;
  std::uint64_t last_ = 0;
  ByName runs_;
  std::thread watcher_;
};

}  // namespace pstolvane1::viewer
