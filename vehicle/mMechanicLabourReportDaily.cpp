#include "session/RowLoop.h"
#include "vehicle/Labour.h"
#include "vehicle/MechanicLabourReportDaily.h"
#include "vehicle/WorkshopBills.h"

namespace pstolvane1 {
namespace {

constexpr auto kColumns =
    Extended(kWorkshopBillLayout, Display("LabourAmount"), Display("TotalLabourAmount"),
             MoneyTwin("LabourAmountSort"), NumberTwin("InterSort"), TextTwin("HeadSort"),
             MoneyTwin("LabourSort"));

class Labour {
 public:
  Labour(ReportFrame& frame, const Recordset& source, const LabourListArguments& arguments)
      : by_vehicle_(arguments.btTypeOfReport == kByVehicle),
        labour_(source.Column("labourbill")),
        writer_(kColumns, PassingOverErrors(StyleOf(frame))),
        bills_(frame, source, writer_, arguments.blnDetailed) {
    if (by_vehicle_) vehicle_name_ = source.Column("vehiclename");
  }

  void Write(const Recordset::Row& row) {
    if (by_vehicle_ && !row.IsNull(vehicle_name_) && row.Text(vehicle_name_) != vehicle_) {
      AddVehicle(row);
    }
    if (bills_.IsNewBill(row)) AddBill(row);
    if (!bills_.AddItem(row)) return;
    writer_.Copy(kColumns.At("LabourSort"), row, labour_);
    writer_.Value(kColumns.At("InterSort"), 2);
  }

  [[nodiscard]] RecordsetPtr Finish() {
    bills_.AddRuleAndTotal(255);
    writer_.Money(kColumns.At("TotalLabourAmount"), total_);
    return writer_.Finish();
  }

 private:
  void AddVehicle(const Recordset::Row& row) {
    vehicle_ = row.Text(vehicle_name_);
    writer_.AddLine(BillList::kLine);
    writer_.Text(kColumns.Twinned("Head"), vehicle_);
    writer_.Text(kColumns.At("RecordType"), WorkshopBills::kVehicle);
  }

  void AddBill(const Recordset::Row& row) {
    bills_.AddBill(row);
    writer_.Money(kColumns.Twinned("LabourAmount"), row[labour_]);
    AddTo(total_, row[labour_], writer_.Style());
    writer_.Text(kColumns.At("HeadSort"), vehicle_);
  }

  bool by_vehicle_;
  ColumnHandle vehicle_name_{}, labour_;
  ReportWriter writer_;
  WorkshopBills bills_;
  std::string vehicle_;  // in hand
  Currency total_;
};

}  // namespace

RecordsetPtr mMechanicLabourReportDaily(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<LabourListArguments>();
  const bool by_vehicle = arguments.btTypeOfReport == kByVehicle;
  const RecordsetPtr source =
      WorkshopBillsInOrder(frame, arguments.blnDetailed, by_vehicle ? "vehiclename" : "");
  Labour labour(frame, *source, arguments);
  ForEachSourceRow(
      frame, *source, [&](const Recordset::Row& row) { labour.Write(row); }, 40);
  return labour.Finish();
}

}  // namespace pstolvane1
