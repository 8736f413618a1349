// Vehicles bought and sold, with the papers of the transport office and of the financier.
#include <string>

#include "session/books/sample/Goods.h"

namespace pstolvane1::books::sample {
namespace {

std::string PlateNumber(World& world, const Town& town) {
  std::string text(town.registration);
  text += static_cast<char>('A' + world.random.Range(0, 25));
  text += static_cast<char>('A' + world.random.Range(0, 25));
  return text + std::to_string(world.random.Range(1000, 9999));
}

// The columns of a sale that the registration forms are filled from.
Terms SaleTerms(World& world, const Party& buyer, const Vehicle& vehicle) {
  const Item& item = world.ItemAt(vehicle.item);
  const Day tomorrow = world.today + std::chrono::days(1);
  Terms terms = TermsOf(buyer);
  if (world.random.Chance(30)) terms.despatch_to = DrawPerson(world.random).name;
  terms.sales_tax1 = DrawPerson(world.random).name;  // the father's name
  terms.sales_tax2 = std::to_string(world.random.Range(19, 64));
  terms.vehicle = item.id;
  terms.vehicle_type = item.model->category;
  terms.registration = PlateNumber(world, *buyer.town);
  terms.chassis = vehicle.chassis;
  terms.engine = vehicle.engine;
  terms.sold = world.today;
  terms.arf = terms.registration.substr(0, 6);
  const int weight = 70 + item.model->cost_rupees / 800;
  terms.list[0] = std::to_string(weight);
  terms.list[1] = "CN" + std::to_string(world.random.Range(100'000, 999'999));
  terms.list[2] = std::to_string(weight + 75 * item.model->seats);
  terms.list[5] = std::to_string(item.PriceIn(world.year) / 100 * 7 / 100);
  terms.promised_day = tomorrow;
  terms.promised_again = tomorrow + std::chrono::days(180);
  terms.promised_time = IsoText(tomorrow);
  terms.delivered_time = IsoText(tomorrow + std::chrono::days(364));
  terms.delivered_day = tomorrow + std::chrono::days(15 * 365);
  terms.extra = terms.address1;
  terms.scratches = terms.address2;
  terms.fuel = terms.city;
  terms.kms = terms.pin;
  terms.financier = 0;
  if (world.random.Chance(60)) {
    const auto place = world.random.Range(0, std::ssize(Financiers()) - 1);
    terms.financier = static_cast<int>(place) + 1;
    terms.buyers_name = Financiers()[static_cast<std::size_t>(place)];
  }
  return terms;
}

void Remember(World& world, Owned owned) {
  if (world.owned.size() < World::kOwned) {
    world.owned.push_back(std::move(owned));
    return;
  }
  world.owned[world.next_owned] = std::move(owned);
  world.next_owned = (world.next_owned + 1) % World::kOwned;
}

}  // namespace

Terms TermsOf(const Party& party) {
  Terms terms;
  terms.despatch_to = party.name;
  terms.address1 = party.street;
  terms.address2 =
      "Near " + std::string(Streets()[static_cast<std::size_t>(party.ledger) % Streets().size()]);
  terms.city = party.town->name;
  terms.pin = party.pin;
  terms.district = party.town->district;
  terms.state = party.town->state;
  return terms;
}

void BuyVehicles(World& world) {
  if (world.stock.VehiclesOnHand() > 150) return;
  // The maker delivers; the first supplier is its agency.
  Document document = world.Draw(kPurchaseBill, world.masters.suppliers.front().ledger);
  document.optional = document.deleted = false;
  const int godown = world.random.Chance(75) ? kShowroom : kBranch;
  const auto first = world.random.Range(0, std::ssize(Models()) - 1);
  for (auto i = world.random.Range(1, 2); i > 0; --i) {
    const auto model = static_cast<std::size_t>((first + i) % std::ssize(Models()));
    const auto count = world.random.Range(1, 3);
    Line line = PurchaseLine(world, model, static_cast<double>(count));
    for (std::int64_t n = 0; n < count; ++n) {
      line.moves.push_back(world.stock.Deliver(model, godown, world.today, world.random).place);
    }
    document.lines.push_back(std::move(line));
  }
  world.Post(document);
}

void SellVehicle(World& world) {
  if (world.stock.VehiclesOnHand() == 0) return BuyVehicles(world);
  const std::size_t owner = world.DrawParty(world.masters.customers);
  const Party& buyer = world.masters.customers[owner];
  const auto newest = static_cast<std::int64_t>(world.stock.VehiclesOnHand()) - 1;
  const Vehicle vehicle = world.stock.Sell(static_cast<std::size_t>(world.random.Range(0, newest)));
  Document document =
      world.Draw(vehicle.place.godown == kBranch ? kBranchVehicleSale : kVehicleSale, buyer.ledger);
  document.optional = document.deleted = false;
  document.employee = world.DrawEmployee();
  // The forms of older sales have been filed.
  document.audited =
      world.today < LastDay(kYears) - std::chrono::days(60) && world.random.Chance(70);
  document.terms = SaleTerms(world, buyer, vehicle);
  Line line = SaleLine(world, vehicle.item, 1);
  line.moves = {vehicle.place};
  document.lines.push_back(std::move(line));
  Remember(world, {vehicle.item, vehicle.chassis, vehicle.engine, document.terms->registration,
                   owner, world.today, 0});
  world.Post(document);
}

}  // namespace pstolvane1::books::sample
