// Random statements of odd books: file and server give the same cells, or the same error.
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "OddBooks.h"
#include "golden/ServerBooks.h"
#include "golden/SmallBooks.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {
namespace {

constexpr std::uint32_t kBooks = 12, kCalls = 12;

using Entry = decltype(&clsStolvane1::StockDetails_Itemwise);
constexpr Entry kEntries[] = {
    &clsStolvane1::StockDetails_Itemwise, &clsStolvane1::StockDetails_Categorywise,
    &clsStolvane1::StockDetails_Classwise, &clsStolvane1::StockDetails_Godownwise};
constexpr enmValuationMethod kMethods[] = {
    FifoRate, LifoRate, AverageRate, LastPurchaseRate, LastSaleRate, standardrate, StandardPrice};
const std::vector<std::string> kItemAliases = {"", "", "Items1.ItemPartNo",
                                               "Items1.ItemName + ' (' + Items1.ItemPartNo + ')'"};
const std::vector<std::string> kVouchertypes = {
    "", "", "Vouchertype1.Vouchertype_id in (7,10)",
    "(Vouchertype1.RelatedTo = 7 or Vouchertype1.RelatedTo is null)"};
const std::vector<std::string> kConditions = {"", "", "Items1.ConsiderForSih <> 0",
                                              "(considerforsih = 0 or itemstate = 1)"};

struct Call {
  Entry entry = nullptr;
  enmValuationMethod method = FifoRate;
  typAliases aliases = {};
  std::string vouchertypes = {}, condition = {};
  std::uint8_t type_of_entry = 0, optional = 0, year = 1;
  Date from = {}, to = {};
  std::int32_t group = -1;
  Boolean detailed = True, only_items = False;
};

class RandomCalls {
  int Pick(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }
  template <typename Values>
  auto Of(const Values& values) {
    return values[static_cast<std::size_t>(Pick(0, static_cast<int>(std::size(values)) - 1))];
  }

 public:
  explicit RandomCalls(std::uint32_t seed) : random_(seed) {}

  Call Next() {
    Call call{.entry = Of(kEntries), .method = Of(kMethods)};
    call.aliases.taItem = Of(kItemAliases);
    call.aliases.taBatch = Pick(0, 3) == 0 ? "Batches1.EngineNo" : "";
    call.vouchertypes = Of(kVouchertypes);
    call.condition = Of(kConditions);
    call.type_of_entry = static_cast<std::uint8_t>(Pick(0, 2));
    call.optional = static_cast<std::uint8_t>(Pick(0, 2));
    call.year = static_cast<std::uint8_t>(Pick(1, 3));
    call.from = Date::FromYmd(2002 + call.year, Pick(1, 12), Pick(1, 28));
    call.to = Date(call.from.Serial() + Pick(-30, 400));
    if (Pick(0, 4) == 0) call.from = Date::FromYmd(2002 + call.year, 7, 15);
    call.group = Pick(0, 1) == 0 ? -1 : Pick(1, 3);
    call.detailed = Pick(0, 1) == 0 ? True : False;
    call.only_items = Pick(0, 2) == 0 ? True : False;
    return call;
  }

 private:
  std::mt19937 random_;
};

std::string CellsOf(Recordset& statement) {
  std::string cells;
  for (const Recordset::Row row : statement.Rows()) {
    for (int column = 0; column < statement.Fields().Count(); ++column) {
      const Variant cell = row[ColumnHandle{column}];
      cells += (cell.IsNull() ? "(null)" : cell.ToText()) + "|";
    }
    cells += "\n";
  }
  return cells;
}

class Session {
 public:
  explicit Session(const std::string& books) {
    session_.SetLocale("en_IN");
    session_.SetConnection("", "", books, False);
  }

  std::string Ask(const Call& call) {
    session_.SetAliases(call.aliases);
    session_.SetFilter(call.vouchertypes, "", call.type_of_entry, call.optional);
    try {
      return CellsOf(*(session_.*call.entry)(call.year, call.from, call.to, call.method, call.group,
                                             0, True, call.detailed, False, 1, call.only_items,
                                             True, True, True, call.condition, ""));
    } catch (const Error& error) {
      return "error " + std::to_string(static_cast<int>(error.Number()));
    }
  }

 private:
  clsStolvane1 session_;
};

TEST(RandomCalls, FileAndServerGiveTheSameStatements) {
  golden::ServerBooks server;
  int with_lines = 0;
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    const std::vector<golden::TextTable> tables = OddBooks(seed);
    const golden::SmallBooks file(tables);
    server.Hold(tables);
    Session on_file(file.ConnectionString()), on_server(server.ConnectionString());
    RandomCalls calls(seed);
    for (std::uint32_t place = 0; place < kCalls; ++place) {
      SCOPED_TRACE("books " + std::to_string(seed) + ", call " + std::to_string(place));
      const Call call = calls.Next();
      const std::string cells = on_file.Ask(call);
      EXPECT_EQ(on_server.Ask(call), cells);
      if (cells.size() > 500) ++with_lines;
    }
  }
  // Most of them show something.
  EXPECT_GT(with_lines, static_cast<int>(kBooks * kCalls / 2));
}

}  // namespace
}  // namespace pstolvane1
