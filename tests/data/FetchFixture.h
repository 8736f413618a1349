// What the tests of fetching share: books, a connection, and rowsets whose events are recorded.
#pragma once

#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "session/data/Connection.h"
#include "session/data/MessageLoop.h"
#include "session/data/Recordset.h"
#include "tests/data/FakeBooks.h"

namespace pstolvane1 {

using std::chrono::milliseconds;
using Events = std::vector<std::string>;

class FetchTest : public testing::Test {
 protected:
  ~FetchTest() override {
    connection_.reset();
    DoEvents();
    EXPECT_TRUE(AllGone(*books_));
  }

  std::shared_ptr<Connection>& Books() {
    if (!connection_) connection_ = Connected(books_);
    return connection_;
  }
  RecordsetPtr Open(const std::string& source) {
    RecordsetPtr rowset = Recordset::New();
    rowset->Open(source, Books(), adOpenStatic, adLockReadOnly);
    return rowset;
  }
  // A rowset whose events are recorded as "name progress 1/1" and "name complete 1".
  RecordsetPtr Listening(const std::string& name) {
    RecordsetPtr rowset = Recordset::New();
    rowset->FetchProgress = [this, name](std::int32_t progress, std::int32_t max_progress,
                                         int status, Recordset& self) {
      EXPECT_EQ(std::this_thread::get_id(), thread_);
      EXPECT_EQ(status, adStatusOK);
      EXPECT_EQ(self.State(), adStateOpen + adStateFetching);
      events_.push_back(name + " progress " + std::to_string(progress) + "/" +
                        std::to_string(max_progress));
    };
    rowset->FetchComplete = [this, name](const Error* error, int status, Recordset& self) {
      EXPECT_EQ(std::this_thread::get_id(), thread_);
      EXPECT_EQ(self.State(), adStateOpen);
      events_.push_back(name + " complete " + std::to_string(status) +
                        (error ? " " + error->Description() : ""));
    };
    rowset->ActiveConnection(Books());
    rowset->Properties()("Initial Fetch Size") = 1;
    return rowset;
  }
  static void OpenBeside(Recordset& rowset, const std::string& source) {
    rowset.Open(source, nullptr, adOpenStatic, adLockReadOnly, adAsyncExecuteFetch);
  }
  bool PumpUntilEvents(std::size_t count) {
    return PumpUntil([&] { return events_.size() >= count; });
  }

  std::thread::id thread_ = std::this_thread::get_id();
  std::shared_ptr<FakeBooks> books_ = std::make_shared<FakeBooks>();
  std::shared_ptr<Connection> connection_;
  Events events_;
};

}  // namespace pstolvane1
