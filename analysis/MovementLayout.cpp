#include "analysis/MovementLayout.h"

#include <algorithm>

namespace pstolvane1 {
namespace {

template <std::size_t kFirst, std::size_t... kMore>
consteval auto Joined(const std::array<ReportColumn, kFirst>& first,
                      const std::array<ReportColumn, kMore>&... more) {
  ReportLayout<kFirst + (kMore + ...)> joined{};
  auto place = std::copy(first.begin(), first.end(), joined.columns.begin());
  ((place = std::copy(more.begin(), more.end(), place)), ...);
  return joined;
}

constexpr auto kShown = std::to_array<ReportColumn>({
    Display("Particulars"),
    Display("Ledgername"),
    Display("Itemname"),
    Display("Parent"),
    Display("Child"),
    Display("Date"),
    Display("QtyIn"),
    Display("QtyInUom"),
    Display("RateIn"),
    Display("ValueIn"),
    Display("QtyOut"),
    Display("QtyOutUom"),
    Display("RateOut"),
    Display("ValueOut"),
    Display("Balance"),
    Display("Average"),
    Display("RetPerc"),
    Display("GrpQtyIn"),
    Display("GrpValueIn"),
    Display("GrpQtyOut"),
    Display("GrpValueOut"),
    Display("GrpBalance"),
    Display("GrpAverage"),
    Display("GrpRetPerc"),
    Key("Item_Id", adBigInt),
    Key("Ledger_Id", adBigInt),
    Display("Parentname"),
    Display("Total"),
    Display("TotalQtyIn"),
    Display("TotalValueIn"),
    Display("TotalQtyOut"),
    Display("TotalValueOut"),
    Display("TotalBalance"),
    Display("TotalAverage"),
    Display("TotalRetPerc"),
    Marker("Line"),
    Display("IDPar"),
    Display("IDChild"),
    Display("Par"),
    TextTwin("ParticularsSort"),
    QuantityTwin("QtyInSort"),
    QuantityTwin("QtyOutSort"),
    QuantityTwin("BalanceSort"),
    QuantityTwin("AverageSort"),
    QuantityTwin("RetPercSort"),
    MoneyTwin("ValueSort"),
    NumberTwin("DummySort"),
});
// The twin of a line's name, which sales do not let be Null.
constexpr auto kNameTwin = std::to_array<ReportColumn>({TextTwin("Particulars1Sort")});
constexpr auto kNameTwinOfSales =
    std::to_array<ReportColumn>({{"Particulars1Sort", adVarChar, 255, adFldDefault}});
constexpr auto kSecondTwins = std::to_array<ReportColumn>({
    QuantityTwin("QtyIn1Sort"),
    QuantityTwin("QtyOut1Sort"),
    QuantityTwin("Balance1Sort"),
    QuantityTwin("Average1Sort"),
    QuantityTwin("RetPerc1Sort"),
    MoneyTwin("Value1Sort"),
});
constexpr auto kArea = std::to_array<ReportColumn>({
    Display("AreaName"),
    Display("GrpQtyInArea"),
    Display("GrpValueInArea"),
    Display("GrpQtyOutArea"),
    Display("GrpValueOutArea"),
    Display("GrpRetPercArea"),
    Display("GrpBalanceArea"),
    Display("GrpAverageArea"),
});
constexpr auto kAreaTwin = std::to_array<ReportColumn>({TextTwin("AreaNameSort")});
constexpr auto kValues = std::to_array<ReportColumn>({
    Display("Value"),
    Display("GrpValue"),
    Display("GrpValueArea"),
    Display("TotalValue"),
});
constexpr auto kRelation =
    std::to_array<ReportColumn>({Key("ItemRow", adBigInt), Key("Group_id", adBigInt)});

constexpr auto kSales = Joined(kShown, kNameTwinOfSales, kSecondTwins, kArea, kAreaTwin, kValues);
constexpr auto kPurchases = Joined(kShown, kNameTwin, kSecondTwins, kArea, kValues, kAreaTwin);
constexpr auto kRelated = Joined(kShown, kNameTwinOfSales, kSecondTwins, kArea, kValues, kRelation);

template <std::size_t kCount>
consteval MovementColumns ColumnsOf(const ReportLayout<kCount>& layout) {
  return {
      .particulars = layout.At("Particulars"),
      .ledger_name = layout.At("Ledgername"),
      .item_name = layout.At("Itemname"),
      .parent = layout.At("Parent"),
      .child = layout.At("Child"),
      .line = {layout.At("QtyIn"), layout.At("ValueIn"), layout.At("QtyOut"), layout.At("ValueOut"),
               layout.At("Value"), layout.At("Balance"), layout.At("Average"),
               layout.At("RetPerc")},
      .group = {layout.At("GrpQtyIn"), layout.At("GrpValueIn"), layout.At("GrpQtyOut"),
                layout.At("GrpValueOut"), layout.At("GrpValue"), layout.At("GrpBalance"),
                layout.At("GrpAverage"), layout.At("GrpRetPerc")},
      .area = {layout.At("GrpQtyInArea"), layout.At("GrpValueInArea"), layout.At("GrpQtyOutArea"),
               layout.At("GrpValueOutArea"), layout.At("GrpValueArea"), layout.At("GrpBalanceArea"),
               layout.At("GrpAverageArea"), layout.At("GrpRetPercArea")},
      .report = {layout.At("TotalQtyIn"), layout.At("TotalValueIn"), layout.At("TotalQtyOut"),
                 layout.At("TotalValueOut"), layout.At("TotalValue"), layout.At("TotalBalance"),
                 layout.At("TotalAverage"), layout.At("TotalRetPerc")},
      .qty_in_unit = layout.At("QtyInUom"),
      .rate_in = layout.At("RateIn"),
      .qty_out_unit = layout.At("QtyOutUom"),
      .rate_out = layout.At("RateOut"),
      .item_id = layout.At("Item_Id"),
      .ledger_id = layout.At("Ledger_Id"),
      .parent_name = layout.At("Parentname"),
      .total = layout.At("Total"),
      .rule = layout.Rule("Line", 85),
      .id_parent = layout.At("IDPar"),
      .id_child = layout.At("IDChild"),
      .par = layout.At("Par"),
      .twins = {layout.At("ParticularsSort"), layout.At("QtyInSort"), layout.At("QtyOutSort"),
                layout.At("BalanceSort"), layout.At("AverageSort"), layout.At("RetPercSort"),
                layout.At("ValueSort")},
      .second_twins = {layout.At("Particulars1Sort"), layout.At("QtyIn1Sort"),
                       layout.At("QtyOut1Sort"), layout.At("Balance1Sort"),
                       layout.At("Average1Sort"), layout.At("RetPerc1Sort"),
                       layout.At("Value1Sort")},
      .area_name = layout.At("AreaName"),
  };
}

template <std::size_t kCount>
consteval MovementColumns WithAreas(const ReportLayout<kCount>& layout, MovementColumns columns) {
  columns.area_twin = layout.At("AreaNameSort");
  return columns;
}

template <std::size_t kCount>
consteval MovementColumns WithRelations(const ReportLayout<kCount>& layout,
                                        MovementColumns columns) {
  columns.item_row = layout.At("ItemRow");
  columns.group_id = layout.At("Group_id");
  return columns;
}

}  // namespace

const MovementLayout kSalesLayout = {kSales, WithAreas(kSales, ColumnsOf(kSales))};
const MovementLayout kPurchasesLayout = {kPurchases, WithAreas(kPurchases, ColumnsOf(kPurchases))};
const MovementLayout kItemRelationLayout = {kRelated, WithRelations(kRelated, ColumnsOf(kRelated))};

}  // namespace pstolvane1
