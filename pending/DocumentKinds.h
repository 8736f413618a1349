// The kinds of document that wait for each other, by the voucher type that their movements carry.
//
// An order waits for a delivery, a delivery for a bill, or a bill for its delivery. A movement of a
// later document names the document that it executes. What is left is the quantity less what later
// movements have executed of it: 10 ordered, 6 delivered, 4 pending.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace pstolvane1 {

// A movement as it stands among those before and after it. Quantities have no sign.
struct ChainedMovement {
  std::int32_t type = 0;           // GOriginalVouchertype_id
  std::int32_t executed_type = 0;  // of the earlier document that it executes, 0 for none
  bool optional = false;           // does not move stock
  float quantity = 0;
  float executed = 0;  // of it, by later movements

  // Below 0 where more was executed than there was.
  [[nodiscard]] float Left() const { return quantity - executed; }
};

[[nodiscard]] bool IsPending(const ChainedMovement& movement);

// "Deliveries to Make:"; "" for a type that no report lists.
[[nodiscard]] std::string_view HeadingOf(std::int32_t type);

// The chain that a kind of document stands in: what waits, and what counts as its execution.
struct DocumentChain {
  std::int32_t type = 0;
  std::span<const std::int32_t> waiting, executing;
};
// nullptr for a kind without a chain.
[[nodiscard]] const DocumentChain* ChainOf(std::int32_t type);

}  // namespace pstolvane1
