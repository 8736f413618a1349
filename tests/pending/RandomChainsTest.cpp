// What must hold of chained documents, on random books.
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

#include "RandomChains.h"
#include "session/clsStolvane1.h"

namespace pstolvane1 {
namespace {

constexpr std::uint32_t kBooks = 12;

// What is left, as shown, by the document's key.
using Lines = std::map<std::int64_t, std::string>;

class Session {
 public:
  explicit Session(const std::vector<ChainedDocument>& documents) : books_(BooksOf(documents)) {
    session_.SetLocale("en_IN");
    session_.SetConnection("", "", books_->ConnectionString(), False);
  }

  Lines ByLedger() { return Read(session_.PendingByLedger(1, 1, 0, kFrom, kTo)); }
  Lines ByEmployee(int type) { return Read(session_.PendingByEmployee(1, 1, type, kFrom, kTo)); }
  Lines ByItem() {
    Lines lines;
    for (int item = 1; item <= 3; ++item) {
      lines.merge(Read(session_.PendingByItem(1, item, 0, kFrom, kTo)));
    }
    return lines;
  }

 private:
  static inline const Date kFrom = Date::FromYmd(2003, 4, 1);
  static inline const Date kTo = Date::FromYmd(2003, 4, 30);

  static Lines Read(const RecordsetPtr& report) {
    Lines lines;
    const ColumnHandle document = report->Column("Desr_Id");
    const ColumnHandle left = report->Column("PendingQuantity");
    for (const Recordset::Row row : report->Rows()) {
      if (!row.IsNull(document)) lines[row.Int64(document)] = row.Text(left);
    }
    return lines;
  }

  std::unique_ptr<golden::SmallBooks> books_;
  clsStolvane1 session_;
};

std::string Shown(int quantity) { return std::to_string(quantity) + ".00 Nos"; }

TEST(RandomChains, AChainThatIsFullyExecutedLeavesNoPendingLine) {
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    SCOPED_TRACE("books " + std::to_string(seed));
    Session session(RandomChains(seed, Executed::kInFull));
    EXPECT_EQ(session.ByLedger(), Lines());
    EXPECT_EQ(session.ByItem(), Lines());
    EXPECT_EQ(session.ByEmployee(0), Lines());
  }
}

TEST(RandomChains, ExecutingTheRemainderOfAPendingLineMakesItDisappear) {
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    SCOPED_TRACE("books " + std::to_string(seed));
    std::vector<ChainedDocument> documents = RandomChains(seed, Executed::kInPart);
    const Lines before = Session(documents).ByLedger();
    ASSERT_FALSE(before.empty());
    const std::size_t count = documents.size();
    std::vector<int> left(count);
    for (std::size_t i = 0; i < count; ++i) left[i] = documents[i].quantity;
    for (const ChainedDocument& document : documents) {
      if (document.executes != 0) left[document.executes - 1] -= document.quantity;
    }
    for (const auto& [id, shown] : before) {
      const auto number = static_cast<std::size_t>(id);
      EXPECT_EQ(shown, Shown(left[number - 1])) << "document " << id;
      const ChainedDocument next = NextInChain(documents[number - 1], number, left[number - 1]);
      ASSERT_NE(next.type, 0) << "type " << documents[number - 1].type;
      documents.push_back(next);
    }
    const Lines after = Session(documents).ByLedger();
    for (const auto& [id, shown] : before) {
      EXPECT_FALSE(after.contains(id)) << "document " << id << ": " << shown;
    }
  }
}

TEST(RandomChains, ItemPartyAndEmployeeTellTheSameLines) {
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    SCOPED_TRACE("books " + std::to_string(seed));
    Session session(RandomChains(seed, Executed::kInPart));
    const Lines lines = session.ByLedger();
    EXPECT_EQ(session.ByItem(), lines);
    EXPECT_EQ(session.ByEmployee(0), lines);
  }
}

TEST(RandomChains, AChainTellsTheLinesOfItsKind) {
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    SCOPED_TRACE("books " + std::to_string(seed));
    const std::vector<ChainedDocument> documents = RandomChains(seed, Executed::kInPart);
    Session session(documents);
    Lines orders;
    for (const auto& [id, left] : session.ByLedger()) {
      if (documents[static_cast<std::size_t>(id) - 1].type == 13) orders[id] = left;
    }
    EXPECT_EQ(session.ByEmployee(13), orders);
  }
}

}  // namespace
}  // namespace pstolvane1
