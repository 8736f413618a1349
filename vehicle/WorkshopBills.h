// The lists of the workshop's bills with their lines: free services, and the work of mechanics.
#pragma once

#include <string>

#include "movements/HostItems.h"
#include "vehicle/BillList.h"

namespace pstolvane1 {

struct WorkshopBillQuery {
  float sngScale = 1;      // divides the bill's amount
  bool detailed = false;   // a row for each line of a bill instead of one for the bill
  std::string columns;     // further ones, each with a comma in front
  std::string conditions;  // each with " and " behind
  Date from, to;
};
// The bills, or their lines, in no order.
[[nodiscard]] std::string ComposeWorkshopBills(const WorkshopBillQuery& query);
// Such rows in rsReport by day, registration and document, and the lines of a bill as they were
// entered. first is a column that goes before the day, or "".
[[nodiscard]] RecordsetPtr WorkshopBillsInOrder(const ReportFrame& frame, bool detailed,
                                                std::string_view first = "");

inline constexpr ReportLayout kWorkshopBillLayout = {
    Display("Date"),
    Display("Particulars"),
    Display("VhrType"),
    Display("RefNo"),
    Display("Buyer"),
    Display("ServiceType"),
    Display("Amount"),
    Display("MechanicName"),
    Display("TotalAmount"),
    DateTwin("DateSort"),
    TextTwin("ParticularsSort"),
    TextTwin("VhrTypeSort"),
    NumberTwin("RefNoSort"),
    TextTwin("PrefixSort"),
    TextTwin("SuffixSort"),
    TextTwin("BuyerSort"),
    TextTwin("ServiceTypeSort"),
    TextTwin("MechanicNameSort"),
    MoneyTwin("AmountSort"),
    NumberTwin("DummySort"),
    Key("Desr_Id", adBigInt),
    Key("Voucher_Id", adBigInt),
    Marker("Line"),
    Display("Total"),
    Key("RecordNo", adBigInt),
    Display("Optional"),
    Display("ItemName"),
    Display("Qty"),
    Display("Price"),
    Marker("Head"),
    Marker("RecordType"),
};

// A layout with further columns behind it; the places of its own stay what they are.
template <std::size_t kCount, typename... Columns>
[[nodiscard]] consteval auto Extended(const ReportLayout<kCount>& layout, Columns... further) {
  ReportLayout<kCount + sizeof...(Columns)> extended{};
  std::ranges::copy(layout.columns, extended.columns.begin());
  std::size_t place = kCount;
  ((extended.columns.at(place++) = further), ...);
  return extended;
}

// Writes bills, the lines below them and the closing lines, into a layout that begins with
// kWorkshopBillLayout.
class WorkshopBills {
 public:
  // RecordType.
  static constexpr std::string_view kBill = "1", kItem = "2", kVehicle = "5";

  WorkshopBills(ReportFrame& frame, const Recordset& source, ReportWriter& writer, bool detailed);

  [[nodiscard]] bool IsNewBill(const Recordset::Row& row) const { return bills_.IsNewBill(row); }
  void AddBill(const Recordset::Row& row);
  // The row's line, below its bill. False, and nothing is added, for a report without lines and for
  // an item that the host's rowset lacks.
  bool AddItem(const Recordset::Row& row);
  void AddRuleAndTotal(std::size_t rule_width);

 private:
  const ReportFrame& frame_;
  ReportWriter& writer_;
  BillList bills_;
  ColumnHandle service_, mechanic_;
  struct Lines {
    ColumnHandle item_id, quantity, price;
  };
  std::optional<Lines> lines_;
  std::optional<HostItems> items_;
  Bookmark bill_{};
};

}  // namespace pstolvane1
