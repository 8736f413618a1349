// Bad input ends a month ledger as it should, on either path and under every method, and the
// session gives the next one.
#include <gtest/gtest.h>

#include "Ledgers.h"
#include "session/data/Error.h"
#include "session/data/MessageLoop.h"

namespace pstolvane1 {
namespace {

using golden::TextTable;

// Bolts that are in order, a nut without a relation between its units, a pin of that quantity that
// came twice, and a circle of categories.
std::vector<TextTable> Books(const std::string& quantity) {
  return {
      {"Uom1", {"Uom_id", "UomName"}, {{"1", "Nos"}, {"2", "Box"}}},
      {"ItemCategory1",
       {"ItemCategory_id", "CategoryName", "RelatedTo", "Deleted"},
       {{"1", "Goods", "0", "0"},
        {"2", "Screws", "3", "0"},
        {"3", "Brass", "2", "0"},
        {"4", "Nuts", "1", "0"},
        {"5", "Pins", "1", "0"}}},
      {"Godown1", {"Godown_id", "GodownName", "RelatedTo", "Deleted"}, {{"1", "Main", "0", "0"}}},
      {"Items1",
       {"Item_id", "ItemName", "Uom_id", "AlternateUom_id", "RelationFormula", "ItemCategory_id",
        "Deleted", "YearOfCreation"},
       {{"1", "Bolt", "1", "2", "10", "1", "0", "1"},
        {"2", "Nut", "1", "2", "0", "4", "0", "1"},
        {"3", "Pin", "1", "2", "10", "5", "0", "1"}}},
      {"Desr1",
       {"Desr_id", "Date", "YearNo", "Vouchertype_id", "Optional", "Deleted"},
       {{"1", "2003-05-01", "1", "7", "0", "0"}}},
      {"DesrDetails1",
       {"DesrDetails_id", "Desr_id", "Item_id", "DesrDetDate", "YearNo", "QtyDespIn", "QtyDespOut",
        "Price", "AffectStock"},
       {{"1", "1", "1", "2003-05-01", "1", "10", "0", "5", "1"},
        {"2", "1", "2", "2003-05-01", "1", "4", "0", "5", "1"},
        {"3", "1", "3", "2003-05-01", "1", quantity, "0", "0", "1"},
        {"4", "1", "3", "2003-05-01", "1", quantity, "0", "0", "1"}}},
      {"GodownItem1",
       {"GodownItem_id", "Date", "YearNo", "Item_id", "Godown_id", "Batch_id", "Qty", "Rate",
        "IsAdded", "IsOpeningBal", "Optional", "DesrDetails_id", "GOriginalVouchertype_id"},
       {{"1", "2003-05-01", "1", "1", "1", "1", "10", "5", "1", "0", "0", "1", "7"},
        {"2", "2003-05-01", "1", "2", "1", "2", "4", "5", "1", "0", "0", "2", "7"},
        {"3", "2003-05-01", "1", "3", "1", "3", quantity, "0", "1", "0", "0", "3", "7"},
        {"4", "2003-05-01", "1", "3", "1", "3", quantity, "0", "1", "0", "0", "4", "7"}}}};
}

struct Asked {
  std::int32_t id = 1;
  bool of_category = false;
  enmValuationMethod method = AverageRate;
  Boolean alternate = False;
  float scale = 1;
  StockPeriod period = YearOf(1);
};

class LedgerErrors : public testing::TestWithParam<bool> {
 protected:
  LedgerErrors() {
    session_.SetLocale("en_IN");
    Connect(books_);
    session_.FetchComplete = [this](const RecordsetPtr& report, std::int32_t) {
      fetched_ = report;
    };
  }

  void Connect(const golden::SmallBooks& books) {
    session_.SetConnection("", "", books.ConnectionString(), False, YearOf(1).from, YearOf(1).to);
  }

  // The ledger, on the path of the test.
  RecordsetPtr Report(const Asked& asked) {
    const auto entry =
        asked.of_category ? &clsStolvane1::Monthly_Categorywise : &clsStolvane1::Monthly_Itemwise;
    fetched_ = nullptr;
    const RecordsetPtr returned = (session_.*entry)(
        1, asked.period.from, asked.period.to, asked.method, asked.id, 0, GetParam() ? True : False,
        False, asked.alternate, asked.scale, False, True, True, True);
    if (GetParam()) return returned;
    for (int round = 0; round < 6000 && !fetched_; ++round) {
      (void)WaitForEvents(std::chrono::milliseconds(10));
    }
    return fetched_;
  }

  void ExpectError(const Asked& asked, ErrorNumber number) {
    try {
      (void)Report(asked);
      ADD_FAILURE() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), number) << error.Description();
    }
  }

