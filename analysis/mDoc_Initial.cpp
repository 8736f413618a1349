#include "analysis/Doc_Initial.h"
#include "session/RowLoop.h"
#include "session/rowset/DisplayText.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportColumn kColumns[] = {
    Display("Ledger"),       Display("Amount"),      Key("Ledger_Id"),
    Marker("TotalLine"),     TextTwin("LedgerSort"), MoneyTextTwin("AmountSort"),
    NumberTwin("DummySort"),
};

enum LineClass { kDetailLine = 1, kRuleLine = 2, kTotalLine = 3 };

}  // namespace

RecordsetPtr mDoc_Initial(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  const ColumnHandle name = source->Column("Ledgername");
  const ColumnHandle id = source->Column("Ledger_id");
  const ColumnHandle money = source->Column("Amount");

  ReportWriter writer(kColumns);
  const ColumnHandle ledger = writer.Column("Ledger");
  const ColumnHandle ledger_sort = writer.Column("LedgerSort");
  const ColumnHandle ledger_id = writer.Column("Ledger_Id");
  const ColumnHandle amount = writer.Column("Amount");
  const ColumnHandle amount_sort = writer.Column("AmountSort");
  const ColumnHandle total_line = writer.Column("TotalLine");

  Currency total;
  ForEachSourceRow(frame, *source, [&] {
    writer.AddLine(kDetailLine);
    writer.Value(ledger, source->Value(name));
    writer.Value(ledger_sort, source->Value(name));
    writer.Value(ledger_id, source->Value(id));
    const Variant value = source->Value(money);
    writer.Text(amount, FormatCurrencyText(frame.Texts(), value));
    writer.Value(amount_sort, value);
    total += value.ToCurrency();
    writer.EndLine();
  });

  const std::string rule = RuleText(90);
  writer.AddLine(kRuleLine);
  writer.Text(total_line, rule);
  writer.AddLine(kTotalLine);
  writer.Text(ledger, "Total");
  writer.Text(amount, FormatCurrencyText(frame.Texts(), total));
  writer.Text(total_line, rule);
  return writer.Finish()->Clone(adLockUnspecified);
}

}  // namespace pstolvane1
