#include "session/RowLoop.h"
#include "vehicle/BillList.h"
#include "vehicle/HypoReportDaily.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("Date"),
    Display("Particulars"),
    Display("VhrType"),
    Display("RefNo"),
    Display("Buyer"),
    Display("RegistrationNumber"),
    Display("Amount"),
    Display("VehicleAmount"),
    Display("TotalAmount"),
    Display("TotalVehicleAmount"),
    DateTwin("DateSort"),
    TextTwin("ParticularsSort"),
    TextTwin("VhrTypeSort"),
    NumberTwin("RefNoSort"),
    TextTwin("PrefixSort"),
    TextTwin("SuffixSort"),
    TextTwin("BuyerSort"),
    TextTwin("RegistrationNumberSort"),
    MoneyTwin("AmountSort"),
    MoneyTwin("VehicleAmountSort"),
    NumberTwin("DummySort"),
    NumberTwin("InterSort"),
    TextTwin("HeadSort"),
    Key("Desr_Id", adBigInt),
    Key("Voucher_Id", adBigInt),
    Marker("Line"),
    Display("Total"),
    Key("RecordNo", adBigInt),
    Display("Optional"),
    Display("ItemName"),
    Display("Qty"),
    Display("Price"),
};

}  // namespace

RecordsetPtr mHypoReportDaily(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  const ColumnHandle registration = source->Column("registrationnumber");
  const ColumnHandle vehicles = source->Column("vehiclebill");
  ReportWriter writer(kColumns, PassingOverErrors(StyleOf(frame)));
  BillList bills(frame, *source, BillColumnsOf(kColumns), "ledgername");
  Currency vehicle_total;
  ForEachSourceRow(
      frame, *source,
      [&](const Recordset::Row& row) {
        if (!bills.IsNewBill(row)) return;
        bills.AddBill(writer, row);
        writer.Copy(kColumns.Twinned("RegistrationNumber"), row, registration);
        writer.Money(kColumns.Twinned("VehicleAmount"), row[vehicles]);
        AddTo(vehicle_total, row[vehicles], writer.Style());
      },
      40);

  // The layout has no TotalLine for a rule to stand in: its line is empty.
  writer.AddLine(BillList::kRule);
  writer.AddLine(BillList::kTotal);
  writer.Text(kColumns.At("Total"), "Total");
  writer.Money(kColumns.At("TotalAmount"), bills.Total());
  writer.Money(kColumns.At("TotalVehicleAmount"), vehicle_total);
  return writer.Finish();
}

}  // namespace pstolvane1
