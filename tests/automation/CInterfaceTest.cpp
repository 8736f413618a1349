// The library as a host in another language meets it.
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "automation/pstolvane1_c.h"
#include "session/enmValuationMethod.h"
#include "tests/automation/CHost.h"
#include "tests/automation/SampleCompany.h"

namespace pstolvane1::automation {
namespace {

std::string Taken(char* text) {
  const std::string copy = text ? text : "(null)";
  pst_text_free(text);
  return copy;
}

class CInterface : public testing::Test {
 protected:
  CInterface() : session_(pst_session_new(), &pst_session_free) {}

  void Connect() {
    ASSERT_EQ(pst_session_connect(session_.get(), company_.File().c_str()), pst_ok);
  }
  pst_rowset* Open(const std::string& operation, const std::string& arguments) {
    pst_rowset* rowset = nullptr;
    EXPECT_EQ(pst_call_json(session_.get(), operation.c_str(), arguments.c_str(), &rowset, nullptr),
              pst_ok)
        << pst_error_text();
    kept_.emplace_back(rowset, &pst_rowset_free);
    return rowset;
  }

  SampleCompany company_;
  std::unique_ptr<pst_session, decltype(&pst_session_free)> session_;
  std::vector<std::unique_ptr<pst_rowset, decltype(&pst_rowset_free)>> kept_;
};

TEST_F(CInterface, TellsWhetherAReportIsWhole) {
  Connect();
  const std::string sales =
      R"({"bytYearno":1,"lngVouchertype_id":10,"dtFromDate":"2003-04-01","dtToDate":"2004-03-31"})";
  int whole = -1;
  Open("Doc_Initial", sales);
  EXPECT_EQ(pst_session_report_is_whole(session_.get(), &whole), pst_ok);
  EXPECT_EQ(whole, 1);
  ASSERT_EQ(pst_call_json(session_.get(), "CancelFetching", R"({"CancelFetching":true})", nullptr,
                          nullptr),
            pst_ok);
  Open("Doc_Initial", sales);
  EXPECT_EQ(pst_session_report_is_whole(session_.get(), &whole), pst_ok);
  EXPECT_EQ(whole, 0);
  EXPECT_EQ(pst_session_report_is_whole(session_.get(), nullptr), 91);
  EXPECT_EQ(pst_session_report_is_whole(nullptr, &whole), 91);
}

TEST_F(CInterface, SortsAReportByATwin) {
  Connect();
  pst_rowset* const sales = Open(
      "Doc_Initial",
      R"({"bytYearno":1,"lngVouchertype_id":10,"dtFromDate":"2003-04-01","dtToDate":"2004-03-31"})");
  char* order = nullptr;
  ASSERT_EQ(pst_sort_text("Doc_Initial", 0, pst_sort_descending, "LedgerSort", &order), pst_ok);
  const std::string text = Taken(order);
  EXPECT_EQ(text, "DummySort, LedgerSort DESC");
  const auto cell = [&](std::int32_t row, std::int32_t column) {
    char* taken = nullptr;
    EXPECT_EQ(pst_rowset_text(sales, row, column, &taken), pst_ok);
    return Taken(taken);
  };
  EXPECT_EQ(cell(0, 0), "Asha Motors");
  ASSERT_EQ(pst_rowset_sort(sales, text.c_str()), pst_ok);
  EXPECT_EQ(cell(0, 0), "Bharat Traders");
  EXPECT_EQ(cell(1, 0), "Asha Motors");
  EXPECT_EQ(cell(3, 0), "Total");
  EXPECT_EQ(pst_rowset_sort(sales, "Nothing"), 3265);
  EXPECT_EQ(pst_rowset_sort(sales, nullptr), 91);
  EXPECT_EQ(pst_rowset_sort(nullptr, ""), 91);
  EXPECT_EQ(pst_sort_text("LedgersByCode", 0, 0, "NAME", &order), 3001);
  EXPECT_EQ(order, nullptr);
  EXPECT_EQ(pst_sort_text("Nothing", 0, 0, "NAME", &order), 3001);
  EXPECT_EQ(pst_sort_text(nullptr, 0, 0, "NAME", &order), 91);
  EXPECT_EQ(pst_sort_text("Doc_Initial", 0, 0, nullptr, &order), 91);
  EXPECT_EQ(pst_sort_text("Doc_Initial", 0, 0, "LedgerSort", nullptr), 91);
  EXPECT_EQ(pst_sort_text("StockDetails_Itemwise", FifoRate, 0, "ValueSort", &order), pst_ok);
  EXPECT_EQ(Taken(order), "DummySort, ValueSort");
  EXPECT_EQ(
      pst_sort_text("StockDetails_Itemwise", AverageRate, pst_sort_detailed, "ValueSort", &order),
      pst_ok);
  EXPECT_EQ(Taken(order), "TotalLine, ValueSort, DummySort");
}

TEST_F(CInterface, ServesAHostWrittenInC) {
  char names[200];
  EXPECT_EQ(list_ledgers(company_.File().c_str(), names, sizeof names), 0);
  EXPECT_STREQ(names, "Asha Motors;Bharat Traders;");
  EXPECT_NE(list_ledgers("/nowhere/books.db", names, sizeof names), 0);
  EXPECT_TRUE(std::string_view(names).starts_with("Unable to Connect to Database: ")) << names;
}

TEST_F(CInterface, ReadsCellsInAnyOrder) {
  Connect();
  pst_rowset* lines = Open("POrderTextQuery", "{\"strFilter\": \"\"}");
  EXPECT_EQ(pst_rowset_rows(lines), 0);
  pst_rowset* documents = Open(
      "Doc_Initial",
      R"({"bytYearno":1,"lngVouchertype_id":10,"dtFromDate":"2003-04-01","dtToDate":"2004-03-31"})");
  ASSERT_EQ(pst_rowset_rows(documents), 4);
  ASSERT_EQ(pst_rowset_columns(documents), 7);
  EXPECT_STREQ(pst_rowset_name(documents, 2), "Ledger_Id");
  EXPECT_EQ(pst_rowset_type(documents, 2), 3);
  char* text = nullptr;
  ASSERT_EQ(pst_rowset_text(documents, 3, 0, &text), pst_ok);
  EXPECT_EQ(Taken(text), "Total");
  ASSERT_EQ(pst_rowset_text(documents, 0, 0, &text), pst_ok);
  EXPECT_EQ(Taken(text), "Asha Motors");
  ASSERT_EQ(pst_rowset_text(documents, 2, 0, &text), pst_ok);
  EXPECT_EQ(text, nullptr);  // the rule line has no ledger
  double number = -1;
  int is_null = -1;
  ASSERT_EQ(pst_rowset_number(documents, 1, 2, &number, &is_null), pst_ok);
  EXPECT_EQ(number, 2);
  EXPECT_EQ(is_null, 0);
  ASSERT_EQ(pst_rowset_number(documents, 2, 2, &number, &is_null), pst_ok);
  EXPECT_EQ(is_null, 1);
}

TEST_F(CInterface, ExportsWholeRowsets) {
  Connect();
  pst_rowset* ledgers = Open("LedgersByCode", R"({"bytYearno":1,"sCode":"","blnReport":true})");
  char* text = nullptr;
  ASSERT_EQ(pst_rowset_csv(ledgers, &text), pst_ok);
  EXPECT_EQ(Taken(text), "id,name\r\n1,Asha Motors\r\n2,Bharat Traders\r\n");
  ASSERT_EQ(pst_rowset_json(ledgers, &text), pst_ok);
  EXPECT_NE(Taken(text).find(R"([2,"Bharat Traders"])"), std::string::npos);
}

TEST_F(CInterface, WritesAReportAsAPage) {
  Connect();
  ASSERT_EQ(pst_call_json(session_.get(), "SetLocale", R"({"name":"en_IN"})", nullptr, nullptr),
            pst_ok);
  const char* const asked =
      R"({"bytYearno":1,"lngVouchertype_id":10,"dtFromDate":"2003-04-01","dtToDate":"2004-03-31"})";
  pst_rowset* const sales = Open("Doc_Initial", asked);
  char* html = nullptr;
  ASSERT_EQ(
      pst_report_html(session_.get(), sales, "Doc_Initial", asked, "Asha & Sons", "en_IN", &html),
      pst_ok)
      << pst_error_text();
  const std::string page = Taken(html);
  EXPECT_THAT(page,
              testing::HasSubstr("<h1>Documents by party</h1>\n<p>Asha &amp; Sons</p>\n"
                                 "<p>voucher type: Sale · 01/04/2003 to 31/03/2004 · printed "));
  EXPECT_THAT(page, testing::HasSubstr("<td>Asha Motors</td><td class=\"n\">₹250.00</td>"));

  const auto fails = [&](const pst_rowset* rowset, const char* operation, const char* arguments,
                         const char* locale) {
    const std::int32_t number =
        pst_report_html(session_.get(), rowset, operation, arguments, nullptr, locale, &html);
    EXPECT_EQ(html, nullptr);
    return number;
  };
  EXPECT_EQ(fails(nullptr, "Doc_Initial", asked, nullptr), 91);
  EXPECT_EQ(fails(sales, "Nothing", asked, nullptr), 3001);
  EXPECT_EQ(fails(sales, nullptr, asked, nullptr), 3001);
  EXPECT_EQ(fails(sales, "Doc_Initial", nullptr, nullptr), 3001);
  EXPECT_EQ(fails(sales, "Doc_Initial", asked, "xx_YY"), 3001);
  EXPECT_EQ(pst_report_html(session_.get(), sales, "Doc_Initial", asked, nullptr, nullptr, nullptr),
            91);
}

// Books made elsewhere may lack what a head only tells.
TEST_F(CInterface, APageOfBooksWithoutNamesGoesWithoutThem) {
  Connect();
  const char* const asked =
      R"({"bytYearno":1,"dtFromDate":"2003-04-01","dtToDate":"2004-03-31","lngAny_Id1":1,)"
      R"("lngAny_Id2":0,"ValuationMethod":"FifoRate","blnReport":true,"blnDetailed":false,)"
      R"("blnAltUom":false,"sngScale":1,"blnOnlyItems":false,"blnShowOpening":true,)"
      R"("blnShowInwards":true,"blnShowOutwards":true})";
  pst_rowset* const stock = Open("StockDetails_Categorywise", asked);
  char* html = nullptr;
  const auto page = [&](pst_session* session) {
    EXPECT_EQ(pst_report_html(session, stock, "StockDetails_Categorywise", asked, nullptr, "en_IN",
                              &html),
              pst_ok)
        << pst_error_text();
    return Taken(html);
  };
  const auto without_names =
      testing::HasSubstr("<p>01/04/2003 to 31/03/2004 · first in, first out · ");
  EXPECT_THAT(page(session_.get()), testing::HasSubstr("<p>item category: Parts · 01/04/2003 to "));
  EXPECT_THAT(page(nullptr), without_names);
  books::test::Database(company_.File()).Execute("alter table ItemCategory1 rename to Elsewhere");
  EXPECT_THAT(page(session_.get()), without_names);
  pst_session* const released = pst_session_new();
  pst_session_free(released);
  EXPECT_EQ(
      pst_report_html(released, stock, "StockDetails_Categorywise", asked, nullptr, nullptr, &html),
      91);
}

TEST_F(CInterface, GivesWhatACallReturnedAndChanged) {
  Connect();
  char* result = nullptr;
  pst_rowset* ledgers = nullptr;
  ASSERT_EQ(pst_call_json(session_.get(), "LedgersByCode",
                          R"({"bytYearno":1,"sCode":"1","blnReport":true})", &ledgers, &result),
            pst_ok);
  EXPECT_EQ(Taken(result),
            R"({"value":null,"changed":{"sCode":" SUBGROUPNAME1.CODE IN (1) AND "}})");
  pst_rowset_free(ledgers);
}

struct Heard {
  std::string events;
  std::int32_t rows = -1;
  pst_session* to_free = nullptr;
};

void OnProgress(void* context, std::uint8_t, const char* message) {
  auto& heard = *static_cast<Heard*>(context);
  if (!heard.events.ends_with(message)) heard.events += std::string(" ") + message;
}

void OnComplete(void* context, pst_rowset* rowset, std::int32_t any_count) {
  auto& heard = *static_cast<Heard*>(context);
  heard.events += " complete " + std::to_string(any_count);
  heard.rows = pst_rowset_rows(rowset);
  pst_rowset_free(rowset);
  pst_session_free(heard.to_free);
}

constexpr const char* kInBackground = R"({"bytYearno":1,"sCode":"","blnReport":false})";

TEST_F(CInterface, DeliversAReportByItsEvents) {
  Connect();
  Heard heard;
  const pst_events events{&heard, nullptr, &OnProgress, &OnComplete};
  ASSERT_EQ(pst_session_events(session_.get(), &events), pst_ok);
  int fetching = -1;
  EXPECT_EQ(pst_session_is_fetching(session_.get(), &fetching), pst_ok);
  EXPECT_EQ(fetching, 0);
  EXPECT_EQ(Open("LedgersByCode", kInBackground), nullptr);
  EXPECT_EQ(pst_session_is_fetching(session_.get(), &fetching), pst_ok);
  EXPECT_EQ(fetching, 1);
  for (int i = 0; i < 500 && heard.rows < 0; ++i) ASSERT_EQ(pst_pump(20), pst_ok);
  EXPECT_EQ(pst_session_is_fetching(session_.get(), &fetching), pst_ok);
  EXPECT_EQ(fetching, 0);
  EXPECT_EQ(pst_session_is_fetching(session_.get(), nullptr), 91);
  EXPECT_EQ(pst_session_is_fetching(nullptr, &fetching), 91);
  EXPECT_EQ(heard.rows, 2);
  EXPECT_EQ(heard.events, " FetchingData Manipulating complete 0");
  EXPECT_GE(pst_event_descriptor(), 0);
}

TEST_F(CInterface, AbandonsAReportFromAnyThread) {
  Connect();
  Heard heard;
  const pst_events events{&heard, nullptr, nullptr, &OnComplete};
  ASSERT_EQ(pst_session_events(session_.get(), &events), pst_ok);
  EXPECT_EQ(Open("LedgersByCode", kInBackground), nullptr);
  std::thread([&] { EXPECT_EQ(pst_session_abandon(session_.get()), pst_ok); }).join();
  EXPECT_EQ(Open("LedgersByCode", kInBackground), nullptr);
  EXPECT_EQ(pst_session_abandon(session_.get()), pst_ok);
  for (int i = 0; i < 10; ++i) ASSERT_EQ(pst_pump(20), pst_ok);
  EXPECT_EQ(heard.events, "");
  EXPECT_EQ(Open("LedgersByCode", kInBackground), nullptr);
  for (int i = 0; i < 500 && heard.rows < 0; ++i) ASSERT_EQ(pst_pump(20), pst_ok);
  EXPECT_EQ(heard.rows, 2);
}

void ExpectNoHandle(const std::string& told) {
  EXPECT_EQ(pst_error_number(), 91);
  EXPECT_EQ(pst_error_text(), told);
}

TEST_F(CInterface, RefusesHandlesOfAnotherThread) {
  Connect();
  pst_rowset* ledgers = Open("LedgersByCode", R"({"bytYearno":1,"sCode":"","blnReport":true})");
  std::thread([&] {
    EXPECT_EQ(pst_rowset_rows(ledgers), -1);
    ExpectNoHandle("the rowset belongs to another thread");
    char* text = nullptr;
    EXPECT_EQ(pst_rowset_text(ledgers, 0, 0, &text), 91);
    pst_rowset_free(ledgers);
    ExpectNoHandle("the rowset belongs to another thread");
    EXPECT_EQ(pst_call(session_.get(), "UserPressedCancel", nullptr, nullptr, 0, nullptr), 91);
    ExpectNoHandle("the session belongs to another thread");
    pst_session_free(session_.get());
    EXPECT_EQ(pst_session_connect(session_.get(), company_.File().c_str()), 91);
  }).join();
  EXPECT_EQ(pst_rowset_rows(ledgers), 2);
  EXPECT_EQ(pst_call(session_.get(), "UserPressedCancel", nullptr, nullptr, 0, nullptr), pst_ok);
}

TEST_F(CInterface, RefusesHandlesThatAreReleasedOrNone) {
  Connect();
  pst_session* released = pst_session_new();
  pst_session_free(released);
  EXPECT_EQ(pst_session_connect(released, company_.File().c_str()), 91);
  ExpectNoHandle("the session was released, or is none");
  EXPECT_EQ(pst_session_abandon(released), 91);
  pst_session_free(released);
  ExpectNoHandle("the session was released, or is none");
  std::array<long, 64> foreign{};
  EXPECT_EQ(pst_rowset_columns(reinterpret_cast<pst_rowset*>(foreign.data())), -1);
  ExpectNoHandle("the rowset was released, or is none");
  // A session is no rowset.
  EXPECT_EQ(pst_rowset_rows(reinterpret_cast<pst_rowset*>(session_.get())), -1);
  ExpectNoHandle("the rowset was released, or is none");
  EXPECT_EQ(pst_rowset_rows(nullptr), -1);
  ExpectNoHandle("no rowset was given");
  pst_session_free(nullptr);
  pst_rowset_free(nullptr);
}

TEST_F(CInterface, KeepsTheConnectionThatWorked) {
  Connect();
  std::string told;
  const pst_events events{
      &told, [](void* context, const char* error) { *static_cast<std::string*>(context) = error; },
      nullptr, nullptr};
  ASSERT_EQ(pst_session_events(session_.get(), &events), pst_ok);
  EXPECT_EQ(pst_session_connect(session_.get(), "/nowhere/books.db"), 501);
  EXPECT_TRUE(std::string_view(pst_error_text()).starts_with("Unable to Connect to Database: "))
      << pst_error_text();
  EXPECT_NE(told, "");
  pst_rowset* ledgers = Open("LedgersByCode", R"({"bytYearno":1,"sCode":"","blnReport":true})");
  EXPECT_EQ(pst_rowset_rows(ledgers), 2);
}

TEST_F(CInterface, ShowsZeroBytesInErrorTexts) {
  Connect();
  EXPECT_EQ(
      pst_call_json(session_.get(), "LedgersByCode",
                    R"({"bytYearno":"1\u00002","sCode":"","blnReport":true})", nullptr, nullptr),
      13);
  EXPECT_NE(std::string_view(pst_error_text()).find(R"(not "1\02")"), std::string_view::npos)
      << pst_error_text();
}

TEST_F(CInterface, LetsAHandlerFreeTheSession) {
  Connect();
  Heard heard{.events = {}, .rows = -1, .to_free = session_.release()};
  const pst_events events{&heard, nullptr, nullptr, &OnComplete};
  ASSERT_EQ(pst_session_events(heard.to_free, &events), pst_ok);
  ASSERT_EQ(pst_call_json(heard.to_free, "LedgersByCode", kInBackground, nullptr, nullptr), pst_ok);
  for (int i = 0; i < 500 && heard.rows < 0; ++i) ASSERT_EQ(pst_pump(20), pst_ok);
  EXPECT_EQ(heard.rows, 2);
}

TEST_F(CInterface, TellsErrorsByNumberAndText) {
  EXPECT_EQ(pst_session_connect(session_.get(), "/nowhere/books.db"), 501);
  EXPECT_EQ(pst_error_number(), 501);
  EXPECT_EQ(pst_call_json(session_.get(), "Doc_Initial", "{\"bytYearno\": 300}", nullptr, nullptr),
            6);
  EXPECT_EQ(std::string(pst_error_text()).substr(0, 79),
            "Doc_Initial: bytYearno takes a whole number from 0 to 255, and 300 lies outside");
  EXPECT_EQ(pst_call(session_.get(), "Doc_Inital", nullptr, nullptr, 0, nullptr), 3001);
  EXPECT_STREQ(pst_error_text(),
               "there is no operation \"Doc_Inital\"; the nearest name is Doc_Initial");
  EXPECT_EQ(pst_call(session_.get(), "Doc_Initial", nullptr, nullptr, 1, nullptr), 91);
  EXPECT_STREQ(pst_error_text(), "no name was given");
}

TEST_F(CInterface, TakesNoHandleForAnError) {
  EXPECT_EQ(pst_session_connect(nullptr, "books.db"), 91);
  EXPECT_STREQ(pst_error_text(), "no session was given");
  EXPECT_EQ(pst_call_json(nullptr, "UserPressedCancel", nullptr, nullptr, nullptr), 91);
  EXPECT_EQ(pst_rowset_rows(nullptr), -1);
  EXPECT_EQ(pst_rowset_columns(nullptr), -1);
  EXPECT_EQ(pst_rowset_name(nullptr, 0), nullptr);
  EXPECT_EQ(pst_rowset_type(nullptr, 0), 0);
  EXPECT_EQ(pst_rowset_text(nullptr, 0, 0, nullptr), 91);
  pst_session_free(nullptr);
  pst_rowset_free(nullptr);
  pst_text_free(nullptr);
}

TEST_F(CInterface, RefusesCellsThatThereAreNot) {
  Connect();
  pst_rowset* ledgers = Open("LedgersByCode", R"({"bytYearno":1,"sCode":"","blnReport":true})");
  char* text = nullptr;
  EXPECT_EQ(pst_rowset_text(ledgers, 2, 0, &text), 3021);
  EXPECT_STREQ(pst_error_text(), "there is no row 2 among 2");
  EXPECT_EQ(pst_rowset_text(ledgers, -1, 0, &text), 3021);
  EXPECT_EQ(pst_rowset_text(ledgers, 0, 2, &text), 3265);
  EXPECT_EQ(pst_rowset_name(ledgers, 2), nullptr);
  EXPECT_EQ(text, nullptr);
}

TEST_F(CInterface, DescribesTheOperations) {
  const std::string catalogue = Taken(pst_catalogue());
  EXPECT_NE(catalogue.find("\"StockDetails_Itemwise\""), std::string::npos);
}

// --- the class by its identifier

pst_class_factory* FactoryOf() {
  void* object = nullptr;
  EXPECT_EQ(DllGetClassObject(&pst_class_clsStolvane1, &pst_interface_class_factory, &object),
            pst_s_ok);
  return static_cast<pst_class_factory*>(object);
}

TEST(ClassFactory, MakesSessions) {
  pst_class_factory* factory = FactoryOf();
  pst_session* session = nullptr;
  ASSERT_EQ(factory->create_instance(factory, &session), pst_s_ok);
  EXPECT_EQ(pst_call(session, "UserPressedCancel", nullptr, nullptr, 0, nullptr), pst_ok);
  pst_session_free(session);
  EXPECT_EQ(factory->create_instance(factory, nullptr), pst_e_pointer);
  EXPECT_EQ(factory->add_reference(factory), 2U);
  EXPECT_EQ(factory->release(factory), 1U);
  EXPECT_EQ(factory->release(factory), 0U);
}

TEST(ClassFactory, IsGivenForItsOwnClassAndInterfaceAlone) {
  void* object = &object;
  EXPECT_EQ(DllGetClassObject(&pst_interface_class_factory, &pst_interface_class_factory, &object),
            pst_e_no_class);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(DllGetClassObject(&pst_class_clsStolvane1, &pst_class_clsStolvane1, &object),
            pst_e_no_interface);
  EXPECT_EQ(DllGetClassObject(nullptr, &pst_interface_class_factory, &object), pst_e_pointer);
  EXPECT_EQ(DllGetClassObject(&pst_class_clsStolvane1, &pst_interface_class_factory, nullptr),
            pst_e_pointer);
}

TEST(ClassFactory, TheLibraryIsInUseWhileAHostHoldsAnythingOfIt) {
  ASSERT_EQ(DllCanUnloadNow(), pst_s_ok);
  pst_class_factory* factory = FactoryOf();
  EXPECT_EQ(DllCanUnloadNow(), pst_s_false);
  factory->lock_server(factory, 1);
  pst_session* session = nullptr;
  factory->create_instance(factory, &session);
  factory->release(factory);
  EXPECT_EQ(DllCanUnloadNow(), pst_s_false);
  pst_session_free(session);
  EXPECT_EQ(DllCanUnloadNow(), pst_s_false) << "the lock";
  factory = FactoryOf();
  factory->lock_server(factory, 0);
  factory->release(factory);
  EXPECT_EQ(DllCanUnloadNow(), pst_s_ok);
}

TEST_F(CInterface, ARowsetKeepsTheLibraryInUseAndOutlivesItsSession) {
  Connect();
  pst_rowset* ledgers = nullptr;
  ASSERT_EQ(pst_call_json(session_.get(), "LedgersByCode",
                          R"({"bytYearno":1,"sCode":"","blnReport":true})", &ledgers, nullptr),
            pst_ok);
  session_.reset();
  EXPECT_EQ(DllCanUnloadNow(), pst_s_false);
  EXPECT_EQ(pst_rowset_rows(ledgers), 2);
  pst_rowset_free(ledgers);
  EXPECT_EQ(DllCanUnloadNow(), pst_s_ok);
}

TEST(Registration, HasNothingToDo) {
  EXPECT_EQ(DllRegisterServer(), pst_s_false);
  EXPECT_EQ(DllUnregisterServer(), pst_s_false);
}

}  // namespace
}  // namespace pstolvane1::automation
