#include "SessionHarness.h"

namespace pstolvane1 {
namespace {

class ConnectTest : public SessionTest {
 protected:
  modStolvane1& module = *modStolvane1::OfThisThread();
};

TEST_F(ConnectTest, BeforeSetConnectionThereIsNoConnectionObject) {
  EXPECT_EQ(session->GetConnectionObject(), nullptr);
}

TEST_F(ConnectTest, ASynchronousConnectIsOpenWhenItReturns) {
  EXPECT_TRUE(session->SetConnection("any provider", "saved", "books", False,
                                     Date::FromYmd(2003, 4, 1), Date::FromYmd(2004, 3, 31)));
  ASSERT_NE(session->GetConnectionObject(), nullptr);
  EXPECT_EQ(session->GetConnectionObject()->State(), adStateOpen);
  EXPECT_EQ(session->GetConnectionObject()->CommandTimeout(), 120);
  EXPECT_EQ(events, (EventLog{"OnConnect ''"}));
  EXPECT_TRUE(module.blnConnected);
  EXPECT_EQ(module.strSavedConnection, "saved");
  EXPECT_EQ(module.dtBooksFrom, Date::FromYmd(2003, 4, 1));
  EXPECT_EQ(module.dtBooksTo, Date::FromYmd(2004, 3, 31));
  EXPECT_EQ(module.international.strDateSeparator, "/");
  EXPECT_EQ(module.strCurrencyPrefix, "Rupees");
  EXPECT_EQ(module.strCurrencySuffix, "Paise");
}

TEST_F(ConnectTest, OnlyTheFourthArgumentReachesTheConnection) {
  session->SetConnection("x", "an invalid = text;;", "books", False);
  EXPECT_EQ(books->ConnectionStrings(), std::vector<std::string>{"books"});
}

TEST_F(ConnectTest, AnEmptyCurrencySuffixIsPaiseAndAnEmptyPrefixStaysEmpty) {
  session->SetConnection("", "", "books", False, {}, {}, "", "");
  EXPECT_EQ(module.strCurrencyPrefix, "");
  EXPECT_EQ(module.strCurrencySuffix, "Paise");
}

TEST_F(ConnectTest, AnAsynchronousConnectTellsByOnConnect) {
  books->OpenHolds();
  EXPECT_TRUE(session->SetConnection("", "", "books"));
  EXPECT_EQ(session->GetConnectionObject()->State(), adStateConnecting);
  EXPECT_EQ(events, EventLog{});
  books->Release();
  PumpUntil([&] { return !events.empty(); });
  EXPECT_EQ(events, (EventLog{"OnConnect ''"}));
  EXPECT_EQ(session->GetConnectionObject()->State(), adStateOpen);
}

TEST_F(ConnectTest, AsyncConnectOf1IsNotTrueAndConnectsAtOnce) {
  session->SetConnection("", "", "books", 1);
  EXPECT_EQ(session->GetConnectionObject()->State(), adStateOpen);
  EXPECT_EQ(events, (EventLog{"OnConnect ''"}));
}

TEST_F(ConnectTest, ASynchronousFailureIsError501WithItsCause) {
  books->OpenFails("books: no such file");
  try {
    session->SetConnection("", "", "books", False);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kConnection);
    EXPECT_EQ(error.Description(), "Unable to Connect to Database");
    EXPECT_EQ(error.Cause(), "books: no such file");
    EXPECT_STREQ(error.what(), "Unable to Connect to Database: books: no such file");
  }
  EXPECT_EQ(session->GetConnectionObject(), nullptr);
  EXPECT_FALSE(module.blnConnected);
  EXPECT_EQ(events, (EventLog{"OnConnect 'books: no such file'"}));
}

TEST_F(ConnectTest, AnAsynchronousFailureReachesOnConnectOnly) {
  books->OpenFails("books: no such file");
  EXPECT_TRUE(session->SetConnection("", "", "books", True));
  PumpUntil([&] { return !events.empty(); });
  EXPECT_EQ(events, (EventLog{"OnConnect 'books: no such file'"}));
  EXPECT_NE(session->GetConnectionObject(), nullptr);
}

TEST_F(ConnectTest, AConnectThatDidNotGoWellAndHasNoErrorTellsThatItFailed) {
  Connect();
  const std::shared_ptr<Connection> connection = session->GetConnectionObject();
  connection->ConnectComplete(nullptr, adStatusErrorsOccurred, *connection);
  connection->ConnectComplete(nullptr, adStatusOK, *connection);
  const Error error(ErrorNumber::kConnection, "the server is gone");
  connection->ConnectComplete(&error, adStatusOK, *connection);
  EXPECT_EQ(events, (EventLog{"OnConnect 'Connection Failed'", "OnConnect ''",
                              "OnConnect 'the server is gone'"}));
}

TEST_F(ConnectTest, AFailureLeavesTheBooksPeriodAndTheCurrencyAsTheyWere) {
  session->SetConnection("", "", "books", False, Date::FromYmd(2003, 4, 1),
                         Date::FromYmd(2004, 3, 31), "Euro", "Cent");
  books->OpenFails("locked");
  EXPECT_THROW(session->SetConnection("", "second", "other", False, Date::FromYmd(2005, 4, 1)),
               Error);
  EXPECT_EQ(module.dtBooksFrom, Date::FromYmd(2003, 4, 1));
  EXPECT_EQ(module.dtBooksTo, Date::FromYmd(2004, 3, 31));
  EXPECT_EQ(module.strCurrencyPrefix, "Euro");
  EXPECT_EQ(module.strCurrencySuffix, "Cent");
  EXPECT_EQ(module.strSavedConnection, "second");
  EXPECT_EQ(session->GetConnectionObject(), nullptr);
}

TEST_F(ConnectTest, AnAsynchronousConnectHasTakenItsArgumentsWhenItReturns) {
  books->OpenHolds();
  session->SetConnection("", "saved", "books", True, Date::FromYmd(2003, 4, 1),
                         Date::FromYmd(2004, 3, 31));
  EXPECT_TRUE(module.blnConnected);
  EXPECT_EQ(module.strSavedConnection, "saved");
  EXPECT_EQ(module.dtBooksFrom, Date::FromYmd(2003, 4, 1));
  EXPECT_EQ(module.international.strDateSeparator, "/");
  EXPECT_EQ(module.strCurrencySuffix, "Paise");
  books->Release();
}

TEST_F(ConnectTest, AfterAFailureTheSessionCanConnect) {
  books->OpenFails("locked");
  EXPECT_THROW(session->SetConnection("", "", "books", False), Error);
  books->OpenFails("");
  EXPECT_TRUE(session->SetConnection("", "", "books", False));
  EXPECT_EQ(session->GetConnectionObject()->State(), adStateOpen);
}

TEST_F(ConnectTest, AHandlerThatThrowsOnASynchronousConnectIsAFailureToConnect) {
  session->OnConnect = [](std::string_view) { throw std::runtime_error("host"); };
  try {
    session->SetConnection("", "", "books", False);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(), "Unable to Connect to Database");
    EXPECT_EQ(error.Cause(), "host");
  }
  EXPECT_EQ(session->GetConnectionObject(), nullptr);
}

