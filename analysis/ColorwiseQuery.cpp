#include <fmt/format.h>

#include "analysis/Colorwise.h"
#include "movements/QueryFilter.h"
#include "session/QueryText.h"
#include "session/mInternationalization.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kCounts =
    "godownitem1.optional = 0 and godownitem1.goriginalvouchertype_id <> 18 and "
    "godownitem1.goriginalvouchertype_id <> 25";

// The parties' part of the filter has no say.
QueryFilter FilterOfColors(const DocumentFilter& filter,
                           Vouchertype vouchertype = Vouchertype::kToBeJoined) {
  QueryFilter colors({FilterTable::kMovements}, Undated::kKept, vouchertype);
  return colors.AddVouchertype(filter.strVouchertypeFilter).AddOptional(filter);
}

std::string Before(Date from) {
  return fmt::format("(godownitem1.date is null or godownitem1.date < #{}#)", SqlDateText(from));
}

std::string Within(Date from, Date to) {
  return fmt::format("godownitem1.date between #{}# and #{}#", SqlDateText(from), SqlDateText(to));
}

// Before the period or in it, also where the period ends before it begins.
std::string UpToTheEnd(Date from, Date to) {
  if (to < from) return Before(from);
  return fmt::format("(godownitem1.date is null or godownitem1.date <= #{}#)", SqlDateText(to));
}

std::string OfColor(const ColorMonthsArguments& arguments) {
  return fmt::format("godownitem1.item_id = {} and godownitem1.color_id = {}", arguments.lngItem_id,
                     arguments.lngColor_Id);
}

// A quantity where the movement is inwards or outwards, otherwise 0.
constexpr std::string_view kInwards =
    "case when godownitem1.isadded = 1 then godownitem1.qty else 0 end";
constexpr std::string_view kOutwards =
    "case when godownitem1.isadded = 0 then godownitem1.qty else 0 end";
constexpr std::string_view kBalance =
    "case when godownitem1.isadded = 1 then godownitem1.qty else -godownitem1.qty end";

// The sums of each item and colour, as "moved". Each row's date is compared as seldom as can be:
// what is not before the period lies in it, for the rest is left out.
std::string MovedColors(const ColorwiseArguments& arguments, const DocumentFilter& filter) {
  const QueryFilter colors = FilterOfColors(filter);
  const std::string from = SqlDateText(arguments.dtFromDate);
  const auto moved = [&](int added) {
    return fmt::format(
        "isnull(sum(case when godownitem1.isadded = {} and godownitem1.date >= #{}# and "
        "godownitem1.yearno = {} then godownitem1.qty else 0 end),0)",
        added, from, arguments.bytYearno);
  };
  return fmt::format(
      "(select godownitem1.item_id,godownitem1.color_id,"
      "isnull(sum(case when godownitem1.date >= #{}# then 0 else {} end),0) as opening,"
      "{} as inwards,{} as outwards from godownitem1{} where {}{}godownitem1.yearno <= {} and {} "
      "and {} group by godownitem1.item_id,godownitem1.color_id) as moved",
      from, kBalance, moved(1), moved(0), colors.Joins(), colors.Conditions(),
      arguments.lngItem_id > 0 ? fmt::format("godownitem1.item_id = {} and ", arguments.lngItem_id)
                               : std::string(),
      arguments.bytYearno, kCounts, UpToTheEnd(arguments.dtFromDate, arguments.dtToDate));
}

}  // namespace

std::string ComposeColors(const ColorwiseArguments& arguments, const DocumentFilter& filter) {
  const std::string states = ItemStateClause(arguments.strConsiderForSih, arguments.strItemstate);
  return fmt::format(
      "select items1.itemname as Parent,items1.item_id as Parent_Id,uom1.uomname as UomName,"
      "color1.color as Child,color1.color_id as Child_Id,moved.opening as Opening,"
      "moved.inwards as Inwards,moved.outwards as Outwards from "
      "(select item_id,color_id,opening,inwards,outwards from {} "
      "where opening <> 0 or inwards <> 0 or outwards <> 0) as moved "
      "inner join items1 on items1.item_id = moved.item_id "
      "inner join (select distinct item_id,color_id from batches1) as colors on "
      "colors.item_id = moved.item_id and colors.color_id = moved.color_id "
      "inner join color1 on color1.color_id = moved.color_id "
      "inner join uom1 on uom1.uom_id = items1.uom_id "
      "inner join uom1 as uomalt1 on uomalt1.uom_id = items1.alternateuom_id "
      "where items1.deleted = 0{}{} order by items1.itemname,items1.item_id,color1.color_id",
      MovedColors(arguments, filter), states.empty() ? "" : " and ", states);
}

std::string ComposeColorOpening(const ColorMonthsArguments& arguments,
                                const DocumentFilter& filter) {
  const QueryFilter colors = FilterOfColors(filter);
  return fmt::format(
      "select uom1.uomname as UomName,isnull((select sum({}) from godownitem1{} where "
      "{}{} and {} and {} and godownitem1.yearno <= {}),0) as Opening from items1 "
      "inner join uom1 on uom1.uom_id = items1.uom_id where items1.item_id = {} and "
      "exists (select batches1.batch_id from batches1 "
      "inner join color1 on color1.color_id = batches1.color_id "
      "where batches1.item_id = {} and color1.color_id = {})",
      kBalance, colors.Joins(), colors.Conditions(), Before(arguments.dtFromDate), kCounts,
      OfColor(arguments), arguments.bytYearno, arguments.lngItem_id, arguments.lngItem_id,
      arguments.lngColor_Id);
}

std::string ComposeColorMonths(const ColorMonthsArguments& arguments,
                               const DocumentFilter& filter) {
  const QueryFilter colors = FilterOfColors(filter);
  return fmt::format(
      "select year(date) * 100 + month(date) as Inc_Id,isnull(sum(inwards),0) as Inwards,"
      "isnull(sum(outwards),0) as Outwards from "
      "(select godownitem1.date as date,sum({}) as inwards,sum({}) as outwards from "
      "godownitem1{} where {}{} and {} and {} group by godownitem1.date) as days "
      "group by year(date),month(date)",
      kInwards, kOutwards, colors.Joins(), colors.Conditions(),
      Within(arguments.dtFromDate, arguments.dtToDate), kCounts, OfColor(arguments));
}

std::string ComposeColorDays(const ColorMonthsArguments& arguments, const DocumentFilter& filter) {
  return fmt::format(
      "select desr1.date as Date,ledgernames1.ledgername as Ledgername,"
      "vouchertype1.vouchertype as VhrType,desr1.prefix as Prefix,desr1.desrrefno as RefNo,"
      "desr1.suffix as Suffix,isnull({},0) as Inwards,isnull({},0) as Outwards,"
      "desr1.desr_id as Desr_Id,desr1.related_id as Voucher_Id "
      "from godownitem1 inner join desr1 on desr1.desr_id = godownitem1.gdesr_id "
      "inner join ledgernames1 on ledgernames1.ledger_id = desr1.ledger_id "
      "inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id "
      "where {}{} and {} and {} order by desr1.date,desr1.desr_id,godownitem1.godownitem_id",
      kInwards, kOutwards, FilterOfColors(filter, Vouchertype::kJoined).Conditions(),
      Within(arguments.dtFromDate, arguments.dtToDate), kCounts, OfColor(arguments));
}

}  // namespace pstolvane1
