#include "session/data/RowOrder.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <string>

#include "session/data/CriteriaLexer.h"
#include "session/data/RowStore.h"
#include "session/data/TextFold.h"
#include "session/data/ThreadWork.h"

namespace pstolvane1 {

namespace {

constexpr std::uint32_t kStepsPerLook = 1024;
constexpr std::uint64_t kSign = std::uint64_t{1} << 63;

// Unsigned numbers in the order of the values; what is not a number stands last.
std::uint64_t RankOfWhole(std::int64_t value) { return static_cast<std::uint64_t>(value) ^ kSign; }

std::uint64_t RankOfReal(double value) {
  if (std::isnan(value)) return std::numeric_limits<std::uint64_t>::max();
  const auto bits = std::bit_cast<std::uint64_t>(value + 0.0);  // -0 is 0
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

// The first eight bytes of the folded text: texts with different ranks stand in their order.
// Folding makes a third of the bytes at most of a character, so that 32 bytes always hold eight.
std::uint64_t RankOfText(std::string_view text) {
  constexpr std::size_t kBytes = sizeof(std::uint64_t);
  const auto rank_of = [](std::string_view folded) {
    std::uint64_t rank = 0;
    for (std::size_t i = 0; i < kBytes; ++i) {
      auto byte = i < folded.size() ? static_cast<unsigned char>(folded[i]) : 0U;
      if (byte >= 'A' && byte <= 'Z') byte |= 0x20U;
      rank = rank << 8 | byte;
    }
    return rank;
  };
  const std::uint64_t rank = rank_of(text);
  if ((rank & 0x8080808080808080U) == 0) return rank;
  return rank_of(Folded(text.substr(0, 4 * kBytes)));
}

bool IsText(DataType type) { return type == adBSTR || type == adVarChar; }

// Of a cell that is not Null.
std::uint64_t RankOf(const RowStore& store, int column, std::uint32_t row) {
  switch (store.Column(column).type) {
    case adBoolean:
      return RankOfWhole(store.Get<std::int16_t>(column, row) != 0 ? -1 : 0);
    case adInteger:
      return RankOfWhole(store.Get<std::int32_t>(column, row));
    case adCurrency:
    case adBigInt:
      return RankOfWhole(store.Get<std::int64_t>(column, row));
    case adSingle:
      return RankOfReal(static_cast<double>(store.Get<float>(column, row)));
    case adDouble:
      return RankOfReal(store.Get<double>(column, row));
    case adDate:
      return RankOfReal(Date(store.Get<double>(column, row)).Elapsed());
    case adBSTR:
    case adVarChar:
      return RankOfText(store.Text(column, row));
    case adEmpty:
    case adChapter:
      break;
  }
  return 0;
}

int Compare(const RowStore& store, int column, std::uint32_t a, std::uint32_t b) {
  const bool a_null = store.IsNull(column, a);
  const bool b_null = store.IsNull(column, b);
  if (a_null || b_null) return static_cast<int>(b_null) - static_cast<int>(a_null);
  if (IsText(store.Column(column).type)) {
    return CompareFolded(store.Text(column, a), store.Text(column, b));
  }
  const std::uint64_t a_rank = RankOf(store, column, a);
  const std::uint64_t b_rank = RankOf(store, column, b);
  return a_rank < b_rank ? -1 : static_cast<int>(a_rank > b_rank);
}

}  // namespace

RowOrder::RowOrder(const RowStore& store, std::string_view columns) {
  using Kind = CriteriaToken::Kind;
  CriteriaLexer lexer({"sort order", columns});
  const auto raise_expected = [&](std::string_view expected) {
    lexer.Text().Raise(lexer.Now().offset,
                       "expected " + std::string(expected) + ", found " + lexer.Now().Told());
  };
  if (lexer.Now().kind == Kind::kEnd) return;
  for (;;) {
    const CriteriaToken name = lexer.Now();
    if (name.kind != Kind::kWord && name.kind != Kind::kBracketed) raise_expected("a column");
    std::string plain;
    if (name.kind == Kind::kBracketed) {
      AppendUnmarked(plain, name.text, ']');
    } else {
      plain = name.text;
    }
    const int column = store.FindColumn(plain);
    if (column < 0) {
      lexer.Text().Raise(name.offset, "there is no column " + name.Told(),
                         ErrorNumber::kNoSuchColumn);
    }
    if (store.Column(column).type == adChapter) {
      lexer.Text().Raise(name.offset, "the column \"" + store.Column(column).name +
                                          "\" holds rowsets, which have no order");
    }
    lexer.Advance();
    const bool descending = lexer.Now().IsWord("desc");
    if (descending || lexer.Now().IsWord("asc")) lexer.Advance();
    keys_.push_back({column, descending});
    if (lexer.Now().kind == Kind::kEnd) return;
    if (!lexer.Now().IsSign(",")) raise_expected("ASC, DESC, a comma or the end");
    lexer.Advance();
  }
}

bool RowOrder::Uses(const std::vector<bool>& columns) const {
  return std::any_of(keys_.begin(), keys_.end(),
                     [&](Key key) { return columns[static_cast<std::size_t>(key.column)]; });
}

bool RowOrder::BeforeFrom(std::size_t key, const RowStore& store, std::uint32_t a,
                          std::uint32_t b) const {
  for (; key < keys_.size(); ++key) {
    const int order = Compare(store, keys_[key].column, a, b);
    if (order != 0) return keys_[key].descending ? order > 0 : order < 0;
  }
  return a < b;
}

bool RowOrder::Before(const RowStore& store, std::uint32_t a, std::uint32_t b) const {
  return BeforeFrom(0, store, a, b);
}

// The ranks of the first key are taken out of the rows once, so that most comparisons need nothing
// else. Rows where it is Null have no rank and are sorted apart.
void RowOrder::SortRows(const RowStore& store, std::vector<std::uint32_t>& rows) const {
  struct Entry {
    std::uint64_t rank;
    std::uint32_t row;
  };
  const WorkInHand in_hand;
  std::uint32_t steps = 0;
  const auto look = [&] {
    if (++steps % kStepsPerLook == 0) in_hand.Check();
  };
  const Key first = keys_.front();
  const std::uint64_t flip = first.descending ? ~std::uint64_t{0} : 0;
  const bool rank_decides = !IsText(store.Column(first.column).type);
  std::vector<Entry> entries;
  std::vector<std::uint32_t> nulls;
  entries.reserve(rows.size());
  for (const std::uint32_t row : rows) {
    look();
    if (store.IsNull(first.column, row)) {
      nulls.push_back(row);
    } else {
      entries.push_back({RankOf(store, first.column, row) ^ flip, row});
    }
  }
  const auto before = [&](const Entry& a, const Entry& b) {
    look();
    if (a.rank != b.rank) return a.rank < b.rank;
    return BeforeFrom(rank_decides ? 1 : 0, store, a.row, b.row);
  };
  if (!std::is_sorted(entries.begin(), entries.end(), before)) {
    std::sort(entries.begin(), entries.end(), before);
  }
  std::sort(nulls.begin(), nulls.end(), [&](std::uint32_t a, std::uint32_t b) {
    look();
    return BeforeFrom(1, store, a, b);
  });
  in_hand.Check();
  rows.clear();
  if (!first.descending) rows.insert(rows.end(), nulls.begin(), nulls.end());
  for (const Entry& entry : entries) rows.push_back(entry.row);
  if (first.descending) rows.insert(rows.end(), nulls.begin(), nulls.end());
}

}  // namespace pstolvane1
