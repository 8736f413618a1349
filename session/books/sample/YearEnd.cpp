#include "session/books/sample/YearEnd.h"

#include <cmath>

#include "session/books/sample/Goods.h"

namespace pstolvane1::books::sample {
namespace {

// One item in seventeen was taken over without a price.
Paise OpeningRate(const Item& item, int year) {
  return item.id % 17 == 16 ? 0 : item.CostIn(year) * 97 / 1000 * 10;
}

void OpenPart(World& world, std::size_t place, int year) {
  const Item& item = world.ItemAt(place);
  const int stores[] = {kMainStore, kWorkshopStore, kBranchStore};
  const int count = static_cast<int>(world.random.Range(1, 2));
  for (int i = 0; i < count; ++i) {
    const int godown = i == 0 ? kMainStore : stores[world.random.Range(1, 2)];
    const double quantity = DrawPurchaseQuantity(world, item);
    const bool short_of = !item.Batches() && item.id % 41 == 40;
    Move move;
    if (short_of) {
      move = world.stock.TakeOut(place, godown, 2).front();
    } else {
      const Day bought = FirstDay(year) - std::chrono::days(world.random.Range(10, 200));
      move = world.stock.PutIn(place, godown, quantity, bought, world.random);
    }
    world.documents.PostOpening(place, move, OpeningRate(item, year), year, !short_of);
  }
}

}  // namespace

void OpenYear(World& world, int year) {
  for (std::size_t i = world.masters.first_part; i < world.masters.first_labour; ++i) {
    if (world.ItemAt(i).year_of_creation == year) OpenPart(world, i, year);
  }
  if (year != 1) return;
  for (std::size_t i = 0; i < world.masters.first_part; ++i) {
    const Day bought = FirstDay(1) - std::chrono::days(world.random.Range(5, 80));
    const Vehicle& vehicle =
        world.stock.Deliver(i, i % 4 == 3 ? kBranch : kShowroom, bought, world.random);
    world.documents.PostOpening(i, vehicle.place, world.ItemAt(i).CostIn(1), 1, true);
  }
}

YearEnd::YearEnd(Writer& writer, Masters& masters)
    : masters_(masters),
      insert_(writer, "ItemDetailsAsLedger",
              "Item_id, YearNo, OpeningQuantity, OpeningValue, TotalPurchaseQuantity, "
              "TotalPurchaseValue, TotalSalesQuantity, TotalSalesValue") {}

void YearEnd::Close(int year) {
  for (std::size_t i = 0; i < masters_.first_labour; ++i) {
    Item& item = masters_.items[i];
    if (item.year_of_creation > year) continue;
    const YearTotals& was = item.totals;
    insert_.Run(item.id, year, was.opening, Rupees(was.opening_value), was.purchased,
                Rupees(was.purchase_value), was.sold, Rupees(was.sales_value));
    YearTotals next;
    next.opening = was.opening + was.purchased - was.sold;
    const double base = was.opening + was.purchased;
    if (base != 0) {
      const auto value = static_cast<double>(was.opening_value + was.purchase_value);
      next.opening_value = std::llround(value / base * next.opening);
    }
    item.totals = next;
  }
}

}  // namespace pstolvane1::books::sample
