#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "session/data/Connection.h"
#include "session/data/MessageLoop.h"
#include "tests/data/FakeBooks.h"

namespace pstolvane1 {
namespace {

using std::chrono::milliseconds;

class ConnectionTest : public testing::Test {
 protected:
  ~ConnectionTest() override {
    connection_.reset();
    DoEvents();
    EXPECT_TRUE(AllGone(*books_));
  }

  // Records every ConnectComplete as "status description"; the thread must be the test's own.
  void Listen() {
    connection_->ConnectComplete = [this](const Error* error, int status, Connection& connection) {
      EXPECT_EQ(std::this_thread::get_id(), thread_);
      EXPECT_EQ(&connection, connection_.get());
      events_.push_back(std::to_string(status) + (error ? " " + error->Description() : ""));
    };
  }

  std::thread::id thread_ = std::this_thread::get_id();
  std::shared_ptr<FakeBooks> books_ = std::make_shared<FakeBooks>();
  std::shared_ptr<Connection> connection_ = Connection::New(books_->Factory(books_));
  std::vector<std::string> events_;
};

using Events = std::vector<std::string>;

TEST_F(ConnectionTest, OpensAtOnceAndTellsBeforeOpenReturns) {
  Listen();
  connection_->ConnectionString("books.db");
  connection_->CommandTimeout(120);
  EXPECT_EQ(connection_->State(), adStateClosed);
  connection_->Open("", "", "", adOptionUnspecified);
  EXPECT_EQ(connection_->State(), adStateOpen);
  EXPECT_EQ(events_, Events{"1"});
  EXPECT_EQ(books_->opened, Events{"books.db"});
  EXPECT_EQ(books_->time_limits.front(), std::chrono::seconds(120));
  DoEvents();
  EXPECT_EQ(events_, Events{"1"});
}

TEST_F(ConnectionTest, TheTextOfOpenReplacesTheOneSetBefore) {
  connection_->ConnectionString("old.db");
  connection_->Open("new.db");
  EXPECT_EQ(connection_->ConnectionString(), "new.db");
  EXPECT_EQ(books_->opened, Events{"new.db"});
}

TEST_F(ConnectionTest, AFailureAtOnceIsToldAndRaised) {
  books_->open_error.emplace(ErrorNumber::kConnection, "the books old.db are not there");
  Listen();
  EXPECT_EQ(Thrown([&] { connection_->Open("old.db"); }), "501: the books old.db are not there");
  EXPECT_EQ(events_, Events{"2 the books old.db are not there"});
  EXPECT_EQ(connection_->State(), adStateClosed);
}

TEST_F(ConnectionTest, AFactoryThatGivesNothingOrThrowsAnythingIsAFailure) {
  connection_ = Connection::New([](const auto&, auto) { return std::shared_ptr<Provider>(); });
  EXPECT_EQ(Thrown([&] { connection_->Open("x"); }), "501: no database was opened");
  connection_ = Connection::New([](const auto&, auto) -> std::shared_ptr<Provider> {
    throw std::runtime_error("out of descriptors");
  });
  EXPECT_EQ(Thrown([&] { connection_->Open("x"); }), "501: out of descriptors");
}

TEST_F(ConnectionTest, OpensInTheBackgroundAndTellsOnceWhilePumping) {
  books_->open_gate = std::make_shared<Gate>();
  Listen();
  connection_->Open("books.db", "", "", adAsyncConnect);
  EXPECT_EQ(connection_->State(), adStateConnecting);
  DoEvents();
  EXPECT_EQ(events_, Events{});
  books_->open_gate->Open();
  ASSERT_TRUE(PumpUntil([&] { return !events_.empty(); }));
  EXPECT_EQ(connection_->State(), adStateOpen);
  (void)WaitForEvents(milliseconds(10));
  EXPECT_EQ(events_, Events{"1"});
}

TEST_F(ConnectionTest, NothingIsToldUntilTheThreadPumps) {
  Listen();
  connection_->Open("books.db", "", "", adAsyncConnect);
  std::this_thread::sleep_for(milliseconds(30));
  EXPECT_EQ(connection_->State(), adStateConnecting);
  EXPECT_EQ(events_, Events{});
  ASSERT_TRUE(PumpUntil([&] { return connection_->State() == adStateOpen; }));
  EXPECT_EQ(events_, Events{"1"});
}

TEST_F(ConnectionTest, AFailureInTheBackgroundIsToldAndNotRaised) {
  books_->open_error.emplace(ErrorNumber::kConnection, "the books are damaged");
  Listen();
  connection_->Open("books.db", "", "", adAsyncConnect);
  ASSERT_TRUE(PumpUntil([&] { return !events_.empty(); }));
  EXPECT_EQ(events_, Events{"2 the books are damaged"});
  EXPECT_EQ(connection_->State(), adStateClosed);
}

TEST_F(ConnectionTest, CancelEndsTheAttemptAtOnceAndTells) {
  books_->open_gate = std::make_shared<Gate>();
  Listen();
  connection_->Open("books.db", "", "", adAsyncConnect);
  connection_->Cancel();
  EXPECT_EQ(connection_->State(), adStateClosed);
  EXPECT_EQ(events_, Events{});
  DoEvents();
  EXPECT_EQ(events_, Events{"2 the attempt to connect was cancelled"});
  books_->open_gate->Open();
  EXPECT_FALSE(WaitForEvents(milliseconds(30)) && connection_->State() == adStateOpen);
  EXPECT_EQ(events_.size(), 1U);
}

TEST_F(ConnectionTest, AnAttemptAfterACancelledOneIsItsOwn) {
  auto first = books_->open_gate = std::make_shared<Gate>();
  Listen();
  connection_->Open("first.db", "", "", adAsyncConnect);
  first->WaitForArrival();
  connection_->Cancel();
  books_->open_gate = nullptr;
  connection_->Open("second.db", "", "", adAsyncConnect);
  ASSERT_TRUE(PumpUntil([&] { return events_.size() == 2; }));
  EXPECT_EQ(events_, (Events{"2 the attempt to connect was cancelled", "1"}));
  first->Open();
  (void)WaitForEvents(milliseconds(30));
  EXPECT_EQ(connection_->State(), adStateOpen);
  EXPECT_EQ(events_.size(), 2U);
}

TEST_F(ConnectionTest, DestroyedWhileConnectingNothingIsTold) {
  books_->open_gate = std::make_shared<Gate>();
  int events = 0;
  connection_->ConnectComplete = [&](const Error*, int, Connection&) { ++events; };
  connection_->Open("books.db", "", "", adAsyncConnect);
  books_->open_gate->WaitForArrival();
  connection_.reset();
  books_->open_gate->Open();
  (void)WaitForEvents(milliseconds(50));
  EXPECT_EQ(events, 0);
  EXPECT_TRUE(AllGone(*books_));
}

TEST_F(ConnectionTest, AHandlerMayDropTheConnectionAndItself) {
  for (const int options : {int{adOptionUnspecified}, int{adAsyncConnect}}) {
    auto connection = Connection::New(books_->Factory(books_));
    bool told = false;
    connection->ConnectComplete = [&](const Error*, int, Connection& self) {
      told = true;
      connection.reset();
      self.ConnectComplete = nullptr;
      EXPECT_EQ(self.State(), adStateOpen);
    };
    connection->Open("books.db", "", "", options);
    ASSERT_TRUE(PumpUntil([&] { return told; }));
    EXPECT_EQ(connection, nullptr);
  }
}

TEST_F(ConnectionTest, WhatAHandlerThrowsGoesToOpenOrToThePump) {
  connection_->ConnectComplete = [](const Error*, int, Connection&) {
    throw std::runtime_error("handler");
  };
  EXPECT_THROW(connection_->Open("books.db"), std::runtime_error);
  EXPECT_EQ(connection_->State(), adStateOpen);
  connection_->Close();
  connection_->Open("books.db", "", "", adAsyncConnect);
  EXPECT_THROW((void)PumpUntil([] { return false; }), std::runtime_error);
  EXPECT_EQ(connection_->State(), adStateOpen);
}

TEST_F(ConnectionTest, MisuseIsRefused) {
  EXPECT_EQ(Thrown([&] { connection_->Close(); }), "3704: the connection is not open");
  EXPECT_EQ(Thrown([&] { (void)connection_->Translate("t"); }), "3709: the connection is not open");
  EXPECT_EQ(Thrown([&] { Connection::OneState one(connection_); }),
            "3709: the connection is not open");
  EXPECT_EQ(Thrown([&] { Connection::OneState one(nullptr); }), "3709: there is no connection");
  EXPECT_EQ(Thrown([&] { connection_->CommandTimeout(-1); }),
            "3001: CommandTimeout is -1 seconds; 0 is no limit");
  EXPECT_EQ(Thrown([&] { connection_->Open("b", "user"); }),
            "3001: a user and a password belong into the connection string");
  EXPECT_EQ(Thrown([&] { connection_->Open("b", "", "", 48); }),
            "3001: options of a connection are -1 or 16, not 48");
  connection_->Cancel();
  connection_->Open("b", "", "", adAsyncConnect);
  EXPECT_EQ(Thrown([&] { connection_->Open("b"); }),
            "3001: the connection is being opened already");
  EXPECT_EQ(Thrown([&] { (void)connection_->Translate("t"); }),
            "3709: the connection is still being opened");
  ASSERT_TRUE(PumpUntil([&] { return connection_->State() == adStateOpen; }));
  EXPECT_EQ(Thrown([&] { connection_->Open("b"); }),
            "3001: the connection is open already: close it first");
}

TEST_F(ConnectionTest, ClosesAndOpensAgain) {
  connection_->Open("b");
  connection_->Close();
  EXPECT_EQ(connection_->State(), adStateClosed);
  EXPECT_TRUE(AllGone(*books_));
  connection_->Open();
  EXPECT_EQ(connection_->State(), adStateOpen);
}

TEST_F(ConnectionTest, TranslatesWithoutRunning) {
  books_->AddNumbers("t", 3);
  connection_->Open("b");
  EXPECT_EQ(connection_->Translate(" t "), "ENGINE t");
  EXPECT_EQ(books_->snapshots_taken, 0);
  EXPECT_EQ(Thrown([&] { (void)connection_->Translate("u"); }),
            "-2147217900: line 1, column 1: there is no table u");
}

TEST_F(ConnectionTest, FirstTimeLimitIsThirtySecondsAndNoneIsZero) {
  EXPECT_EQ(connection_->CommandTimeout(), 30);
  connection_->CommandTimeout(0);
  connection_->Open("b");
  EXPECT_EQ(books_->time_limits.front(), milliseconds(0));
}

}  // namespace
}  // namespace pstolvane1