TEST_F(ConnectTest, ASecondSetConnectionReplacesTheConnectionWithoutClosingTheFirst) {
  session->SetConnection("", "", "first", False);
  const std::shared_ptr<Connection> first = session->GetConnectionObject();
  session->SetConnection("", "", "second", False);
  EXPECT_NE(session->GetConnectionObject(), first);
  EXPECT_EQ(first->State(), adStateOpen);
  EXPECT_EQ(books->ConnectionStrings(), (std::vector<std::string>{"first", "second"}));
}

TEST_F(ConnectTest, AReplacedConnectionThatOpensLaterIsNotHeard) {
  books->OpenHolds();
  session->SetConnection("", "", "first", True);
  const std::shared_ptr<Connection> first = session->GetConnectionObject();
  session->SetConnection("", "", "second", True);
  books->Release();
  PumpUntil([&] { return first->State() == adStateOpen && !events.empty(); });
  DoEvents();
  EXPECT_EQ(events, (EventLog{"OnConnect ''"}));
}

TEST_F(ConnectTest, DestroyedWhileConnectingItIsSilent) {
  books->OpenHolds();
  session->SetConnection("", "", "books", True);
  session.reset();
  books->Release();
  (void)WaitForEvents(std::chrono::milliseconds(50));
  EXPECT_EQ(events, EventLog{});
}

TEST_F(ConnectTest, DestroyedByItsOwnOnConnect) {
  session->OnConnect = [&](std::string_view) { session.reset(); };
  EXPECT_TRUE(session->SetConnection("", "", "books", False));
  EXPECT_EQ(session, nullptr);
}

TEST_F(ConnectTest, TheEndOfASessionClosesItsConnectionAndClearsTheFetchCount) {
  Connect();
  const std::shared_ptr<Connection> connection = session->GetConnectionObject();
  module.bytFetchesDone = 3;
  session.reset();
  EXPECT_EQ(module.bytFetchesDone, 0);
  EXPECT_EQ(connection->State(), adStateClosed);
}

TEST_F(ConnectTest, AnUnknownLocaleIsRefused) {
  try {
    session->SetLocale("tlh_KX");
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kArgumentOutOfRange);
  }
}

TEST_F(ConnectTest, ALocaleThatTheHostSetsGivesTheDateSeparator) {
  Connect();
  session->SetLocale("de_DE");
  EXPECT_EQ(module.international.strDateSeparator, ".");
  session->SetConnection("", "", "books", False);
  EXPECT_EQ(module.international.strDateSeparator, ".");
}

}  // namespace
}  // namespace pstolvane1
