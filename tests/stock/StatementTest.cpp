// What the lines of a stock statement show of given figures.
#include <gtest/gtest.h>
#include <map>
#include <random>

#include "session/data/Error.h"
#include "session/modStolvane1.h"
#include "stock/GroupStatement.h"
#include "stock/ItemStatement.h"
#include "tests/valuation/Money.h"

namespace pstolvane1 {
namespace {

// A stock key in hand, of the item "Item 1" in the category 10 + 1 and so on.
struct Key {
  std::int64_t item = 1, godown = 1;
  StockFigures figures = {};
};

StockFigures Values(double opening, double inwards, double outwards, double closing,
                    float sold = 45) {
  return {.opening = {10, Rupees(opening)},
          .inwards = {50, Rupees(inwards)},
          .outwards = {sold, Rupees(outwards)},
          .closing = {15, Rupees(closing)}};
}

class StatementTest : public testing::Test {
 protected:
  StatementTest() {
    *modStolvane1::OfThisThread() = modStolvane1();
    frame->SetLocale("en_IN");
  }

  RecordsetPtr Items(const std::vector<Key>& keys, BlockEnd end = BlockEnd::kRuleInHeader) {
    module.Keep(arguments);
    return WriteItemStatement(*frame, Rows(keys, end));
  }
  RecordsetPtr Groups(const std::vector<Key>& keys, const std::vector<std::int64_t>& groups) {
    const RecordsetPtr source = frame->Replace(Source::RsCategory);
    for (const char* name : {"ItemCategory_Id", "RelatedTo"}) {
      source->Fields().Append(name, adBigInt);
    }
    source->Fields().Append("Categoryname", adBSTR);
    source->Open();
    for (const std::int64_t group : groups) {
      source->AddNew();
      source->Collect("ItemCategory_Id", group);
      source->Collect("RelatedTo", std::int64_t{0});
      source->Collect("Categoryname", "Group " + std::to_string(group));
    }
    source->Update();
    source->MoveFirst();
    module.Keep(arguments);
    return WriteGroupStatement(*frame, Rows(keys, BlockEnd::kRuleInHeader));
  }

  // A cell of a line, from 0; "(null)" for Null.
  static std::string Cell(const RecordsetPtr& report, int line, const char* column) {
    report->MoveFirst();
    for (int i = 0; i < line; ++i) report->MoveNext();
    const Variant value = report->Collect(column);
    return value.IsNull() ? "(null)" : value.ToText();
  }

  modStolvane1& module = *modStolvane1::OfThisThread();
  StockArguments arguments;
  clsStolvane1Events host;
  std::shared_ptr<ReportFrame> frame =
      std::make_shared<ReportFrame>(std::span<const ReportRow>(), nullptr, host);
  std::string unit = "Nos";
  float relation_formula = 10;

