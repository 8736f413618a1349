#include "session/POrderTextQuery.h"

#include "session/Launch.h"

namespace pstolvane1 {

std::string ComposePOrderTextQuery(std::string_view strFilter) {
  std::string text =
      " Select Items1.ItemName , Items1.ItemPartNo,Qry1.*  From ("
      " Select Desr1.Desr_id, DesrDetails1.Item_id , Desr1.DesrRefno , "
      "Desr1.Prefix,Desr1.Suffix,Desr1.Date,(DesrDetails1.QtyDespIn - DesrDetails1.QtyDespOut) as "
      "Qty "
      " From Desr1 inner Join "
      " DesrDetails1 on Desr1.Desr_id = DesrDetails1.Desr_id ";
  if (!strFilter.empty()) text.append(" Where ").append(strFilter);
  text.append(" ) as Qry1 inner join items1 on items1.item_id = Qry1.Item_id order by Qry1.Date ");
  // So that the lines of one day come the same on every engine.
  return text.append(", Qry1.Desr_id , Qry1.Item_id , Qry1.Qty ");
}

RecordsetPtr POrderTextQuery(ReportFrame& frame, std::string_view strFilter) {
  return OpenPlain(frame, ComposePOrderTextQuery(strFilter));
}

}  // namespace pstolvane1
