#include <algorithm>
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

consteval ColumnHandle At(std::string_view name) { return PlaceOf(kColumns, name); }

struct Price {
  std::string_view source;
  ColumnHandle shown, twin;
};
constexpr std::array<Price, 6> kPrices = {{
    {"Price1", At("Price"), At("PriceSort")},
    {"Price2", At("Price2"), At("Price2Sort")},
    {"Price3", At("Price3"), At("Price3Sort")},
    {"Price4", At("Price4"), At("Price4Sort")},
    {"Price5", At("Price5"), At("Price5Sort")},
    {"Price6", At("Price6"), At("Price6Sort")},
}};

}  // namespace

RecordsetPtr mMultiplePriceList(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  const ColumnHandle name = source->Column("itemname");
  std::array<ColumnHandle, kPrices.size()> prices{};
  std::ranges::transform(kPrices, prices.begin(),
                         [&](const Price& price) { return source->Column(price.source); });

  ReportWriter writer(kColumns);
  std::int32_t number = 0;
  ForEachSourceRow(frame, *source, [&] {
    writer.AddLine(1);
    writer.Value(At("SrNo"), ++number);
    writer.Value(At("SrNoSort"), number);
    writer.Value(At("ItemName"), source->Value(name));
    writer.Value(At("itemnameSort"), source->Value(name));
    for (std::size_t i = 0; i < kPrices.size(); ++i) {
      const std::string text = FormatCurrencyText(frame.Texts(), source->Value(prices[i]));
      writer.Text(kPrices[i].shown, text);
      writer.Text(kPrices[i].twin, text);
    }
    writer.EndLine();
  });

  const RecordsetPtr filled = writer.Finish();
  RecordsetPtr report = filled->Clone(adLockUnspecified);
  filled->Close();
  return report;
}

}  // namespace pstolvane1
