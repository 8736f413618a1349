// The columns of a report rowset: their kinds, and the rowset that a layout of them gives.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "session/data/DataType.h"
#include "session/data/Recordset.h"

namespace pstolvane1 {

// One column of a report's layout. A report has one constant table of them, in their order; the
// spelling is what the host sees.
struct ReportColumn {
  std::string_view name;
  DataType type = adBSTR;
  int defined_size = 0;
  int attributes = adFldDefault;
};

// A text that is shown, and a marker ("TotalLine", "Head"), look alike.
[[nodiscard]] constexpr ReportColumn Display(std::string_view name) { return {name}; }
[[nodiscard]] constexpr ReportColumn Marker(std::string_view name) { return {name}; }
// Leads the host to a document or master: adInteger or adBigInt.
[[nodiscard]] constexpr ReportColumn Key(std::string_view name, DataType type = adInteger) {
  return {name, type};
}

// A twin holds the raw value of a shown column and has its name with "Sort" added. Twins stand
// behind the shown columns.
[[nodiscard]] constexpr ReportColumn TextTwin(std::string_view name) {
  return {name, adVarChar, 255, adFldIsNullable};
}
[[nodiscard]] constexpr ReportColumn DateTwin(std::string_view name) {
  return {name, adDate, 0, adFldIsNullable};
}
[[nodiscard]] constexpr ReportColumn QuantityTwin(std::string_view name) {
  return {name, adSingle, 0, adFldIsNullable};
}
[[nodiscard]] constexpr ReportColumn MoneyTwin(std::string_view name) {
  return {name, adCurrency, 0, adFldIsNullable};
}
// "RefNoSort", "DummySort".
[[nodiscard]] constexpr ReportColumn NumberTwin(std::string_view name) {
  return {name, adBigInt, 0, adFldIsNullable};
}
// Money that some lists keep as text, so that it sorts as text.
[[nodiscard]] constexpr ReportColumn MoneyTextTwin(std::string_view name) {
  return {name, adVarChar, 255, 6};
}

// A shown column and its twin.
struct TwinnedColumn {
  ColumnHandle shown;
  ColumnHandle twin;
};

// A document's number as it is shown, and its twins: the number itself and the parts around it.
struct DocumentNumberColumns {
  ColumnHandle shown, number_twin, prefix_twin, suffix_twin;
};

// Where a line's rule stands, and how many "_" it has.
struct RuleColumn {
  ColumnHandle column;
  std::size_t width;
};

// A layout as a constant: "constexpr ReportLayout kColumns = {Display("Ledger"), ...};". Columns
// are looked up by name, in any case, at compile time; an unknown name does not compile.
template <std::size_t kCount>
struct ReportLayout {
  std::array<ReportColumn, kCount> columns;

  [[nodiscard]] consteval ColumnHandle At(std::string_view name) const { return Find(name, ""); }
  // The column, and the one with "Sort" behind its name.
  [[nodiscard]] consteval TwinnedColumn Twinned(std::string_view name) const {
    return {Find(name, ""), Find(name, "sort")};
  }
  // The number's column, the one with "Sort" behind its name, and the twins of its parts.
  [[nodiscard]] consteval DocumentNumberColumns DocumentNumber(
      std::string_view name, std::string_view prefix_twin = "PrefixSort",
      std::string_view suffix_twin = "SuffixSort") const {
    return {Find(name, ""), Find(name, "sort"), Find(prefix_twin, ""), Find(suffix_twin, "")};
  }
  [[nodiscard]] consteval RuleColumn Rule(std::string_view name, std::size_t width) const {
    return {Find(name, ""), width};
  }
  // NOLINTNEXTLINE(google-explicit-constructor)
  constexpr operator std::span<const ReportColumn>() const { return columns; }

 private:
  static constexpr bool Same(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
  }
  [[nodiscard]] consteval ColumnHandle Find(std::string_view name, std::string_view suffix) const {
    for (std::size_t place = 0; place < kCount; ++place) {
      const std::string_view column = columns[place].name;
      if (column.size() == name.size() + suffix.size() &&
          Same(column.substr(0, name.size()), name) && Same(column.substr(name.size()), suffix)) {
        return ColumnHandle{static_cast<int>(place)};
      }
    }
    throw "the layout has no such column";
  }
};
template <typename... Columns>
ReportLayout(Columns...) -> ReportLayout<sizeof...(Columns)>;

// The columns of some layouts, one behind the other: for reports that share most of them.
template <std::size_t... kCounts>
[[nodiscard]] consteval auto Join(const ReportLayout<kCounts>&... parts) {
  ReportLayout<(kCounts + ...)> joined{};
  auto next = joined.columns.begin();
  ((next = std::ranges::copy(parts.columns, next).out), ...);
  return joined;
}

// An open, empty rowset with these columns.
[[nodiscard]] RecordsetPtr NewReportRowset(std::span<const ReportColumn> columns);

}  // namespace pstolvane1
