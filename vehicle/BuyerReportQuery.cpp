#include <fmt/format.h>

#include "session/QueryText.h"
#include "vehicle/Bills.h"
#include "vehicle/BuyerReport.h"

namespace pstolvane1 {
namespace {

// SetFilter's condition beats the caller's list, and that the vehicle sales. The list stands
// without parentheses, so that what follows binds to its last code alone; that is meant.
std::string KindsOf(const BuyerArguments& arguments, const DocumentFilter& filter) {
  if (arguments.sVouchertype_id.empty() || !filter.strVouchertypeFilter.empty()) {
    return VouchertypeOrKind(filter, BillKind::kVehicleSale);
  }
  return "vouchertype1.subrelatedto = " +
         ReplaceAll(arguments.sVouchertype_id, ",", " or vouchertype1.subrelatedto = ");
}

std::string Conditions(const BuyerArguments& arguments, const DocumentFilter& filter) {
  QueryFilter bills({FilterTable::kDocuments}, Undated::kDropped, Vouchertype::kJoined);
  bills.AddOptional(filter).AddVouchertype(KindsOf(arguments, filter)).AddParties(filter);
  return fmt::format("{}desr1.deleted = 0 and {} ", bills.Conditions(),
                     BilledBetween(arguments.dtFromDate, arguments.dtToDate));
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
