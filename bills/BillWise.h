// Sale bills followed to their receipts: by bill, and by the entries of the bill-by-bill accounts.
#pragma once

#include <cstdint>
#include <string>

#include "session/FilterClauses.h"
#include "session/ReportFrame.h"

namespace pstolvane1 {

struct BillWiseArguments {
  std::uint8_t bytYearno = 0;  // of the accounts' bills
  Date dtFromDate, dtToDate;
  bool blnUseLongDate = false;
  bool blnDetailed = false;
  float sngScale = 1;
  bool has_items = false;  // the host gave a rowset of items
  // Both operations are of one report type; this is what writes the one in hand.
  RowBuilder builder = nullptr;
};

// One row a line of the period's sale bills, in no order. Amounts of bills are divided by the
// scale. Detailed, a shape command whose chapters chsalereceiptbill and, in it, chreceiptbills hold
// the bill's entries and the receipts against them.
[[nodiscard]] std::string ComposeBillWiseQuery(const BillWiseArguments& arguments,
                                               const DocumentFilter& filter);
// One row an entry of the period, by date, number and party. Detailed with the lines of the entry's
// documents in the chapter chsalebill, and with the same receipts.
[[nodiscard]] std::string ComposeBillWiseQuery1(const BillWiseArguments& arguments);

// Each bill of rsReport: its receipts, itself, its items; a rule and a total.
[[nodiscard]] RecordsetPtr mBillWiseQuery(ReportFrame& frame);
// Each entry of rsReport: itself, its items, its receipts; a rule and no total.
[[nodiscard]] RecordsetPtr mBillWiseQuery1(ReportFrame& frame);
// The report in hand, by its arguments' builder.
[[nodiscard]] RecordsetPtr mBillWise(ReportFrame& frame);

// recitem holds items by Itemnew_id, with their itemname; nullptr for none.
RecordsetPtr BillWiseQuery(ReportFrame& frame, BillWiseArguments arguments,
                           const RecordsetPtr& recitem, Boolean blnReport);
// Asynchronously mBillWiseQuery writes it as well, which its rows do not suit: error 3265.
RecordsetPtr BillWiseQuery1(ReportFrame& frame, BillWiseArguments arguments,
                            const RecordsetPtr& recitem, Boolean blnReport);

}  // namespace pstolvane1
