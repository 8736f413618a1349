#include "RandomChains.h"

#include <algorithm>
#include <array>
#include <random>
#include <span>
#include <string>

namespace pstolvane1 {
namespace {

using golden::TextTable;

struct Step {
  int type;
  bool optional;
};
// Goods move once along a chain.
constexpr Step kBoughtAgainstAnOrder[] = {{24, true}, {12, true}, {14, false}, {7, true}};
constexpr Step kBilledAgainstAnOrder[] = {{12, true}, {7, false}};
constexpr Step kBilledBeforeItCame[] = {{7, true}, {14, false}};
constexpr Step kSoldAgainstAnOrder[] = {{23, true}, {13, true}, {15, false}, {10, true}};
constexpr Step kSoldAgainstAnOrderAtOnce[] = {{13, true}, {10, false}};
constexpr Step kBilledBeforeItWent[] = {{10, true}, {15, false}};
constexpr Step kTakenBack[] = {{16, false}, {11, true}};
constexpr Step kCreditedBeforeItCame[] = {{11, true}, {16, false}};
constexpr Step kSentBack[] = {{17, false}, {8, true}};
constexpr Step kDebitedBeforeItWent[] = {{8, true}, {17, false}};
constexpr Step kMade[] = {{19, false}, {20, false}};
constexpr Step kMadeBeforeMaterialsWent[] = {{20, true}, {19, false}};

constexpr std::array<std::span<const Step>, 12> kChains = {
    kBoughtAgainstAnOrder,
    kBilledAgainstAnOrder,
    kBilledBeforeItCame,
    kSoldAgainstAnOrder,
    kSoldAgainstAnOrderAtOnce,
    kBilledBeforeItWent,
    kTakenBack,
    kCreditedBeforeItCame,
    kSentBack,
    kDebitedBeforeItWent,
    kMade,
    kMadeBeforeMaterialsWent,
};

std::string TextOf(std::size_t number) { return std::to_string(number); }
std::string TextOf(int number) { return std::to_string(number); }

}  // namespace

std::vector<ChainedDocument> RandomChains(std::uint32_t seed, Executed executed) {
  std::mt19937 random(seed);
  const auto pick = [&](int least, int most) {
    return std::uniform_int_distribution(least, most)(random);
  };
  std::vector<ChainedDocument> documents;
  for (const std::span<const Step> chain : kChains) {
    for (int repeat = pick(1, 3); repeat > 0; --repeat) {
      ChainedDocument document{.item = pick(1, 3), .godown = pick(1, 2), .quantity = pick(2, 40)};
      for (const Step& step : chain) {
        document.type = step.type;
        document.optional = step.optional;
        documents.push_back(document);
        if (executed == Executed::kInPart) {
          if (pick(0, 3) == 0) break;
          document.quantity = pick(1, document.quantity);
        }
        document.executes = documents.size();
      }
    }
  }
  return documents;
}

ChainedDocument NextInChain(const ChainedDocument& document, std::size_t number, int quantity) {
  ChainedDocument next = document;
  next.type = 0;
  next.quantity = quantity;
  next.executes = number;
  for (const std::span<const Step> chain : kChains) {
    const auto here = std::ranges::find_if(chain, [&](const Step& step) {
      return step.type == document.type && step.optional == document.optional;
    });
    if (here == chain.end() || here + 1 == chain.end()) continue;
    next.type = here[1].type;
    next.optional = here[1].optional;
    break;
  }
  return next;
}

std::unique_ptr<golden::SmallBooks> BooksOf(const std::vector<ChainedDocument>& documents) {
  TextTable heads{
      "Desr1", {"Desr_id", "Date", "Vouchertype_id", "Ledger_id", "Employee_id", "Deleted"}, {}};
  TextTable movements{
      "GodownItem1",
      {"GodownItem_id", "Date", "YearNo", "Item_id", "Godown_id", "Batch_id", "GSrNo", "Qty",
       "Rate", "Optional", "GDesrOptional", "GDesr_id", "DesrDetails_id", "GRelatedDesr_id",
       "GRelatedYearNo", "GOriginalVouchertype_id", "GLedger_id"},
      {}};
  for (std::size_t i = 0; i < documents.size(); ++i) {
    const ChainedDocument& document = documents[i];
    const std::string id = TextOf(i + 1);
    const std::string day = TextOf(static_cast<int>(i % 20) + 10);
    const bool executes = document.executes != 0;
    heads.rows.push_back({id, "2003-04-" + day, TextOf(document.type), "1", "1", "0"});
    movements.rows.push_back({id, "2003-04-" + day, "1", TextOf(document.item),
                              TextOf(document.godown), TextOf(document.item * 10 + document.godown),
                              "1", TextOf(document.quantity), "5", document.optional ? "1" : "0",
                              "0", id, id, executes ? TextOf(document.executes) : "",
                              executes ? "1" : "", TextOf(document.type), "1"});
  }
  return std::make_unique<golden::SmallBooks>(std::vector<TextTable>{
      {"Uom1", {"Uom_id", "UomName"}, {{"1", "Nos"}}},
      {"LedgerNames1", {"Ledger_id", "LedgerName"}, {{"1", "Anand"}}},
      {"Godown1", {"Godown_id", "GodownName", "Deleted"}, {{"1", "Main", "0"}, {"2", "Yard", "0"}}},
      {"Items1",
       {"Item_id", "ItemName", "Uom_id", "MaintainBatches", "Deleted"},
       {{"1", "Bolt", "1", "0", "0"}, {"2", "Lamp", "1", "0", "0"}, {"3", "Oil", "1", "0", "0"}}},
      heads,
      movements});
}

}  // namespace pstolvane1
