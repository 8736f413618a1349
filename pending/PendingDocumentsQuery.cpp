#include <fmt/format.h>
#include <fmt/ranges.h>

#include "pending/DocumentKinds.h"
#include "pending/PendingDocuments.h"
#include "session/mInternationalization.h"

namespace pstolvane1 {
namespace {

// What a movement and the later ones that execute it are restricted to.
struct Conditions {
  std::string waiting, executing;
};

std::string OfTypes(std::string_view movements, std::span<const std::int32_t> types) {
  return fmt::format(" and {}.goriginalvouchertype_Id in ({}) ", movements, fmt::join(types, ", "));
}

Conditions ConditionsOf(const PendingArguments& arguments) {
  Conditions conditions;
  std::string& waiting = conditions.waiting;
  if (arguments.of == PendingOf::kEmployee) {
    waiting = fmt::format(" and des.Employee_Id = {} ", arguments.lngEmployee_Id);
    if (const DocumentChain* const chain = ChainOf(arguments.lngVouchertype_id)) {
      waiting += OfTypes("gid", chain->waiting);
      conditions.executing = OfTypes("gi1", chain->executing);
    }
    return conditions;
  }
  if (arguments.of == PendingOf::kItem || arguments.lngItem_id != 0) {
    waiting += fmt::format(" and gid.Item_Id = {} ", arguments.lngItem_id);
  }
  if (arguments.of == PendingOf::kLedger || arguments.lngLedger_Id != 0) {
    waiting += fmt::format(" and gid.gLedger_Id = {} ", arguments.lngLedger_Id);
  }
  return conditions;
}

// Movements without a place execute for any place of their document.
constexpr std::string_view kPlaceless =
    "(select gdesr_id, goriginalvouchertype_id from godownitem1 where item_id is null "
    "and godown_id is null and batch_id is null and gsrno is null and gdesr_id is not null)";

constexpr std::string_view kMovements =
    "select gid.godownitem_id, gid.date, gid.gdesr_id, gid.desrdetails_id, "
    "gid.goriginalvouchertype_id, gid.optional, gid.qty, gid.item_id, gid.godown_id, "
    "gid.batch_id, gid.gsrno, gid.yearno, gid.gledger_id, gid.gprefix, gid.grefno, gid.gsuffix, "
    "gid.rate, des.related_id, des.vouchertype_id, "
    "gidrel.goriginalvouchertype_id as executed_type from ";
constexpr std::string_view kDocuments =
    "left join desr1 as des on des.desr_id = gid.gdesr_id "
    "left join desr1 as earlier on earlier.desr_id = gid.grelateddesr_id ";

// The movements of the period with the type of each movement that they execute. The place is
// compared by = alone, which an index finds, so that a document costs as much as its lines do; the
// movements without a place, of which there are hardly any, are met from their own side.
std::string Movements(const PendingArguments& arguments, const std::string& waiting) {
  const std::string conditions =
      fmt::format("gid.date between #{}# and #{}# and isnull(des.deleted, 0) = 0{}",
                  SqlDateText(arguments.dtFromDate), SqlDateText(arguments.dtToDate), waiting);
  return fmt::format(
      "{0}godownitem1 as gid {1}left join godownitem1 as gidrel "
      "on gidrel.gdesr_id = gid.grelateddesr_id and isnull(earlier.deleted, 0) = 0 "
      "and gidrel.item_id = gid.item_id and gidrel.godown_id = gid.godown_id "
      "and gidrel.batch_id = gid.batch_id and gidrel.gsrno = gid.gsrno where {2}"
      "and (gidrel.godownitem_id is not null or gid.grelateddesr_id is null "
      "or isnull(earlier.deleted, 0) <> 0 "
      "or gid.grelateddesr_id not in (select placeless.gdesr_id from {3} as placeless)) "
      "union all {0}{3} as gidrel cross join godownitem1 as gid {1}"
      "where gid.grelateddesr_id = gidrel.gdesr_id and isnull(earlier.deleted, 0) = 0 and {2}",
      kMovements, kDocuments, conditions, kPlaceless);
}

}  // namespace

std::string ComposePending(const PendingArguments& arguments) {
  const Conditions conditions = ConditionsOf(arguments);
  return fmt::format(
      "select gid.date , gid.gdesr_id as desr_id , gid.related_id as vhr_id , gid.desrdetails_id , "
      "gid.goriginalvouchertype_id , gid.optional , abs(gid.qty) as qty , "
      "(select CASE WHEN sum ( abs(gi1.qty) ) is null THEN 0 ELSE sum ( abs(gi1.qty) ) END "
      "from godownitem1 as gi1 left join desr1 as later on later.desr_id = gi1.gdesr_id "
      "where gi1.grelateddesr_id = gid.gdesr_id and gi1.item_id = gid.item_id "
      "and gi1.godown_id = gid.godown_id and gi1.batch_id = gid.batch_id "
      "and gi1.gsrno = gid.gsrno and gi1.grelatedyearno = gid.yearno "
      "and gi1.gdesroptional = false and isnull(later.deleted, 0) = 0 {}) as Sum1 , "
      "CASE WHEN gid.executed_type IS NULL THEN 0 ELSE gid.executed_type END "
      "as relatedvouchertype_id , "
      "vhrtype.vouchertype , gid.gprefix , gid.grefno , gid.gsuffix , "
      "ledgernames1.ledgername as Ledgername , items1.itemname as Itemname , "
      "items1.maintainbatches , uom1.uomname , gid.rate , "
      "godown1.godownname as Godownname , batches1.batchcode as Batchcode , gid.godownitem_id "
      "from ({}) as gid "
      "left join vouchertype1 as vhrtype on vhrtype.vouchertype_id = gid.vouchertype_id "
      "left join ledgernames1 on ledgernames1.ledger_id = gid.gledger_id "
      "left join items1 on items1.item_id = gid.item_id "
      "left join uom1 on uom1.uom_id = items1.uom_id "
      "left join godown1 on godown1.godown_id = gid.godown_id "
      "left join batches1 on batches1.batch_id = gid.batch_id "
      "where isnull(items1.deleted, 0) = 0 and isnull(godown1.deleted, 0) = 0",
      conditions.executing, Movements(arguments, conditions.waiting));
}

}  // namespace pstolvane1
