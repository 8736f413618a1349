// Everything that the days of the sample books work on.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "session/books/sample/Accounts.h"
#include "session/books/sample/Document.h"
#include "session/books/sample/Masters.h"
#include "session/books/sample/Plan.h"
#include "session/books/sample/Random.h"
#include "session/books/sample/Stock.h"

namespace pstolvane1::books::sample {

inline constexpr int kMainStore = 1, kShowroom = 2, kWorkshopStore = 3, kBranch = 4,
                     kBranchStore = 5;

// A vehicle on the road, as the workshop knows it.
struct Owned {
  std::size_t item = 0;
  std::string chassis, engine, registration;
  std::size_t owner = 0;  // place in Masters::customers
  Day sold;
  int free_services = 0;
};

struct World {
  World(Writer& out, const Plan& size, std::uint64_t seed)
      : plan(size),
        random(seed),
        masters(out, plan, random),
        stock(out, masters),
        documents(out, masters),
        accounts(out, masters, documents, random) {}

  Plan plan;
  Random random;
  Masters masters;
  Stock stock;
  Documents documents;
  Accounts accounts;

  Day today = FirstDay(1);
  int year = 1;
  std::multimap<Day, std::function<void(World&)>> later;
  std::vector<Owned> owned;  // the latest, at most kOwned
  std::size_t next_owned = 0;
  std::array<int, kYears> job_cards{};

  static constexpr std::size_t kOwned = 4000;

  [[nodiscard]] std::int64_t Left() const { return plan.movements - documents.Movements(); }
  [[nodiscard]] const Item& ItemAt(std::size_t place) const { return masters.items[place]; }

  // Posts what has lines, with its voucher.
  Posted Post(const Document& document) {
    Posted posted = documents.Post(document, accounts.NextVoucher());
    accounts.Record(document, posted);
    return posted;
  }
  // Some days from now, unless the books have ended by then.
  void Later(int least, int most, std::function<void(World&)> what) {
    later.emplace(today + std::chrono::days(random.Range(least, most)), std::move(what));
  }
  // A document of today; a few are optional, a few are deleted afterwards.
  Document Draw(int type, int ledger) {
    Document document;
    document.type = type;
    document.day = today;
    document.ledger = ledger;
    const auto fate = random.Range(1, 100);
    document.optional = fate <= 2;
    document.deleted = fate == 3 || fate == 4;
    if (random.Chance(15)) document.narration = random.Pick(Narrations());
    return document;
  }
  // A party that the books know in this year.
  std::size_t DrawParty(const std::vector<Party>& parties) {
    std::size_t place = random.Popular(parties.size());
    while (parties[place].year_of_creation > year) place = random.Popular(parties.size());
    return place;
  }
  std::optional<int> DrawEmployee() {
    return static_cast<int>(random.Range(1, std::ssize(masters.employees)));
  }
};

// Where a party lives, for the terms of a document.
[[nodiscard]] Terms TermsOf(const Party& party);

// What one card of the deck does on a day. Each writes at most 40 movements.
void BuySpares(World& world);
void SellSpares(World& world);
void SellAcrossCounter(World& world);
void ReturnFromCustomer(World& world);
void ReturnToSupplier(World& world);
void CreditWithoutGoods(World& world);
void MoveBetweenGodowns(World& world);
void AdjustStock(World& world);
void IssueMaterial(World& world);
void AwaitFinishedGoods(World& world);
void OrderFromSupplier(World& world);
void OrderOfCustomer(World& world);
void Quote(World& world);
void Enquire(World& world);
void BillBeforeReceipt(World& world);
void BillBeforeDelivery(World& world);
void ReceiveBeforeBill(World& world);
void DeliverBeforeBill(World& world);
void TakeBackGoods(World& world);
void SendBackGoods(World& world);
void CreditBeforeGoods(World& world);
void BuyVehicles(World& world);
void SellVehicle(World& world);
void ServeVehicle(World& world);
void OpenJobCard(World& world);
// One movement exactly.
void SellOne(World& world);

// The stock that items created in the year are taken over with.
void OpenYear(World& world, int year);

}  // namespace pstolvane1::books::sample
