// What SetFilter's four values ask of the reports' queries. Pure texts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pstolvane1 {

// The four values as SetFilter was given them.
struct DocumentFilter {
  std::string strVouchertypeFilter = {};
  std::string strSubgroupFilter = {};
  std::uint8_t btTypeOfentry = 0;
  std::uint8_t OptNo = 0;
};

// A table that the values can restrict. The numbers are those of bytTable.
enum class FilterTable : std::uint8_t {
  kVouchers = 1,
  kVoucherDetails = 2,
  kDocuments = 3,  // Desr1
  kMovements = 5,  // Godownitem1
};

// A table under the name that a query gives it; "" is the table's own.
struct NamedTable {
  FilterTable table;
  std::string_view name = {};
};

[[nodiscard]] std::string_view NameOf(const NamedTable& table);

// The conditions, without a word or blank around them; "" where the values ask nothing. They stand
// as they are: a host's condition takes no parentheses.

// Regular documents alone, or optional ones alone.
[[nodiscard]] std::string OptionalCondition(const DocumentFilter& filter, const NamedTable& table);
// Documents of the ledger groups of strSubgroupFilter, or of those that btTypeOfentry stands for.
// btTypeOfentry 2 drops a voucher with any line of those groups, and keeps a document whose own
// ledger is of another group. The two differ, and both are meant.
[[nodiscard]] std::string PartyCondition(const DocumentFilter& filter, const NamedTable& table);

// What brings Vouchertype1, which strVouchertypeFilter is about, into a query of the table: each
// "Table on condition", in their order.
[[nodiscard]] std::vector<std::string> JoinsOfVouchertype(const NamedTable& table);

// The same as finished clauses. Where the word And goes: bytAndPosition 1 is in front of a clause,
// 2 behind it, anything else nowhere. An empty clause takes none.

// One restriction on the ledger group in three forms, for a query to apply to the table that it
// reads: on the voucher table named strVoucherTable ("" is Voucher1), on Desr1 and on Godownitem1.
// With blnViaVoucherDetails the voucher form is a condition, otherwise a join clause. An output for
// which the filter has nothing keeps its text. All three come out lower-cased.
void BuildSubgroupFilter(const DocumentFilter& filter, bool blnViaVoucherDetails,
                         std::string& strDesrFilter, std::string& strVoucherFilter,
                         std::string_view strVoucherTable, std::uint8_t bytAndPosition,
                         std::string& strGodownFilter);

// The condition on Vouchertype1, "" without a filter. strJoin becomes the clause that joins
// Vouchertype1: bytMode 4 from Desr1, 5 from Godownitem1, any other from VoucherDetails1; 1 and 3
// have it joined already and leave strJoin alone, as an empty filter does.
[[nodiscard]] std::string BuildVouchertypeFilter(const DocumentFilter& filter, std::uint8_t bytMode,
                                                 std::string& strJoin, std::uint8_t bytAndPosition);

// The condition on regular or optional documents: bytTable 1 is Voucher1, 2 VoucherDetails1, 3
// Desr1, 5 Godownitem1; "" for any other and when the filter asks for both kinds.
[[nodiscard]] std::string BuildOptionalFilter(const DocumentFilter& filter, std::uint8_t bytTable,
                                              std::uint8_t bytAndPosition);

}  // namespace pstolvane1
