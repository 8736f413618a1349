#include "stock/StockColumns.h"

#include <string_view>

namespace pstolvane1 {
namespace {

constexpr ReportLayout kItemTexts = {Display("ItemName"), Display("Godown")};
constexpr ReportLayout kGroupTexts = {Display("Particulars"), Display("Categoryname"),
                                      Display("Itemname")};
constexpr ReportLayout kFigures = {
    Display("QtyOp"),      Display("UomOp"),     Display("AltQtyOp"),    Display("AltUomOp"),
    Display("RateOp"),     Display("ValueOp"),   Display("QtyIn"),       Display("UomIn"),
    Display("AltQtyIn"),   Display("AltUomIn"),  Display("RateIn"),      Display("ValueIn"),
    Display("QtyOut"),     Display("UomOut"),    Display("AltQtyOut"),   Display("AltUomOut"),
    Display("RateOut"),    Display("ValueOut"),  Display("Consumption"), Display("GrossProfit"),
    Display("ProfitPerc"), Display("PerProfit"), Display("Balance"),     Display("Uom"),
    Display("AltQty"),     Display("AltUom"),    Display("Rate"),        Display("Value"),
};
constexpr ReportLayout kItemKeys = {Key("Item_Id", adBigInt), Key("Godown_Id", adBigInt),
                                    Key("Batch_Id", adBigInt)};
constexpr ReportLayout kGroupKeys = {Key("Category_Id", adBigInt), Key("Item_Id", adBigInt)};
constexpr ReportLayout kEnd = {
    Display("TotalValueOp"),      Display("TotalValueIn"),
    Display("TotalValueOut"),     Display("TotalValue"),
    Display("TotalConsumption"),  Display("TotalGrossProfit"),
    Display("TotalProfitPerc"),   Marker("GrpLine"),
    Marker("TotalLine"),          Marker("ParentName"),
    TextTwin("ParticularsSort"),  TextTwin("ItemNameSort"),
    QuantityTwin("QtyOpSort"),    QuantityTwin("AltQtyOpSort"),
    MoneyTwin("RateOpSort"),      MoneyTwin("ValueOpSort"),
    QuantityTwin("QtyInSort"),    QuantityTwin("AltQtyInSort"),
    MoneyTwin("RateInSort"),      MoneyTwin("ValueInSort"),
    QuantityTwin("QtyOutSort"),   QuantityTwin("AltQtyOutSort"),
    MoneyTwin("RateOutSort"),     MoneyTwin("ValueOutSort"),
    QuantityTwin("QtyClSort"),    QuantityTwin("AltQtyClSort"),
    MoneyTwin("RateClSort"),      MoneyTwin("ValueClSort"),
    MoneyTwin("GrossProfitSort"), MoneyTwin("ProfitSort"),
    MoneyTwin("ConsumSort"),      NumberTwin("DummySort"),
    Display("RecordNo"),
};

constexpr ReportLayout kItemLines = Join(kItemTexts, kFigures, kItemKeys, kEnd);
constexpr ReportLayout kGroupLines = Join(kGroupTexts, kFigures, kGroupKeys, kEnd);

// The closing side has names of its own.
struct SideNames {
  std::string_view quantity, unit, alt_quantity, alt_unit, rate, value, total_value;
  std::string_view quantity_sort, alt_quantity_sort, rate_sort, value_sort;
};
constexpr SideNames kOpening{"QtyOp",        "UomOp",      "AltQtyOp",     "AltUomOp",
                             "RateOp",       "ValueOp",    "TotalValueOp", "QtyOpSort",
                             "AltQtyOpSort", "RateOpSort", "ValueOpSort"};
constexpr SideNames kInwards{"QtyIn",        "UomIn",      "AltQtyIn",     "AltUomIn",
                             "RateIn",       "ValueIn",    "TotalValueIn", "QtyInSort",
                             "AltQtyInSort", "RateInSort", "ValueInSort"};
constexpr SideNames kOutwards{"QtyOut",        "UomOut",      "AltQtyOut",     "AltUomOut",
                              "RateOut",       "ValueOut",    "TotalValueOut", "QtyOutSort",
                              "AltQtyOutSort", "RateOutSort", "ValueOutSort"};
constexpr SideNames kClosing{"Balance",      "Uom",        "AltQty",     "AltUom",
                             "Rate",         "Value",      "TotalValue", "QtyClSort",
                             "AltQtyClSort", "RateClSort", "ValueClSort"};

template <typename Layout>
consteval StockSideColumns Side(const Layout& layout, const SideNames& names) {
  return {.quantity = layout.At(names.quantity),
          .unit = layout.At(names.unit),
          .alt_quantity = layout.At(names.alt_quantity),
          .alt_unit = layout.At(names.alt_unit),
          .rate = layout.At(names.rate),
          .value = layout.At(names.value),
          .total_value = layout.At(names.total_value),
          .quantity_sort = layout.At(names.quantity_sort),
          .alt_quantity_sort = layout.At(names.alt_quantity_sort),
          .rate_sort = layout.At(names.rate_sort),
          .value_sort = layout.At(names.value_sort)};
}

// What both shapes have.
template <typename Layout>
consteval StockColumns Common(const Layout& layout) {
  return {.first = ColumnHandle{0},
          .item_name = layout.At("ItemName"),
          .opening = Side(layout, kOpening),
          .inwards = Side(layout, kInwards),
          .outwards = Side(layout, kOutwards),
          .closing = Side(layout, kClosing),
          .gross_profit = layout.At("GrossProfit"),
          .consumption = layout.At("Consumption"),
          .profit_percent = layout.At("ProfitPerc"),
          .profit_per_unit = layout.At("PerProfit"),
          .total_gross_profit = layout.At("TotalGrossProfit"),
          .total_consumption = layout.At("TotalConsumption"),
          .total_profit_percent = layout.At("TotalProfitPerc"),
          .item_id = layout.At("Item_Id"),
          .group_line = layout.At("GrpLine"),
          .total_line = layout.At("TotalLine"),
          .parent_name = layout.At("ParentName"),
          .first_sort = layout.At("ParticularsSort"),
          .gross_profit_sort = layout.At("GrossProfitSort"),
          .profit_sort = layout.At("ProfitSort"),
          .consumption_sort = layout.At("ConsumSort")};
}

consteval StockColumns ItemColumns() {
  StockColumns columns = Common(kItemLines);
  columns.godown = kItemLines.At("Godown");
  columns.godown_id = kItemLines.At("Godown_Id");
  columns.batch_id = kItemLines.At("Batch_Id");
  return columns;
}

consteval StockColumns GroupColumns() {
  StockColumns columns = Common(kGroupLines);
  columns.category_name = kGroupLines.At("Categoryname");
  columns.category_id = kGroupLines.At("Category_Id");
  return columns;
}

constexpr StockColumns kItemColumns = ItemColumns();
constexpr StockColumns kGroupColumns = GroupColumns();

}  // namespace

std::span<const ReportColumn> mStock_Columns(bool blnItemLines) {
  if (blnItemLines) return kItemLines;
  return kGroupLines;
}

const StockColumns& StockColumnsOf(bool blnItemLines) {
  return blnItemLines ? kItemColumns : kGroupColumns;
}

}  // namespace pstolvane1
