#include "stock/StockColumns.h"

#include <string_view>
#include <vector>

#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportColumn kItemTexts[] = {Display("ItemName"), Display("Godown")};
constexpr ReportColumn kGroupTexts[] = {Display("Particulars"), Display("Categoryname"),
                                        Display("Itemname")};
constexpr ReportColumn kFigures[] = {
    Display("QtyOp"),      Display("UomOp"),     Display("AltQtyOp"),    Display("AltUomOp"),
    Display("RateOp"),     Display("ValueOp"),   Display("QtyIn"),       Display("UomIn"),
    Display("AltQtyIn"),   Display("AltUomIn"),  Display("RateIn"),      Display("ValueIn"),
    Display("QtyOut"),     Display("UomOut"),    Display("AltQtyOut"),   Display("AltUomOut"),
    Display("RateOut"),    Display("ValueOut"),  Display("Consumption"), Display("GrossProfit"),
    Display("ProfitPerc"), Display("PerProfit"), Display("Balance"),     Display("Uom"),
    Display("AltQty"),     Display("AltUom"),    Display("Rate"),        Display("Value"),
};
constexpr ReportColumn kItemKeys[] = {Key("Item_Id", adBigInt), Key("Godown_Id", adBigInt),
                                      Key("Batch_Id", adBigInt)};
constexpr ReportColumn kGroupKeys[] = {Key("Category_Id", adBigInt), Key("Item_Id", adBigInt)};
constexpr ReportColumn kEnd[] = {
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

std::vector<ReportColumn> Layout(std::span<const ReportColumn> texts,
                                 std::span<const ReportColumn> keys) {
  std::vector<ReportColumn> columns;
  for (const auto part : {texts, std::span<const ReportColumn>(kFigures), keys,
                          std::span<const ReportColumn>(kEnd)}) {
    columns.insert(columns.end(), part.begin(), part.end());
  }
  return columns;
}

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

StockSideColumns Side(const ReportWriter& writer, const SideNames& names) {
  return {.quantity = writer.Column(names.quantity),
          .unit = writer.Column(names.unit),
          .alt_quantity = writer.Column(names.alt_quantity),
          .alt_unit = writer.Column(names.alt_unit),
          .rate = writer.Column(names.rate),
          .value = writer.Column(names.value),
          .total_value = writer.Column(names.total_value),
          .quantity_sort = writer.Column(names.quantity_sort),
          .alt_quantity_sort = writer.Column(names.alt_quantity_sort),
          .rate_sort = writer.Column(names.rate_sort),
          .value_sort = writer.Column(names.value_sort)};
}

}  // namespace

std::span<const ReportColumn> mStock_Columns(bool blnItemLines) {
  static const std::vector<ReportColumn> items = Layout(kItemTexts, kItemKeys);
  static const std::vector<ReportColumn> groups = Layout(kGroupTexts, kGroupKeys);
  return blnItemLines ? items : groups;
}

StockColumns::StockColumns(const ReportWriter& writer, bool blnItemLines)
    : first(writer.Column(blnItemLines ? "ItemName" : "Particulars")),
      item_name(writer.Column("ItemName")),
      opening(Side(writer, kOpening)),
      inwards(Side(writer, kInwards)),
      outwards(Side(writer, kOutwards)),
      closing(Side(writer, kClosing)),
      gross_profit(writer.Column("GrossProfit")),
      consumption(writer.Column("Consumption")),
      profit_percent(writer.Column("ProfitPerc")),
      profit_per_unit(writer.Column("PerProfit")),
      total_gross_profit(writer.Column("TotalGrossProfit")),
      total_consumption(writer.Column("TotalConsumption")),
      total_profit_percent(writer.Column("TotalProfitPerc")),
      item_id(writer.Column("Item_Id")),
      group_line(writer.Column("GrpLine")),
      total_line(writer.Column("TotalLine")),
      parent_name(writer.Column("ParentName")),
      first_sort(writer.Column("ParticularsSort")),
      gross_profit_sort(writer.Column("GrossProfitSort")),
      profit_sort(writer.Column("ProfitSort")),
      consumption_sort(writer.Column("ConsumSort")) {
  if (blnItemLines) {
    godown = writer.Column("Godown");
    godown_id = writer.Column("Godown_Id");
    batch_id = writer.Column("Batch_Id");
  } else {
    category_name = writer.Column("Categoryname");
    category_id = writer.Column("Category_Id");
  }
}

}  // namespace pstolvane1