  // 10 bolts at the end.
  void ExpectBolts(enmValuationMethod method) {
    const RecordsetPtr report = Report({.method = method});
    ASSERT_NE(report, nullptr);
    report->MoveLast();
    EXPECT_EQ(report->Collect("QtyClosing").ToText(), "10.00");
  }

  // The bolts come after each error.
  void ExpectErrorUnderEveryMethod(const Asked& asked, ErrorNumber number) {
    for (const enmValuationMethod method : kMonthlyMethods) {
      SCOPED_TRACE("method " + std::to_string(method));
      Asked failing = asked;
      failing.method = method;
      ExpectError(failing, number);
      ExpectBolts(method);
    }
  }

  // Of item 3, in books where it has that quantity twice.
  void ExpectErrorOfQuantity(const std::string& quantity, ErrorNumber number) {
    const golden::SmallBooks spoiled(Books(quantity));
    for (const enmValuationMethod method : kMonthlyMethods) {
      SCOPED_TRACE("method " + std::to_string(method));
      Connect(spoiled);
      ExpectError({.id = 3, .method = method}, number);
      ExpectError({.id = 5, .of_category = true, .method = method}, number);
      Connect(books_);
      ExpectBolts(method);
    }
  }

  // An opening and twelve months without a figure.
  void ExpectEmpty(const Asked& asked) {
    for (const enmValuationMethod method : kMonthlyMethods) {
      Asked nothing = asked;
      nothing.method = method;
      const RecordsetPtr report = Report(nothing);
      ASSERT_NE(report, nullptr);
      EXPECT_EQ(report->RecordCount(), 13);
      for (const Recordset::Row row : report->Rows()) {
        for (const char* column : {"QtyIn", "QtyOut", "QtyClosing", "QtyClosingValue"}) {
          EXPECT_EQ(std::string(row.Text(report->Column(column))), "") << "method " << method;
        }
      }
    }
  }

  golden::SmallBooks books_{Books("1")};
  clsStolvane1 session_;
  RecordsetPtr fetched_;
};

TEST_P(LedgerErrors, AScaleOfNothing) {
  ExpectErrorUnderEveryMethod({.scale = 0}, ErrorNumber::kDivisionByZero);
  ExpectErrorUnderEveryMethod({.of_category = true, .scale = 0}, ErrorNumber::kDivisionByZero);
}

TEST_P(LedgerErrors, AnItemWithoutARelationOfItsUnits) {
  ExpectErrorUnderEveryMethod({.id = 2, .alternate = True}, ErrorNumber::kDivisionByZero);
}

// A group has no alternate quantities.
TEST_P(LedgerErrors, AGroupWithAnItemWithoutARelationIsInOrder) {
  for (const enmValuationMethod method : kMonthlyMethods) {
    const RecordsetPtr report =
        Report({.id = 4, .of_category = true, .method = method, .alternate = True});
    ASSERT_NE(report, nullptr);
    report->MoveLast();
    EXPECT_EQ(report->Collect("QtyClosing").ToText(), "4.00") << "method " << method;
  }
}

TEST_P(LedgerErrors, AGroupThatStandsInACircle) {
  ExpectErrorUnderEveryMethod({.id = 2, .of_category = true}, ErrorNumber::kArgumentOutOfRange);
}

TEST_P(LedgerErrors, AnItemOrGroupThatIsNotThereHasNoFigures) {
  ExpectEmpty({.id = 99});
  ExpectEmpty({.id = 99, .of_category = true});
}

TEST_P(LedgerErrors, AHundredYearsHaveTwelveHundredMonths) {
  for (const enmValuationMethod method : kMonthlyMethods) {
    const RecordsetPtr report = Report(
        {.method = method, .period = {Date::FromYmd(2001, 1, 1), Date::FromYmd(2100, 12, 31)}});
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(report->RecordCount(), 1 + 1200);
    report->MoveLast();
    EXPECT_EQ(report->Collect("Year_Id").ToText(), "2100");
    EXPECT_EQ(report->Collect("QtyClosing").ToText(), "10.00") << "method " << method;
    EXPECT_EQ(report->Collect("TotalQtyIn").ToText(), "10.00") << "method " << method;
  }
}

TEST_P(LedgerErrors, AQuantityBeyondAFloat) {
  ExpectErrorOfQuantity("1e39", ErrorNumber::kOverflow);
}

TEST_P(LedgerErrors, AFloatTwiceThatIsBeyondOne) {
  ExpectErrorOfQuantity("3e38", ErrorNumber::kOverflow);
}

TEST_P(LedgerErrors, AQuantityThatIsNoNumber) {
  ExpectErrorOfQuantity("NaN", ErrorNumber::kTypeMismatch);
}

std::string NameOf(const testing::TestParamInfo<bool>& path) {
  return path.param ? "at_once" : "fetched";
}

INSTANTIATE_TEST_SUITE_P(Paths, LedgerErrors, testing::Bool(), NameOf);

}  // namespace
}  // namespace pstolvane1
