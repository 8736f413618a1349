// After a statement that fails, on either path, the session gives the next one.
#include <gtest/gtest.h>
#include <thread>

#include "golden/SmallBooks.h"
#include "session/clsStolvane1.h"
#include "session/data/Error.h"
#include "session/data/MessageLoop.h"

namespace pstolvane1 {
namespace {

using golden::TextTable;

// Bolts that are in order, a nut without a relation between its units, and a circle of categories.
std::vector<TextTable> Books(const std::string& quantity) {
  return {
      {"Uom1", {"Uom_id", "UomName"}, {{"1", "Nos"}, {"2", "Box"}}},
      {"ItemCategory1",
       {"ItemCategory_id", "CategoryName", "RelatedTo", "Deleted"},
       {{"1", "Goods", "0", "0"}, {"2", "Screws", "3", "0"}, {"3", "Brass", "2", "0"}}},
      {"Godown1", {"Godown_id", "GodownName", "RelatedTo", "Deleted"}, {{"1", "Main", "0", "0"}}},
      {"Items1",
       {"Item_id", "ItemName", "Uom_id", "AlternateUom_id", "RelationFormula", "ItemCategory_id",
        "Deleted", "YearOfCreation", "ItemState"},
       {{"1", "Bolt", "1", "2", "10", "1", "0", "1", "1"},
        {"2", "Nut", "1", "2", "0", "1", "0", "1", "2"},
        {"3", "Pin", "1", "2", "10", "1", "0", "1", "3"}}},
      {"ItemDetailsAsLedger",
       {"Item_id", "YearNo", "OpeningQuantity", "OpeningValue"},
       {{"1", "1", "10", "50"}, {"2", "1", "4", "20"}, {"3", "1", "1", "5"}}},
      {"Batches1",
       {"Batch_id", "BatchCode", "Item_id"},
       {{"1", "-", "1"}, {"2", "-", "2"}, {"3", "-", "3"}}},
      {"GodownItem1",
       {"GodownItem_id", "Date", "YearNo", "Item_id", "Godown_id", "Batch_id", "Qty", "Rate",
        "IsAdded", "IsOpeningBal", "Optional", "GOriginalVouchertype_id"},
       {{"1", "2003-05-01", "1", "1", "1", "1", "10", "5", "1", "0", "0", "7"},
        {"2", "2003-05-01", "1", "2", "1", "2", "4", "5", "1", "0", "0", "7"},
        {"3", "2003-05-01", "1", "3", "1", "3", quantity, "5", "1", "0", "0", "7"}}}};
}

struct Asked {
  enmValuationMethod method = AverageRate;
  std::int32_t group = -1;
  bool grouped = false;
  Boolean alternate = False;
  float scale = 1;
  std::string consider = {};
  std::string states = "1";  // of the items
};

std::string NamesAndValues(Recordset& report) {
  std::string lines;
  const auto cell = [&](const char* name) {
    const Variant value = report.Collect(name);
    return value.IsNull() ? std::string("-") : value.ToText();
  };
  for (report.MoveFirst(); !report.Eof(); report.MoveNext()) {
    lines += cell("ItemName") + " " + cell("ValueClSort") + "\n";
  }
  return lines;
}

class StatementErrorsTest : public testing::TestWithParam<bool> {
 protected:
  StatementErrorsTest() {
    session.SetLocale("en_IN");
    session.SetConnection("", "", books.ConnectionString(), False);
    session.FetchComplete = [this](const RecordsetPtr& report, std::int32_t) { fetched = report; };
  }

  // The report, on the path of the test.
  RecordsetPtr Report(const Asked& asked) {
    const bool at_once = GetParam();
    const auto entry = asked.grouped ? &clsStolvane1::StockDetails_Categorywise
                                     : &clsStolvane1::StockDetails_Itemwise;
    fetched = nullptr;
    const RecordsetPtr returned =
        (session.*entry)(1, Date::FromYmd(2003, 4, 1), Date::FromYmd(2004, 3, 31), asked.method,
                         asked.group, 0, at_once ? True : False, True, asked.alternate, asked.scale,
                         False, True, True, True, asked.consider, asked.states);
    if (at_once) return returned;
    for (int round = 0; round < 500 && !fetched; ++round) {
      (void)WaitForEvents(std::chrono::milliseconds(10));
    }
    return fetched;
  }

  void ExpectError(const Asked& asked, ErrorNumber number) {
    try {
      (void)Report(asked);
      ADD_FAILURE() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), number) << error.Description();
    }
  }

