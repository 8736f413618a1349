// A filter's text, read once for the columns of a store.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/ColumnIndex.h"
#include "session/data/CriteriaError.h"
#include "session/data/FilterComparison.h"
#include "session/data/RowStore.h"

namespace pstolvane1 {

// A tree of comparisons. Not has no node of its own: it is carried down to the comparisons, each of
// which has an opposite, so that neither a comparison with a Null cell nor its opposite is true.
class RowFilter {
 public:
  static constexpr std::size_t kMaxLength = 1'000'000;  // bytes of text
  static constexpr int kMaxDepth = 100;                 // of parentheses and Nots

  // Reads a text that is not blank. Error 3001 that says where and why, 3265 for an unknown column.
  RowFilter(const RowStore& store, std::string_view criteria);
  RowFilter(const RowFilter&) = delete;
  RowFilter& operator=(const RowFilter&) = delete;
  // Reads what Find looks for: a text that must be one comparison.
  [[nodiscard]] static std::unique_ptr<const RowFilter> ReadCriterion(const RowStore& store,
                                                                      std::string_view criterion);
  // Reads another text in its place, using its memory again. After an error it may only be read
  // anew or destroyed.
  void Read(const RowStore& store, CriteriaText criteria);

  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] bool Test(const RowStore& store, std::uint32_t row) const;
  // Whether any of the columns that are marked occurs in it.
  [[nodiscard]] bool Uses(const std::vector<bool>& columns) const;

  // Rows in ascending order, from an index that owner keeps.
  struct Matches {
    std::span<const std::uint32_t> list;
    std::shared_ptr<const ColumnIndex> owner;
  };
  // Where the filter is one equality on an optimized column: its rows, hidden ones too, as they
  // stand in the index. Else owner is null.
  [[nodiscard]] Matches LookUp(RowStore& store) const;
  // The visible rows for which it is true, in ascending order: of the whole store, or of an
  // ascending list.
  [[nodiscard]] std::vector<std::uint32_t> Select(RowStore& store) const;
  [[nodiscard]] std::vector<std::uint32_t> SelectFrom(RowStore& store,
                                                      std::span<const std::uint32_t> rows) const;

 private:
  friend class FilterParser;
  struct Node {
    enum class Kind : std::uint8_t { kAnd, kOr, kComparison };
    Kind kind;
    std::uint32_t first;  // child, or number of the comparison
    std::uint32_t next;   // sibling; kNone for the last
  };
  static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
  // Rows that include all for which a part of the filter can be true.
  struct Candidates {
    bool known = false;
    Matches rows;
    std::vector<std::uint32_t> own;  // what rows.list shows, where it is not an index's
  };

  RowFilter() = default;

  [[nodiscard]] bool Test(const Node& node, const Chunk& chunk, std::size_t row) const;
  void Scan(const Node& node, const Chunk& chunk, std::size_t first, std::size_t end,
            std::span<std::uint64_t> bits) const;
  [[nodiscard]] Candidates CandidatesOf(RowStore& store, const Node& node) const;

  std::string text_;
  std::string literals_;  // texts with their quotes taken away; never grows while it is read
  std::vector<FilterComparison> comparisons_;
  std::vector<Node> nodes_;
  std::uint32_t root_ = kNone;
};

// A text with nothing in it but blanks.
[[nodiscard]] bool IsBlankText(std::string_view text);

}  // namespace pstolvane1
