#include "bills/BillLines.h"

namespace pstolvane1 {

BillItems::BillItems(const ReportFrame& frame, const BillWiseArguments& arguments) {
  if (!arguments.has_items) return;
  items_ = frame.Rowset(Source::rsItems)->Clone(adLockUnspecified);
  by_id_.emplace(*items_, std::initializer_list<std::string_view>{"Itemnew_id"});
  name_ = items_->Column("itemname");
}

Variant BillItems::NameOf(const Variant& item_id) const {
  if (!by_id_) return Variant(Null);
  const RowGroups::Group rows = by_id_->Find({item_id});
  return rows.Empty() ? Variant(Null) : rows.First()[name_];
}

Currency AmountOf(float quantity, Currency rate) {
  return Currency::FromDouble(static_cast<double>(quantity) * rate.ToDouble());
}

}  // namespace pstolvane1
