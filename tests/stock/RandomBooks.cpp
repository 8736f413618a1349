#include "RandomBooks.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "session/data/Date.h"

namespace pstolvane1 {
namespace {

using golden::TextTable;

constexpr int kItems = 3, kGodowns = 3;

std::vector<TextTable> Masters() {
  TextTable batches{"Batches1", {"Batch_id", "BatchCode", "Item_id"}, {}};
  for (int batch = 1; batch <= kItems * kGodowns; ++batch) {
    batches.rows.push_back(
        {std::to_string(batch), "-", std::to_string((batch - 1) / kGodowns + 1)});
  }
  return {{"Uom1", {"Uom_id", "UomName"}, {{"1", "Nos"}, {"2", "Box"}}},
          {"ItemCategory1",
           {"ItemCategory_id", "CategoryName", "RelatedTo", "Deleted"},
           {{"1", "Goods", "0", "0"}, {"2", "Parts", "1", "0"}}},
          {"ItemClass1",
           {"ItemClass_id", "ClassName", "RelatedTo", "Deleted"},
           {{"1", "Fast", "0", "0"}, {"2", "Slow", "0", "0"}}},
          {"Godown1",
           {"Godown_id", "GodownName", "RelatedTo", "Deleted"},
           {{"1", "Main", "0", "0"}, {"2", "Yard", "1", "0"}, {"3", "Shop", "1", "0"}}},
          {"Items1",
           {"Item_id", "ItemName", "Uom_id", "AlternateUom_id", "RelationFormula",
            "ItemCategory_id", "ItemClass_id", "MaintainBatches", "Deleted", "YearOfCreation",
            "ConsiderForSih", "ItemState"},
           {{"1", "Bolt", "1", "2", "10", "1", "1", "0", "0", "1", "1", "1"},
            {"2", "Nut", "1", "2", "10", "2", "1", "0", "0", "1", "1", "1"},
            {"3", "Pin", "1", "2", "10", "2", "2", "0", "0", "1", "1", "1"}}},
          std::move(batches)};
}

class Shop {
 public:
  Shop(std::uint32_t seed, const RandomShop& shop) : random_(seed), shop_(shop) {}

  std::vector<TextTable> Tables() {
    for (int item = 1; item <= kItems; ++item) {
      for (int godown = 1; godown <= kGodowns; ++godown) Trade(item, godown);
    }
    std::vector<TextTable> tables = Masters();
    tables.push_back(std::move(movements_));
    tables.push_back(std::move(rates_));
    tables.push_back(std::move(documents_));
    tables.push_back(std::move(document_lines_));
    tables.push_back(YearlyTotals());
    return tables;
  }

 private:
  int Pick(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }
  int Rate() { return Pick(shop_.least_rate, shop_.most_rate); }

  void Trade(int item, int godown) {
    int stock = 0;
    if (Pick(0, 2) > 0) {
      stock = Pick(1, 20);
      Add("", 1, item, godown, stock, true, true);
    }
    for (int year = 1; year <= shop_.years; ++year) {
      std::vector<int> days(static_cast<std::size_t>(Pick(0, 8)));
      for (int& day : days) day = Pick(0, 364);
      std::sort(days.begin(), days.end());
      for (const int day : days) {
        const Date date(Date::FromYmd(2002 + year, 4, 1).Serial() + day);
        const Date::Parts parts = date.ToParts();
        std::array<char, 16> text{};
        std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", parts.year, parts.month,
                      parts.day);
        const bool sells = stock > 0 && Pick(0, 1) == 0;
        const int quantity = Pick(1, sells ? stock : 20);
        stock += sells ? -quantity : quantity;
        Add(text.data(), year, item, godown, quantity, !sells, false);
      }
    }
  }

  void Add(const std::string& date, int year, int item, int godown, int quantity, bool in,
           bool opening) {
    const std::string id = std::to_string(movements_.rows.size() + 1);
    const int rate = Rate();
    const std::string price = std::to_string(rate);
    const std::string count = std::to_string(quantity);
    YearOfItem& total = totals_[{item, year}];
    if (opening) {
      total.opened += quantity;
      total.opened_value += quantity * rate;
    } else {
      documents_.rows.push_back({id, date, std::to_string(year), in ? "7" : "10", "0", "0"});
      document_lines_.rows.push_back({id, id, std::to_string(item), date, std::to_string(year),
                                      in ? count : "0", in ? "0" : count, price, "1"});
      (in ? total.bought : total.sold) += quantity;
      (in ? total.bought_value : total.sold_value) += quantity * rate;
    }
    movements_.rows.push_back({id, date, std::to_string(year), std::to_string(item),
                               std::to_string(godown),
                               std::to_string((item - 1) * kGodowns + godown), count, price,
                               in ? "1" : "0", opening ? "1" : "0", "0", "0", id,
                               opening ? "0"
                               : in    ? "7"
                                       : "10"});
  }

  // A year opens with what the one before left, at a rate of 10 a piece.
  TextTable YearlyTotals() {
    TextTable totals{
        "ItemDetailsAsLedger",
        {"Item_id", "YearNo", "OpeningQuantity", "OpeningValue", "TotalPurchaseQuantity",
         "TotalPurchaseValue", "TotalSalesQuantity", "TotalSalesValue"},
        {}};
    for (int item = 1; item <= kItems; ++item) {
      int left = 0;
      for (int year = 1; year <= shop_.years; ++year) {
        YearOfItem total = totals_[{item, year}];
        total.opened += left;
        total.opened_value += left * 10;
        left = total.opened + total.bought - total.sold;
        golden::Cells row;
        for (const int cell : {item, year, total.opened, total.opened_value, total.bought,
                               total.bought_value, total.sold, total.sold_value}) {
          row.push_back(std::to_string(cell));
        }
        totals.rows.push_back(std::move(row));
      }
    }
    return totals;
  }

  struct YearOfItem {
    int opened = 0, opened_value = 0, bought = 0, bought_value = 0, sold = 0, sold_value = 0;
  };

  std::mt19937 random_;
  RandomShop shop_;
  TextTable movements_{"GodownItem1",
                       {"GodownItem_id", "Date", "YearNo", "Item_id", "Godown_id", "Batch_id",
                        "Qty", "Rate", "IsAdded", "IsOpeningBal", "Optional", "GDesrOptional",
                        "DesrDetails_id", "GOriginalVouchertype_id"},
                       {}};
  TextTable documents_{
      "Desr1", {"Desr_id", "Date", "YearNo", "Vouchertype_id", "Optional", "Deleted"}, {}};
  TextTable document_lines_{"DesrDetails1",
                            {"DesrDetails_id", "Desr_id", "Item_id", "DesrDetDate", "YearNo",
                             "QtyDespIn", "QtyDespOut", "Price", "AffectStock"},
                            {}};
  std::map<std::pair<int, int>, YearOfItem> totals_;  // by item and year
  TextTable rates_{"StandardRate1",
                   {"Item_id", "Rate", "DateFrom", "DateTo", "YearNo", "SaleOrPurchase"},
                   {{"1", "12", "2003-03-01", "2003-03-31", "1", "0"},
                    {"2", "13", "2003-03-01", "2003-03-31", "1", "0"},
                    {"1", "30", "2003-03-01", "2003-03-31", "1", "1"}}};
};

}  // namespace

std::unique_ptr<golden::SmallBooks> RandomBooks(std::uint32_t seed, const RandomShop& shop) {
  return std::make_unique<golden::SmallBooks>(Shop(seed, shop).Tables());
}

}  // namespace pstolvane1
