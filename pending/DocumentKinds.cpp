#include "pending/DocumentKinds.h"

#include <algorithm>
#include <array>

namespace pstolvane1 {
namespace {

// What settles a movement that executes a document of these types.
struct Settled {
  std::array<std::int32_t, 2> executed_types{-1, -1};
  bool unless_optional = false;

  [[nodiscard]] bool Settles(const ChainedMovement& movement) const {
    return std::ranges::find(executed_types, movement.executed_type) != executed_types.end() &&
           !(unless_optional && movement.optional);
  }
};

constexpr Settled Executes(std::int32_t type) { return {{type, type}, false}; }
constexpr Settled MovesStockFor(std::int32_t type, std::int32_t or_type) {
  return {{type, or_type}, true};
}
constexpr Settled MovesStockFor(std::int32_t type) { return MovesStockFor(type, type); }
// Executes nothing and moves its stock itself.
constexpr Settled kStandsAlone = MovesStockFor(0);

// When a movement that nothing settles is pending. That rejections are always, and finished goods
// only as optional movements, is meant.
enum class Pending { kWhileLeft, kAlways, kWhileLeftIfOptional };

struct DocumentKind {
  std::int32_t type;
  std::string_view heading;
  std::array<Settled, 3> settled{};
  Pending otherwise = Pending::kWhileLeft;
};

constexpr DocumentKind kKinds[] = {
    {7, "Deliveries to Come:", {Executes(14), MovesStockFor(24, 12), kStandsAlone}},
    {8, "Rejections to Make:", {Executes(17), kStandsAlone}, Pending::kAlways},
    {10, "Deliveries to Make:", {Executes(15), MovesStockFor(23, 13), kStandsAlone}},
    {11, "Rejections to Come:", {Executes(16), kStandsAlone}, Pending::kAlways},
    {12, "Pending Purchase Orders:"},
    {13, "Pending Sales Orders:"},
    {14, "Purchase Bills to Come:", {Executes(7)}},
    {15, "Sale Bills to Make:", {Executes(10)}},
    {16, "Sales Returns to Adjust:", {Executes(11)}},
    {17, "Purchase Returns to Adjust:", {Executes(8)}},
    {19, "Materials to Send:", {MovesStockFor(20)}},
    {20, "Finished Goods to Come:", {Executes(19)}, Pending::kWhileLeftIfOptional},
    {23, "Pending Quotations:"},
    {24, "Pending Enquries:"},  // spelled so
};
constexpr DocumentKind kUnlisted = {0, ""};

const DocumentKind& KindOf(std::int32_t type) {
  const auto* const found = std::ranges::find(kKinds, type, &DocumentKind::type);
  return found == std::end(kKinds) ? kUnlisted : *found;
}

template <std::int32_t... kTypes>
constexpr std::array<std::int32_t, sizeof...(kTypes)> kList = {kTypes...};

constexpr DocumentChain kChains[] = {
    {7, kList<14>, kList<14, 12, 7>},
    {8, kList<17>, kList<17, 8>},
    {10, kList<15>, kList<15, 13, 10>},
    {11, kList<16>, kList<16, 11>},
    {12, kList<12>, kList<12, 14, 7>},
    {13, kList<13>, kList<13, 15, 10>},
    {14, kList<7>, kList<7, 12, 14>},
    {15, kList<10>, kList<10, 13, 15>},
    {16, kList<11, 15>, kList<11, 15, 16, 10>},
    {17, kList<8, 14>, kList<8, 14, 17, 7>},
    {19, kList<20>, kList<20, 19>},
    {20, kList<19>, kList<19, 20>},
    {23, kList<23>, kList<23, 13, 15, 10>},
    {24, kList<24>, kList<24, 12, 14, 7>},
};

}  // namespace

bool IsPending(const ChainedMovement& movement) {
  const DocumentKind& kind = KindOf(movement.type);
  const auto settles = [&](const Settled& settled) { return settled.Settles(movement); };
  if (std::ranges::any_of(kind.settled, settles)) return false;
  if (kind.otherwise == Pending::kAlways) return true;
  if (kind.otherwise == Pending::kWhileLeftIfOptional && !movement.optional) return false;
  return movement.executed < movement.quantity;
}

std::string_view HeadingOf(std::int32_t type) { return KindOf(type).heading; }

const DocumentChain* ChainOf(std::int32_t type) {
  const auto* const found = std::ranges::find(kChains, type, &DocumentChain::type);
  return found == std::end(kChains) ? nullptr : found;
}

}  // namespace pstolvane1
