// Documents in chains: what is ordered, delivered, received, billed and sent back. Every movement
// of a later document names the earlier one that it executes. Stock moves once along a chain: with
// the goods, not with the paper.
#include <algorithm>

#include "session/books/sample/Goods.h"

namespace pstolvane1::books::sample {
namespace {

constexpr bool IsMemorandum(int type) {
  return type == kPurchaseOrder || type == kSalesOrder || type == kQuotation || type == kEnquiry;
}

void MoveStock(World& world, Document& document) {
  for (Line& line : document.lines) {
    if (!line.moves_stock) continue;
    for (Move& move : line.moves) {
      if (line.inward) {
        world.stock.PutBack(line.item, move);
      } else {
        (void)world.stock.TakeOut(line.item, move.godown, move.quantity);
      }
    }
  }
}

// The first document of a chain, over parts that are not kept by lot.
Document Begin(World& world, int type, int ledger, bool inward, bool moves_stock) {
  Document document = world.Draw(type, ledger);
  document.optional = document.deleted = false;
  if (!inward) document.employee = world.DrawEmployee();
  const int godown = inward || world.random.Chance(70) ? kMainStore : kBranchStore;
  for (auto i = world.random.Range(1, 4); i > 0; --i) {
    const auto place = DrawPlainPart(world, document);
    if (!place) continue;
    const Item& item = world.ItemAt(*place);
    if (!inward && moves_stock && world.stock.OnHand(*place, godown) < 12) continue;
    Line line = inward ? PurchaseLine(world, *place, DrawPurchaseQuantity(world, item))
                       : SaleLine(world, *place, DrawSaleQuantity(world, item));
    line.billed = line.quantity;
    line.alternate_unit = line.alternate_rate = false;
    line.moves_stock = moves_stock;
    line.memorandum = IsMemorandum(type);
    line.moves = {world.stock.Named(*place, godown, line.quantity)};
    document.lines.push_back(std::move(line));
  }
  MoveStock(world, document);
  return document;
}

// What executes an earlier document, whole or in part.
Document Execute(World& world, const Document& before, const Posted& posted, int type,
                 bool moves_stock) {
  Document document = before;
  document.type = type;
  document.day = world.today;
  document.narration.clear();
  document.executes = posted.link;
  const bool part = world.random.Chance(30);
  for (Line& line : document.lines) {
    if (part && line.quantity >= 2) line.quantity = static_cast<int>(line.quantity / 2);
    line.billed = line.quantity;
    line.moves_stock = moves_stock;
    line.memorandum = IsMemorandum(type);
    line.moves.front().quantity = line.quantity;
  }
  MoveStock(world, document);
  return document;
}

struct ChainStep {
  int type;
  bool moves_stock;
  int percent;      // how often the chain comes so far
  int least, most;  // days after the document before
};

void Follow(World& world, const Document& before, const Posted& posted,
            std::span<const ChainStep> rest) {
  if (rest.empty() || !world.random.Chance(rest.front().percent)) return;
  world.Later(rest.front().least, rest.front().most, [before, posted, rest](World& then) {
    const ChainStep& link = rest.front();
    const Document document = Execute(then, before, posted, link.type, link.moves_stock);
    const Posted next = then.Post(document);
    Follow(then, document, next, rest.subspan(1));
  });
}

void Start(World& world, int type, bool inward, bool moves_stock, bool of_customer,
           std::span<const ChainStep> rest) {
  const auto& parties = of_customer ? world.masters.customers : world.masters.suppliers;
  const Party& party = parties[world.DrawParty(parties)];
  Document document = Begin(world, type, party.ledger, inward, moves_stock);
  if (document.lines.empty()) return;
  if (of_customer) document.terms = TermsOf(party);
  const Posted posted = world.Post(document);
  Follow(world, document, posted, rest);
}

constexpr ChainStep kAfterPurchaseOrder[] = {{kGoodsReceipt, true, 75, 4, 15},
                                             {kPurchaseBill, false, 85, 1, 8}};
constexpr ChainStep kAfterPurchaseOrderBilled[] = {{kPurchaseBill, true, 80, 4, 15}};
constexpr ChainStep kAfterSalesOrder[] = {{kDelivery, true, 75, 2, 12},
                                          {kSparesSale, false, 85, 1, 6}};
constexpr ChainStep kAfterSalesOrderBilled[] = {{kSparesSale, true, 80, 2, 12}};
constexpr ChainStep kAfterQuotation[] = {
    {kSalesOrder, false, 60, 2, 10}, {kDelivery, true, 80, 2, 10}, {kSparesSale, false, 90, 1, 5}};
constexpr ChainStep kAfterEnquiry[] = {{kPurchaseOrder, false, 60, 2, 10},
                                       {kGoodsReceipt, true, 80, 4, 12},
                                       {kPurchaseBill, false, 90, 1, 6}};
constexpr ChainStep kGoodsReceiptOnly[] = {{kGoodsReceipt, true, 75, 3, 12}};
constexpr ChainStep kDeliveryOnly[] = {{kDelivery, true, 75, 1, 8}};
constexpr ChainStep kPurchaseBillOnly[] = {{kPurchaseBill, false, 75, 2, 10}};
constexpr ChainStep kSparesSaleOnly[] = {{kSparesSale, false, 75, 1, 6}};
constexpr ChainStep kSalesReturnOnly[] = {{kSalesReturn, false, 75, 1, 6}};
constexpr ChainStep kPurchaseReturnOnly[] = {{kPurchaseReturn, false, 75, 1, 6}};
constexpr ChainStep kReturnedInOnly[] = {{kReturnedIn, true, 70, 2, 9}};
constexpr ChainStep kFinishedOnly[] = {{kFinishedGoods, true, 75, 5, 20}};
constexpr ChainStep kIssueOnly[] = {{kMaterialIssue, true, 50, 2, 9}};

}  // namespace

void OrderFromSupplier(World& world) {
  if (world.random.Chance(65)) {
    Start(world, kPurchaseOrder, true, false, false, kAfterPurchaseOrder);
  } else {
    Start(world, kPurchaseOrder, true, false, false, kAfterPurchaseOrderBilled);
  }
}
void OrderOfCustomer(World& world) {
  if (world.random.Chance(65)) {
    Start(world, kSalesOrder, false, false, true, kAfterSalesOrder);
  } else {
    Start(world, kSalesOrder, false, false, true, kAfterSalesOrderBilled);
  }
}
void Quote(World& world) { Start(world, kQuotation, false, false, true, kAfterQuotation); }
void Enquire(World& world) { Start(world, kEnquiry, true, false, false, kAfterEnquiry); }
void BillBeforeReceipt(World& world) {
  Start(world, kPurchaseBill, true, false, false, kGoodsReceiptOnly);
}
void BillBeforeDelivery(World& world) {
  Start(world, kSparesSale, false, false, true, kDeliveryOnly);
}
void ReceiveBeforeBill(World& world) {
  Start(world, kGoodsReceipt, true, true, false, kPurchaseBillOnly);
}
void DeliverBeforeBill(World& world) {
  Start(world, kDelivery, false, true, true, kSparesSaleOnly);
}
void TakeBackGoods(World& world) { Start(world, kReturnedIn, true, true, true, kSalesReturnOnly); }
void SendBackGoods(World& world) {
  Start(world, kReturnedOut, false, true, false, kPurchaseReturnOnly);
}
void CreditBeforeGoods(World& world) {
  Start(world, kSalesReturn, true, false, true, kReturnedInOnly);
}
void IssueMaterial(World& world) {
  const auto& suppliers = world.masters.suppliers;
  Document document =
      Begin(world, kMaterialIssue, suppliers[world.DrawParty(suppliers)].ledger, false, true);
  if (document.lines.empty()) return;
  const Posted posted = world.Post(document);
  // What went out for work comes back in.
  for (Line& line : document.lines) line.inward = true;
  Follow(world, document, posted, kFinishedOnly);
}
void AwaitFinishedGoods(World& world) {
  const auto& suppliers = world.masters.suppliers;
  Document document =
      Begin(world, kFinishedGoods, suppliers[world.DrawParty(suppliers)].ledger, true, false);
  if (document.lines.empty()) return;
  const Posted posted = world.Post(document);
  for (Line& line : document.lines) line.inward = false;
  Follow(world, document, posted, kIssueOnly);
}

}  // namespace pstolvane1::books::sample
