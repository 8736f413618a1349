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

enum LineClass { kDetailLine = 1, kRuleLine = 2, kTotalLine = 3 };

}  // namespace

RecordsetPtr mDoc_Initial(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport)->Clone(adLockUnspecified);
  const ColumnHandle name = source->Column("Ledgername");
  const ColumnHandle id = source->Column("Ledger_id");
  const ColumnHandle amount = source->Column("Amount");

  ReportWriter writer(kColumns, frame.Texts());
  Currency total;
  ForEachSourceRow(frame, *source, [&] {
    writer.AddLine(kDetailLine);
    writer.Value(kColumns.Twinned("Ledger"), source->Value(name));
    writer.Value(kColumns.At("Ledger_Id"), source->Value(id));
    writer.Money(kColumns.Twinned("Amount"), source->Value(amount));
    writer.EndLine();
    total += source->Value(amount).ToCurrency();
  });

  const std::string rule = RuleText(90);
  writer.AddLine(kRuleLine);
  writer.Text(kColumns.At("TotalLine"), rule);
  writer.AddLine(kTotalLine);
  writer.Text(kColumns.At("Ledger"), "Total");
  writer.Money(kColumns.At("Amount"), total);
  writer.Text(kColumns.At("TotalLine"), rule);
  return writer.Finish();
}

}  // namespace pstolvane1
