#include "vehicle/FreeService.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "vehicle/Bills.h"

namespace pstolvane1 {

QueryFilter FilterOfFreeServices(const DocumentFilter& filter) {
  return FilterOfDocuments(filter, Vouchertype::kJoined)
      .Add(IsOfKind(BillKind::kServiceBill))
      .Add(fmt::format("terms1.servicetype_id in ({})", fmt::join(kFreeServices, ",")));
}

}  // namespace pstolvane1
