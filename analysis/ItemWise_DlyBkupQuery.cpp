#include <fmt/format.h>
#include <fmt/ranges.h>
#include <vector>

#include "analysis/ItemWise_DlyBkup.h"
#include "movements/QueryFilter.h"
#include "session/QueryText.h"
#include "session/mInternationalization.h"

namespace pstolvane1 {
namespace {

constexpr std::int32_t kAllItems = -1;

// Regular or optional documents are not told apart here.
QueryFilter FilterOfDays(const ItemDaysArguments& arguments, const DocumentFilter& filter) {
  QueryFilter days({FilterTable::kMovements}, Undated::kKept);
  days.AddVouchertype(filter.strVouchertypeFilter).AddVouchertype(arguments.strVouchertype);
  if (arguments.Ledger_id > 0) {
    days.Add(fmt::format("godownitem1.gledger_id = {}", arguments.Ledger_id));
  }
  days.AddParties(filter);
  return days;
}

// One row a day, and one without a date for all that lies before the period. item_id is a further
// column with a comma behind, or "".
std::string Days(const ItemDaysArguments& arguments, const DocumentFilter& filter,
                 std::string_view item_id) {
  const QueryFilter days = FilterOfDays(arguments, filter);
  const std::string of_item = arguments.Item_id == kAllItems
                                  ? std::string()
                                  : fmt::format("godownitem1.item_id = {} and ", arguments.Item_id);
  const std::string day =
      fmt::format("case when godownitem1.date < #{}# then null else godownitem1.date end",
                  SqlDateText(arguments.dtFromDate));
  return fmt::format(
      "select sum(case when godownitem1.isadded = 1 then godownitem1.qty else 0 end) as inwards,"
      "sum(case when godownitem1.isadded = 0 then godownitem1.qty else 0 end) as outwards,{0}"
      "{1} as date from godownitem1{2} where {3}{4}godownitem1.optional = 0 and "
      "(godownitem1.date is null or godownitem1.date <= #{5}#) and godownitem1.yearno <= {6} "
      "group by {0}{1}",
      item_id, day, days.Joins(), days.Conditions(), of_item, SqlDateText(arguments.dtToDate),
      arguments.bytYearno);
}

// " where ..." on Items1; "" where all items are asked for.
std::string Items(const ItemDaysArguments& arguments) {
  std::vector<std::string> conditions;
  if (arguments.Cat_id > 0) {
    conditions.push_back(fmt::format(
        "{} = {}", arguments.blnIsclass ? "itemclass_id" : "itemcategory_id", arguments.Cat_id));
  }
  const std::string states = ItemStateClause(arguments.strConsiderForSih, arguments.strItemstate);
  if (!states.empty()) conditions.push_back(states);
  return conditions.empty() ? std::string()
                            : fmt::format(" where {}", fmt::join(conditions, " and "));
}

}  // namespace

std::string ComposeItemDays(const ItemDaysArguments& arguments, const DocumentFilter& filter) {
  if (arguments.Item_id != kAllItems) {
    return fmt::format(
        "select inwards as Inwards,outwards as Outwards,date as Date,0 as item_id,'' as ItemName "
        "from ({}) as aaa",
        Days(arguments, filter, ""));
  }
  return fmt::format(
      "select inwards as Inwards,outwards as Outwards,date as Date,aaa.item_id as item_id,"
      "itemname as ItemName from ({}) as aaa inner join items1 on items1.item_id = aaa.item_id{}",
      Days(arguments, filter, "godownitem1.item_id,"), Items(arguments));
}

}  // namespace pstolvane1
