// What must hold of free goods, on random books.
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <string>

#include "golden/SmallBooks.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {
namespace {

using golden::TextTable;

constexpr std::uint32_t kBooks = 10;
constexpr int kLines = 60;

// A document with one line, known by its number.
struct Line {
  int item = 1, ledger = 1;
  bool in = true, alternate = false;
  int quantity = 0, billed = 0, price = 0;

  // Alternate units are of 10, and have their own price.
  [[nodiscard]] int Despatched() const { return alternate ? quantity / 10 : quantity; }
  [[nodiscard]] int Free() const { return Despatched() - billed; }
  [[nodiscard]] int FreeValue() const { return Free() * (alternate ? 9 * price : price); }
};

std::vector<Line> RandomLines(std::uint32_t seed) {
  std::mt19937 random(seed);
  const auto pick = [&](int least, int most) {
    return std::uniform_int_distribution(least, most)(random);
  };
  std::vector<Line> lines(kLines);
  for (Line& line : lines) {
    line.item = pick(1, 4);
    line.ledger = pick(1, 3);
    line.in = pick(0, 1) == 0;
    line.alternate = pick(0, 3) == 0;
    line.quantity = line.alternate ? 10 * pick(1, 5) : pick(1, 20);
    line.billed = std::max(0, line.Despatched() - pick(-1, 3));
    line.price = pick(1, 30);
  }
  return lines;
}

golden::SmallBooks BooksOf(const std::vector<Line>& lines) {
  const auto text = [](int number) { return std::to_string(number); };
  TextTable documents{
      "Desr1",
      {"Desr_id", "Date", "Vouchertype_id", "Ledger_id", "DesrRefno", "Optional", "Deleted"},
      {}};
  TextTable details{
      "DesrDetails1",
      {"DesrDetails_id", "Desr_id", "Item_id", "QtyDespIn", "QtyDespOut", "BilledQty", "AltQty",
       "Price", "ActualRate", "AltRate", "IsAltUnit", "IsAltRate", "Optional"},
      {}};
  for (int i = 0; i < kLines; ++i) {
    const Line& line = lines[static_cast<std::size_t>(i)];
    const std::string id = text(i + 1);
    documents.rows.push_back(
        {id, "2003-04-" + text(10 + i % 20), "7", text(line.ledger), id, "0", "0"});
    details.rows.push_back({id, id, text(line.item), text(line.in ? line.quantity : 0),
                            text(line.in ? 0 : line.quantity), text(line.billed),
                            text(line.quantity / 10), text(line.price), text(line.price),
                            text(9 * line.price), text(line.alternate ? 1 : 0), "0", "0"});
  }
  TextTable items{"Items1", {"Item_id", "ItemName", "Uom_id", "AlternateUom_id", "Deleted"}, {}};
  for (int item = 1; item <= 4; ++item) {
    items.rows.push_back({text(item), "Item " + text(item), "1", "2", "0"});
  }
  return golden::SmallBooks(
      {{"Uom1", {"Uom_id", "UomName"}, {{"1", "Nos"}, {"2", "Box"}}},
       {"LedgerNames1",
        {"Ledger_id", "LedgerName"},
        {{"1", "Anand"}, {"2", "Bose"}, {"3", "Chandra"}}},
       {"Vouchertype1", {"Vouchertype_id", "Vouchertype"}, {{"7", "Purchase Bill"}}},
       items,
       documents,
       details});
}

struct Sums {
  int in = 0, out = 0, in_value = 0, out_value = 0;

  void Add(const Line& line) {
    (line.in ? in : out) += line.Free();
    (line.in ? in_value : out_value) += line.FreeValue();
  }
  friend bool operator==(const Sums&, const Sums&) = default;
  friend void PrintTo(const Sums& sums, std::ostream* to) {
    *to << sums.in << " in " << sums.in_value << ", " << sums.out << " out " << sums.out_value;
  }
};

// "1,234.00 Units" and "-20.00"; 0 is an empty cell.
int NumberOf(std::string_view cell) {
  std::string digits;
  for (const char c : cell.substr(0, cell.find('.'))) {
    if (c != ',') digits += c;
  }
  return digits.empty() ? 0 : std::stoi(digits);
}

class Session {
 public:
  explicit Session(const std::vector<Line>& lines) : books_(BooksOf(lines)) {
    session_.SetLocale("en_IN");
    session_.SetConnection("", "", books_.ConnectionString(), False);
  }

