// Parts bought and sold over the counter, their returns, and what moves inside the house.
#include <algorithm>

#include "session/books/sample/Goods.h"

namespace pstolvane1::books::sample {
namespace {

void Keep(Document& document, Line line) {
  if (!line.moves.empty() || document.deleted || !line.moves_stock) {
    document.lines.push_back(std::move(line));
  }
}

int DrawStore(World& world) {
  const auto luck = world.random.Range(1, 100);
  return luck <= 60 ? kMainStore : luck <= 80 ? kWorkshopStore : kBranchStore;
}

void AddSaleLine(World& world, Document& document, int godown) {
  const auto place = DrawStockedPart(world, document, godown);
  if (!place) return;
  const double wanted = DrawSaleQuantity(world, world.ItemAt(*place));
  Line line = SaleLine(world, *place, std::min(wanted, world.stock.OnHand(*place, godown)));
  MoveOut(world, document, line, godown);
  Keep(document, std::move(line));
}

// Sold before the purchase was entered, so that the stock goes below nothing for a while.
void AddOversoldLine(World& world, Document& document, int godown) {
  const auto place = DrawPlainPart(world, document);
  if (!place) return;
  const double on_hand = std::max(0.0, world.stock.OnHand(*place, godown));
  if (on_hand > 20) return;
  Line line = SaleLine(world, *place, on_hand + DrawSaleQuantity(world, world.ItemAt(*place)));
  MoveOut(world, document, line, godown);
  Keep(document, std::move(line));
}

void SellLines(World& world, Document& document, int godown, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) AddSaleLine(world, document, godown);
  if (world.random.Range(1, 60) == 1) AddOversoldLine(world, document, godown);
  if (!document.lines.empty()) world.Post(document);
}

}  // namespace

void BuySpares(World& world) {
  const Party& supplier = world.masters.suppliers[world.DrawParty(world.masters.suppliers)];
  Document document =
      world.Draw(world.random.Chance(25) ? kLocalPurchase : kPurchaseBill, supplier.ledger);
  const int godown = DrawStore(world);
  for (auto i = world.random.Range(2, 6); i > 0; --i) {
    const auto place = DrawPart(world, document);
    // What lies there in plenty is not bought again.
    if (!place || world.stock.OnHand(*place, godown) > 400) continue;
    Line line = PurchaseLine(world, *place, DrawPurchaseQuantity(world, world.ItemAt(*place)));
    MoveIn(world, document, line, godown);
    Keep(document, std::move(line));
  }
  if (!document.lines.empty()) world.Post(document);
}

void SellSpares(World& world) {
  const Party& customer = world.masters.customers[world.DrawParty(world.masters.customers)];
  Document document = world.Draw(kSparesSale, customer.ledger);
  document.employee = world.DrawEmployee();
  document.terms = TermsOf(customer);
  const auto lines = world.random.Range(1, 5);
  SellLines(world, document, world.random.Chance(75) ? kMainStore : kBranchStore, lines);
}

void SellAcrossCounter(World& world) {
  Document document = world.Draw(kCounterSale, kCashLedger);
  document.employee = world.DrawEmployee();
  const auto lines = world.random.Range(1, 3);
  SellLines(world, document, world.random.Chance(80) ? kMainStore : kBranchStore, lines);
}

void SellOne(World& world) {
  Document document;
  document.type = kCounterSale;
  document.day = world.today;
  document.ledger = kCashLedger;
  document.employee = world.DrawEmployee();
  auto place = DrawPlainPart(world, document);
  while (!place) place = DrawPlainPart(world, document);
  Line line = SaleLine(world, *place, 1);
  MoveOut(world, document, line, kMainStore);
  document.lines.push_back(std::move(line));
  world.Post(document);
}

