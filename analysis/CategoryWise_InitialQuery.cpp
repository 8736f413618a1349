#include <fmt/format.h>
#include <fmt/ranges.h>
#include <vector>

#include "analysis/CategoryWise_Initial.h"
#include "movements/QueryFilter.h"
#include "session/Launch.h"
#include "session/QueryText.h"
#include "session/mInternationalization.h"

namespace pstolvane1 {
namespace {

constexpr std::int32_t kSalesDocuments = 10;

constexpr std::string_view QuantityOf(bool sales) {
  return sales ? "desrdetails1.qtydespout" : "desrdetails1.qtydespin + desrdetails1.qtyreturned";
}

// What a line is billed for at its price, in base units: for purchases too by what went out, which
// is meant.
std::string BilledOf(bool sales) {
  std::string billed =
      "case when desrdetails1.isaltunit <> 0 then desrdetails1.billedqty * "
      "(desrdetails1.qtydespout / desrdetails1.altqty) else desrdetails1.billedqty end";
  if (sales) return billed;
  return fmt::format(
      "case when desrdetails1.qtyreturned > 0 then desrdetails1.qtyreturned else ({}) end", billed);
}

// Quantity and value of each item in the documents.
std::string ItemSums(const CategoryArguments& arguments, const DocumentFilter& filter) {
  const QueryFilter documents = FilterOfDocuments(filter, Vouchertype::kJoined);
  const bool sales = arguments.lngVouchertype_id == kSalesDocuments;
  return fmt::format(
      "select desrdetails1.item_id,sum({0}) as qty,sum(case when ({0}) > 0 then "
      "desrdetails1.price * ({1}) else 0 end) as [value] from "
      "(select desr1.desr_id from desr1 "
      "inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id "
      "where {2}vouchertype1.relatedto = {3} and desr1.deleted = 0 and "
      "desr1.date between #{4}# and #{5}#) as aaa "
      "inner join desrdetails1 on desrdetails1.desr_id = aaa.desr_id "
      "group by desrdetails1.item_id",
      QuantityOf(sales), BilledOf(sales), documents.Conditions(), arguments.lngVouchertype_id,
      SqlDateText(arguments.dtFromDate), SqlDateText(arguments.dtToDate));
}

// " where ..." on Items1, which a category without sales has no row of; "" without a condition.
std::string Items(const CategoryArguments& arguments) {
  std::vector<std::string> conditions;
  const std::string consider = ItemStateClause(arguments.strConsiderForSih, "");
  if (!consider.empty()) {
    conditions.push_back(fmt::format("({} or considerforsih is null)", consider));
  }
  const std::string states = ItemStateClause("", arguments.strItemstate);
  if (!states.empty()) conditions.push_back(fmt::format("({} or itemstate is null)", states));
  return conditions.empty() ? std::string()
                            : fmt::format(" where {}", fmt::join(conditions, " and "));
}

constexpr std::string_view kCategoryColumns =
    "itemcategory1.itemcategory_id as itemcategory_id,"
    "itemcategory1.categoryname as categoryname,itemcategory1.relatedto as id";

}  // namespace

std::string ComposeCategories(const CategoryArguments& arguments, const DocumentFilter& filter) {
  const std::string scale = SingleText(arguments.sngScale);
  const std::string tables = fmt::format(
      "(({}) as bbb inner join items1 on items1.item_id = bbb.item_id) "
      "right join itemcategory1 on itemcategory1.itemcategory_id = items1.itemcategory_id{}",
      ItemSums(arguments, filter), Items(arguments));
  if (arguments.blnDetailed) {
    return fmt::format(
        "select bbb.qty as qty,bbb.[value]/{} as [value],{},items1.itemname as itemname,"
        "items1.item_id as item_id from {} "
        "order by itemcategory1.categoryname,itemcategory1.relatedto,"
        "itemcategory1.itemcategory_id,items1.itemname,items1.item_id",
        scale, kCategoryColumns, tables);
  }
  return fmt::format(
      "select sum(bbb.qty) as qty,sum(bbb.[value])/{} as [value],{} from {} "
      "group by itemcategory1.categoryname,itemcategory1.itemcategory_id,itemcategory1.relatedto "
      "order by itemcategory1.categoryname,itemcategory1.itemcategory_id",
      scale, kCategoryColumns, tables);
}

std::string OfClasses(std::string text) {
  static constexpr ColumnSwap kSwaps[] = {
      {"itemcategory1.categoryname", "itemclass1.classname"},
      {"itemcategory1.itemcategory_id", "itemclass1.itemclass_id"},
      {"items1.itemcategory_id", "items1.itemclass_id"},
      {"itemcategory1", "itemclass1"},
      {"categorydesc", "classdesc"},
  };
  for (const ColumnSwap& swap : kSwaps) text = ReplaceAll(text, swap.from, swap.to);
  return text;
}

}  // namespace pstolvane1
