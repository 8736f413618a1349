// The front desk's searches for a vehicle: by buyer, bill, chassis, engine or colour, for service
// bills, and for the receipts of a bill. No report rowset is built: the host gets the query's own.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct VehicleSearchArguments {
  std::int32_t reptype = 0;
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  float sngScale = 1;  // nothing is divided by it
  // Ready pieces of query text, which go in as they stand.
  std::string strCriteria;
  std::string strBuyerFilter;
  std::string strBillFilter;
  std::string strVouchertype;      // not empty, or the query is refused
  std::int32_t billbybill_id = 0;  // the voucher of the bill whose receipts are listed
  std::int32_t lngSubRelatedTo = 0;
};

// What is searched, and from where.
enum class VehicleSearch : unsigned {
  kBuyer = 1,
  kBill = 2,
  kVehicle = 4,
  kReceipts = 8,
  kInsurance = 16,
  kServiceBill = 32,
  kServiceVehicle = 64,
  kServiceReceipts = 128,
};

// The movements, or service documents, that the search finds, by the document's prefix, number and
// suffix; those of the receipts by document. In the server's dialect: aliases and literals stay.
[[nodiscard]] std::string ComposeVehicleSearch(VehicleSearch search,
                                               const VehicleSearchArguments& arguments);
// A row for each entry of the receipts of one bill: Vouchernumber, Voucher_id, chequenumber
// ("number| bank ledger"), amount, Date, BillByBill_id.
[[nodiscard]] std::string ComposeReceiptsOfBill(std::int32_t bill_voucher_id);

// Fetched in the background, whatever the host asks for, and delivered by FetchComplete; the
// receipts of one bill (rtAutoSearchReceiptChild) are returned at once. Error 3001 for a report
// type that the operation does not know.
RecordsetPtr AutoSearch(ReportFrame& frame, const VehicleSearchArguments& arguments);
RecordsetPtr RTOInsSearch(ReportFrame& frame, const VehicleSearchArguments& arguments);
RecordsetPtr AutoSearchServices(ReportFrame& frame, const VehicleSearchArguments& arguments);

// The query's own rowset.
[[nodiscard]] RecordsetPtr TakeRs1(ReportFrame& frame);
[[nodiscard]] RecordsetPtr TakeDisconnectedRs1(ReportFrame& frame);

}  // namespace pstolvane1
