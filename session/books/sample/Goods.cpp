#include "session/books/sample/Goods.h"

#include <algorithm>

namespace pstolvane1::books::sample {
namespace {

bool Has(const Document& document, std::size_t item) {
  return std::ranges::find(document.lines, item, &Line::item) != document.lines.end();
}

template <typename Suits>
std::optional<std::size_t> DrawSuch(World& world, const Document& document, Suits suits) {
  for (int attempt = 0; attempt < 12; ++attempt) {
    const std::size_t place =
        world.masters.first_part + world.random.Popular(world.masters.Parts());
    if (world.ItemAt(place).year_of_creation > world.year || Has(document, place)) continue;
    if (suits(place)) return place;
  }
  return std::nullopt;
}

// A scheme of one free in ten, or a little something, on one line in nine.
double DrawBilled(World& world, const Item& item, double quantity) {
  if (quantity < 2 * item.relation || world.random.Range(1, 9) != 1) return quantity;
  const double free = std::max(1.0, static_cast<double>(static_cast<int>(quantity / 11)));
  return quantity - (item.relation > 1 ? std::min(free * item.relation, quantity / 2) : free);
}

void DrawUnits(World& world, const Item& item, Line& line) {
  if (item.relation == 1) return;
  const auto whole_units = [&](double quantity) {
    return static_cast<int>(quantity) % item.relation == 0 && quantity >= item.relation;
  };
  line.alternate_unit = whole_units(line.quantity) && whole_units(line.billed);
  line.alternate_rate = world.random.Chance(line.alternate_unit ? 60 : 10);
}

}  // namespace

std::optional<std::size_t> DrawPart(World& world, const Document& document) {
  return DrawSuch(world, document, [](std::size_t) { return true; });
}

std::optional<std::size_t> DrawPlainPart(World& world, const Document& document) {
  return DrawSuch(world, document,
                  [&](std::size_t place) { return !world.ItemAt(place).Batches(); });
}

std::optional<std::size_t> DrawStockedPart(World& world, const Document& document, int godown) {
  return DrawSuch(world, document,
                  [&](std::size_t place) { return world.stock.OnHand(place, godown) > 0; });
}

double DrawPurchaseQuantity(World& world, const Item& item) {
  const Paise rupees = item.cost / 100;
  const std::int64_t most = rupees < 20 ? 200 : rupees < 150 ? 60 : rupees < 600 ? 20 : 6;
  const std::int64_t quantity = world.random.Range(most / 3, most);
  if (item.relation == 1 || world.random.Chance(30)) return static_cast<double>(quantity);
  const std::int64_t packs = quantity / item.relation + 1;
  return static_cast<double>(packs * item.relation);
}

double DrawSaleQuantity(World& world, const Item& item) {
  if (item.part->unit == "Ltr") return 0.5 * static_cast<double>(world.random.Range(1, 10));
  const Paise rupees = item.cost / 100;
  const std::int64_t most = rupees < 20 ? 40 : rupees < 150 ? 12 : rupees < 600 ? 5 : 2;
  const std::int64_t quantity = world.random.Range(1, most);
  if (item.relation > 1 && world.random.Chance(25)) return item.relation;
  return static_cast<double>(quantity);
}

Line PurchaseLine(World& world, std::size_t place, double quantity) {
  const Item& item = world.ItemAt(place);
  Line line;
  line.item = place;
  line.inward = true;
  line.quantity = quantity;
  line.billed = item.kind == ItemKind::kPart ? DrawBilled(world, item, quantity) : quantity;
  line.list = item.CostIn(world.year) * world.random.Range(95, 105) / 1000 * 10;
  line.discount_hundredths = world.random.Chance(30) ? 300 : 0;
  line.price = line.list * (10'000 - line.discount_hundredths) / 100'000 * 10;
  line.tax_hundredths = item.tax_hundredths;
  if (item.kind == ItemKind::kPart) DrawUnits(world, item, line);
  return line;
}

Line SaleLine(World& world, std::size_t place, double quantity) {
  const Item& item = world.ItemAt(place);
  Line line;
  line.item = place;
  line.quantity = quantity;
  line.billed = item.kind == ItemKind::kPart ? DrawBilled(world, item, quantity) : quantity;
  line.list = item.PriceIn(world.year);
  line.discount_hundredths = world.random.Chance(70) ? 0 : world.random.Chance(60) ? 200 : 500;
  line.price = line.list * (10'000 - line.discount_hundredths) / 100'000 * 10;
  line.tax_hundredths = item.tax_hundredths;
  if (item.kind == ItemKind::kPart) DrawUnits(world, item, line);
  return line;
}

Line LabourLine(World& world, std::size_t place) {
  const Item& item = world.ItemAt(place);
  Line line;
  line.item = place;
  line.quantity = line.billed = 1;
  line.list = line.price = item.PriceIn(world.year);
  // Service tax: 8 hundredths in the first year, 10.2 afterwards.
  line.tax_hundredths = world.year == 1 ? 800 : 1020;
  line.moves_stock = false;
  return line;
}

void MoveIn(World& world, const Document& document, Line& line, int godown) {
  if (document.Counts()) {
    line.moves = {world.stock.PutIn(line.item, godown, line.quantity, world.today, world.random)};
  } else if (!world.ItemAt(line.item).Batches()) {
    line.moves = {world.stock.Named(line.item, godown, line.quantity)};
  }
}

void MoveOut(World& world, const Document& document, Line& line, int godown) {
  if (document.Counts()) {
    line.moves = world.stock.TakeOut(line.item, godown, line.quantity);
  } else if (world.stock.OnHand(line.item, godown) > 0 || !world.ItemAt(line.item).Batches()) {
    line.moves = {world.stock.Named(line.item, godown, line.quantity)};
  }
}

}  // namespace pstolvane1::books::sample
