// A session on fake books that writes down what it is told.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "FakeBooks.h"
#include "session/clsStolvane1.h"
#include "session/modStolvane1.h"

namespace pstolvane1 {

using EventLog = std::vector<std::string>;

// Writes every event down: "OnConnect ''", "20 FetchingData", "FetchComplete 0". A run of equal
// events counts once, as how often a rowset reports progress is its own affair.
inline void LogEvents(clsStolvane1Events& session, EventLog& log) {
  const auto add = [&log](std::string event) {
    if (log.empty() || log.back() != event) log.push_back(std::move(event));
  };
  session.OnConnect = [add](std::string_view text) {
    add("OnConnect '" + std::string(text) + "'");
  };
  session.FetchComplete = [add](const RecordsetPtr&, std::int32_t any_count) {
    add("FetchComplete " + std::to_string(any_count));
  };
  session.FetchProgress = [add](std::uint8_t percent, std::string_view message) {
    add(std::to_string(percent) + " " + std::string(message));
  };
}

// Pumps until done is true; fails the test when that takes too long.
template <typename Done>
void PumpUntil(Done&& done) {
  for (int round = 0; round < 500 && !done(); ++round) {
    (void)WaitForEvents(std::chrono::milliseconds(20));
  }
  ASSERT_TRUE(done()) << "what the test waits for did not happen";
}

class SessionTest : public testing::Test {
 protected:
  SessionTest() {
    *modStolvane1::OfThisThread() = modStolvane1();
    session = std::make_unique<clsStolvane1>(books->Maker());
    session->SetLocale("en_IN");
    LogEvents(*session, events);
  }

  void Connect() {
    session->SetConnection("", "", "books", False);
    events.clear();
  }
  // Doc_Initial of sale bills.
  RecordsetPtr Documents(Boolean blnReport) {
    return session->Doc_Initial(3, 10, Date::FromYmd(2003, 4, 1), Date::FromYmd(2004, 3, 31),
                                blnReport);
  }
  // Runs it asynchronously and gives what is delivered.
  RecordsetPtr FetchDocuments() {
    RecordsetPtr delivered;
    const auto logging = session->FetchComplete;
    session->FetchComplete = [&](RecordsetPtr rowset, std::int32_t any_count) {
      delivered = rowset;
      if (logging) logging(rowset, any_count);
    };
    EXPECT_EQ(Documents(False), nullptr);
    PumpUntil([&] { return delivered != nullptr; });
    session->FetchComplete = logging;
    return delivered;
  }

  std::shared_ptr<FakeBooks> books = std::make_shared<FakeBooks>();
  std::unique_ptr<clsStolvane1> session;
  EventLog events;
};

// The first column of a rowset, line by line.
inline std::vector<std::string> FirstColumn(Recordset& rowset) {
  std::vector<std::string> texts;
  for (Recordset::Row row : rowset.Rows()) {
    const Variant value = row[rowset.Fields()(0).Name()];
    texts.push_back(value.IsNull() ? "(null)" : value.ToText());
  }
  return texts;
}

}  // namespace pstolvane1
