// Every public entry point that takes a pointer, or something that may be empty, tried with none:
// an error that says so, never a crash.
#include <algorithm>
#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "automation/Calls.h"
#include "automation/Operations.h"
#include "automation/pstolvane1_arrow.h"
#include "session/clsStolvane1.h"
#include "session/data/Provider.h"
#include "session/engine/Engines.h"
#include "session/rowset/Export.h"
#include "tests/automation/SampleCompany.h"

namespace pstolvane1::automation {
namespace {

std::string ErrorOf(const std::function<void()>& call) {
  try {
    call();
    return "no error";
  } catch (const Error& error) {
    return std::to_string(static_cast<int>(error.Number())) + " " + error.Description() +
           (error.Cause().empty() ? "" : ": " + error.Cause());
  }
}

// An engine of a host that gives nothing where something is asked for.
class HollowSnapshot final : public Snapshot {
 public:
  std::shared_ptr<Cursor> Run(std::string_view /*select*/,
                              std::chrono::milliseconds /*time_limit*/) override {
    return nullptr;
  }
  void Cancel() noexcept override {}
};
class HollowProvider final : public Provider {
 public:
  explicit HollowProvider(bool has_states) : has_states_(has_states) {}
  std::shared_ptr<Snapshot> TakeSnapshot(std::chrono::milliseconds /*time_limit*/) override {
    return has_states_ ? std::make_shared<HollowSnapshot>() : nullptr;
  }
  std::vector<ColumnInfo> Describe(std::string_view /*select*/) override {
    return {{.name = "a", .type = adInteger}};
  }
  std::string Translate(std::string_view /*select*/) override { return {}; }
  void Cancel() noexcept override {}

 private:
  const bool has_states_;
};

TEST(NoPointers, OfAText) {
  const char* const none = nullptr;
  EXPECT_EQ(ErrorOf([&] { (void)Variant(none); }), "91 no text was given");
}

TEST(NoPointers, OfAConnection) {
  EXPECT_EQ(ErrorOf([] { (void)Connection::New({}); }), "91 no factory of databases was given");
  EXPECT_EQ(ErrorOf([] { const Connection::OneState state(nullptr); }),
            "3709 there is no connection");
  const auto none = Connection::New(
      [](const std::string&, std::chrono::milliseconds) -> std::shared_ptr<Provider> {
        return nullptr;
      });
  EXPECT_EQ(ErrorOf([&] { none->Open("books"); }), "501 no database was opened");
  for (const bool has_states : {false, true}) {
    const auto hollow = Connection::New([&](const std::string&, std::chrono::milliseconds) {
      return std::make_shared<HollowProvider>(has_states);
    });
    hollow->Open("books");
    for (const int options : {-1, 48}) {
      EXPECT_EQ(
          ErrorOf([&] {
            const RecordsetPtr rowset = Recordset::New();
            rowset->Open("select a from t", hollow, -1, -1, options);
            rowset->WaitForRows();
          }),
          has_states ? "91 the engine gave no rows" : "91 the engine gave no state of the books");
    }
  }
}

TEST(NoPointers, OfASession) {
  EXPECT_EQ(ErrorOf([] { const clsStolvane1 session{ConnectionMaker()}; }),
            "91 no maker of connections was given");
  clsStolvane1 session([]() -> std::shared_ptr<Connection> { return nullptr; });
  EXPECT_EQ(ErrorOf([&] { session.SetConnection("", "", "books", False); }),
            "501 Unable to Connect to Database: no connection was made");
  EXPECT_EQ(ErrorOf([&] { session.SetConnection("", "", "books", True); }),
            "501 Unable to Connect to Database: no connection was made");
  std::string codes;
  EXPECT_EQ(ErrorOf([&] { (void)session.LedgersByCode(1, codes, True); }).substr(0, 5), "3709 ");
}

TEST(NoPointers, OfARowset) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->ActiveConnection(nullptr);
  EXPECT_EQ(ErrorOf([&] { rowset->Open("select 1 as one", nullptr); }),
            "3709 the rowset has no connection to open a query on");
  rowset->Fields().Append("Name", adBSTR);
  rowset->Open();
  rowset->AddNew();
  const Variant no_rowset{RecordsetPtr()};
  EXPECT_EQ(ErrorOf([&] { rowset->Collect("Name", no_rowset); }).substr(0, 3), "13 ");
  EXPECT_EQ(ErrorOf([&] { (void)no_rowset.ToText(); }).substr(0, 3), "13 ");
  EXPECT_EQ(no_rowset.ToRowset(), nullptr);
  MessageQueue::OfThisThread()->Post({});  // nothing to deliver
  DoEvents();
  std::ostringstream out;
  EXPECT_EQ(ErrorOf([&] { ExportHtml(*rowset, "", nullptr, out); }).substr(0, 3), "91 ");
  EXPECT_EQ(ErrorOf([&] { ExportXlsx(*rowset, "", nullptr, out); }).substr(0, 3), "91 ");
  EXPECT_EQ(ErrorOf([&] { ExportXlsx(*rowset, "", nullptr, "none.xlsx"); }).substr(0, 3), "91 ");
}

// Values that every operation takes, with this rowset for each rowset.
std::vector<NamedValue> ValuesOf(const Operation& operation, const RecordsetPtr& rowset) {
  std::vector<NamedValue> values;
  for (const Argument& argument : operation.arguments) {
    const std::string name(argument.name);
    if (argument.type == ArgumentType::kRecord) continue;
    if (argument.type == ArgumentType::kRowset) {
      values.push_back({name, rowset});
    } else if (name == "strConsiderForSih" || name == "cosiderforsih") {
      values.push_back({name, "items1.item_id>0"});
    } else if (name == "blnReport") {
      values.push_back({name, True});
    } else if (argument.name.ends_with("cale")) {
      values.push_back({name, 1});
    } else if (argument.name.starts_with("dt")) {
      values.push_back({name, Date::FromYmd(2003, argument.name == "dtToDate" ? 12 : 4, 1)});
    } else if (name == operation.decided_by) {
      values.push_back({name, operation.report_types.front().asked});
    } else if (argument.preset.empty()) {
      values.push_back({name, EmptyValueOf(argument)});
    }
  }
  return values;
}

TEST(NoPointers, OfTheOperationsThatTakeARowset) {
  const SampleCompany company;
  clsStolvane1 session;
  session.SetConnection("", "", company.File(), False);
  const RecordsetPtr items = Recordset::New();
  items->Open(
      "select item_id as itemnew_id, itemname, 'Nos' as uomname, item_id as ledger_id from items1",
      session.GetConnectionObject());
  int tried = 0;
  for (const Operation& operation : Operations()) {
    const bool takes_one = std::ranges::any_of(operation.arguments, [](const Argument& argument) {
      return argument.type == ArgumentType::kRowset;
    });
    if (!takes_one) continue;
    ++tried;
    const auto end_with = [&](const RecordsetPtr& rowset) {
      return ErrorOf([&] {
        const Outcome outcome = Call(session, operation, ValuesOf(operation, rowset));
        EXPECT_NE(outcome.value.ToRowset(), nullptr) << operation.name;
      });
    };
    const std::string told = end_with(nullptr);
    EXPECT_TRUE(told == "no error" || told.starts_with("91 ") || told == end_with(items))
        << operation.name << ": " << told;
  }
  EXPECT_GE(tried, 12);
}

// --- C

class NoPointersInC : public testing::Test {
 protected:
  NoPointersInC() : session_(pst_session_new(), &pst_session_free) {
    EXPECT_EQ(pst_session_connect(session_.get(), company_.File().c_str()), pst_ok);
    pst_rowset* ledgers = nullptr;
    EXPECT_EQ(pst_call_json(session_.get(), "LedgersByCode",
                            R"({"bytYearno":1,"sCode":"","blnReport":true})", &ledgers, nullptr),
              pst_ok);
    ledgers_.reset(ledgers);
  }