  clsStolvane1* operator->() { return &session_; }

 private:
  golden::SmallBooks books_;
  clsStolvane1 session_;
};

const Date kFrom = Date::FromYmd(2003, 4, 1);
const Date kTo = Date::FromYmd(2003, 4, 30);

TEST(RandomFreeGoods, AreDespatchedLessBilledLineByLine) {
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    SCOPED_TRACE("books " + std::to_string(seed));
    const std::vector<Line> lines = RandomLines(seed);
    std::map<int, Sums> expected;
    for (int i = 0; i < kLines; ++i) {
      const Line& line = lines[static_cast<std::size_t>(i)];
      if (line.Free() != 0) expected[i + 1].Add(line);
    }
    Session session(lines);
    const RecordsetPtr report = session->FreeQuantity_Itemwise(1, kFrom, kTo, 0, 0);
    std::map<int, Sums> found;
    bool inwards = false;
    for (const Recordset::Row row : report->Rows()) {
      const std::string_view head = row.Text(report->Column("Head"));
      if (!head.empty()) inwards = head == "Inwards:";
      if (row.IsNull(report->Column("Desr_Id"))) continue;
      Sums& sums = found[row.Int32(report->Column("Desr_Id"))];
      (inwards ? sums.in : sums.out) = static_cast<int>(row.Single(report->Column("FreeQtySort")));
      (inwards ? sums.in_value : sums.out_value) =
          static_cast<int>(row.Double(report->Column("FreeValueSort")));
    }
    EXPECT_EQ(found, expected);
  }
}

// By the key of each parent, and in the total line under 0.
std::map<int, Sums> ReadSums(const RecordsetPtr& report) {
  std::map<int, Sums> sums;
  for (const Recordset::Row row : report->Rows()) {
    const auto cell = [&](const char* name) { return NumberOf(row.Text(report->Column(name))); };
    const std::string_view first = row.Text(report->Column("Particulars1"));
    if (first.empty()) continue;
    sums[NumberOf(row.Text(report->Column("Parent_Id")))] = {
        cell("Inwards_FreeQty"), cell("Outwards_FreeQty"), cell("Inwards_FreeValue"),
        cell("Outwards_FreeValue")};
  }
  return sums;
}

TEST(RandomFreeGoods, SumToTheSameByItemAndByParty) {
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    SCOPED_TRACE("books " + std::to_string(seed));
    const std::vector<Line> lines = RandomLines(seed);
    std::map<int, Sums> items, parties;
    for (const Line& line : lines) {
      items[line.item].Add(line);
      parties[line.ledger].Add(line);
      items[0].Add(line);
      parties[0].Add(line);
    }
    Session session(lines);
    for (const Boolean detailed : {False, True}) {
      EXPECT_EQ(ReadSums(session->FreeQuantity_Itemwise_Initial(1, kFrom, kTo, True, detailed)),
                items);
      EXPECT_EQ(ReadSums(session->FreeQuantity_Partywise_Initial(1, kFrom, kTo, True, detailed)),
                parties);
    }
  }
}

// The two reports differ in the order of their ids and in one twin's attributes.
TEST(FreeQuantity, PartywiseHasOtherAttributesOfOptionalSortAlone) {
  Session session(RandomLines(1));
  const RecordsetPtr item = session->FreeQuantity_Itemwise(1, kFrom, kTo, 2, 1);
  const RecordsetPtr party = session->FreeQuantity_Partywise(1, kFrom, kTo, 1, 2);
  ASSERT_EQ(item->Columns().size(), party->Columns().size());
  EXPECT_EQ(item->RecordCount(), party->RecordCount());
  for (int i = 0; i < item->Fields().Count(); ++i) {
    const Field a = item->Fields()(i);
    const Field b = party->Fields()(i);
    EXPECT_EQ(a.Name(), b.Name());
    EXPECT_EQ(a.Type(), b.Type());
    const bool twin = a.Name() == "OptionalSort";
    EXPECT_EQ(b.Attributes(), twin ? adFldDefault : a.Attributes()) << a.Name();
    if (twin) {
      EXPECT_EQ(a.Attributes(), adFldIsNullable);
    }
  }
}

}  // namespace
}  // namespace pstolvane1
