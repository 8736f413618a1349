#include "automation/Families.h"
#include "session/ValuationReports.h"

namespace pstolvane1::automation {
namespace {

// One signature serves the four statements.
constexpr Argument kArguments[] = {
    kYear,
    kFrom,
    kTo,
    OneOf("ValuationMethod", kValuationMethod,
          "How stock is valued; CurrentRate gives an empty result."),
    Int32("lngAny_Id1", "The group whose tree is listed, -1 for all; not used item by item."),
    Int32("lngAny_Id2", kNotUsed),
    kReport,
    Flag("blnDetailed", "A line for each godown and batch as well."),
    Flag("blnAltUom", "Fill the columns of the alternate unit."),
    kScale,
    Flag("blnOnlyItems", "The named group alone, not its tree; not used item by item."),
    Flag("blnShowOpening", kNotUsed),
    Flag("blnShowInwards", kNotUsed),
    Flag("blnShowOutwards", kNotUsed),
    kConsider.Optional(),
    kStates.Optional(),
};

template <StockTree tree>
constexpr auto kStockTypes = TypesByMethod([](enmValuationMethod method) {
  return StockReportType(method, tree);
});

constexpr Operation Statement(std::string_view name, std::string_view help,
                              std::span<const ReportTypeRule> types) {
  return {name, "stock",    LaunchKind::kFetch, ReturnKind::kRowset,
          help, kArguments, "ValuationMethod",  types};
}

constexpr Operation kStockOperations[] = {
    Statement("StockDetails_Itemwise", "Opening, inwards, outwards and closing stock by item.",
              kStockTypes<StockTree::kItem>),
    Statement("StockDetails_Categorywise", "The same under the tree of item categories.",
              kStockTypes<StockTree::kCategory>),
    Statement("StockDetails_Classwise", "The same under the tree of item classes.",
              kStockTypes<StockTree::kClass>),
    Statement("StockDetails_Godownwise", "The same under the tree of godowns.",
              kStockTypes<StockTree::kGodown>),
};

}  // namespace

std::span<const Operation> StockOperations() { return kStockOperations; }

}  // namespace pstolvane1::automation
