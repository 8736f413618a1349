#include "session/data/RowFilter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string>
#include <utility>

#include "session/data/FilterParser.h"

namespace pstolvane1 {

namespace {

constexpr std::size_t kBlockRows = 4096;  // scanned at a time
constexpr std::size_t kBlockWords = kBlockRows / 64;

}  // namespace

bool IsBlankText(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

RowFilter::RowFilter(const RowStore& store, std::string_view criteria) {
  Read(store, {"filter", criteria});
}

void RowFilter::Read(const RowStore& store, CriteriaText criteria) {
  if (criteria.text.size() > kMaxLength) {
    criteria.Raise(kMaxLength, "it is longer than " + std::to_string(kMaxLength) + " bytes");
  }
  comparisons_.clear();
  nodes_.clear();
  literals_.clear();
  text_.assign(criteria.text);
  // What is taken out of the text is never longer than it.
  literals_.reserve(text_.size());
  root_ = FilterParser(store, *this, {criteria.noun, text_}).ReadWhole();
}

bool RowFilter::Uses(const std::vector<bool>& columns) const {
  return std::any_of(comparisons_.begin(), comparisons_.end(), [&](const FilterComparison& c) {
    return columns[static_cast<std::size_t>(c.column)];
  });
}

bool RowFilter::Test(const RowStore& store, std::uint32_t row) const {
  const RowStore::Place at = store.At(row);
  return Test(nodes_[root_], *at.chunk, at.row);
}

bool RowFilter::Test(const Node& node, const Chunk& chunk, std::size_t row) const {
  if (node.kind == Node::Kind::kComparison) return comparisons_[node.first].Test(chunk, row);
  const bool is_or = node.kind == Node::Kind::kOr;
  for (std::uint32_t part = node.first; part != kNone; part = nodes_[part].next) {
    if (Test(nodes_[part], chunk, row) == is_or) return is_or;
  }
  return !is_or;
}

void RowFilter::Scan(const Node& node, const Chunk& chunk, std::size_t first, std::size_t end,
                     std::span<std::uint64_t> bits) const {
  if (node.kind == Node::Kind::kComparison) {
    return comparisons_[node.first].Scan(chunk, first, end, bits.data());
  }
  const bool is_or = node.kind == Node::Kind::kOr;
  std::array<std::uint64_t, kBlockWords> part_bits;
  Scan(nodes_[node.first], chunk, first, end, bits);
  for (std::uint32_t part = nodes_[node.first].next; part != kNone; part = nodes_[part].next) {
    Scan(nodes_[part], chunk, first, end, std::span(part_bits).first(bits.size()));
    std::uint64_t any = 0;
    for (std::size_t i = 0; i < bits.size(); ++i) {
      bits[i] = is_or ? bits[i] | part_bits[i] : bits[i] & part_bits[i];
      any |= bits[i];
    }
    if (!is_or && any == 0) return;
  }
}

RowFilter::Matches RowFilter::LookUp(RowStore& store) const {
  const Node& root = nodes_[root_];
  if (root.kind != Node::Kind::kComparison) return {};
  const FilterComparison& comparison = comparisons_[root.first];
  if (!comparison.is_equality) return {};
  std::shared_ptr<const ColumnIndex> index = store.Index(comparison.column);
  if (!index) return {};
  const std::span<const std::uint32_t> list = index->Find(comparison.key);
  return {list, std::move(index)};
}

// Of an And the part with the fewest rows will do; of an Or all parts are needed.
RowFilter::Candidates RowFilter::CandidatesOf(RowStore& store, const Node& node) const {
  Candidates found;
  if (node.kind == Node::Kind::kComparison) {
    const FilterComparison& comparison = comparisons_[node.first];
    if (!comparison.is_equality) return found;
    found.rows.owner = store.Index(comparison.column);
    if (!found.rows.owner) return found;
    found.rows.list = found.rows.owner->Find(comparison.key);
    found.known = true;
    return found;
  }
  const bool is_or = node.kind == Node::Kind::kOr;
  for (std::uint32_t part = node.first; part != kNone; part = nodes_[part].next) {
    Candidates candidates = CandidatesOf(store, nodes_[part]);
    if (is_or) {
      if (!candidates.known) return {};
      const auto& list = candidates.rows.list;
      found.own.insert(found.own.end(), list.begin(), list.end());
    } else if (candidates.known &&
               (!found.known || candidates.rows.list.size() < found.rows.list.size())) {
      found = std::move(candidates);
    }
  }
  if (is_or) {
    std::sort(found.own.begin(), found.own.end());
    found.own.erase(std::unique(found.own.begin(), found.own.end()), found.own.end());
    found.rows.list = found.own;
    found.known = true;
  }
  return found;
}

std::vector<std::uint32_t> RowFilter::Select(RowStore& store) const {
  std::vector<std::uint32_t> met;
  const Node& root = nodes_[root_];
  if (const Candidates candidates = CandidatesOf(store, root); candidates.known) {
    for (const std::uint32_t row : candidates.rows.list) {
      if (!store.Hidden(row) && Test(store, row)) met.push_back(row);
    }
    return met;
  }
  std::array<std::uint64_t, kBlockWords> bits;
  for (std::size_t number = 0; number < store.Chunks(); ++number) {
    const Chunk& chunk = store.ChunkAt(number);
    for (std::size_t first = 0; first < chunk.RowCount(); first += kBlockRows) {
      const std::size_t end = std::min(first + kBlockRows, chunk.RowCount());
      const auto words = std::span(bits).first((end - first + 63) / 64);
      Scan(root, chunk, first, end, words);
      const std::size_t first_row = store.FirstRowOf(number) + first;
      for (std::size_t word = 0; word < words.size(); ++word) {
        for (std::uint64_t left = words[word]; left != 0; left &= left - 1) {
          const auto row = static_cast<std::uint32_t>(
              first_row + word * 64 + static_cast<std::size_t>(std::countr_zero(left)));
          if (!store.Hidden(row)) met.push_back(row);
        }
      }
    }
  }
  return met;
}

std::vector<std::uint32_t> RowFilter::SelectFrom(RowStore& store,
                                                 std::span<const std::uint32_t> rows) const {
  // Searching a row in a list costs a few times what testing one does.
  constexpr std::size_t kSearchCost = 8;
  std::vector<std::uint32_t> met;
  const Candidates candidates = CandidatesOf(store, nodes_[root_]);
  const bool through_index =
      candidates.known && candidates.rows.list.size() * kSearchCost < rows.size();
  for (const std::uint32_t row : through_index ? candidates.rows.list : rows) {
    if (through_index && !std::binary_search(rows.begin(), rows.end(), row)) continue;
    if (!store.Hidden(row) && Test(store, row)) met.push_back(row);
  }
  return met;
}

std::unique_ptr<const RowFilter> RowFilter::ReadCriterion(const RowStore& store,
                                                          std::string_view criterion) {
  const CriteriaText text{"criterion", criterion};
  if (IsBlankText(criterion)) text.Raise(criterion.size(), "expected a column, found the end");
  std::unique_ptr<RowFilter> filter(new RowFilter());
  filter->Read(store, text);
  if (filter->nodes_.size() != 1) {
    text.Raise(0, "Find takes one comparison, without And, Or and Not");
  }
  return filter;
}

}  // namespace pstolvane1