  struct Free {
    void operator()(pst_rowset* rowset) const { pst_rowset_free(rowset); }
  };
  SampleCompany company_;
  std::unique_ptr<pst_session, decltype(&pst_session_free)> session_;
  std::unique_ptr<pst_rowset, Free> ledgers_;
};

TEST_F(NoPointersInC, WhereASessionIsTaken) {
  int whole = 0;
  char* text = nullptr;
  pst_rowset* rowset = nullptr;
  const std::function<std::int32_t()> calls[] = {
      [] { return pst_session_connect(nullptr, "books.db"); },
      [] { return pst_session_abandon(nullptr); },
      [&] { return pst_session_report_is_whole(nullptr, &whole); },
      [&] { return pst_session_report_is_whole(session_.get(), nullptr); },
      [&] { return pst_call(nullptr, "LedgersByCode", nullptr, nullptr, 0, &rowset); },
      [&] { return pst_call_json(nullptr, "LedgersByCode", "{}", &rowset, &text); },
      [] { return pst_session_events(nullptr, nullptr); }};
  for (std::size_t i = 0; i < std::size(calls); ++i) {
    EXPECT_EQ(calls[i](), 91) << i;
    EXPECT_EQ(pst_error_number(), 91) << i;
    EXPECT_STRNE(pst_error_text(), "") << i;
  }
  pst_session_free(nullptr);
  EXPECT_EQ(pst_session_events(session_.get(), nullptr), pst_ok);
  constexpr pst_events kNoHandlers{};
  EXPECT_EQ(pst_session_events(session_.get(), &kNoHandlers), pst_ok);
}

TEST_F(NoPointersInC, WhereATextIsTaken) {
  constexpr const char* kNone = nullptr;
  constexpr const char* kName = "bytYearno";
  constexpr const char* kValue = "1";
  pst_session* const session = session_.get();
  EXPECT_EQ(pst_session_connect(session, nullptr), 501);
  EXPECT_EQ(pst_call(session, nullptr, nullptr, nullptr, 0, nullptr), 3001);
  EXPECT_EQ(pst_call(session, "LedgersByCode", nullptr, nullptr, 0, nullptr), 3001);
  EXPECT_EQ(pst_call(session, "LedgersByCode", nullptr, &kValue, 1, nullptr), 91);
  EXPECT_EQ(pst_call(session, "LedgersByCode", &kName, nullptr, 1, nullptr), 91);
  EXPECT_EQ(pst_call(session, "LedgersByCode", &kNone, &kValue, 1, nullptr), 91);
  EXPECT_EQ(pst_call(session, "LedgersByCode", &kName, &kNone, 1, nullptr), 91);
  EXPECT_EQ(pst_call_json(session, nullptr, nullptr, nullptr, nullptr), 3001);
  EXPECT_EQ(pst_call_json(session, "LedgersByCode", nullptr, nullptr, nullptr), 3001);
  EXPECT_EQ(pst_call_json(session, "UserPressedCancel", nullptr, nullptr, nullptr), pst_ok);
  EXPECT_EQ(pst_rowset_rows(ledgers_.get()), 2) << "the session and its rowsets go on";
}

TEST_F(NoPointersInC, WhereARowsetIsTaken) {
  pst_rowset* const rowset = ledgers_.get();
  char* text = nullptr;
  double number = 0;
  int is_null = 0;
  ArrowArrayStream stream{};
  const std::function<std::int32_t()> calls[] = {
      [&] { return pst_rowset_text(nullptr, 0, 0, &text); },
      [&] { return pst_rowset_text(rowset, 0, 0, nullptr); },
      [&] { return pst_rowset_number(nullptr, 0, 0, &number, &is_null); },
      [&] { return pst_rowset_number(rowset, 0, 0, nullptr, &is_null); },
      [&] { return pst_rowset_number(rowset, 0, 0, &number, nullptr); },
      [&] { return pst_rowset_json(nullptr, &text); },
      [&] { return pst_rowset_json(rowset, nullptr); },
      [&] { return pst_rowset_csv(nullptr, &text); },
      [&] { return pst_rowset_csv(rowset, nullptr); },
      [&] { return pst_rowset_arrow(nullptr, &stream); },
      [&] { return pst_rowset_arrow(rowset, nullptr); }};
  for (std::size_t i = 0; i < std::size(calls); ++i) {
    EXPECT_EQ(calls[i](), 91) << i;
    EXPECT_STRNE(pst_error_text(), "") << i;
  }
  EXPECT_EQ(pst_rowset_rows(nullptr), -1);
  EXPECT_EQ(pst_rowset_columns(nullptr), -1);
  EXPECT_EQ(pst_rowset_name(nullptr, 0), nullptr);
  EXPECT_EQ(pst_rowset_type(nullptr, 0), 0);
  EXPECT_EQ(pst_error_number(), 91);
  pst_rowset_free(nullptr);
  pst_text_free(nullptr);
}

TEST_F(NoPointersInC, WhereAStreamIsTaken) {
  ArrowArrayStream stream{};
  ASSERT_EQ(pst_rowset_arrow(ledgers_.get(), &stream), pst_ok);
  ArrowSchema schema{};
  ArrowArray batch{};
  EXPECT_EQ(stream.get_schema(&stream, nullptr), EINVAL);
  EXPECT_STREQ(stream.get_last_error(&stream), "no place for the schema was given");
  EXPECT_EQ(stream.get_next(&stream, nullptr), EINVAL);
  EXPECT_STREQ(stream.get_last_error(&stream), "no place for the batch was given");
  EXPECT_EQ(stream.get_schema(nullptr, &schema), EINVAL);
  EXPECT_EQ(stream.get_next(nullptr, &batch), EINVAL);
  EXPECT_EQ(stream.get_last_error(nullptr), nullptr);
  auto* const release = stream.release;
  release(nullptr);
  release(&stream);
  EXPECT_EQ(stream.get_schema(&stream, &schema), EINVAL);
  release(&stream);
}

TEST(NoPointersOfTheClass, WhereAFactoryIsTaken) {
  void* object = nullptr;
  EXPECT_EQ(DllGetClassObject(nullptr, nullptr, nullptr), pst_e_pointer);
  EXPECT_EQ(DllGetClassObject(nullptr, nullptr, &object), pst_e_pointer);
  EXPECT_EQ(DllGetClassObject(&pst_class_clsStolvane1, nullptr, &object), pst_e_pointer);
  ASSERT_EQ(DllGetClassObject(&pst_class_clsStolvane1, &pst_interface_class_factory, &object),
            pst_s_ok);
  auto* const factory = static_cast<pst_class_factory*>(object);
  EXPECT_EQ(factory->create_instance(factory, nullptr), pst_e_pointer);
  EXPECT_EQ(factory->create_instance(nullptr, nullptr), pst_e_pointer);
  EXPECT_EQ(factory->add_reference(nullptr), 0U);
  EXPECT_EQ(factory->release(nullptr), 0U);
  EXPECT_EQ(factory->release(factory), 0U);
}

}  // namespace
}  // namespace pstolvane1::automation
