// Restricts a query to the rows that the host asks for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "session/FilterClauses.h"

namespace pstolvane1 {

// Which rows without a date, such as opening lines, pass a filter.
enum class Undated { kDropped, kKept };

// Whether the query joins Vouchertype1 anyway.
enum class Vouchertype { kToBeJoined, kJoined };

// A list of conditions on one table of a query, and the joins that they need. The conditions stand
// in the query in the order in which they are added, each as it is given. Nothing is added for "".
//
//   QueryFilter filter({FilterTable::kMovements, "git"});
//   filter.AddSetFilter(module.filter).Add("git.gledger_id = 4");
//   "select ... from godownitem1 as git" + filter.Joins() + " where " + filter.Conditions() + ...
class QueryFilter {
 public:
  // The table's name has to outlive the filter. One that keeps undated rows joins from the left,
  // and lets a row pass that has no date in the table, or for which all conditions are true.
  explicit QueryFilter(const NamedTable& table, Undated undated = Undated::kDropped,
                       Vouchertype vouchertype = Vouchertype::kToBeJoined)
      : table_(table), undated_(undated), vouchertype_(vouchertype) {}

  QueryFilter& Add(std::string_view condition);
  // A condition on Vouchertype1, which is joined once.
  QueryFilter& AddVouchertype(std::string_view condition);
  QueryFilter& AddOptional(const DocumentFilter& filter);
  QueryFilter& AddParties(const DocumentFilter& filter);
  // The three above, in this order.
  QueryFilter& AddSetFilter(const DocumentFilter& filter);

  // " inner join Desr1 on ... inner join vouchertype1 on ... "; "" where nothing is to be joined.
  [[nodiscard]] std::string Joins() const;
  // What tells a row that the joins have found from one that joins from the left have kept, with
  // " and " in front; "" where nothing is joined. With it a query of a filter that keeps undated
  // rows can sum what the same filter without them would leave.
  [[nodiscard]] std::string Joined() const;
  // All conditions with " and " behind each; "" without one.
  [[nodiscard]] std::string Conditions() const;

 private:
  NamedTable table_;
  Undated undated_;
  Vouchertype vouchertype_;
  std::vector<std::string> joins_, conditions_;
};

// All of SetFilter on Godownitem1.
[[nodiscard]] QueryFilter FilterOfMovements(const DocumentFilter& filter, Undated undated);
// All of SetFilter on Desr1.
[[nodiscard]] QueryFilter FilterOfDocuments(const DocumentFilter& filter,
                                            Vouchertype vouchertype = Vouchertype::kToBeJoined);

}  // namespace pstolvane1
