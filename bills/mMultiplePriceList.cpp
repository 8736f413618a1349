#include <array>

#include "bills/MultiplePriceList.h"
#include "session/RowLoop.h"
#include "session/rowset/DisplayText.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportColumn kColumns[] = {
    Key("SrNo"),
    Display("ItemName"),
    Display("Categoryname"),
    Display("Classname"),
    Display("partno"),
    Key("Item_Id"),
    Display("Price"),
    Display("Price2"),
    Display("Price3"),
    Display("Price4"),
    Display("Price5"),
    Display("Price6"),
    Display("Format"),
    TextTwin("SrNoSort"),
    TextTwin("itemnameSort"),
    TextTwin("CategoryNameSort"),
    TextTwin("ClassNameSort"),
    TextTwin("PartNoSort"),
    MoneyTextTwin("PriceSOrt"),
    MoneyTextTwin("Price2SOrt"),
    MoneyTextTwin("Price3SOrt"),
    MoneyTextTwin("Price4SOrt"),
    MoneyTextTwin("Price5SOrt"),
    MoneyTextTwin("Price6SOrt"),
    NumberTwin("DummySort"),
};

struct Price {
  ColumnHandle source, shown, twin;
};

std::array<Price, 6> PricesOf(const Recordset& source, const ReportWriter& writer) {
  std::array<Price, 6> prices{};
  for (std::size_t i = 0; i < prices.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    const std::string name = i == 0 ? "Price" : "Price" + number;
    prices[i] = {source.Column("Price" + number), writer.Column(name),
                 writer.Column(name + "Sort")};
  }
  return prices;
}

}  // namespace

RecordsetPtr mMultiplePriceList(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  const ColumnHandle name = source->Column("itemname");

  ReportWriter writer(kColumns);
  const std::array<Price, 6> prices = PricesOf(*source, writer);
  const ColumnHandle number = writer.Column("SrNo");
  const ColumnHandle number_sort = writer.Column("SrNoSort");
  const ColumnHandle item = writer.Column("ItemName");
  const ColumnHandle item_sort = writer.Column("itemnameSort");

  std::int32_t line = 0;
  ForEachSourceRow(frame, *source, [&] {
    writer.AddLine(1);
    writer.Value(number, ++line);
    writer.Value(number_sort, line);
    writer.Value(item, source->Value(name));
    writer.Value(item_sort, source->Value(name));
    for (const Price& price : prices) {
      const std::string text = FormatCurrencyText(frame.Texts(), source->Value(price.source));
      writer.Text(price.shown, text);
      writer.Text(price.twin, text);
    }
    writer.EndLine();
  });

  const RecordsetPtr filled = writer.Finish();
  RecordsetPtr report = filled->Clone(adLockUnspecified);
  filled->Close();
  return report;
}

}  // namespace pstolvane1
