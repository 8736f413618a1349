#include "automation/CSession.h"

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/ArgumentsJson.h"
#include "automation/CGuard.h"
#include "automation/CHandles.h"
#include "automation/CRowset.h"
#include "automation/Calls.h"
#include "automation/CatalogueJson.h"
#include "automation/Operations.h"
#include "automation/pstolvane1_c.h"
#include "session/engine/Engines.h"

namespace pstolvane1::automation {
namespace {

SelectOpener OpenerOf(clsStolvane1& session) {
  return [&session](std::string_view select) { return OpenSelect(session, select); };
}

void GiveRowset(const Outcome& outcome, pst_rowset** rowset) {
  if (rowset && outcome.value.Type() == adChapter) *rowset = HandOver(outcome.value.ToRowset());
}

// SetConnection lets the connection go before it knows that the next one opens.
void Reconnect(clsStolvane1& session, std::string_view books) {
  if (session.GetConnectionObject()) {
    try {
      NewBooksConnection()->Open(books);
    } catch (const Error& error) {
      if (const auto handler = session.OnConnect) handler(error.Description());
      throw Error(ErrorNumber::kConnection, "Unable to Connect to Database", error.what());
    }
  }
  session.SetConnection("", "", books, False);
}

// The handlers are copied into each event, so that one may replace them while it runs.
void Connect(clsStolvane1& session, const pst_events& events) {
  session.OnConnect = [events](std::string_view error) {
    if (events.on_connect) events.on_connect(events.context, Visible(error).c_str());
  };
  session.FetchProgress = [events](std::uint8_t percent, std::string_view message) {
    if (events.fetch_progress) {
      events.fetch_progress(events.context, percent, std::string(message).c_str());
    }
  };
  session.FetchComplete = [events](const RecordsetPtr& rowset, std::int32_t any_count) {
    if (events.fetch_complete) {
      events.fetch_complete(events.context, HandOver(rowset), any_count);
    }
  };
}

}  // namespace
}  // namespace pstolvane1::automation

namespace automation = pstolvane1::automation;
using automation::Given;
using automation::Guarded;
using automation::Mine;

pst_session* pst_session_new() {
  std::unique_ptr<pst_session> made;
  Guarded([&] { made = std::make_unique<pst_session>(); });
  return made.release();
}

void pst_session_free(pst_session* session) {
  Guarded([&] {
    if (session) const std::unique_ptr<pst_session> gone(&Mine(session));
  });
}

int32_t pst_session_connect(pst_session* session, const char* books) {
  return Guarded(
      [&] { automation::Reconnect(Mine(session).session, automation::TextOrNothing(books)); });
}

int32_t pst_session_abandon(pst_session* session) {
  return Guarded([&] {
    automation::Handles::UseAnyones(session, automation::HandleKind::kSession,
                                    [&] { session->session.Abandon(); });
  });
}

int32_t pst_session_report_is_whole(pst_session* session, int* whole) {
  return Guarded([&] {
    const bool is_whole = Mine(session).session.ReportIsWhole();
    Given(whole, "place for the answer") = is_whole ? 1 : 0;
  });
}

int32_t pst_session_is_fetching(pst_session* session, int* fetching) {
  return Guarded([&] {
    const bool is_fetching = Mine(session).session.Fetching();
    Given(fetching, "place for the answer") = is_fetching ? 1 : 0;
  });
}

int32_t pst_session_events(pst_session* session, const pst_events* events) {
  return Guarded(
      [&] { automation::Connect(Mine(session).session, events ? *events : pst_events{}); });
}

char* pst_catalogue() {
  char* json = nullptr;
  Guarded([&] { json = automation::CopyText(automation::CatalogueAsJson()); });
  return json;
}

int32_t pst_call(pst_session* session, const char* operation, const char* const* names,
                 const char* const* values, size_t count, pst_rowset** rowset) {
  if (rowset) *rowset = nullptr;
  return Guarded([&] {
    pstolvane1::clsStolvane1& called = Mine(session).session;
    const automation::Operation& described =
        automation::GetOperation(automation::TextOrNothing(operation));
    const auto text_at = [](const char* const* texts, size_t at, const char* what) {
      const char* const text = texts ? texts[at] : nullptr;
      static_cast<void>(Given(text, what));
      return std::string_view(text);
    };
    std::vector<automation::NamedValue> given;
    for (size_t i = 0; i < count; ++i) {
      const std::string_view name = text_at(names, i, "name");
      const std::string_view value = text_at(values, i, "value");
      given.push_back(
          automation::ArgumentFromText(described, name, value, automation::OpenerOf(called)));
    }
    automation::GiveRowset(automation::Call(called, described, given), rowset);
  });
}

int32_t pst_call_json(pst_session* session, const char* operation, const char* arguments,
                      pst_rowset** rowset, char** result) {
  if (rowset) *rowset = nullptr;
  if (result) *result = nullptr;
  return Guarded([&] {
    pstolvane1::clsStolvane1& called = Mine(session).session;
    const automation::Operation& described =
        automation::GetOperation(automation::TextOrNothing(operation));
    const auto given = automation::ArgumentsFromJson(
        described, automation::TextOrNothing(arguments), automation::OpenerOf(called));
    const automation::Outcome outcome = automation::Call(called, described, given);
    const std::string told = result ? automation::OutcomeAsJson(outcome) : std::string();
    automation::GiveRowset(outcome, rowset);
    if (result) *result = automation::CopyText(told);
  });
}

int32_t pst_pump(int32_t at_most) {
  return Guarded([&] {
    if (at_most > 0) {
      pstolvane1::WaitForEvents(std::chrono::milliseconds(at_most));
    } else {
      pstolvane1::DoEvents();
    }
  });
}

int pst_event_descriptor() {
  int descriptor = -1;
  Guarded([&] { descriptor = pstolvane1::EventDescriptor(); });
  return descriptor;
}
