#include <algorithm>
#include <array>
#include <iterator>

#include "bills/MultiplePriceList.h"
#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
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

struct PriceColumns {
  std::string_view source;
  TwinnedColumn shown;
};
constexpr PriceColumns kPrices[] = {
    {"Price1", kColumns.Twinned("Price")},  {"Price2", kColumns.Twinned("Price2")},
    {"Price3", kColumns.Twinned("Price3")}, {"Price4", kColumns.Twinned("Price4")},
    {"Price5", kColumns.Twinned("Price5")}, {"Price6", kColumns.Twinned("Price6")},
};

}  // namespace

RecordsetPtr mMultiplePriceList(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  const ColumnHandle name = source->Column("itemname");
  std::array<ColumnHandle, std::size(kPrices)> prices{};
  std::ranges::transform(kPrices, prices.begin(),
                         [&](const PriceColumns& price) { return source->Column(price.source); });

  ReportWriter writer(kColumns, StyleOf(frame));
  std::int32_t number = 0;
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) {
    writer.AddLine(1);
    writer.Value(kColumns.Twinned("SrNo"), ++number);
    writer.Copy(kColumns.Twinned("ItemName"), row, name);
    for (std::size_t i = 0; i < prices.size(); ++i) {
      // The twin holds the text as well, so that the list sorts by it; that is meant.
      writer.Text(kPrices[i].shown, writer.MoneyText(row[prices[i]]));
    }
    writer.EndLine();
  });

  return writer.Finish();
}

}  // namespace pstolvane1
