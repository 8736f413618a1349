#include "vehicle/Bills.h"

#include <fmt/format.h>

#include "session/mInternationalization.h"

namespace pstolvane1 {

std::string IsOfKind(BillKind kind) {
  return fmt::format("vouchertype1.subrelatedto = {}", static_cast<int>(kind));
}

std::string BilledBetween(Date from, Date to) {
  return fmt::format("desr1.date between #{}# and #{}#", SqlDateText(from), SqlDateText(to));
}

std::string VouchertypeOrKind(const DocumentFilter& filter, BillKind kind) {
  return filter.strVouchertypeFilter.empty() ? IsOfKind(kind) : filter.strVouchertypeFilter;
}

QueryFilter FilterOfBills(const DocumentFilter& filter, BillKind kind) {
  QueryFilter bills({FilterTable::kDocuments}, Undated::kDropped, Vouchertype::kJoined);
  return bills.AddVouchertype(VouchertypeOrKind(filter, kind))
      .AddOptional(filter)
      .AddParties(filter);
}

}  // namespace pstolvane1
