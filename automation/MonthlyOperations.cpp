#include <array>

#include "automation/Families.h"
#include "session/ValuationReports.h"

namespace pstolvane1::automation {
namespace {

constexpr std::string_view kOnlyItems =
    "The named group alone, without the groups directly under it; layers always take it alone.";

// The five signatures differ in what two ids and a flag mean.
constexpr std::array<Argument, 14> Arguments(const Argument& any_id1, const Argument& any_id2,
                                             std::string_view only_items) {
  return {
      kYear,
      kFrom,
      kTo,
      OneOf("ValuationMethod", kValuationMethod,
            "How stock is valued; CurrentRate gives an empty result."),
      any_id1,
      any_id2,
      kReport,
      Flag("blnDetailed", kNotUsed),
      Flag("blnAltUom", "Fill the columns of the alternate unit."),
      kScale,
      Flag("blnOnlyItems", only_items),
      Flag("blnShowOpening", kNotUsed),
      Flag("blnShowInwards", kNotUsed),
      Flag("blnShowOutwards", kNotUsed),
  };
}

constexpr Argument kTheItem = Int32("lngAny_Id1", "The item.").Of(kItems);
constexpr Argument kNoSecond = Int32("lngAny_Id2", kNotUsed);

constexpr auto kItem = Arguments(kTheItem, kNoSecond, kNotUsed);
constexpr NamesWhen kFromBatches[] = {{{}, {}, &kBatches}};
constexpr auto kGodownItem = And(
    Arguments(kTheItem, Int32("lngAny_Id2", "The godown.").Of(kGodowns), kNotUsed),
    Int32("lngBatch_id", "The batch; 0 is all.").PickedFrom(kFromBatches).OrAll("0").Optional());
constexpr auto Group(std::string_view help, const Master& groups) {
  return Arguments(Int32("lngAny_Id1", help).Of(groups), kNoSecond, kOnlyItems);
}
constexpr auto kCategory = Group("The category.", kCategories);
constexpr auto kClass = Group("The class.", kClasses);
constexpr auto kGodown = Group("The godown.", kGodowns);

template <MonthlyTree tree>
constexpr auto kMonthlyTypes = TypesByMethod([](enmValuationMethod method) {
  return MonthlyReportType(method, tree);
});

template <auto member>
constexpr Operation Ledger(std::string_view name, std::string_view help,
                           std::span<const Argument> arguments,
                           std::span<const ReportTypeRule> types) {
  return {name,      kCallOf<member>,   "monthly", LaunchKind::kFetch, ReturnKind::kRowset, help,
          arguments, "ValuationMethod", types};
}

constexpr Operation kMonthlyOperations[] = {
    Ledger<&clsStolvane1::Monthly_Itemwise>("Monthly_Itemwise", "One item month by month.", kItem,
                                            kMonthlyTypes<MonthlyTree::kItem>)
        .Titled("Stock of an item month by month"),
    Ledger<&clsStolvane1::Monthly_Categorywise>("Monthly_Categorywise",
                                                "The items of one category month by month.",
                                                kCategory, kMonthlyTypes<MonthlyTree::kCategory>)
        .Titled("Stock of an item category month by month"),
    Ledger<&clsStolvane1::Monthly_Classwise>("Monthly_Classwise",
                                             "The items of one class month by month.", kClass,
                                             kMonthlyTypes<MonthlyTree::kClass>)
        .Titled("Stock of an item class month by month"),
    Ledger<&clsStolvane1::Monthly_Godownwise>("Monthly_Godownwise",
                                              "The items of one godown month by month.", kGodown,
                                              kMonthlyTypes<MonthlyTree::kGodown>)
        .Titled("Stock of a godown month by month"),
    Ledger<&clsStolvane1::Monthly_GodownItemwise>(
        "Monthly_GodownItemwise", "One item in one godown month by month.", kGodownItem,
        kMonthlyTypes<MonthlyTree::kGodownItem>)
        .Titled("Stock of an item in a godown month by month"),
};

}  // namespace

std::span<const Operation> MonthlyOperations() { return kMonthlyOperations; }

}  // namespace pstolvane1::automation
