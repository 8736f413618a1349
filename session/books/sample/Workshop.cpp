// The workshop: service bills with their job cards, free services, labour and warranty lines.
#include <algorithm>
#include <string>

#include "session/books/sample/Goods.h"

namespace pstolvane1::books::sample {
namespace {

constexpr int kFreeServices = 6;

// A vehicle that was bought elsewhere; its free services may be had here all the same.
Owned Stranger(World& world) {
  Owned owned;
  owned.item = static_cast<std::size_t>(world.random.Range(0, std::ssize(Models()) - 1));
  owned.owner = world.DrawParty(world.masters.customers);
  const std::string serial = std::to_string(world.random.Range(1'000'000, 8'999'999));
  const std::string code(Models()[owned.item].code);
  owned.chassis = code + "X" + serial;
  owned.engine = code + "Y" + serial;
  owned.registration = std::string(world.masters.customers[owned.owner].town->registration) + "Z" +
                       serial.substr(0, 4);
  owned.sold = world.today - std::chrono::days(world.random.Range(20, 900));
  owned.free_services = static_cast<int>(world.random.Range(0, kFreeServices));
  return owned;
}

// The vehicle that comes in; a quarter of them were bought elsewhere.
Owned* DrawVehicle(World& world, Owned& stranger) {
  if (world.owned.empty() || world.random.Chance(25)) {
    stranger = Stranger(world);
    return &stranger;
  }
  return &world.random.Pick(world.owned);
}

// The odd service types from 3 to 13 are the free services in their order.
int DrawService(World& world, Owned& vehicle) {
  if (vehicle.free_services < kFreeServices && world.random.Chance(75)) {
    return 3 + 2 * vehicle.free_services++;
  }
  constexpr int kPaid[] = {1, 1, 2, 2, 4, 6, 8, 10, 12};
  return world.random.Pick(kPaid);
}

Terms JobTerms(World& world, const Owned& vehicle, int service) {
  const Item& item = world.ItemAt(vehicle.item);
  Terms terms = TermsOf(world.masters.customers[vehicle.owner]);
  terms.vehicle = item.id;
  terms.vehicle_type = item.model->category;
  terms.registration = vehicle.registration;
  terms.chassis = vehicle.chassis;
  terms.engine = vehicle.engine;
  terms.sold = vehicle.sold;
  const auto days = (world.today - vehicle.sold).count();
  terms.kms = std::to_string(300 + days * world.random.Range(8, 30));
  terms.mechanic = static_cast<int>(world.random.Range(1, std::ssize(world.masters.mechanics)));
  terms.financier = 0;
  terms.service_type = service;
  const auto complaints = world.random.Range(0, 3);
  for (std::int64_t i = 0; i < complaints; ++i) {
    terms.list[static_cast<std::size_t>(i)] = world.random.Pick(Complaints());
  }
  terms.promised_day = world.today;
  terms.delivered_day = world.today;
  // A time of day alone stands on the first day of the calendar of serial days.
  terms.promised_time = "1899-12-30 17:30:00";
  terms.delivered_time = "1899-12-30 18:" + std::to_string(world.random.Range(10, 59)) + ":00";
  terms.fuel = world.random.Chance(50) ? "Half" : "Quarter";
  if (world.random.Chance(20)) terms.scratches = "Scratch on the left side panel";
  return terms;
}

void AddLabour(World& world, Document& document, int service) {
  const auto labour = world.masters.first_labour;
  const auto count = static_cast<std::int64_t>(world.masters.items.size() - labour);
  const bool free = service >= 3 && service <= 13 && service % 2 == 1;
  const std::size_t first =
      labour + (free ? 1 : static_cast<std::size_t>(world.random.Range(2, count - 1)));
  document.lines.push_back(LabourLine(world, first));
  if (!free && world.random.Chance(40)) document.lines.push_back(LabourLine(world, labour));
}

void AddParts(World& world, Document& document) {
  for (auto i = world.random.Range(0, 3); i > 0; --i) {
    int godown = kWorkshopStore;
    auto place = DrawStockedPart(world, document, godown);
    if (!place) place = DrawStockedPart(world, document, godown = kMainStore);
    if (!place) continue;
    const double most = world.stock.OnHand(*place, godown);
    Line line = SaleLine(world, *place, std::min(most, 1.0));
    line.alternate_unit = line.alternate_rate = false;
    if (world.random.Chance(18)) {
      Claim claim;
      // Now and then the maker's inspector has not told the defect yet.
      if (!world.random.Chance(8)) {
        claim.defect = static_cast<int>(world.random.Range(1, std::ssize(Defects())));
      }
      claim.vendor = static_cast<int>(
          world.random.Range(1, std::min<std::int64_t>(8, std::ssize(world.masters.suppliers))));
      claim.performance = static_cast<int>(world.random.Range(1, std::ssize(Performances())));
      claim.made = world.today - std::chrono::days(world.random.Range(60, 400));
      claim.number = "WC" + std::to_string(world.random.Range(10'000, 99'999));
      line.claim = claim;
    }
    MoveOut(world, document, line, godown);
    if (!line.moves.empty() || document.deleted) document.lines.push_back(std::move(line));
  }
}

JobCardNumber NextJobCard(World& world, Day day) {
  const int year = YearOf(day);
  return {day, "JC", "", ++world.job_cards[static_cast<std::size_t>(year - 1)]};
}

}  // namespace

void ServeVehicle(World& world) {
  Owned stranger;
  Owned& vehicle = *DrawVehicle(world, stranger);
  const int service = DrawService(world, vehicle);
  Document document = world.Draw(kServiceBill, world.masters.customers[vehicle.owner].ledger);
  document.employee = world.DrawEmployee();
  document.terms = JobTerms(world, vehicle, service);
  if (world.random.Chance(80)) {
    const Day opened = world.today - std::chrono::days(world.random.Range(0, 2));
    document.job_card = NextJobCard(world, std::max(opened, FirstDay(world.year)));
  }
  AddLabour(world, document, service);
  AddParts(world, document);
  world.Post(document);
}

void OpenJobCard(World& world) {
  Owned stranger;
  const Owned& vehicle = *DrawVehicle(world, stranger);
  Document document = world.Draw(kJobCard, world.masters.customers[vehicle.owner].ledger);
  document.optional = document.deleted = false;
  document.terms = JobTerms(world, vehicle, 2);
  document.terms->delivered_day.reset();
  document.terms->delivered_time.clear();
  document.job_card = NextJobCard(world, world.today);
  AddLabour(world, document, 2);
  world.Post(document);
}

}  // namespace pstolvane1::books::sample
