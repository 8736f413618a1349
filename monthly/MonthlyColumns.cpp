#include "monthly/MonthlyColumns.h"

#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kMonth = {Display("Month")};
constexpr ReportLayout kIn = {Display("QtyIn"), Display("UomIn")};
constexpr ReportLayout kAltIn = {Display("AltQtyIn"), Display("AltUomIn")};
constexpr ReportLayout kInValue = {Display("QtyInValue")};
constexpr ReportLayout kOut = {Display("QtyOut"), Display("UomOut")};
constexpr ReportLayout kAltOut = {Display("AltQtyOut"), Display("AltUomOut")};
constexpr ReportLayout kOutValue = {Display("QtyOutValue")};
constexpr ReportLayout kClosing = {Display("QtyClosing"), Display("UomClosing")};
constexpr ReportLayout kAltClosing = {Display("AltQtyClosing"), Display("AltUomClosing")};
constexpr ReportLayout kEnd = {
    Display("QtyClosingValue"),
    Display("Consumption"),
    Display("GrossProfit"),
    Display("PerProfit"),
    Display("ProfitPerc"),
    Key("Month_Id"),
    Key("Year_Id"),
    Key("Inc_Id"),
    Display("TotalQtyIn"),
    Display("TotalUomIn"),
    Display("TotalQtyInValue"),
    Display("TotalQtyOut"),
    Display("TotalUomOut"),
    Display("TotalQtyOutValue"),
    Display("TotalQtyClosing"),
    Display("TotalUomClosing"),
    Display("TotalQtyClosingValue"),
    ReportColumn{"QtyInC", adSingle},
    ReportColumn{"QtyOutC", adSingle},
    ReportColumn{"QtyBalC", adSingle},
    ReportColumn{"QtyInValueC", adCurrency},
    ReportColumn{"QtyOutValueC", adCurrency},
    ReportColumn{"QtyBalValueC", adCurrency},
    ReportColumn{"ValueOpening", adCurrency},
    Display("TotalConsumption"),
    Display("TotalGrossProfit"),
    Display("TotalPerProfit"),
    Display("TotalProfitPerc"),
};

constexpr ReportLayout kPlain = Join(kMonth, kIn, kInValue, kOut, kOutValue, kClosing, kEnd);
constexpr ReportLayout kWithAlternate =
    Join(kMonth, kIn, kAltIn, kInValue, kOut, kAltOut, kOutValue, kClosing, kAltClosing, kEnd);

struct SideNames {
  std::string_view quantity, unit, alt_quantity, alt_unit, value;
  std::string_view total_quantity, total_unit, total_value, raw_quantity, raw_value;
};
constexpr SideNames kInNames{"QtyIn",      "UomIn",      "AltQtyIn",   "AltUomIn",
                             "QtyInValue", "TotalQtyIn", "TotalUomIn", "TotalQtyInValue",
                             "QtyInC",     "QtyInValueC"};
constexpr SideNames kOutNames{"QtyOut",      "UomOut",      "AltQtyOut",   "AltUomOut",
                              "QtyOutValue", "TotalQtyOut", "TotalUomOut", "TotalQtyOutValue",
                              "QtyOutC",     "QtyOutValueC"};
constexpr SideNames kClosingNames{"QtyClosing",      "UomClosing",           "AltQtyClosing",
                                  "AltUomClosing",   "QtyClosingValue",      "TotalQtyClosing",
                                  "TotalUomClosing", "TotalQtyClosingValue", "QtyBalC",
                                  "QtyBalValueC"};

template <typename Layout>
consteval MonthSideColumns Side(const Layout& layout, const SideNames& names, bool alternate) {
  return {.quantity = layout.At(names.quantity),
          .unit = layout.At(names.unit),
          .alt_quantity = alternate ? layout.At(names.alt_quantity) : Target::kNone,
          .alt_unit = alternate ? layout.At(names.alt_unit) : Target::kNone,
          .value = layout.At(names.value),
          .total_quantity = layout.At(names.total_quantity),
          .total_unit = layout.At(names.total_unit),
          .total_value = layout.At(names.total_value),
          .raw_quantity = layout.At(names.raw_quantity),
          .raw_value = layout.At(names.raw_value)};
}

template <typename Layout>
consteval MonthlyColumns Columns(const Layout& layout, bool alternate) {
  return {.month = layout.At("Month"),
          .month_id = layout.At("Month_Id"),
          .year_id = layout.At("Year_Id"),
          .inc_id = layout.At("Inc_Id"),
          .value_opening = layout.At("ValueOpening"),
          .inwards = Side(layout, kInNames, alternate),
          .outwards = Side(layout, kOutNames, alternate),
          .closing = Side(layout, kClosingNames, alternate),
          .profit = {.consumption = layout.At("Consumption"),
                     .gross_profit = layout.At("GrossProfit"),
                     .per_unit = layout.At("PerProfit"),
                     .percent = layout.At("ProfitPerc")},
          .total_profit = {.consumption = layout.At("TotalConsumption"),
                           .gross_profit = layout.At("TotalGrossProfit"),
                           .per_unit = layout.At("TotalPerProfit"),
                           .percent = layout.At("TotalProfitPerc")}};
}

constexpr MonthlyColumns kPlainColumns = Columns(kPlain, false);
constexpr MonthlyColumns kColumnsWithAlternate = Columns(kWithAlternate, true);

}  // namespace

std::span<const ReportColumn> CreateMonthlyGrid(bool blnAltUom) {
  if (blnAltUom) return kWithAlternate;
  return kPlain;
}

const MonthlyColumns& MonthlyColumnsOf(bool blnAltUom) {
  return blnAltUom ? kColumnsWithAlternate : kPlainColumns;
}

}  // namespace pstolvane1
