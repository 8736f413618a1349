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

consteval ColumnHandle At(std::string_view name) { return PlaceOf(kColumns, name); }

enum LineClass { kDetailLine = 1, kRuleLine = 2, kTotalLine = 3 };

}  // namespace

RecordsetPtr mDoc_Initial(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  const ColumnHandle name = source->Column("Ledgername");
  const ColumnHandle id = source->Column("Ledger_id");
  const ColumnHandle money = source->Column("Amount");

  ReportWriter writer(kColumns);
  Currency total;
  ForEachSourceRow(frame, *source, [&] {
    const Variant amount = source->Value(money);
    writer.AddLine(kDetailLine);
    writer.Value(At("Ledger"), source->Value(name));
    writer.Value(At("LedgerSort"), source->Value(name));
    writer.Value(At("Ledger_Id"), source->Value(id));
    writer.Text(At("Amount"), FormatCurrencyText(frame.Texts(), amount));
    writer.Value(At("AmountSort"), amount);
    writer.EndLine();
    total += amount.ToCurrency();
  });

  const std::string rule = RuleText(90);
  writer.AddLine(kRuleLine);
  writer.Text(At("TotalLine"), rule);
  writer.AddLine(kTotalLine);
  writer.Text(At("Ledger"), "Total");
  writer.Text(At("Amount"), FormatCurrencyText(frame.Texts(), total));
  writer.Text(At("TotalLine"), rule);
  return writer.Finish()->Clone(adLockUnspecified);
}

}  // namespace pstolvane1
