#include "session/data/RowOrder.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <iterator>
#include <limits>
#include <span>
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

struct Entry {
  std::uint64_t rank;  // by the column in hand
  std::uint32_t row;
};
using Run = std::span<Entry>;

class Look {
 public:
  void operator()() {
    if (++steps_ % kStepsPerLook == 0) in_hand_.Check();
  }
  void Now() const { in_hand_.Check(); }

 private:
  const WorkInHand in_hand_;
  std::uint32_t steps_ = 0;
};

template <typename Before>
void SortUnlessSorted(Run run, const Before& before) {
  if (!std::is_sorted(run.begin(), run.end(), before)) std::sort(run.begin(), run.end(), before);
}

// Calls write for each run of neighbours that are alike.
template <typename Alike, typename Write>
void ForEachRun(Run entries, const Alike& alike, const Write& write) {
  for (auto first = entries.begin(); first != entries.end();) {
    auto end = std::next(first);
    while (end != entries.end() && alike(*first, *end)) ++end;
    write(Run(first, end));
    first = end;
  }
}

// Sorts a run by one column: those where it is Null apart, the others by ranks that are taken out
// of the rows once. Then calls sort_next for each run that is equal in it.
template <typename SortNext>
void SortByColumn(const RowStore& store, int column, bool descending, Run run, Look& look,
                  const SortNext& sort_next) {
  const auto is_null = [&](const Entry& entry) { return store.IsNull(column, entry.row); };
  const auto middle = std::partition(
      run.begin(), run.end(), [&](const Entry& entry) { return is_null(entry) != descending; });
  const Run nulls = descending ? Run(middle, run.end()) : Run(run.begin(), middle);
  const Run values = descending ? Run(run.begin(), middle) : Run(middle, run.end());
  sort_next(nulls);

  const std::uint64_t flip = descending ? ~std::uint64_t{0} : 0;
  for (Entry& entry : values) {
    look();
    entry.rank = RankOf(store, column, entry.row) ^ flip;
  }
  SortUnlessSorted(values, [&](const Entry& a, const Entry& b) {
    look();
    return a.rank < b.rank;
  });
  const auto same_rank = [](const Entry& a, const Entry& b) { return a.rank == b.rank; };
  if (!IsText(store.Column(column).type)) return ForEachRun(values, same_rank, sort_next);

  // Texts of one rank may still differ behind it.
  const auto compare = [&](const Entry& a, const Entry& b) {
    look();
    return CompareFolded(store.Text(column, a.row), store.Text(column, b.row));
  };
  ForEachRun(values, same_rank, [&](Run alike) {
    SortUnlessSorted(alike, [&](const Entry& a, const Entry& b) {
      return descending ? compare(a, b) > 0 : compare(a, b) < 0;
    });
    ForEachRun(
        alike, [&](const Entry& a, const Entry& b) { return compare(a, b) == 0; }, sort_next);
  });
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

bool RowOrder::Before(const RowStore& store, std::uint32_t a, std::uint32_t b) const {
  for (const Key key : keys_) {
    const int order = Compare(store, key.column, a, b);
    if (order != 0) return key.descending ? order > 0 : order < 0;
  }
  return a < b;
}

// Column by column, so that a row is compared by those alone in which it is like others.
void RowOrder::SortRows(const RowStore& store, std::vector<std::uint32_t>& rows) const {
  Look look;
  std::vector<Entry> entries;
  entries.reserve(rows.size());
  for (const std::uint32_t row : rows) entries.push_back({0, row});
  const auto sort_from = [&](const auto& self, std::size_t key, Run run) -> void {
    if (run.size() < 2) return;
    if (key == keys_.size()) {
      return SortUnlessSorted(run, [](const Entry& a, const Entry& b) { return a.row < b.row; });
    }
    SortByColumn(store, keys_[key].column, keys_[key].descending, run, look,
                 [&](Run alike) { self(self, key + 1, alike); });
  };
  sort_from(sort_from, 0, entries);
  look.Now();
  std::ranges::transform(entries, rows.begin(), &Entry::row);
}

}  // namespace pstolvane1
