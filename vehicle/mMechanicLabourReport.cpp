#include <optional>

#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"
#include "vehicle/Labour.h"
#include "vehicle/MechanicLabourReport.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("ParticularsHead"),
    Display("TotalBill"),
    Display("TotalLabourBill"),
    Key("Mechanic_ID", adBSTR),
    Display("Particulars"),
    Display("Bill"),
    Display("LabourBill"),
    Key("Item_ID", adBSTR),
    TextTwin("ParticularsSort"),
    MoneyTwin("TotalBillSort"),
    MoneyTwin("TotalLabourBillSort"),
    NumberTwin("DummySort"),
    NumberTwin("InterSort"),
    TextTwin("ItemNameSort"),
    MoneyTwin("LabourSort"),
    MoneyTwin("BillSort"),
    Display("TotalBillValue"),
    Display("TotalLabourValue"),
    Marker("TotalLine"),
    Display("Total"),
};

enum LineClass { kDetailLine = 0, kRuleLine = 2, kTotalLine = 3 };

struct Sums {
  Currency bill, labour;
};

class Mechanics {
 public:
  Mechanics(ReportFrame& frame, const Recordset& source, const LabourArguments& arguments)
      : detailed_(arguments.blnDetailed),
        by_vehicle_(arguments.btTypeOfReport == kByVehicle),
        mechanic_id_(source.Column("mechanic_id")),
        mechanic_(source.Column("mechanicname")),
        bill_(source.Column("totalbill")),
        labour_(source.Column("labourbill")),
        writer_(kColumns, StyleOf(frame)) {
    if (!detailed_) return;
    item_id_ = source.Column("item_id");
    item_ = source.Column("itemname");
  }

  void Write(const Recordset::Row& row) { detailed_ ? WriteDetail(row) : WriteMechanic(row); }

  [[nodiscard]] RecordsetPtr Finish() {
    CloseHeading();
    writer_.AddRuleLine(kColumns.Rule("TotalLine", 255), kRuleLine);
    writer_.AddLine(kTotalLine);
    writer_.Text(kColumns.At("Total"), "Total");
    writer_.MoneyOrBlank(kColumns.At("TotalBillValue"), report_.bill);
    writer_.MoneyOrBlank(kColumns.At("TotalLabourValue"), report_.labour);
    return writer_.Finish();
  }

 private:
  // A mechanic's own line.
  void AddMechanic(const Recordset::Row& row) {
    writer_.AddLine(kDetailLine);
    writer_.Copy(kColumns.At("ParticularsHead"), row, mechanic_);
    writer_.Copy(kColumns.At("ParticularsSort"), row, mechanic_);
    writer_.Copy(kColumns.At("Mechanic_ID"), row, mechanic_id_);
    writer_.Value(kColumns.At("InterSort"), counter_ + 1);
    counter_ += 2;
  }

  void WriteMechanic(const Recordset::Row& row) {
    AddMechanic(row);
    writer_.MoneyOrBlank(kColumns.Twinned("TotalBill"), row[bill_]);
    writer_.MoneyOrBlank(kColumns.Twinned("TotalLabourBill"), row[labour_]);
    report_.bill += row.Money(bill_);
    report_.labour += row.Money(labour_);
  }

  void WriteDetail(const Recordset::Row& row) {
    if (in_hand_ != row.Int64(mechanic_id_)) {
      CloseHeading();
      in_hand_ = row.Int64(mechanic_id_);
      AddMechanic(row);
      heading_ = writer_.Line();
      // By item each row has the mechanic's whole billing; the report has it once.
      if (!by_vehicle_) report_.bill += row.Money(bill_);
    }
    writer_.AddLine(kDetailLine);
    writer_.Value(kColumns.At("InterSort"), counter_);
    writer_.Copy(kColumns.At("Particulars"), row, item_);
    writer_.Copy(kColumns.At("ItemNameSort"), row, item_);
    writer_.Copy(kColumns.At("ParticularsSort"), row, mechanic_);
    writer_.Copy(kColumns.At("Mechanic_ID"), row, mechanic_id_);
    writer_.Copy(kColumns.At("Item_ID"), row, item_id_);
    if (by_vehicle_) {
      writer_.MoneyOrBlank(TwinnedColumn{kColumns.At("Bill"), kColumns.At("BillSort")}, row[bill_]);
      report_.bill += row.Money(bill_);
    }
    if (!row.IsNull(labour_)) {
      writer_.MoneyOrBlank(TwinnedColumn{kColumns.At("LabourBill"), kColumns.At("LabourSort")},
                           row[labour_]);
      mechanic_sums_.labour += row.Money(labour_);
      report_.labour += row.Money(labour_);
    }
    // By item this adds the whole billing once for each item. That is meant.
    mechanic_sums_.bill += row.Money(bill_);
  }

  void CloseHeading() {
    if (!heading_) return;
    writer_.ReturnTo(*heading_);
    writer_.MoneyOrBlank(kColumns.At("TotalBill"), mechanic_sums_.bill);
    writer_.MoneyOrBlank(kColumns.At("TotalLabourBill"), mechanic_sums_.labour);
    mechanic_sums_ = {};
  }

  bool detailed_, by_vehicle_;
  ColumnHandle mechanic_id_, mechanic_, bill_, labour_, item_id_{}, item_{};
  ReportWriter writer_;
  std::optional<std::int64_t> in_hand_;
  std::optional<Bookmark> heading_;
  std::int64_t counter_ = 0;  // of InterSort: a mechanic, then what stands below it
  Sums mechanic_sums_, report_;
};

}  // namespace

RecordsetPtr mMechanicLabourReport(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<LabourArguments>();
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  Mechanics mechanics(frame, *source, arguments);
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { mechanics.Write(row); });
  return mechanics.Finish();
}

}  // namespace pstolvane1
