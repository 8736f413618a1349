#include "analysis/Doc_Initial.h"
#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("Ledger"),       Display("Amount"),      Key("Ledger_Id"),
    Marker("TotalLine"),     TextTwin("LedgerSort"), MoneyTextTwin("AmountSort"),
    NumberTwin("DummySort"),
};

constexpr RuleColumn kRule = kColumns.Rule("TotalLine", 90);

enum LineClass { kDetailLine = 1, kRuleLine = 2, kTotalLine = 3 };

}  // namespace

RecordsetPtr mDoc_Initial(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  const ColumnHandle name = source->Column("Ledgername");
  const ColumnHandle id = source->Column("Ledger_id");
  const ColumnHandle amount = source->Column("Amount");

  ReportWriter writer(kColumns, StyleOf(frame));
  Currency total;
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) {
    writer.AddLine(kDetailLine);
    writer.Copy(kColumns.Twinned("Ledger"), row, name);
    writer.Copy(kColumns.At("Ledger_Id"), row, id);
    writer.Money(kColumns.Twinned("Amount"), row[amount]);
    writer.EndLine();
    total += row.Money(amount);
  });

  writer.AddRuleLine(kRule, kRuleLine);
  writer.AddTotalLine(kColumns.At("Ledger"), kRule, kTotalLine);
  writer.Money(kColumns.At("Amount"), total);
  return writer.Finish();
}

}  // namespace pstolvane1
