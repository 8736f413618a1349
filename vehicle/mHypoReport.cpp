#include <optional>

#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"
#include "vehicle/HypoReport.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("ParticularsHead"),
    Display("TotalSales"),
    Display("TotalSalesHead"),
    Display("TotalSalesItem"),
    Display("TotalLabourBill"),
    Key("Hypo_id", adBSTR),
    Display("Particulars"),
    TextTwin("ParticularsSort"),
    TextTwin("ParticularsHeadSort"),
    MoneyTwin("TotalSalesSort"),
    MoneyTwin("TotalSalesItemSort"),
    NumberTwin("DummySort"),
    TextTwin("ItemNameSort"),
    QuantityTwin("QtySort"),
    MoneyTwin("VehicleAmtSort"),
    Marker("TotalLine"),
    Display("Total"),
    Display("TotalSalesValue"),
    Display("TotalVehicleAmtValue"),
    Display("TotalQtyValue"),
    Display("Qty"),
    Display("VehicleAmt"),
    Display("QtyHypo"),
    Display("VehicleAmtHypo"),
    Display("QtyHead"),
    Display("VehicleAmtHead"),
    Display("ItemName"),
    Key("Item_id", adBSTR),
};

enum LineClass { kDetailLine = 1, kRuleLine = 2, kTotalLine = 3 };

// The pin in hand before the first: none is like it.
constexpr std::string_view kNoPin = "'";

struct Sums {
  float quantity = 0;
  Currency sales, vehicles;

  void AddVehicles(float number, Currency amount) {
    quantity += number;
    vehicles += amount;
  }
};

class Financiers {
 public:
  Financiers(ReportFrame& frame, const Recordset& source, const HypoArguments& arguments)
      : detailed_(arguments.blnDetailed),
        by_pin_(arguments.ByPin()),
        hypo_id_(source.Column("hypo_id")),
        name_(source.Column("name")),
        pin_code_(source.Column("pincode")),
        quantity_(source.Column("qty")),
        vehicles_(source.Column("vehicleamt")),
        sales_(source.Column("totalsales")),
        writer_(kColumns, StyleOf(frame)) {
    if (!detailed_) return;
    item_id_ = source.Column("item_id");
    item_ = source.Column("itemname");
    item_sales_ = source.Column("totalsalesitem");
  }

  void Write(const Recordset::Row& row) {
    if (by_pin_ && row.Text(pin_code_) != pin_) AddPin(row);
    if (in_hand_ != row.Int64(hypo_id_)) AddFinancier(row);
    const float quantity = row.Single(quantity_);
    const Currency vehicles = row.Money(vehicles_);
    report_.AddVehicles(quantity, vehicles);
    of_pin_.AddVehicles(quantity, vehicles);
    of_financier_.AddVehicles(quantity, vehicles);
    if (detailed_) {
      AddModel(row);
    } else {
      WriteFinancierSums();
      WriteTwins(row);
    }
  }

  [[nodiscard]] RecordsetPtr Finish() {
    ClosePin();
    if (detailed_) CloseFinancier();
    writer_.AddRuleLine(kColumns.Rule("TotalLine", 255), kRuleLine);
    writer_.AddLine(kTotalLine);
    writer_.Text(kColumns.At("Total"), "Total");
    writer_.MoneyOrBlank(kColumns.At("TotalSalesValue"), report_.sales);
    writer_.MoneyOrBlank(kColumns.At("TotalVehicleAmtValue"), report_.vehicles);
    writer_.Value(kColumns.At("TotalQtyValue"), report_.quantity);
    return writer_.Finish();
  }

 private:
  void AddPin(const Recordset::Row& row) {
    ClosePin();
    pin_ = row.Text(pin_code_);
    writer_.AddLine(kDetailLine);
    writer_.Text(kColumns.At("ParticularsHead"), "Pin:" + pin_);
    writer_.Copy(kColumns.At("ParticularsHeadSort"), row, pin_code_);
    pin_line_ = writer_.Line();
  }

  void ClosePin() {
    if (!pin_line_) return;
    writer_.ReturnTo(*pin_line_);
    writer_.MoneyOrBlank(kColumns.At("TotalSalesHead"), of_pin_.sales);
    writer_.Number(kColumns.At("QtyHead"), of_pin_.quantity);
    writer_.MoneyOrBlank(kColumns.At("VehicleAmtHead"), of_pin_.vehicles);
    of_pin_ = {};
  }

  void AddFinancier(const Recordset::Row& row) {
    if (detailed_) CloseFinancier();
    of_financier_ = {};
    in_hand_ = row.Int64(hypo_id_);
    writer_.AddLine(kDetailLine);
    writer_.Copy(kColumns.Twinned("Particulars"), row, name_);
    writer_.Text(kColumns.At("ParticularsHeadSort"), pin_);
    writer_.Copy(kColumns.At("Hypo_id"), row, hypo_id_);
    writer_.MoneyOrBlank(kColumns.At("TotalSales"), row[sales_]);
    if (!detailed_) writer_.Copy(kColumns.At("TotalSalesSort"), row, sales_);
    report_.sales += row.Money(sales_);
    of_pin_.sales += row.Money(sales_);
    financier_line_ = writer_.Line();
  }

  void CloseFinancier() {
    if (!financier_line_) return;
    writer_.ReturnTo(*financier_line_);
    WriteFinancierSums();
  }
  void WriteFinancierSums() {
    writer_.Value(kColumns.At("QtyHypo"), of_financier_.quantity);
    writer_.MoneyOrBlank(kColumns.At("VehicleAmtHypo"), of_financier_.vehicles);
  }
  void WriteTwins(const Recordset::Row& row) {
    writer_.Copy(kColumns.At("QtySort"), row, quantity_);
    writer_.Copy(kColumns.At("VehicleAmtSort"), row, vehicles_);
  }

  void AddModel(const Recordset::Row& row) {
    writer_.AddLine(kDetailLine);
    writer_.Copy(kColumns.At("Item_id"), row, item_id_);
    writer_.Copy(kColumns.At("Hypo_id"), row, hypo_id_);
    writer_.Copy(kColumns.At("ParticularsSort"), row, name_);
    writer_.Text(kColumns.At("ParticularsHeadSort"), pin_);
    writer_.Copy(kColumns.Twinned("ItemName"), row, item_);
    writer_.Copy(kColumns.At("Qty"), row, quantity_);
    writer_.MoneyOrBlank(kColumns.At("VehicleAmt"), row[vehicles_]);
    WriteTwins(row);
    writer_.MoneyOrBlank(kColumns.Twinned("TotalSalesItem"), row[item_sales_]);
  }

  bool detailed_, by_pin_;
  ColumnHandle hypo_id_, name_, pin_code_, quantity_, vehicles_, sales_;
  ColumnHandle item_id_{}, item_{}, item_sales_{};
  ReportWriter writer_;
  std::string pin_{kNoPin};
  std::optional<Bookmark> pin_line_, financier_line_;
  std::optional<std::int64_t> in_hand_;
  Sums of_financier_, of_pin_, report_;
};

}  // namespace

RecordsetPtr mHypoReport(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<HypoArguments>();
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  Financiers financiers(frame, *source, arguments);
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { financiers.Write(row); });
  return financiers.Finish();
}

}  // namespace pstolvane1
