#include <array>

#include "automation/Families.h"
#include "session/ValuationReports.h"

namespace pstolvane1::automation {
namespace {

// The signatures differ in what the first id leads to, and an item statement reads neither it nor
// the flag that belongs to it.
constexpr std::array<Argument, 16> Arguments(const Argument& any_id1, std::string_view only_items) {
  return {kYear,
          kFrom,
          kTo,
          OneOf("ValuationMethod", kValuationMethod,
                "How stock is valued; CurrentRate gives an empty result."),
          any_id1,
          Int32("lngAny_Id2", kNotUsed),
          kReport,
          Flag("blnDetailed", "A line for each godown and batch as well."),
          Flag("blnAltUom", "Fill the columns of the alternate unit."),
          kScale,
          Flag("blnOnlyItems", only_items),
          Flag("blnShowOpening", kNotUsed),
          Flag("blnShowInwards", kNotUsed),
          Flag("blnShowOutwards", kNotUsed),
          kConsider.Optional(),
          kStates.Optional()};
}

constexpr std::string_view kTree = "The group whose tree is listed, -1 for all.";
constexpr std::string_view kAlone = "The named group alone, not its tree.";

constexpr auto kItem = Arguments(Int32("lngAny_Id1", kNotUsed), kNotUsed);
constexpr auto kCategory =
    Arguments(Int32("lngAny_Id1", kTree).Of(kCategories).OrAll("-1"), kAlone);
constexpr auto kClass = Arguments(Int32("lngAny_Id1", kTree).Of(kClasses).OrAll("-1"), kAlone);
constexpr auto kGodown = Arguments(Int32("lngAny_Id1", kTree).Of(kGodowns).OrAll("-1"), kAlone);

template <StockTree tree>
constexpr auto kStockTypes = TypesByMethod([](enmValuationMethod method) {
  return StockReportType(method, tree);
});

constexpr SortRule kByLine = ByNumber(kByNumberBeforeTotalLine).Together("ParticularsSort");
constexpr SortRule kItemSorting[] = {ByClass(SortedWhen::kSummaryOfLayers), kByLine};
constexpr SortRule kGroupSorting[] = {kByLine};

template <auto member>
constexpr Operation Statement(std::string_view name, std::string_view help,
                              std::span<const Argument> arguments,
                              std::span<const ReportTypeRule> types) {
  return {name,      kCallOf<member>,   "stock", LaunchKind::kFetch, ReturnKind::kRowset, help,
          arguments, "ValuationMethod", types};
}

constexpr Operation kStockOperations[] = {
    Statement<&clsStolvane1::StockDetails_Itemwise>(
        "StockDetails_Itemwise", "Opening, inwards, outwards and closing stock by item.", kItem,
        kStockTypes<StockTree::kItem>)
        .Titled("Stock by item")
        .Sorted(kItemSorting),
    Statement<&clsStolvane1::StockDetails_Categorywise>(
        "StockDetails_Categorywise",
        "Opening, inwards, outwards and closing stock by item category.", kCategory,
        kStockTypes<StockTree::kCategory>)
        .Titled("Stock by item category")
        .Sorted(kGroupSorting),
    Statement<&clsStolvane1::StockDetails_Classwise>(
        "StockDetails_Classwise", "Opening, inwards, outwards and closing stock by item class.",
        kClass, kStockTypes<StockTree::kClass>)
        .Titled("Stock by item class")
        .Sorted(kGroupSorting),
    Statement<&clsStolvane1::StockDetails_Godownwise>(
        "StockDetails_Godownwise", "Opening, inwards, outwards and closing stock by godown.",
        kGodown, kStockTypes<StockTree::kGodown>)
        .Titled("Stock by godown")
        .Sorted(kGroupSorting),
};

}  // namespace

std::span<const Operation> StockOperations() { return kStockOperations; }

}  // namespace pstolvane1::automation
