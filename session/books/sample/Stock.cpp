#include "session/books/sample/Stock.h"

namespace pstolvane1::books::sample {
namespace {

// Batches1.QtyOnHand tells the state of a vehicle.
constexpr int kInStock = 1;
constexpr const char* kMarkSold = "UPDATE Batches1 SET QtyOnHand = 2 WHERE Batch_id = ?";

std::string Padded(int number, std::size_t digits) {
  const std::string text = std::to_string(number);
  return std::string(digits > text.size() ? digits - text.size() : 0, '0') + text;
}

}  // namespace

Stock::Stock(Writer& writer, const Masters& masters)
    : masters_(masters),
      insert_(writer, "Batches1",
              "Batch_id, BatchCode, Item_id, Color_id, DateOfPurchase, ManufactureDate, EngineNo, "
              "QtyOnHand"),
      sell_(writer, kMarkSold),
      cells_(masters.Parts() * static_cast<std::size_t>(masters.godowns)) {
  for (std::size_t i = masters.first_part; i < masters.first_labour; ++i) {
    const Item& item = masters.items[i];
    if (item.Batches()) continue;
    for (int godown = 1; godown <= masters.godowns; ++godown) {
      insert_.Run(++last_batch_, "P" + Padded(item.id, 5) + "/" + std::to_string(godown), item.id,
                  std::nullopt, std::nullopt, std::nullopt, "", kInStock);
      Cell(i, godown).push_back({last_batch_, 0, 0});
    }
  }
}

std::vector<Stock::Lot>& Stock::Cell(std::size_t item, int godown) {
  return cells_[(item - masters_.first_part) * static_cast<std::size_t>(masters_.godowns) +
                static_cast<std::size_t>(godown - 1)];
}

const std::vector<Stock::Lot>& Stock::Cell(std::size_t item, int godown) const {
  return const_cast<Stock*>(this)->Cell(item, godown);
}

int Stock::NewBatch(const Item& item, const std::string& code, int color, Day bought, Day made,
                    const std::string& engine) {
  insert_.Run(++last_batch_, code, item.id, color == 0 ? std::nullopt : std::optional(color),
              bought, made, engine, kInStock);
  return last_batch_;
}

double Stock::OnHand(std::size_t item, int godown) const {
  double sum = 0;
  for (const Lot& lot : Cell(item, godown)) sum += lot.quantity;
  return sum;
}

Move Stock::PutIn(std::size_t item, int godown, double quantity, Day day, Random& random) {
  auto& lots = Cell(item, godown);
  const Item& of = masters_.items[item];
  if (of.Batches() && (lots.empty() || random.Chance(50))) {
    const int color =
        of.part->colours ? static_cast<int>(random.Range(1, std::ssize(Colours()))) : 0;
    const int batch = NewBatch(of, "L" + Padded(last_batch_ + 1, 6), color, day,
                               day - std::chrono::days(random.Range(10, 90)), "");
    // Lots that are used up are forgotten, so that the sample's memory does not grow with them.
    std::erase_if(lots, [](const Lot& lot) { return lot.quantity == 0; });
    lots.push_back({batch, color, 0});
  }
  Lot& lot = lots.back();
  lot.quantity += quantity;
  return {godown, lot.batch, lot.color, quantity};
}

void Stock::PutBack(std::size_t item, const Move& move) {
  auto& lots = Cell(item, move.godown);
  for (Lot& lot : lots) {
    if (lot.batch != move.batch) continue;
    lot.quantity += move.quantity;
    return;
  }
  lots.push_back({move.batch, move.color, move.quantity});
}

std::vector<Move> Stock::TakeOut(std::size_t item, int godown, double quantity) {
  std::vector<Move> moves;
  auto& lots = Cell(item, godown);
  for (std::size_t i = 0; i < lots.size() && quantity > 0; ++i) {
    const bool last = i + 1 == lots.size();
    const double taken = last || lots[i].quantity >= quantity ? quantity : lots[i].quantity;
    if (taken <= 0) continue;
    lots[i].quantity -= taken;
    quantity -= taken;
    moves.push_back({godown, lots[i].batch, lots[i].color, taken});
  }
  return moves;
}

Move Stock::Named(std::size_t item, int godown, double quantity) const {
  const Lot& lot = Cell(item, godown).back();
  return {godown, lot.batch, lot.color, quantity};
}

const Vehicle& Stock::Deliver(std::size_t item, int godown, Day day, Random& random) {
  const Item& of = masters_.items[item];
  const int serial = ++last_vehicle_;
  Vehicle vehicle;
  vehicle.item = item;
  vehicle.chassis = std::string(of.model->code) + "C" + Padded(serial, 7);
  vehicle.engine = std::string(of.model->code) + "E" + Padded(serial + 200'000, 7);
  const int color = static_cast<int>(random.Range(1, std::ssize(Colours())));
  const int batch = NewBatch(of, vehicle.chassis, color, day,
                             day - std::chrono::days(random.Range(15, 75)), vehicle.engine);
  vehicle.place = {godown, batch, color, 1};
  vehicles_.push_back(vehicle);
  return vehicles_.back();
}

Vehicle Stock::Sell(std::size_t place) {
  const auto at = vehicles_.begin() + static_cast<std::ptrdiff_t>(place);
  Vehicle vehicle = *at;
  vehicles_.erase(at);
  sell_.Run(vehicle.place.batch);
  return vehicle;
}

}  // namespace pstolvane1::books::sample
