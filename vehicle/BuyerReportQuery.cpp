#include <fmt/format.h>

#include "session/QueryText.h"
#include "vehicle/BuyerReport.h"

namespace pstolvane1 {
namespace {

// SetFilter's condition beats the caller's list, and that the vehicle sales. The list stands
// without parentheses, so that what follows binds to its last code alone; that is meant.
std::string VoucherClause(const BuyerArguments& arguments, const DocumentFilter& filter) {
  std::string join;
  const std::string filtered = BuildVouchertypeFilter(filter, 1, join, 2);
  if (!filtered.empty()) return filtered;
  if (arguments.sVouchertype_id.empty()) return " vouchertype1.subrelatedto = 10  and ";
  return " vouchertype1.subrelatedto =  " +
         ReplaceAll(arguments.sVouchertype_id, ",", " Or Vouchertype1.Subrelatedto  = ") + " and";
}

std::string Conditions(const BuyerArguments& arguments, const DocumentFilter& filter) {
  std::string documents, vouchers, movements;
  BuildSubgroupFilter(filter, false, documents, vouchers, "", 2, movements);
  return fmt::format("{}{}{} desr1.deleted=0 and desr1.Date Between #{}# and #{}# ",
                     BuildOptionalFilter(filter, 3, 2), VoucherClause(arguments, filter), documents,
                     SqlDateText(arguments.dtFromDate), SqlDateText(arguments.dtToDate));
}

}  // namespace

std::string ComposeBuyers(const BuyerArguments& arguments, const DocumentFilter& filter) {
  return fmt::format(
      "select ccc.*,ledgernames1.Ledgername as Ledgername,desrdetails1.Item_id,batches1.Batchcode,"
      "batches1.EngineNo from ( "
      "select Desr1.Ledger_id,Desr1.Desr_id,Desr1.Related_id,Desr1.TotalAmount/{} as TotalAmount,"
      "terms1.DespatchTo as BuyerName,Terms1.DespatchtoAdd1,Terms1.DespatchtoAdd2,Terms1.City,"
      "terms1.District,Desr1.Date,Terms1.EngineNumber as TEngineNo,Terms1.ChasisNumber as "
      "TChasisNo,Vouchertype1.Subrelatedto from desr1 "
      "inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id "
      "inner join terms1 on terms1.desr_id = desr1.desr_id where {}) as ccc "
      "inner join ledgernames1 on ledgernames1.ledger_id = ccc.ledger_id "
      "inner join desrdetails1 on desrdetails1.desr_id = ccc.desr_id "
      "inner join godownitem1 on godownitem1.desrdetails_id = desrdetails1.desrdetails_id "
      "inner join batches1 on batches1.batch_id = godownitem1.batch_id "
      "order by BuyerName,Ledgername,ccc.Desr_id,godownitem1.godownitem_id",
      SingleText(arguments.sngScale), Conditions(arguments, filter));
}

}  // namespace pstolvane1
