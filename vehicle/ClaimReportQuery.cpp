#include <fmt/format.h>

#include "session/mInternationalization.h"
#include "vehicle/Bills.h"
#include "vehicle/ClaimReport.h"

namespace pstolvane1 {

std::string ComposeClaimReport(const ClaimArguments& arguments, const DocumentFilter& filter) {
  return fmt::format(
      "Select desr1.desr_id, desr1.related_id as voucher_id, desr1.prefix, "
      "desr1.desrrefno as refno, desr1.suffix, terms1.chasisnumber, terms1.dateofsale, terms1.kms, "
      "desrdetails1.claimno, desrdetails1.desrdetdate as repairdate, desrdetails1.item_id, "
      "desrdetails1.qtydespout as quantity, desrdetails1.price, desrdetails1.vendormfgdate, "
      "defect.defectname, vendor.vendorname, perfomance.perfomancename{}"
      "inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id and "
      "desrdetails1.iswarranty = 1 and desrdetails1.desrdetdate between #{}# and #{}# "
      "inner join defect on defect.defect_id = desrdetails1.defectcode "
      "inner join vendor on vendor.vendor_id = desrdetails1.vendorcode "
      "inner join perfomance on perfomance.perfomance_id = desrdetails1.performancecode "
      "where {}{} "
      "order by desrdetails1.desrdetdate, desr1.desr_id, desrdetails1.desrdetails_id ",
      kBillsOfTerms, SqlDateText(arguments.dtFromDate), SqlDateText(arguments.dtToDate),
      FilterOfDocuments(filter, Vouchertype::kJoined)
          .Add(IsOfKind(BillKind::kServiceBill))
          .Conditions(),
      BilledBetween(arguments.dtFromDate, arguments.dtToDate));
}

}  // namespace pstolvane1
