#include "session/books/sample/Masters.h"

namespace pstolvane1::books::sample {
namespace {

// Of every part and vehicle there is a cost and a price a year; one item in nine has none, and one
// in seven has a second price from October on.
void WriteStandardRates(Writer& writer, const Masters& masters) {
  Statement insert(writer, "StandardRate1",
                   "Item_id, Rate, DateFrom, DateTo, YearNo, SaleOrPurchase");
  for (int year = 1; year <= kYears; ++year) {
    const Day october = FirstDay(year) + std::chrono::days(183);
    for (std::size_t i = 0; i < masters.first_labour; ++i) {
      const Item& item = masters.items[i];
      if (item.id % 9 == 5 || item.year_of_creation > year) continue;
      for (const bool sale : {false, true}) {
        const Paise rate = sale ? item.PriceIn(year) : item.CostIn(year);
        const bool changes = sale && item.id % 7 == 3;
        insert.Run(item.id, Rupees(rate), FirstDay(year),
                   changes ? october - std::chrono::days(1) : LastDay(year), year, sale);
        if (changes) {
          insert.Run(item.id, Rupees(rate + rate / 20), october, LastDay(year), year, sale);
        }
      }
    }
  }
}

void WritePriceLists(Writer& writer, const Masters& masters) {
  Statement insert(writer, "PriceListDiscount1",
                   "Item_id, DateFrom, DateTo, Price1, Price2, Price3, Price4, Price5, Price6, "
                   "SaleOrPurchase, YearNo");
  for (int year = 1; year <= kYears; ++year) {
    for (std::size_t i = 0; i < masters.first_labour; ++i) {
      const Item& item = masters.items[i];
      if (item.year_of_creation > year) continue;
      for (const bool sale : {true, false}) {
        if (!sale && item.id % 3 != 0) continue;
        const Paise first = sale ? item.PriceIn(year) : item.CostIn(year);
        // Each further list is two hundredths below the one before.
        const auto list = [&](int number) {
          return Rupees(first - first * 2 * (number - 1) / 100);
        };
        insert.Run(item.id, FirstDay(year), LastDay(year), list(1), list(2), list(3), list(4),
                   list(5), list(6), sale, year);
      }
    }
  }
}

// Two or three slabs for each employee and item that earns him something, entered over the years,
// so that the latest entered is not always the one of the largest quantity.
void WriteCommission(Writer& writer, const Masters& masters, Random& random) {
  Statement insert(writer, "EmployeeCommision",
                   "EmployeeCommision_id, Employee_id, Item_id, DateFrom, QtyTo, CPercent");
  int id = 0;
  for (std::size_t e = 0; e + 1 < masters.employees.size(); ++e) {
    for (std::size_t i = 0; i < masters.first_labour; ++i) {
      const Item& item = masters.items[i];
      if (!item.model && (i + e) % 3 != 0) continue;
      if (i > 400) break;
      const int employee = static_cast<int>(e) + 1;
      const int base = static_cast<int>(random.Range(2, 8)) * 25;
      insert.Run(++id, employee, item.id, FirstDay(1), 0.0, Percent(base));
      insert.Run(++id, employee, item.id, FirstDay(1), item.model ? 2.0 : 10.0, Percent(base * 2));
      if (random.Chance(30)) {
        insert.Run(++id, employee, item.id, FirstDay(2), 1.0, Percent(base + 25));
      }
    }
  }
}

// A part of the second grade or a later model goes with the first of its kind.
void WriteRelations(Writer& writer, const Masters& masters) {
  Statement insert(writer, "ItemRelationShip", "Item_id, ItemRelated_id, RelatedQty");
  const std::size_t kinds = PartKinds().size();
  for (std::size_t i = masters.first_part + kinds; i < masters.first_labour; ++i) {
    const Item& item = masters.items[i];
    if (item.id % 6 != 1) continue;
    const Item& base = masters.items[masters.first_part + (i - masters.first_part) % kinds];
    insert.Run(item.id, base.id, static_cast<double>(1 + item.id % 3));
  }
}

}  // namespace

void WritePriceMasters(Writer& writer, const Masters& masters, Random& random) {
  WriteStandardRates(writer, masters);
  WritePriceLists(writer, masters);
  WriteCommission(writer, masters, random);
  WriteRelations(writer, masters);
}

}  // namespace pstolvane1::books::sample
