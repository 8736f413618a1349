// Which report a stock statement becomes, and which queries it opens.
#include <map>
#include <set>

#include "SessionHarness.h"
#include "session/ReportFrame.h"
#include "session/ReportTable.h"
#include "stock/StockDetails.h"

namespace pstolvane1 {
namespace {

const Date kFrom = Date::FromYmd(2003, 4, 1);
const Date kTo = Date::FromYmd(2004, 3, 31);
constexpr StockTree kTrees[] = {StockTree::kItem, StockTree::kCategory, StockTree::kClass,
                                StockTree::kGodown};
constexpr std::int32_t kNoMethods[] = {-1, 0, CurrentRate, 10, 255};

// Asynchronous calls whose fetches are never told.
class StockDispatchTest : public SessionTest {
 protected:
  StockDispatchTest() {
    // An answer to everything, as only the asking counts.
    FakeTable keys;
    for (const char* name : {"Item_Id", "Godown_Id", "Batch_Id", "YearNo"}) {
      keys.columns.push_back({.name = name, .type = adBigInt});
    }
    books->Answer("select", keys);
    NewFrame();
  }

  void NewFrame() {
    frame = std::make_shared<ReportFrame>(AllReports(), books->Maker(), *session);
    frame->SetConnection("", "books", False, kFrom, kTo, "", "");
    events.clear();
  }

  RecordsetPtr Ask(StockTree tree, std::int32_t method, std::string_view consider = {},
                   std::string_view states = {}) {
    return StockDetails(*frame,
                        {.tree = tree,
                         .bytYearno = 1,
                         .dtFromDate = kFrom,
                         .dtToDate = kTo,
                         .ValuationMethod = static_cast<enmValuationMethod>(method)},
                        False, consider, states);
  }

  // Of what was asked last, the query that names the items.
  [[nodiscard]] std::string MainQuery() const {
    for (const std::string* text : frame->module.QueryTexts()) {
      if (text->find("items1.itemname") != std::string::npos) return *text;
    }
    return {};
  }

  [[nodiscard]] std::set<Source> Opened() const {
    std::set<Source> opened;
    for (const Source source :
         {Source::rsItems, Source::RsCategory, Source::rsReport, Source::Rs1, Source::Rs2}) {
      try {
        (void)frame->Rowset(source);
        opened.insert(source);
      } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::kObjectNotSet);
      }
    }
    return opened;
  }

  std::shared_ptr<ReportFrame> frame;
};

TEST_F(StockDispatchTest, EachMethodHasItsFourReportTypes) {
  const std::map<std::int32_t, std::int32_t> item_types = {
      {FifoRate, 110005},         {LifoRate, 110005},     {AverageRate, 110001},
      {LastPurchaseRate, 110009}, {LastSaleRate, 110013}, {standardrate, 110029},
      {StandardPrice, 110033}};
  for (const auto& [method, type] : item_types) {
    for (const StockTree tree : kTrees) {
      EXPECT_EQ(Ask(tree, method), nullptr) << "it is fetched";
      EXPECT_EQ(frame->lngReportType, type + static_cast<std::int32_t>(tree))
          << "method " << method;
      EXPECT_EQ(frame->module.ValuationMethod, method);
    }
  }
}

TEST_F(StockDispatchTest, TheSimpleAverageOfGodownsIsTheWeightedOne) {
  for (const StockTree tree : {StockTree::kItem, StockTree::kCategory, StockTree::kClass}) {
    Ask(tree, SimpleAvg);
    EXPECT_EQ(frame->lngReportType, 110037 + static_cast<std::int32_t>(tree));
    EXPECT_EQ(frame->module.ValuationMethod, SimpleAvg);
  }
  Ask(StockTree::kGodown, SimpleAvg);
  const std::string simple = MainQuery();
  EXPECT_EQ(frame->lngReportType, 110004);
  EXPECT_EQ(frame->module.ValuationMethod, AverageRate);
  Ask(StockTree::kGodown, AverageRate);
  EXPECT_EQ(MainQuery(), simple);
}

TEST_F(StockDispatchTest, AMethodWithoutAStatementChangesNothing) {
  Ask(StockTree::kItem, FifoRate);
  const std::string query = MainQuery();
  EXPECT_FALSE(Opened().empty());  // once all of its queries have been run
  const std::size_t ran = books->Queries().size();
  for (const StockTree tree : kTrees) {
    for (const std::int32_t method : kNoMethods) EXPECT_EQ(Ask(tree, method, "x = 1"), nullptr);
  }
  EXPECT_EQ(frame->lngReportType, rtStockDetails_Itemwise_WithFifoLifo);
  EXPECT_EQ(frame->module.ValuationMethod, FifoRate);
  EXPECT_EQ(MainQuery(), query);
  EXPECT_EQ(books->Queries().size(), ran);
  EXPECT_EQ(events, EventLog{});
}

