#include "stock/SummedLines.h"

#include <cstdint>
#include <fmt/format.h>
#include <optional>

namespace pstolvane1 {
namespace {

// The parts of LINE. A line whose sense is Null neither came nor went, and takes from the stock.
constexpr std::uint32_t kInward = 1, kOutward = 2, kAverage = 4, kOpening = 8, kClosing = 16,
                        kPeriod = 32;

std::string Part(std::uint32_t bit, std::string_view condition) {
  return fmt::format(" + CASE WHEN {} THEN {} ELSE 0 END", condition, bit);
}

}  // namespace

std::string ComposeSummedLine(const SummedIn& conditions) {
  std::string line = fmt::format(
      "CASE WHEN GODOWNITEM1.ISADDED = -1 THEN {} WHEN GODOWNITEM1.ISADDED = 0 THEN {} ELSE 0 END",
      kInward, kOutward);
  if (!conditions.average.empty()) line += Part(kAverage, conditions.average);
  line += Part(kOpening, conditions.opening);
  line += conditions.closing.empty() ? fmt::format(" + {}", kClosing)
                                     : Part(kClosing, conditions.closing);
  return line + Part(kPeriod, conditions.period);
}

MovedLine SummedLineColumns::Read(const Recordset::Row& row) const {
  const auto parts = static_cast<std::uint32_t>(row.Int32(line_));
  const auto told = [&row](ColumnHandle column) {
    return row.IsNull(column) ? std::nullopt : std::optional(row.Double(column));
  };
  const auto has = [parts](std::uint32_t bit) { return (parts & bit) != 0; };
  return {.inward = has(kInward),
          .enters = has(kAverage),
          .in_opening = has(kOpening),
          .in_closing = has(kClosing),
          .came = has(kPeriod) && has(kInward),
          .went = has(kPeriod) && has(kOutward),
          .quantity = told(quantity_),
          .amount = told(amount_)};
}

}  // namespace pstolvane1
