// The masters of the sample books: written once, and kept in memory for the documents to draw on.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/books/Writer.h"
#include "session/books/sample/Plan.h"
#include "session/books/sample/Random.h"
#include "session/books/sample/Words.h"

namespace pstolvane1::books::sample {

using Paise = std::int64_t;

enum class ItemKind { kVehicle, kPart, kLabour };

// What went in and out of an item in the year in hand, as the books add it up per item and year.
struct YearTotals {
  double opening = 0, purchased = 0, sold = 0;
  Paise opening_value = 0, purchase_value = 0, sales_value = 0;
};

struct Item {
  int id = 0;
  std::string name;
  ItemKind kind = ItemKind::kPart;
  const VehicleModel* model = nullptr;  // of a vehicle
  const PartKind* part = nullptr;       // of a part
  Paise cost = 0;                       // in year 1; a labour job's charge
  int tax_hundredths = 0;               // of a percent
  int relation = 1;
  int year_of_creation = 1;
  YearTotals totals;

  [[nodiscard]] bool Batches() const { return model || (part && part->batches); }
  [[nodiscard]] Paise CostIn(int year) const { return cost + cost * 4 * (year - 1) / 1000 * 10; }
  // What it is sold at: a fifth above its cost, a vehicle a twelfth; labour at its charge.
  [[nodiscard]] Paise PriceIn(int year) const;
};

struct Person {
  std::string name;
  bool woman = false;
};

struct Party {
  int ledger = 0;
  std::string name;
  int subgroup = 0;
  const Town* town = nullptr;
  std::string pin;
  std::string street;
  int year_of_creation = 1;
};

// The subgroups by what they are; the numbers are their keys.
enum Subgroup : int {
  kCash = 1,
  kBankAccounts = 2,
  kBankOverdraft = 3,
  kDebtors = 4,
  kDealers = 5,
  kCreditors = 6,
  kSalesAccounts = 7,
  kPurchaseAccounts = 8,
  kDuties = 9,
  kExpenses = 10,
  kStockInHand = 33,
  kProfitAndLoss = 34,
};

// The ledgers of the house itself; parties follow from kFirstParty on.
enum HouseLedger : int {
  kCashLedger = 1,
  kBankLedger,
  kOverdraftLedger,
  kSparesSales,
  kVehicleSales,
  kLabourIncome,
  kPurchases,
  kTaxLedger,
  kWorkshopExpenses,
  kStockLedger,
  kProfitLedger,
  kFirstParty,
};

class Masters {
 public:
  // Draws and writes all masters but batches.
  Masters(Writer& writer, const Plan& plan, Random& random);

  std::vector<Item> items;  // vehicles, then parts, then labour; an item's key is its place + 1
  std::size_t first_part = 0, first_labour = 0;
  std::vector<Party> customers, suppliers;
  std::vector<Person> employees, mechanics;
  int godowns = 0;

  [[nodiscard]] std::size_t Parts() const { return first_labour - first_part; }
  // The subgroup of any ledger.
  [[nodiscard]] int SubgroupOf(int ledger) const;

 private:
  void DrawItems(const Plan& plan, Random& random);
  void DrawParties(const Plan& plan, Random& random);

  std::vector<int> subgroups_;  // by ledger
};

[[nodiscard]] Person DrawPerson(Random& random);
// 1250 hundredths of a percent is 12.5.
[[nodiscard]] constexpr Currency Percent(int hundredths) {
  return Currency::FromTenThousandths(std::int64_t{hundredths} * 100);
}
[[nodiscard]] constexpr Currency Rupees(Paise paise) {
  return Currency::FromTenThousandths(paise * 100);
}

// Standard rates, price lists, commission slabs and related items of every year.
void WritePriceMasters(Writer& writer, const Masters& masters, Random& random);

}  // namespace pstolvane1::books::sample