  // Under a method of each family of queries.
  void ExpectErrorAndGoOn(const Asked& asked, ErrorNumber number) {
    for (const enmValuationMethod method :
         {FifoRate, AverageRate, LastPurchaseRate, standardrate}) {
      SCOPED_TRACE(method);
      Asked failing = asked;
      failing.method = method;
      ExpectError(failing, number);
      ExpectBolts();
    }
  }

  // 10 bolts at 5.
  void ExpectBolts() {
    for (const bool grouped : {false, true}) {
      const RecordsetPtr report = Report({.group = 1, .grouped = grouped});
      ASSERT_NE(report, nullptr);
      report->MoveFirst();
      EXPECT_EQ(report->Collect("QtyClSort").ToText(), "10");
      EXPECT_EQ(report->Collect("ValueClSort").ToText(), "50");
    }
  }

  golden::SmallBooks books{Books("1")};
  clsStolvane1 session;
  RecordsetPtr fetched;
};

// Whatever the method makes of a quantity: its layers, a sum inside the engine, a rate to hunt for.
TEST_P(StatementErrorsTest, AQuantityThatIsNoNumberEndsTheStatementUnderEveryMethod) {
  const golden::SmallBooks spoiled(Books("NaN"));
  session.SetConnection("", "", spoiled.ConnectionString(), False);
  for (const enmValuationMethod method : {FifoRate, LifoRate, AverageRate, LastPurchaseRate,
                                          LastSaleRate, standardrate, StandardPrice}) {
    for (const bool grouped : {false, true}) {
      try {
        (void)Report({.method = method, .group = 1, .grouped = grouped});
        ADD_FAILURE() << "no error under " << method;
      } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::kTypeMismatch);
        EXPECT_NE(error.Description().find("GodownItem1.Qty holds \"NaN\", which is not a number"),
                  std::string::npos)
            << error.Description();
      }
    }
  }
}

// Two fetches of a statement that nobody waited for end while the next one is written, and set its
// builder off a second time: on the same rowsets, which the simple average closes.
TEST_P(StatementErrorsTest, TheSimpleAverageIsWholeWhenFetchesAreLeftOver) {
  const Asked simple_average{.method = SimpleAvg, .states = ""};
  const std::string alone = NamesAndValues(*Report(simple_average));
  EXPECT_NE(alone.find("Bolt 50"), std::string::npos) << alone;
  (void)session.StockDetails_Itemwise(1, Date::FromYmd(2003, 4, 1), Date::FromYmd(2004, 3, 31),
                                      LastPurchaseRate, -1, 0, False, True, False, 1, False, True,
                                      True, True, "", "");
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  const RecordsetPtr beside = Report(simple_average);
  ASSERT_NE(beside, nullptr);
  EXPECT_EQ(NamesAndValues(*beside), alone);
  EXPECT_NE(fetched, nullptr);
}

TEST_P(StatementErrorsTest, AfterAnItemWithoutARelation) {
  ExpectErrorAndGoOn({.alternate = True, .states = "2"}, ErrorNumber::kDivisionByZero);
  ExpectErrorAndGoOn({.grouped = true, .alternate = True, .states = "2"},
                     ErrorNumber::kDivisionByZero);
}

TEST_P(StatementErrorsTest, AfterAScaleOfNothing) {
  ExpectErrorAndGoOn({.scale = 0}, ErrorNumber::kDivisionByZero);
  ExpectErrorAndGoOn({.grouped = true, .scale = 0}, ErrorNumber::kDivisionByZero);
}

// The layers are read for all items at once, so that the other one's books are in order.
TEST_P(StatementErrorsTest, AfterAQuantityOutOfRange) {
  const golden::SmallBooks too_many(Books("1e39"));
  for (const bool grouped : {false, true}) {
    session.SetConnection("", "", too_many.ConnectionString(), False);
    ExpectError({.grouped = grouped, .states = "3"}, ErrorNumber::kOverflow);
    session.SetConnection("", "", books.ConnectionString(), False);
    ExpectBolts();
  }
}

TEST_P(StatementErrorsTest, AfterATreeThatRunsInACircle) {
  ExpectErrorAndGoOn({.group = 2, .grouped = true}, ErrorNumber::kArgumentOutOfRange);
}

TEST_P(StatementErrorsTest, AfterAConditionThatIsNone) {
  ExpectErrorAndGoOn({.consider = "Items1.ItemState >"}, ErrorNumber::kQueryRefused);
  ExpectErrorAndGoOn({.grouped = true, .consider = "Items1.NoSuchColumn = 1"},
                     ErrorNumber::kQueryRefused);
}

std::string NameOf(const testing::TestParamInfo<bool>& path) {
  return path.param ? "at_once" : "fetched";
}

INSTANTIATE_TEST_SUITE_P(Paths, StatementErrorsTest, testing::Bool(), NameOf);

}  // namespace
}  // namespace pstolvane1