 private:
  ValuedKeys Rows(const std::vector<Key>& keys, BlockEnd end) const {
    const RecordsetPtr rows = Recordset::New();
    for (const char* name : {"Item_Id", "Godown_Id", "Batch_Id", "ItemCategory_Id"}) {
      rows->Fields().Append(name, adBigInt);
    }
    for (const char* name : {"ItemName", "GodownName", "BatchCode", "UomName", "AltUomName"}) {
      rows->Fields().Append(name, adBSTR);
    }
    rows->Fields().Append("RelationFormula", adSingle);
    rows->Open();
    std::map<std::pair<std::int64_t, std::int64_t>, StockFigures> figures;
    for (const Key& key : keys) {
      rows->AddNew();
      rows->Collect("Item_Id", key.item);
      rows->Collect("Godown_Id", key.godown);
      rows->Collect("Batch_Id", std::int64_t{1});
      rows->Collect("ItemCategory_Id", 10 + key.item % 3);
      rows->Collect("ItemName", "Item " + std::to_string(key.item));
      rows->Collect("GodownName", "Godown " + std::to_string(key.godown));
      rows->Collect("UomName", unit);
      rows->Collect("AltUomName", "Box");
      rows->Collect("RelationFormula", relation_formula);
      figures[{key.item, key.godown}] = key.figures;
    }
    if (!keys.empty()) {
      rows->Update();
      rows->MoveFirst();
    }
    const ColumnHandle item = rows->Column("Item_Id"), godown = rows->Column("Godown_Id");
    return {.keys = rows,
            .rows = {rows->Rows().begin(), rows->Rows().end()},
            .value = [=](const Recordset::Row& row) -> std::optional<StockFigures> {
              return figures.at({row.Int64(item), row.Int64(godown)});
            },
            .block_end = end};
  }
};

// Opening 100, inwards 500, outwards 450, closing 300 give P = -150, a profit of 150 and a
// consumption of 300; the percentage is R = -50 with its sign changed.
TEST_F(StatementTest, ProfitOf150OnAConsumptionOf300IsFiftyPerCent) {
  const RecordsetPtr report = Items({{.figures = Values(100, 500, 450, 300)}});
  EXPECT_EQ(Cell(report, 0, "GrossProfit"), "₹150.00");
  EXPECT_EQ(Cell(report, 0, "Consumption"), "₹300.00");
  EXPECT_EQ(Cell(report, 0, "ProfitPerc"), "50.00%");
  EXPECT_EQ(Cell(report, 0, "PerProfit"), "@ ₹3.33/Nos");
  EXPECT_EQ(Cell(report, 0, "GrossProfitSort"), "150");
  EXPECT_EQ(Cell(report, 0, "ProfitSort"), "50");
  EXPECT_EQ(Cell(report, 0, "ConsumSort"), "300");
  EXPECT_EQ(Cell(report, 2, "ItemName"), "Total");
  EXPECT_EQ(Cell(report, 2, "TotalGrossProfit"), "₹150.00");
  EXPECT_EQ(Cell(report, 2, "TotalConsumption"), "₹300.00");
  EXPECT_EQ(Cell(report, 2, "TotalProfitPerc"), "50.00%");
  EXPECT_EQ(Cell(report, 2, "PerProfit"), "") << "a total has no profit per unit";
  EXPECT_EQ(Cell(report, 2, "GrossProfitSort"), "(null)") << "and no twins";
}

TEST_F(StatementTest, WithoutSalesAndAChangeInValueAllFourAreEmpty) {
  const RecordsetPtr report = Items({{.figures = Values(300, 0, 0, 300)}});
  for (const char* column : {"GrossProfit", "Consumption", "ProfitPerc", "PerProfit"}) {
    EXPECT_EQ(Cell(report, 0, column), "") << column;
  }
  for (const char* column : {"TotalGrossProfit", "TotalConsumption", "TotalProfitPerc"}) {
    EXPECT_EQ(Cell(report, 2, column), "") << column;
  }
  EXPECT_EQ(Cell(report, 0, "ConsumSort"), "0");
}

TEST_F(StatementTest, SalesAtCostShowTheirConsumptionWithoutAProfit) {
  const RecordsetPtr report = Items({{.figures = Values(100, 0, 40, 60)}});
  EXPECT_EQ(Cell(report, 0, "GrossProfit"), "");
  EXPECT_EQ(Cell(report, 0, "Consumption"), "₹40.00");
  EXPECT_EQ(Cell(report, 0, "ProfitPerc"), "");
  EXPECT_EQ(Cell(report, 0, "PerProfit"), "");
  EXPECT_EQ(Cell(report, 2, "TotalConsumption"), "₹40.00");
}

TEST_F(StatementTest, SalesWithoutACostAreMinusAHundredPerCent) {
  const RecordsetPtr report = Items({{.figures = Values(0, 0, 100, 0)}});
  EXPECT_EQ(Cell(report, 0, "GrossProfit"), "₹100.00");
  EXPECT_EQ(Cell(report, 0, "Consumption"), "");
  EXPECT_EQ(Cell(report, 0, "ProfitPerc"), "-100.00%");
}

// A profit of 1 on 10 lakhs is 0.0001 per cent; of 1 on a crore it is nothing in four places.
TEST_F(StatementTest, APercentageOfNothingIsNotWritten) {
  EXPECT_EQ(Cell(Items({{.figures = Values(1'000'000, 0, 1'000'001, 0)}}), 0, "ProfitSort"),
            "0.0001");
  const RecordsetPtr report = Items({{.figures = Values(10'000'000, 0, 10'000'001, 0)}});
  EXPECT_EQ(Cell(report, 0, "GrossProfit"), "₹1.00");
  EXPECT_EQ(Cell(report, 0, "ProfitPerc"), "(null)");
  EXPECT_EQ(Cell(report, 0, "ProfitSort"), "0");
}

TEST_F(StatementTest, WithoutSalesThereIsNoProfitPerUnit) {
  const RecordsetPtr report = Items({{.figures = Values(100, 0, 0, 130, 0)}});
  EXPECT_EQ(Cell(report, 0, "GrossProfit"), "₹30.00");
  EXPECT_EQ(Cell(report, 0, "PerProfit"), "");
}

TEST_F(StatementTest, AnItemWithoutAUnitHasItsProfitPerUnit) {
  unit = "";
  EXPECT_EQ(Cell(Items({{.figures = Values(100, 500, 450, 300)}}), 0, "PerProfit"), "@ ₹3.33/Unit");
}

TEST_F(StatementTest, InThousandsMoneyIsDividedAndRatesAndPercentagesAreNot) {
  arguments.sngScale = 1000;
  const RecordsetPtr report = Items({{.figures = Values(100'000, 500'000, 450'000, 300'000)}});
  const std::map<const char*, std::string> shown = {
      {"ValueOp", "₹100.00"},   {"ValueIn", "₹500.00"},       {"ValueOut", "₹450.00"},
      {"Value", "₹300.00"},     {"GrossProfit", "₹150.00"},   {"Consumption", "₹300.00"},
      {"ProfitPerc", "50.00%"}, {"PerProfit", "@ ₹3.33/Nos"}, {"RateOp", "10,000.00"},
      {"Rate", "20,000.00"},    {"ValueOpSort", "100"},       {"ValueClSort", "300"},
      {"RateOpSort", "10000"},  {"RateClSort", "20000"},      {"GrossProfitSort", "150"},
      {"ConsumSort", "300"},    {"ProfitSort", "50"},         {"QtyOp", "10.00"},
  };
  for (const auto& [column, text] : shown) EXPECT_EQ(Cell(report, 0, column), text) << column;
  EXPECT_EQ(Cell(report, 2, "TotalValue"), "₹300.00");
}

TEST_F(StatementTest, AZeroQuantityHasATwinOfZeroAndNoRateTwin) {
  const RecordsetPtr report = Items({{.figures = {.closing = {0, Rupees(15)}}}});
  const std::map<const char*, std::string> shown = {
      {"Balance", "(null)"},    {"Uom", "(null)"},    {"Rate", "(null)"},
      {"Value", "₹15.00"},      {"QtyClSort", "0"},   {"AltQtyClSort", "0"},
      {"RateClSort", "(null)"}, {"ValueClSort", "15"}};
  for (const auto& [column, text] : shown) EXPECT_EQ(Cell(report, 0, column), text) << column;
}

TEST_F(StatementTest, WithoutARelationTheAlternateTwinOfTheOutwardsStaysUnwritten) {
  relation_formula = 0;
  const RecordsetPtr report = Items({{.figures = Values(100, 500, 450, 300)}});
  EXPECT_EQ(Cell(report, 0, "AltQtyOpSort"), "0");
  EXPECT_EQ(Cell(report, 0, "AltQtyInSort"), "0");
  EXPECT_EQ(Cell(report, 0, "AltQtyOutSort"), "(null)");
  EXPECT_EQ(Cell(report, 0, "AltQtyClSort"), "0");
}

// Two items, the first in two godowns, in report order: kind of line and DummySort.
TEST_F(StatementTest, TheLinesOfTheTwoKindsOfBlocks) {
  const StockFigures figures = Values(100, 500, 450, 300);
  const std::vector<Key> keys = {{1, 1, figures}, {1, 2, figures}, {2, 1, figures}};
  const auto lines = [&](BlockEnd end) {
    const RecordsetPtr report = Items(keys, end);
    std::string text;
    for (const Recordset::Row row : report->Rows()) {
      const auto cell = [&](const char* name) { return row[report->Column(name)]; };
      const bool rule = !cell("TotalLine").IsNull(), group_rule = !cell("GrpLine").IsNull();
      const std::string name = cell("ItemName").IsNull() ? "-" : cell("ItemName").ToText();
      text += cell("DummySort").ToText() + " " + (name.empty() ? "blank" : name) +
              (rule ? " rule" : "") + (group_rule ? " line" : "") + "; ";
    }
    return text;
  };
  arguments.blnDetailed = true;
  EXPECT_EQ(lines(BlockEnd::kRuleInHeader),
            "1 Item 1 line; 2 -; 3 -; 4 blank; 5 Item 2 line; 6 -; 7 blank rule; 8 Total rule; ");
  EXPECT_EQ(lines(BlockEnd::kRuleLine),
            "1 Item 1; 3 -; 4 -; 5 blank rule; 6 blank; 7 Item 2; 9 -; 10 blank rule; 11 blank; "
            "12 blank; 13 blank rule; 14 Total rule; ");
  arguments.blnDetailed = false;
  EXPECT_EQ(lines(BlockEnd::kRuleInHeader), "1 Item 1; 2 Item 2; 3 blank rule; 4 Total rule; ");
  EXPECT_EQ(lines(BlockEnd::kRuleLine),
            "1 Item 1; 1 Item 2; 2 blank; 3 blank rule; 4 Total rule; ");
}

TEST_F(StatementTest, WithoutARowThereAreTheClosingLinesAlone) {
  for (const BlockEnd end : {BlockEnd::kRuleInHeader, BlockEnd::kRuleLine}) {
    const RecordsetPtr report = Items({}, end);
    EXPECT_EQ(report->RecordCount(), 2);
    EXPECT_EQ(Cell(report, 1, "ItemName"), "Total");
    EXPECT_EQ(Cell(report, 1, "TotalValue"), "₹0.00");
  }
}

TEST_F(StatementTest, ANegativeScaleOrOneBeyondAnyNumberIsNotPassedOver) {
  arguments.sngScale = -10;
  EXPECT_EQ(Cell(Items({{.figures = Values(100, 0, 0, 100)}}), 0, "ValueOp"), "-₹10.00");
  arguments.sngScale = std::numeric_limits<float>::quiet_NaN();
  EXPECT_THROW((void)Items({{.figures = Values(100, 0, 0, 100)}}), Error);
}

// Sums of random lines, held by the twins, which are not rounded for display.
class RandomStatementTest : public StatementTest {
 protected:
  std::vector<Key> RandomKeys() {
    std::vector<Key> keys;
    const auto figure = [this] {
      return StockFigure{static_cast<float>(Pick(-500, 500)),
                         Currency::FromTenThousandths(Pick(-9'000'000, 9'000'000))};
    };
    const int items = Pick(1, 6);
    for (int item = 1; item <= items; ++item) {
      const int godowns = Pick(1, 4);
      for (int godown = 1; godown <= godowns; ++godown) {
        keys.push_back({item, godown, {figure(), figure(), figure(), figure()}});
      }
    }
    return keys;
  }
  int Pick(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }

