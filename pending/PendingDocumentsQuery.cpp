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

}  // namespace

std::string ComposePending(const PendingArguments& arguments) {
  const Conditions conditions = ConditionsOf(arguments);
  return fmt::format(
      "select gid.date , gid.gdesr_Id as desr_id , des.related_Id as vhr_id , gid.desrdetails_Id , "
      "gid.goriginalvouchertype_Id , gid.optional , abs(gid.qty) as qty , "
      "(select CASE WHEN sum ( abs(gi1.qty) ) is null THEN 0 ELSE sum ( abs(gi1.qty) ) END "
      "from godownitem1 as gi1 left join desr1 as later on later.desr_id = gi1.gdesr_id "
      "where gi1.grelateddesr_id = gid.gdesr_id and gi1.item_id = gid.item_id "
      "and gi1.godown_id = gid.godown_id and gi1.batch_id = gid.batch_id "
      "and gi1.gsrno = gid.gsrno and gi1.grelatedyearno = gid.yearno "
      "and gi1.gdesroptional = false and isnull(later.deleted, 0) = 0 {executing}) as Sum1 , "
      "CASE WHEN gidrel.goriginalvouchertype_id IS NULL THEN 0 "
      "ELSE gidrel.goriginalvouchertype_Id END as relatedvouchertype_Id , "
      "vhrtype.vouchertype , gid.gprefix , gid.grefno , gid.gsuffix , "
      "ledgernames1.ledgername as Ledgername , items1.itemname as Itemname , "
      "items1.maintainbatches , uom1.uomname , gid.rate , "
      "godown1.godownname as Godownname , batches1.batchcode as Batchcode "
      "from godownitem1 as gid left join desr1 as des on des.desr_id = gid.gdesr_id "
      "left join vouchertype1 as vhrtype on vhrtype.vouchertype_id = des.vouchertype_id "
      "left join ledgernames1 on ledgernames1.ledger_id = gid.gledger_id "
      "left join items1 on items1.item_id = gid.item_id "
      "left join uom1 on uom1.uom_id = items1.uom_id "
      "left join godown1 on godown1.godown_id = gid.godown_id "
      "left join batches1 on batches1.batch_id = gid.batch_id "
      "left join desr1 as earlier on earlier.desr_id = gid.grelateddesr_id "
      "left join godownitem1 as gidrel on gidrel.gdesr_id = gid.grelateddesr_id "
      "and isnull(earlier.deleted, 0) = 0 "
      "and (( gidrel.item_id = gid.item_id and gidrel.godown_id = gid.godown_id "
      "and gidrel.batch_id = gid.batch_id and gidrel.gsrno = gid.gsrno ) "
      "or ( gidrel.item_id is null and gidrel.godown_id is null "
      "and gidrel.batch_id is null and gidrel.gsrno is null )) "
      "where gid.date between #{from}# and #{to}# and isnull(des.deleted, 0) = 0 "
      "and isnull(items1.deleted, 0) = 0 and isnull(godown1.deleted, 0) = 0 {waiting}"
      "order by gid.goriginalvouchertype_id , gid.date , gid.gdesr_id , gid.desrdetails_id , "
      "gid.godownitem_id",
      fmt::arg("executing", conditions.executing),
      fmt::arg("from", SqlDateText(arguments.dtFromDate)),
      fmt::arg("to", SqlDateText(arguments.dtToDate)), fmt::arg("waiting", conditions.waiting));
}

}  // namespace pstolvane1
