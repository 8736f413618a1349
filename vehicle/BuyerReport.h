// Who bought which vehicle.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct BuyerArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  bool blnDetailed = false;  // nothing reads it
  float sngScale = 1;        // divides the amount in the query
  // SubRelatedTo codes with commas between, "" for vehicle sales. Not used under a filter on
  // voucher types.
  std::string sVouchertype_id;
};

// One row a vehicle, by buyer and ledger: the document (ledger_id, desr_id, related_id,
// totalamount, date, subrelatedto), the buyer (buyername, despatchtoadd1, despatchtoadd2, city,
// district, ledgername), item_id, and chassis and engine of the batch (batchcode, engineno) and of
// the document (tchasisno, tengineno). Not normalised.
[[nodiscard]] std::string ComposeBuyers(const BuyerArguments& arguments,
                                        const DocumentFilter& filter);

// A line for each row of rsReport, a rule and the total. A document of two vehicles counts its
// amount twice; that is meant. Error 91 without the host's items where there is a row.
[[nodiscard]] RecordsetPtr mBuyerReport(ReportFrame& frame);

RecordsetPtr BuyerReport(ReportFrame& frame, const BuyerArguments& arguments,
                         const RecordsetPtr& rsItms, Boolean blnReport);

}  // namespace pstolvane1