void ReturnFromCustomer(World& world) {
  const Party& customer = world.masters.customers[world.DrawParty(world.masters.customers)];
  Document document = world.Draw(kSalesReturn, customer.ledger);
  document.employee = world.DrawEmployee();
  for (auto i = world.random.Range(1, 2); i > 0; --i) {
    const auto place = DrawPlainPart(world, document);
    if (!place) continue;
    Line line = SaleLine(world, *place, static_cast<double>(world.random.Range(1, 3)));
    line.inward = true;
    MoveIn(world, document, line, kMainStore);
    Keep(document, std::move(line));
  }
  if (!document.lines.empty()) world.Post(document);
}

void ReturnToSupplier(World& world) {
  const Party& supplier = world.masters.suppliers[world.DrawParty(world.masters.suppliers)];
  Document document = world.Draw(kPurchaseReturn, supplier.ledger);
  for (auto i = world.random.Range(1, 3); i > 0; --i) {
    const auto place = DrawStockedPart(world, document, kMainStore);
    if (!place) continue;
    const double most = world.stock.OnHand(*place, kMainStore);
    Line line =
        PurchaseLine(world, *place, std::min(most, static_cast<double>(world.random.Range(1, 4))));
    line.inward = false;
    line.billed = line.alternate_unit ? line.billed : line.quantity;
    MoveOut(world, document, line, kMainStore);
    Keep(document, std::move(line));
  }
  if (!document.lines.empty()) world.Post(document);
}

void CreditWithoutGoods(World& world) {
  const bool sale = world.random.Chance(60);
  const auto& parties = sale ? world.masters.customers : world.masters.suppliers;
  Document document =
      world.Draw(sale ? kSalesReturn : kPurchaseReturn, parties[world.DrawParty(parties)].ledger);
  if (const auto place = DrawPlainPart(world, document)) {
    const auto quantity = static_cast<double>(world.random.Range(1, 3));
    Line line = sale ? SaleLine(world, *place, quantity) : PurchaseLine(world, *place, quantity);
    line.inward = sale;
    line.returned = quantity;
    line.quantity = line.billed = 0;
    line.alternate_unit = line.alternate_rate = false;
    line.moves_stock = false;
    document.lines.push_back(std::move(line));
    world.Post(document);
  }
}

void MoveBetweenGodowns(World& world) {
  Document document = world.Draw(kGodownTransfer, kStockLedger);
  document.optional = document.deleted = false;
  const int to = world.random.Chance(60) ? kWorkshopStore : kBranchStore;
  for (auto i = world.random.Range(1, 3); i > 0; --i) {
    const auto place = DrawStockedPart(world, document, kMainStore);
    if (!place) continue;
    const double quantity = std::min(world.stock.OnHand(*place, kMainStore),
                                     static_cast<double>(world.random.Range(2, 12)));
    Line out = SaleLine(world, *place, quantity);
    out.billed = quantity;
    out.list = out.price = world.ItemAt(*place).CostIn(world.year);
    out.discount_hundredths = out.tax_hundredths = 0;
    out.alternate_unit = out.alternate_rate = false;
    Line in = out;
    in.inward = true;
    MoveOut(world, document, out, kMainStore);
    if (world.ItemAt(*place).Batches()) {
      // The lots keep their numbers on the way.
      for (Move move : out.moves) {
        move.godown = to;
        world.stock.PutBack(*place, move);
        in.moves.push_back(move);
      }
    } else {
      MoveIn(world, document, in, to);
    }
    document.lines.push_back(std::move(out));
    document.lines.push_back(std::move(in));
  }
  if (!document.lines.empty()) world.Post(document);
}

void AdjustStock(World& world) {
  Document document = world.Draw(kStockJournal, kStockLedger);
  document.optional = document.deleted = false;
  const bool found = world.random.Chance(40);
  const int godown = DrawStore(world);
  const auto place =
      found ? DrawPlainPart(world, document) : DrawStockedPart(world, document, godown);
  if (!place) return;
  Line line = PurchaseLine(world, *place, 1);
  line.billed = line.quantity;
  line.tax_hundredths = line.discount_hundredths = 0;
  line.price = line.list;
  line.inward = found;
  found ? MoveIn(world, document, line, godown) : MoveOut(world, document, line, godown);
  document.lines.push_back(std::move(line));
  world.Post(document);
}

}  // namespace pstolvane1::books::sample
