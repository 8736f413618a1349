// Writes down what a session sends to its engine.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Connection.h"

namespace pstolvane1::golden {

// Any books, opened through it. Shared with the connections that it hands out; may be called from
// any thread.
class RecordingBooks : public std::enable_shared_from_this<RecordingBooks> {
 public:
  // For a session.
  [[nodiscard]] ConnectionMaker Maker();
  // The SELECTs that have run, in their order.
  [[nodiscard]] std::vector<std::string> Selects() const;
  void Ran(std::string_view select);

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> selects_;
};

}  // namespace pstolvane1::golden