// Under the average in brackets, where an Or of the host's weakens nothing.
TEST_F(StockDispatchTest, AConditionStandsBehindThoseOfTheStatement) {
  for (const std::int32_t method : {1, 2, 3, 4, 5, 7, 8, 9}) {
    for (const StockTree tree : {StockTree::kItem, StockTree::kCategory}) {
      const auto has = [&](const std::string& condition) {
        const std::string clause =
            method == AverageRate ? " and ( " + condition + " )" : " and " + condition;
        EXPECT_NE(MainQuery().find(clause), std::string::npos) << MainQuery();
      };
      Ask(tree, method, "Items1.ConsiderForSih = 1", "1,2");
      has(" items1.considerforsih = 1 and  (itemstate = 1 or itemstate = 2)");
      Ask(tree, method, "", "2");
      has(" (itemstate = 2)");
    }
  }
}

TEST_F(StockDispatchTest, WithoutAConditionNothingIsAdded) {
  for (const enmValuationMethod method : {AverageRate, LifoRate, LastSaleRate}) {
    Ask(StockTree::kItem, method);
    EXPECT_NE(MainQuery().find("and godown1.deleted = 0  } append"), std::string::npos);
  }
}

TEST_F(StockDispatchTest, EachOpensTheSourcesThatItsReportTypeAwaits) {
  using Sources = std::set<Source>;
  const Sources average = {Source::rsReport, Source::Rs1};
  const Sources rates = {Source::rsReport, Source::Rs1, Source::Rs2};
  const Sources simple = {Source::rsReport, Source::rsItems};
  // Item by item; the groups come on top.
  const std::map<std::int32_t, Sources> by_item = {
      {FifoRate, average},       {LifoRate, average},   {AverageRate, average},
      {LastPurchaseRate, rates}, {LastSaleRate, rates}, {standardrate, rates},
      {StandardPrice, rates},    {SimpleAvg, simple}};
  for (const auto& [method, sources] : by_item) {
    for (const StockTree tree : kTrees) {
      if (tree == StockTree::kGodown && method == SimpleAvg) continue;
      Sources expected = sources;
      if (tree != StockTree::kItem) expected.insert(Source::RsCategory);
      // Under a tree the layers do without the standard costs, which they do not read.
      if (tree != StockTree::kItem && method <= LifoRate) expected.erase(Source::Rs1);
      NewFrame();
      Ask(tree, method);
      EXPECT_EQ(Opened(), expected) << ReportTypeText(frame->lngReportType);
      EXPECT_EQ(FindRow(AllReports(), frame->lngReportType)->awaits, expected.size());
    }
  }
}

// The four entries of the public class.
using Entry = decltype(&clsStolvane1::StockDetails_Itemwise);
constexpr Entry kEntries[] = {
    &clsStolvane1::StockDetails_Itemwise, &clsStolvane1::StockDetails_Categorywise,
    &clsStolvane1::StockDetails_Classwise, &clsStolvane1::StockDetails_Godownwise};

TEST_F(SessionTest, AStockStatementWithoutAMethodDoesNotTouchTheConnection) {
  for (const Entry entry : kEntries) {
    for (const std::int32_t method : kNoMethods) {
      for (const Boolean at_once : {True, False}) {
        EXPECT_EQ(((*session).*entry)(1, kFrom, kTo, static_cast<enmValuationMethod>(method), -1, 0,
                                      at_once, True, True, 1, False, True, True, True, "", ""),
                  nullptr);
      }
    }
  }
  EXPECT_EQ(session->GetConnectionObject(), nullptr) << "there is none, and none was asked for";
  EXPECT_FALSE(session->Fetching());
  EXPECT_EQ(events, EventLog{});
  EXPECT_EQ(books->ConnectionStrings(), std::vector<std::string>{});
}

TEST_F(SessionTest, AStockStatementWithoutAConnectionSaysSo) {
  for (const Entry entry : kEntries) {
    try {
      ((*session).*entry)(1, kFrom, kTo, FifoRate, -1, 0, True, True, True, 1, False, True, True,
                          True, "", "");
      ADD_FAILURE() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kNoConnection);
    }
  }
}

}  // namespace
}  // namespace pstolvane1
