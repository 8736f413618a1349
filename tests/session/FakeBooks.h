// Books in memory, for tests of what a session does with its connection and its fetches.
#pragma once

#include <atomic>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Connection.h"
#include "session/data/Provider.h"
#include "session/data/Variant.h"

namespace pstolvane1 {

struct FakeTable {
  std::vector<ColumnInfo> columns = {};
  std::vector<std::vector<Variant>> rows = {};
  std::optional<Error> failure = {};  // raised by the read behind the last row
  std::optional<Error> refusal = {};  // raised instead of running
  bool held = false;                  // reads wait until Release
};

// Shared by a test and the connections that it hands out. Every member may be called from any
// thread.
class FakeBooks : public std::enable_shared_from_this<FakeBooks> {
 public:
  // Queries whose text contains part get this table; the longest part that fits counts.
  void Answer(const std::string& part, FakeTable table);
  void Release();
  void OpenFails(std::string description);
  // Opening waits until Release.
  void OpenHolds();

  [[nodiscard]] std::vector<std::string> Queries() const;  // in the order of their running
  [[nodiscard]] std::vector<std::string> ConnectionStrings() const;
  [[nodiscard]] int Snapshots() const;

  // For a session.
  [[nodiscard]] ConnectionMaker Maker();

  // For its provider.
  std::shared_ptr<Provider> Open(const std::string& connection_string);
  FakeTable Find(std::string_view select) const;
  void Ran(std::string_view select);
  void TookSnapshot();
  void WaitForRelease(const std::atomic<bool>& cancelled) const;
  void WakeAll() const { released_changed_.notify_all(); }

 private:
  mutable std::mutex mutex_;
  mutable std::condition_variable released_changed_;
  bool released_ = false;
  bool open_holds_ = false;
  std::string open_failure_;
  std::map<std::string, FakeTable> tables_;
  std::vector<std::string> queries_;
  std::vector<std::string> connection_strings_;
  int snapshots_ = 0;
};

// A small ledger list as Doc_Initial's query gives it.
[[nodiscard]] FakeTable LedgerAmounts(std::vector<std::vector<Variant>> rows);

}  // namespace pstolvane1
