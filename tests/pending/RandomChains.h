// Small random books of documents that execute each other.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "golden/SmallBooks.h"

namespace pstolvane1 {

// A document with one movement. Every one is dated on a day of April 2003, in year 1.
struct ChainedDocument {
  int type = 0;
  int item = 1;    // 1 to 3
  int godown = 1;  // 1 to 2
  int quantity = 0;
  bool optional = false;     // does not move stock
  std::size_t executes = 0;  // the number of an earlier document, from 1; 0 for none
};

// How much of each chain is executed.
enum class Executed { kInFull, kInPart };

// Chains of every kind, whose documents execute the one before.
[[nodiscard]] std::vector<ChainedDocument> RandomChains(std::uint32_t seed, Executed executed);
// What executes a document of the type next; 0 for the end of its chain.
[[nodiscard]] ChainedDocument NextInChain(const ChainedDocument& document, std::size_t number,
                                          int quantity);

// The numbers of the documents are their keys.
[[nodiscard]] std::unique_ptr<golden::SmallBooks> BooksOf(
    const std::vector<ChainedDocument>& documents);

}  // namespace pstolvane1
