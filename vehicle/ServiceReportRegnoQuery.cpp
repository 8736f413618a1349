#include <fmt/format.h>

#include "session/QueryText.h"
#include "vehicle/Bills.h"
#include "vehicle/ServiceReportRegno.h"

namespace pstolvane1 {

std::string ComposeServiceReportRegno(const ServiceHistoryArguments& arguments) {
  const bool detailed = arguments.blnDetailed;
  return fmt::format(
      "Select aaa.*, desr1.date, desr1.totalamount/{} as totalamount, desr1.related_id, "
      "desr1.prefix, desr1.desrrefno, desr1.suffix, desr1.yearno as desryearno{} from "
      "(Select desr_id, registrationnumber, chasisnumber, enginenumber, list1, list2, list3, "
      "list4, list5, list6, jobcardrefno, jobcardprefix, jobcardsuffix, isjobcard From Terms1  {}) "
      "as aaa inner join desr1 on desr1.desr_id = aaa.desr_id inner join vouchertype1 on "
      "vouchertype1.vouchertype_id = desr1.vouchertype_id {}where {} and desr1.deleted = 0",
      SingleText(arguments.sngScale),
      detailed ? ", desrdetails1.item_id, desrdetails1.qtydespout as qty, desrdetails1.price, "
                 "desrdetails1.actualrate, desrdetails1.salestax, desrdetails1.discount, "
                 "desrdetails1.iswarranty, desrdetails1.desrdetails_id"
               : "",
      arguments.strFilter,
      detailed ? "inner join desrdetails1 on desrdetails1.desr_id = aaa.desr_id " : "",
      IsOfKind(BillKind::kServiceBill));
}

}  // namespace pstolvane1
