#include "OddBooks.h"

#include <array>
#include <cstdio>
#include <random>
#include <string>

namespace pstolvane1 {
namespace {

using golden::TextTable;
using Row = std::vector<std::string>;

class OddShop {
 public:
  explicit OddShop(std::uint32_t seed) : random_(seed), nulls_(OneIn(6)), items_(Pick(2, 6)) {}

  std::vector<TextTable> Tables() {
    std::vector<TextTable> tables = Groups();
    tables.push_back(Items());
    tables.push_back(Batches());
    tables.push_back(Ledgers());
    tables.push_back(Documents());
    tables.push_back(StandardRates());
    tables.push_back(Movements());
    return tables;
  }

 private:
  int Pick(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }
  bool OneIn(int many) { return Pick(1, many) == 1; }
  std::string Number(int least, int most) { return std::to_string(Pick(least, most)); }
  std::string Flag(int one_in) { return OneIn(one_in) ? "1" : "0"; }
  std::string Of(const Row& texts) {
    return texts[static_cast<std::size_t>(Pick(0, static_cast<int>(texts.size()) - 1))];
  }
  std::string OrNull(std::string text) { return nulls_ && OneIn(30) ? "" : text; }

  std::string Day(int first_year, int last_year) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", Pick(first_year, last_year),
                  Pick(1, 12), Pick(1, 28));
    return text.data();
  }

  std::vector<TextTable> Groups() {
    return {{"Uom1", {"Uom_id", "UomName"}, {{"1", "Nos"}, {"2", "Box"}, {"3", "nos"}}},
            {"ItemCategory1",
             {"ItemCategory_id", "CategoryName", "RelatedTo", "Deleted"},
             {{"1", "Goods", "0", "0"}, {"2", "Parts", "1", Flag(4)}, {"3", "goods", "2", "0"}}},
            {"ItemClass1",
             {"ItemClass_id", "ClassName", "RelatedTo", "Deleted"},
             {{"1", "Fast", "0", "0"}, {"2", "Slow", "1", Flag(4)}}},
            {"Godown1",
             {"Godown_id", "GodownName", "RelatedTo", "Deleted"},
             {{"1", "Main", "0", "0"}, {"2", "Yard", "1", Flag(4)}, {"3", "main", "1", "0"}}},
            {"SubgroupName1",
             {"Subgroup_id", "SubgroupName", "Code"},
             {{"1", "Cash", "1"}, {"2", "Bank", "2"}, {"3", "Debtors", "30"}}},
            {"Vouchertype1",
             {"Vouchertype_id", "Vouchertype", "RelatedTo"},
             {{"7", "Purchase", "7"}, {"10", "Sale", "10"}, {"12", "Order", ""}}}};
  }

  TextTable Items() {
    TextTable items{"Items1",
                    {"Item_id", "ItemName", "ItemPartNo", "Uom_id", "AlternateUom_id",
                     "RelationFormula", "ItemCategory_id", "ItemClass_id", "MaintainBatches",
                     "Deleted", "YearOfCreation", "ConsiderForSih", "ItemState"},
                    {}};
    for (int item = 1; item <= items_; ++item) {
      items.rows.push_back({std::to_string(item), Of({"Bolt", "bolt", "Nut", "Axle  ", "axle"}),
                            Of({"", "P1", "P2"}), Number(1, 3), OneIn(12) ? "9" : Number(1, 3),
                            Number(1, 12), OneIn(6) ? "" : Number(1, 3), Number(1, 2), Flag(2),
                            Flag(6), OneIn(4) ? Number(1, 3) : "1", Flag(2), Number(1, 3)});
    }
    return items;
  }

  TextTable Batches() {
    TextTable batches{"Batches1", {"Batch_id", "BatchCode", "Item_id", "EngineNo"}, {}};
    for (int batch = 1; batch <= 4; ++batch) {
      batches.rows.push_back({std::to_string(batch), OneIn(5) ? "" : "B" + std::to_string(batch),
                              Number(1, items_), "E" + Number(1, 2)});
    }
    return batches;
  }

  TextTable Ledgers() {
    TextTable ledgers{"LedgerNames1", {"Ledger_id", "LedgerName", "Subgroup_id"}, {}};
    for (int ledger = 1; ledger <= 4; ++ledger) {
      ledgers.rows.push_back({std::to_string(ledger), "L", Number(1, 4)});
    }
    return ledgers;
  }

  TextTable Documents() {
    TextTable documents{"Desr1", {"Desr_id", "Vouchertype_id", "Ledger_id", "Optional"}, {}};
    for (int document = 1; document <= 10; ++document) {
      documents.rows.push_back(
          {std::to_string(document), Of({"7", "10", "12", "99"}), Number(1, 5), Flag(4)});
    }
    return documents;
  }

  TextTable StandardRates() {
    TextTable rates{
        "StandardRate1", {"Item_id", "Rate", "DateFrom", "DateTo", "YearNo", "SaleOrPurchase"}, {}};
    for (int rate = 0; rate < 8; ++rate) {
      rates.rows.push_back({Number(1, items_), Number(0, 40) + ".25", Day(2002, 2004),
                            Day(2004, 2005), Number(1, 3), Flag(2)});
    }
    return rates;
  }

  TextTable Movements() {
    TextTable movements{"GodownItem1",
                        {"GodownItem_id", "Date", "YearNo", "Item_id", "Godown_id", "Batch_id",
                         "Qty", "Rate", "IsAdded", "IsOpeningBal", "Optional", "GDesrOptional",
                         "DesrDetails_id", "GOriginalVouchertype_id", "GDesr_id"},
                        {}};
    for (int left = Pick(5, 90); left > 0; --left) {
      Row row = Movement();
      row.insert(row.begin(), std::to_string(movements.rows.size() + 1));
      movements.rows.push_back(std::move(row));
    }
    return movements;
  }

  Row Movement() {
    const bool opening = OneIn(6);
    const int year = Pick(1, 3);
    const bool undated = opening ? !OneIn(5) : OneIn(25);
    std::string date = OneIn(9) ? Day(2003, 2006) : Day(2002 + year, 2002 + year);
    if (OneIn(4)) date = std::to_string(2002 + year) + "-07-15";
    const std::string fraction = OneIn(4) ? Of({".1", ".3", ".7"}) : "";
    const std::string paise = OneIn(3) ? "." + Number(1000, 9999) : "";
    return {undated ? "" : date,
            OrNull(std::to_string(year)),
            Number(1, items_),
            OneIn(40) ? "9" : Number(1, 3),
            OneIn(30) ? "77" : Number(1, 4),
            OrNull(Number(0, 25) + fraction),
            OrNull(Number(0, 60) + paise),
            OrNull(opening ? (OneIn(5) ? "0" : "1") : Flag(2)),
            OrNull(opening ? "1" : "0"),
            OrNull(Flag(9)),
            Flag(5),
            OneIn(6) ? "" : Number(1, 30),
            opening ? "0" : Of({"7", "10", "14", "15", "0", "18"}),
            OneIn(6) ? "" : Number(1, 11)};
  }

  std::mt19937 random_;
  bool nulls_;
  int items_;
};

}  // namespace

std::vector<TextTable> OddBooks(std::uint32_t seed) { return OddShop(seed).Tables(); }

}  // namespace pstolvane1
