// The documents that the reports of the workshop and of the financiers list, in query texts.
#pragma once

#include <string>
#include <string_view>

#include "movements/QueryFilter.h"
#include "session/data/Date.h"

namespace pstolvane1 {

// What a document is, as its voucher type's SubRelatedTo tells it.
enum class BillKind { kVehicleSale = 10, kServiceBill = 39 };

// Terms1 with Desr1 and Vouchertype1. Deleted documents are out whatever a host's condition says,
// which is why they are not dropped by a condition beside it.
inline constexpr std::string_view kBillsOfTerms =
    " from terms1 inner join desr1 on desr1.desr_id = terms1.desr_id and desr1.deleted = 0 "
    "inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id ";

// Conditions, without a word or blank around them.
[[nodiscard]] std::string IsOfKind(BillKind kind);
[[nodiscard]] std::string BilledBetween(Date from, Date to);
// The host's condition on voucher types; without one the kind, whose place a host's takes.
[[nodiscard]] std::string VouchertypeOrKind(const DocumentFilter& filter, BillKind kind);

// SetFilter's restrictions on such documents, the condition on voucher types as above.
[[nodiscard]] QueryFilter FilterOfBills(const DocumentFilter& filter, BillKind kind);

}  // namespace pstolvane1