  static StockFigures Twins(const RecordsetPtr& report, const Recordset::Row& row) {
    const auto side = [&](const std::string& name) {
      return StockFigure{row.Single(report->Column("Qty" + name + "Sort")),
                         row.Money(report->Column("Value" + name + "Sort"))};
    };
    return {side("Op"), side("In"), side("Out"), side("Cl")};
  }
  void ExpectTotal(const RecordsetPtr& report, const StockFigures& sum) {
    const int last = report->RecordCount() - 1;
    const auto money = [this](Currency value) {
      return frame->Texts().FormatCurrency(value.ToDouble());
    };
    EXPECT_EQ(Cell(report, last, "TotalValueOp"), money(sum.opening.value));
    EXPECT_EQ(Cell(report, last, "TotalValueIn"), money(sum.inwards.value));
    EXPECT_EQ(Cell(report, last, "TotalValueOut"), money(sum.outwards.value));
    EXPECT_EQ(Cell(report, last, "TotalValue"), money(sum.closing.value));
  }
  static StockFigures SumOf(const std::vector<Key>& keys) {
    StockFigures sum;
    for (const Key& key : keys) sum += key.figures;
    return sum;
  }

 private:
  std::mt19937 random_{17};
};

TEST_F(RandomStatementTest, DetailLinesSumToTheirItemsAndItemsToTheTotal) {
  arguments.blnDetailed = true;
  for (int i = 0; i < 300; ++i) {
    const std::vector<Key> keys = RandomKeys();
    const RecordsetPtr report =
        Items(keys, i % 2 == 0 ? BlockEnd::kRuleInHeader : BlockEnd::kRuleLine);
    std::map<std::int64_t, StockFigures> headers, details;
    StockFigures total;
    for (const Recordset::Row row : report->Rows()) {
      if (row.IsNull(report->Column("Item_Id"))) continue;
      const std::int64_t item = row.Int64(report->Column("Item_Id"));
      if (row.IsNull(report->Column("Godown_Id"))) {
        EXPECT_TRUE(headers.emplace(item, Twins(report, row)).second) << "two blocks";
        total += headers[item];
      } else {
        details[item] += Twins(report, row);
      }
    }
    EXPECT_EQ(headers, details);
    EXPECT_EQ(total, SumOf(keys));
    ExpectTotal(report, SumOf(keys));
  }
}

TEST_F(RandomStatementTest, ItemsSumToTheirGroupsAndGroupsToTheTotal) {
  for (int i = 0; i < 300; ++i) {
    const std::vector<Key> keys = RandomKeys();
    arguments.blnDetailed = i % 2 == 0;
    arguments.blnOnlyItems = i % 2 != 0;
    const RecordsetPtr report = Groups(keys, {10, 11, 12, 13});
    std::map<std::int64_t, StockFigures> groups, items;
    StockFigures total;
    for (const Recordset::Row row : report->Rows()) {
      if (row.IsNull(report->Column("Category_Id")) || row.IsNull(report->Column("QtyOpSort"))) {
        continue;
      }
      const std::int64_t group = row.Int64(report->Column("Category_Id"));
      if (row.IsNull(report->Column("Item_Id"))) {
        groups[group] = Twins(report, row);
        total += groups[group];
      } else {
        items[group] += Twins(report, row);
      }
    }
    EXPECT_EQ(groups, items);
    EXPECT_EQ(total, SumOf(keys));
    ExpectTotal(report, SumOf(keys));
  }
}

}  // namespace
}  // namespace pstolvane1
