// SetConnection and the event of its connection.
#include <exception>
#include <new>
#include <utility>

#include "session/ReportFrame.h"
#include "session/data/ConnectionAccess.h"
#include "session/data/OutOfMemory.h"

namespace pstolvane1 {
namespace {

constexpr int kCommandTimeout = 120;  // seconds

std::string DescriptionOf(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const std::bad_alloc&) {
    return OutOfMemory("opening the books").Description();
  } catch (const std::exception& error) {
    return error.what();
  } catch (...) {
    return "unknown";
  }
}

}  // namespace

void ReportFrame::SetConnection(std::string_view saved_connection,
                                std::string_view connection_string, Boolean asynchronous,
                                Date books_from, Date books_to, std::string_view currency_prefix,
                                std::string_view currency_suffix) {
  const std::string prefix(currency_prefix);
  const std::string suffix(currency_suffix);
  try {
    MainCn = make_connection_();
    if (!MainCn) throw Error(ErrorNumber::kObjectNotSet, "no connection was made");
    abandoning_.ReadFrom(ConnectionAccess::FetchesOf(*MainCn));
    static_cast<void>(abandoning_.Begin());  // to connect can be abandoned as a report can
    module.strSavedConnection = saved_connection;
    Connect(std::string(connection_string), asynchronous);
    module.dtBooksFrom = books_from;
    module.dtBooksTo = books_to;
    module.blnConnected = true;
    module.international.strDateSeparator = LocaleInfoText(Texts(), 29);
    module.strCurrencyPrefix = prefix;
    module.strCurrencySuffix = suffix.empty() ? "Paise" : suffix;
  } catch (...) {
    const std::exception_ptr failure = std::current_exception();
    try {
      if (MainCn && MainCn->State() == adStateOpen) MainCn->Close();
    } catch (...) {  // the failure to tell is the first one
    }
    MainCn.reset();
    module.blnConnected = false;
    throw Error(ErrorNumber::kConnection, "Unable to Connect to Database", DescriptionOf(failure));
  }
}

void ReportFrame::Connect(const std::string& connection_string, Boolean asynchronous) {
  // A handler of OnConnect may replace MainCn or end the session while Open runs.
  const std::shared_ptr<Connection> connection = MainCn;
  connection->ConnectionString(connection_string);
  connection->CommandTimeout(kCommandTimeout);
  connection->ConnectComplete = [weak = weak_from_this()](const Error* error, int status,
                                                          Connection& from) {
    const std::shared_ptr<ReportFrame> frame = weak.lock();
    if (frame && frame->MainCn.get() == &from) frame->MainCn_ConnectComplete(error, status);
  };
  connection->Open("", "", "",
                   asynchronous.IsTrue() ? int{adAsyncConnect} : int{adOptionUnspecified});
}

void ReportFrame::MainCn_ConnectComplete(const Error* pError, int adStatus) {
  if (events_ == nullptr || !events_->OnConnect) return;
  const auto handler = events_->OnConnect;  // it may assign another or end the session
  if (pError != nullptr) {
    handler(pError->Description());
  } else {
    handler(adStatus == adStatusOK ? "" : "Connection Failed");
  }
}

}  // namespace pstolvane1
