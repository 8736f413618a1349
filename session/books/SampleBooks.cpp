#include "session/books/SampleBooks.h"

#include <utility>
#include <vector>

#include "session/books/BooksFile.h"
#include "session/books/CopyBooks.h"
#include "session/books/Schema.h"
#include "session/books/Writer.h"
#include "session/books/sample/World.h"
#include "session/books/sample/YearEnd.h"
#include "session/data/Error.h"
#include "session/engine/ConnectionString.h"

namespace pstolvane1::books {
namespace {

using sample::World;

// The last movements are made one by one, so that their number comes out exactly.
constexpr std::int64_t kCardsEnd = 60;

struct Card {
  void (*play)(World&);
  int count;
};

constexpr Card kDeck[] = {{sample::SellSpares, 9},
                          {sample::SellAcrossCounter, 6},
                          {sample::BuySpares, 6},
                          {sample::BuyVehicles, 3},
                          {sample::SellVehicle, 6},
                          {sample::ServeVehicle, 10},
                          {sample::OpenJobCard, 2},
                          {[](World& world) { world.accounts.Receive(world.today); }, 8},
                          {[](World& world) { world.accounts.Pay(world.today); }, 3},
                          {sample::OrderFromSupplier, 1},
                          {sample::OrderOfCustomer, 1},
                          {sample::Quote, 1},
                          {sample::Enquire, 1},
                          {sample::ReceiveBeforeBill, 1},
                          {sample::DeliverBeforeBill, 1},
                          {sample::BillBeforeReceipt, 1},
                          {sample::BillBeforeDelivery, 1},
                          {sample::ReturnFromCustomer, 1},
                          {sample::ReturnToSupplier, 1},
                          {sample::CreditWithoutGoods, 1},
                          {sample::TakeBackGoods, 1},
                          {sample::SendBackGoods, 1},
                          {sample::CreditBeforeGoods, 1},
                          {sample::MoveBetweenGodowns, 1},
                          {sample::AdjustStock, 1},
                          {sample::IssueMaterial, 1},
                          {sample::AwaitFinishedGoods, 1}};

// What happens comes from a deck that is played to its end before it is shuffled anew: rare things
// keep their share even in small books.
class Deck {
 public:
  void PlayNext(World& world) {
    if (cards_.empty()) Shuffle(world.random);
    const auto play = cards_.back();
    cards_.pop_back();
    play(world);
  }

 private:
  void Shuffle(sample::Random& random) {
    for (const Card& card : kDeck)
      cards_.insert(cards_.end(), static_cast<std::size_t>(card.count), card.play);
    for (std::size_t i = cards_.size() - 1; i > 0; --i) {
      const auto other = static_cast<std::size_t>(random.Range(0, static_cast<std::int64_t>(i)));
      std::swap(cards_[i], cards_[other]);
    }
  }

  std::vector<void (*)(World&)> cards_;
};

void PlayLater(World& world) {
  while (!world.later.empty() && world.later.begin()->first <= world.today &&
         world.Left() > kCardsEnd) {
    const auto what = std::move(world.later.begin()->second);
    world.later.erase(world.later.begin());
    what(world);
  }
}

void PlayDay(World& world, Deck& deck, std::int64_t target) {
  PlayLater(world);
  while (world.documents.Movements() < target) {
    world.Left() > kCardsEnd ? deck.PlayNext(world) : sample::SellOne(world);
  }
}

void PlayYears(World& world, sample::YearEnd& year_end, const SampleProgress& progress) {
  Deck deck;
  const auto all_days = (sample::LastDay(sample::kYears) - sample::FirstDay(1)).count() + 1;
  std::int64_t opening = 0;
  for (int year = 1; year <= sample::kYears; ++year) {
    world.year = year;
    world.today = sample::FirstDay(year);
    OpenYear(world, year);
    if (year == 1) opening = world.documents.Movements();
    for (Day day = sample::FirstDay(year); day <= sample::LastDay(year);
         day += std::chrono::days(1)) {
      world.today = day;
      const auto days = (day - sample::FirstDay(1)).count() + 1;
      if (std::chrono::weekday(day) == std::chrono::Sunday && days != all_days) continue;
      PlayDay(world, deck, opening + (world.plan.movements - opening) * days / all_days);
      if (progress) progress("movements", world.documents.Movements(), world.plan.movements);
    }
    year_end.Close(year);
  }
}

}  // namespace

namespace {

void SampleFile(const std::string& path, std::int64_t movements, std::uint64_t seed,
                const SampleProgress& progress) {
  if (movements < kFewestMovements || movements > kMostMovements) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "sample books have from " + std::to_string(kFewestMovements) + " to " +
                    std::to_string(kMostMovements) + " movements, not " +
                    std::to_string(movements));
  }
  std::int64_t indexed = 0;
  MakeBooks(
      path,
      [&](Writer& writer) {
        World world(writer, sample::Plan(movements), seed);
        sample::WriteVoucherTypes(writer);
        WritePriceMasters(writer, world.masters, world.random);
        sample::YearEnd year_end(writer, world.masters);
        PlayYears(world, year_end, progress);
      },
      [&](std::string_view table) {
        if (progress) progress(table, ++indexed, std::ssize(Tables()));
      });
}

}  // namespace

void SampleBooks(const std::string& connection, std::int64_t movements, std::uint64_t seed,
                 const SampleProgress& progress) {
  const ConnectionTarget target = TargetOf(connection);
  if (target.engine != EngineKind::kPostgresql) {
    return SampleFile(target.path, movements, seed, progress);
  }
  const PassingBooks books;
  SampleFile(books.Path(), movements, seed, progress);
  static_cast<void>(CopyBooks(books.Path(), connection));
}

}  // namespace pstolvane1::books
