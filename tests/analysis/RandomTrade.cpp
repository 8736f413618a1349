#include "RandomTrade.h"

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "session/data/Date.h"

namespace pstolvane1 {
namespace {

using golden::Cells;
using golden::TextTable;
using std::to_string;

constexpr int kDocuments = 60, kPurchase = 7, kPurchaseReturn = 8, kSale = 10, kSaleReturn = 11;

int BatchOf(int item, int color) { return (item - 1) * kTradedColors + color; }

std::vector<TextTable> Masters() {
  TextTable items{"Items1",
                  {"Item_id", "ItemName", "ItemPartNo", "Uom_id", "AlternateUom_id",
                   "RelationFormula", "ItemCategory_id", "ItemClass_id", "Deleted",
                   "YearOfCreation", "ConsiderForSih", "ItemState"},
                  {}};
  TextTable batches{"Batches1", {"Batch_id", "BatchCode", "Item_id", "Color_id"}, {}};
  for (int item = 1; item <= kTradedItems; ++item) {
    items.rows.push_back({to_string(item), "Item " + to_string(item), "P" + to_string(item), "1",
                          "2", "10", to_string(item % 2 + 1), to_string(item / 3 + 1), "0", "1",
                          "1", "1"});
    for (int color = 1; color <= kTradedColors; ++color) {
      batches.rows.push_back(
          {to_string(BatchOf(item, color)), "-", to_string(item), to_string(color)});
    }
  }
  TextTable parties{"LedgerNames1", {"Ledger_id", "LedgerName", "Subgroup_id", "Pin"}, {}};
  for (int party = 1; party <= kTradeParties; ++party) {
    parties.rows.push_back({to_string(party), "Party " + to_string(party), to_string(party % 2 + 1),
                            party < 3 ? "4000" : "5000"});
  }
  const auto kind = [](int type) {
    return Cells{to_string(type), "Type " + to_string(type), to_string(type), to_string(type)};
  };
  return {
      std::move(items),
      std::move(batches),
      std::move(parties),
      {"Uom1", {"Uom_id", "UomName"}, {{"1", "Nos"}, {"2", "Box"}}},
      {"Color1", {"Color_id", "Color"}, {{"1", "Red"}, {"2", "Blue"}, {"3", "Green"}}},
      {"Godown1", {"Godown_id", "GodownName", "RelatedTo", "Deleted"}, {{"1", "Main", "0", "0"}}},
      {"ItemCategory1",
       {"ItemCategory_id", "CategoryName", "RelatedTo", "Deleted"},
       {{"1", "Goods", "1", "0"}, {"2", "Parts", "2", "0"}}},
      {"ItemClass1",
       {"ItemClass_id", "ClassName", "RelatedTo", "Deleted"},
       {{"1", "Fast", "1", "0"}, {"2", "Slow", "2", "0"}}},
      {"SubgroupName1",
       {"Subgroup_id", "SubgroupName", "Code"},
       {{"1", "Town", "7"}, {"2", "Country", "8"}}},
      {"Vouchertype1",
       {"Vouchertype_id", "Vouchertype", "RelatedTo", "SubRelatedTo"},
       {kind(kPurchase), kind(kPurchaseReturn), kind(kSale), kind(kSaleReturn)}}};
}

// A line of a document.
struct TradedLine {
  int in = 0, out = 0, returned = 0;
  [[nodiscard]] int Billed() const { return in + out; }
};

class Trader {
 public:
  explicit Trader(std::uint32_t seed) : random_(seed) {}

  std::vector<TextTable> Tables() {
    for (int item = 1; item <= kTradedItems; ++item) {
      for (int color = 1; color <= kTradedColors; ++color) {
        if (Pick(0, 2) == 0) Move("", 1, item, color, Pick(1, 20), true, 0, 0);
      }
    }
    for (int document = 1; document <= kDocuments; ++document) AddDocument(document);
    std::vector<TextTable> tables = Masters();
    tables.push_back(std::move(documents_));
    tables.push_back(std::move(lines_));
    tables.push_back(std::move(movements_));
    return tables;
  }

 private:
  int Pick(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }

  void AddDocument(int document) {
    constexpr int kTypes[] = {kPurchase, kPurchase, kPurchaseReturn, kSale, kSale, kSaleReturn};
    const int type = kTypes[Pick(0, 5)];
    const int year = Pick(1, 2);
    const Date date(Date::FromYmd(2002 + year, 4, 1).Serial() + Pick(0, 364));
    const std::string day = date.ToIso();
    documents_.rows.push_back({to_string(document), day, to_string(type),
                               to_string(Pick(1, kTradeParties)), to_string(document),
                               to_string(year), "0", "0"});
    for (int line = Pick(1, 3); line > 0; --line) AddLine(document, type, day, year);
  }

  void AddLine(int document, int type, const std::string& day, int year) {
    const int item = Pick(1, kTradedItems), quantity = Pick(1, 20);
    TradedLine line;
    if (type == kPurchase) line.in = quantity;
    if (type == kSale) line.out = quantity;
    if (type == kPurchaseReturn || type == kSaleReturn || Pick(0, 3) == 0) {
      line.returned = Pick(1, quantity);
    }
    lines_.rows.push_back({to_string(lines_.rows.size() + 1), to_string(document), to_string(item),
                           day, to_string(line.in), to_string(line.out), to_string(line.returned),
                           to_string(line.Billed()), "0", to_string(Pick(1, 50)), "0", "0", "0",
                           to_string(year)});
    const bool buys = type == kPurchase || type == kPurchaseReturn;
    const int moved = buys ? line.in - line.returned : line.returned - line.out;
    Move(day, year, item, Pick(1, kTradedColors), std::abs(moved), moved > 0, document, type);
  }

  void Move(const std::string& day, int year, int item, int color, int quantity, bool in,
            int document, int type) {
    movements_.rows.push_back({to_string(movements_.rows.size() + 1), day, to_string(year),
                               to_string(item), "1", to_string(BatchOf(item, color)),
                               to_string(quantity), "10", in ? "1" : "0", day.empty() ? "1" : "0",
                               "0", "0", to_string(document), to_string(type), to_string(color)});
  }

  std::mt19937 random_;
  TextTable documents_{"Desr1",
                       {"Desr_id", "Date", "Vouchertype_id", "Ledger_id", "DesrRefno", "YearNo",
                        "Optional", "Deleted"},
                       {}};
  TextTable lines_{"DesrDetails1",
                   {"DesrDetails_id", "Desr_id", "Item_id", "DesrDetDate", "QtyDespIn",
                    "QtyDespOut", "QtyReturned", "BilledQty", "AltQty", "Price", "IsAltUnit",
                    "IsAltRate", "Optional", "YearNo"},
                   {}};
  TextTable movements_{"GodownItem1",
                       {"GodownItem_id", "Date", "YearNo", "Item_id", "Godown_id", "Batch_id",
                        "Qty", "Rate", "IsAdded", "IsOpeningBal", "Optional", "GDesrOptional",
                        "GDesr_id", "GOriginalVouchertype_id", "Color_id"},
                       {}};
};

}  // namespace

std::unique_ptr<golden::SmallBooks> RandomTrade(std::uint32_t seed) {
  return std::make_unique<golden::SmallBooks>(Trader(seed).Tables());
}

}  // namespace pstolvane1
