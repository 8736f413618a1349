#include "RandomDealer.h"

#include <fmt/format.h>
#include <random>
#include <string>
#include <vector>

#include "session/data/Date.h"

namespace pstolvane1 {
namespace {

using golden::TextTable;

constexpr int kFirstPart = 11, kFirstLabour = 21;  // two of each
constexpr int kServiceBill = 39, kVehicleSale = 10;

std::vector<TextTable> Masters() {
  return {
      {"Vouchertype1",
       {"Vouchertype_id", "Vouchertype", "RelatedTo", "SubRelatedTo"},
       {{"39", "Service bill", "10", "39"}, {"10", "Vehicle sale", "10", "10"}}},
      {"LedgerNames1", {"Ledger_id", "LedgerName", "Subgroup_id"}, {{"1", "Asha Rao", "4"}}},
      {"ItemCategory1",
       {"ItemCategory_id", "CategoryName"},
       {{"1", "Motorcycles"}, {"2", "Scooters"}, {"3", "Parts"}}},
      {"Items1",
       {"Item_id", "ItemName", "ItemCategory_id", "ConsiderForSih"},
       {{"1", "Falcon", "1", "1"},
        {"2", "Heron", "1", "1"},
        {"3", "Wren", "2", "1"},
        {"4", "Finch", "2", "1"},
        {"11", "Filter", "3", "1"},
        {"12", "Shoes", "3", "1"},
        {"21", "Labour", "3", "0"},
        {"22", "Free labour", "3", "0"}}},
      {"MechanicName",
       {"Mechanic_id", "MechanicName"},
       {{"1", "Mohan"}, {"2", "Latif"}, {"3", "Suresh"}}},
      {"Hypo",
       {"Hypo_id", "Name", "Pincode"},
       {{"1", "Surya", "560001"},
        {"2", "Ashok", "560001"},
        {"3", "Bank", ""},
        {"4", "Tapi", "560002"}}},
  };
}

class Dealer {
 public:
  explicit Dealer(std::uint32_t seed) : random_(seed) {}

  std::vector<TextTable> Tables() {
    for (int bill = Pick(10, 40); bill > 0; --bill) Add(kServiceBill);
    for (int bill = Pick(5, 20); bill > 0; --bill) Add(kVehicleSale);
    std::vector<TextTable> tables = Masters();
    for (TextTable* const table : {&documents_, &terms_, &lines_}) tables.push_back(*table);
    return tables;
  }

 private:
  int Pick(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }
  bool Chance(int percent) { return Pick(1, 100) <= percent; }

  void Add(int type) {
    const std::string id = std::to_string(documents_.rows.size() + 1);
    const Date::Parts day = Date(Date::FromYmd(2003, 4, 1).Serial() + Pick(0, 365)).ToParts();
    int paise = 0;
    for (int line = Pick(1, 4); line > 0; --line) paise += AddLine(id, type);
    documents_.rows.push_back({id, fmt::format("{:04}-{:02}-{:02}", day.year, day.month, day.day),
                               std::to_string(type), "1", "B", id, "", id, Money(paise),
                               Chance(15) ? "1" : "0", Chance(10) ? "1" : "0", "1"});
    terms_.rows.push_back({id, id, std::to_string(Pick(0, kModels)),
                           std::to_string(Pick(0, kMechanics)),
                           std::to_string(Pick(0, kFinanciers)), std::to_string(Pick(1, 14)),
                           "KA" + std::to_string(Pick(1, 5))});
  }

  // What it charges.
  int AddLine(const std::string& desr_id, int type) {
    const bool labour = Chance(40);
    const int item = type == kVehicleSale && Chance(60) ? Pick(1, kModels)
                     : labour                           ? kFirstLabour + Pick(0, 1)
                                                        : kFirstPart + Pick(0, 1);
    const int quantity = Pick(1, 3), price = Pick(0, 20'000);
    lines_.rows.push_back({std::to_string(lines_.rows.size() + 1), desr_id, std::to_string(item),
                           std::to_string(quantity), Money(price), Money(price)});
    return quantity * price;
  }

  static std::string Money(int paise) { return fmt::format("{}.{:02}", paise / 100, paise % 100); }

  std::mt19937 random_;
  TextTable documents_{"Desr1",
                       {"Desr_id", "Date", "Vouchertype_id", "Ledger_id", "Prefix", "DesrRefno",
                        "Suffix", "Related_id", "TotalAmount", "Optional", "Deleted", "YearNo"},
                       {}};
  TextTable terms_{"Terms1",
                   {"DesrTerms_id", "Desr_id", "Vehicle_id", "Mechanic_id", "Hypo_id",
                    "ServiceType_id", "RegistrationNumber"},
                   {}};
  TextTable lines_{"DesrDetails1",
                   {"DesrDetails_id", "Desr_id", "Item_id", "QtyDespOut", "Price", "ActualRate"},
                   {}};
};

}  // namespace

std::unique_ptr<golden::SmallBooks> RandomDealer(std::uint32_t seed) {
  return std::make_unique<golden::SmallBooks>(Dealer(seed).Tables());
}

}  // namespace pstolvane1
