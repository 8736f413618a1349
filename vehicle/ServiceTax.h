// The service bills of a period that carry tax, with the tax and the taxed labour.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct ServiceTaxArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  bool blnUseLongDate = false;
  std::string strRefSeperator = "/";  // nothing reads it
  bool blnDetailed = false;           // a line for each taxed line as well
  float sngScale = 1;                 // divides the rate of tax in the query, and nothing else
  RecordsetPtr recitem, recLedger;    // without them the names stay empty
};

// One row a taxed line, by bill and line: item_id, desr_id, salestax (per cent, over the scale),
// qtyout, rate, ledger_id, voucher_id, refno, date. Not normalised.
[[nodiscard]] std::string ComposeServiceTax(const ServiceTaxArguments& arguments,
                                            const DocumentFilter& filter);

// A line for each bill, with blnDetailed its taxed lines below it, a rule and the totals. A Null
// quantity, rate or tax is error 94.
[[nodiscard]] RecordsetPtr mServiceTax(ReportFrame& frame);

RecordsetPtr ServiceTax(ReportFrame& frame, const ServiceTaxArguments& arguments,
                        Boolean blnReport);

}  // namespace pstolvane1
