#include "movements/RateQueries.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace pstolvane1 {
namespace {

constexpr std::string_view kInwards = "( isadded = -1 or isopeningbal = -1 ) and ";
constexpr std::string_view kBothSenses = "( isadded in (0,-1) or isopeningbal = -1 ) and ";
constexpr std::string_view kByYear =
    "godownitem1.yearno , godownitem1.date , godownitem1.item_id , godownitem1.godownitem_id";
constexpr std::string_view kByDay =
    "godownitem1.date , godownitem1.godownitem_id , godownitem1.item_id";

struct ActualRateTexts {
  enmValuationMethod method;
  std::string_view lines, vouchertypes, order;
  bool both_senses;
};

constexpr ActualRateTexts kActualRates[] = {
    {LastPurchaseRate, kInwards, "7,14,0", kByYear, false},
    {LastSaleRate, kBothSenses, "10,15,0", kByYear, true},
    {standardrate, kInwards, "7,14,0", kByDay, false},
    {StandardPrice, "", "10,15,0", kByDay, true},
};

const ActualRateTexts& TextsOf(enmValuationMethod method) {
  return *std::find_if(std::begin(kActualRates), std::prev(std::end(kActualRates)),
                       [method](const ActualRateTexts& one) { return one.method == method; });
}

}  // namespace

StandardRates StandardRatesOf(enmValuationMethod method) {
  return TextsOf(method).both_senses ? StandardRates::kAll : StandardRates::kCosts;
}

std::string ComposeStandardRates(StandardRates which, std::string_view to, std::uint8_t bytYearno) {
  return fmt::format(
      "select * from standardrate1 where dateto <= #{}# and yearno <=  {} {}", to, bytYearno,
      which == StandardRates::kCosts ? "and saleorpurchase = false order by datefrom , dateto "
                                     : "order by item_Id , datefrom , dateto ");
}

std::string ActualRateCondition(enmValuationMethod method) {
  const ActualRateTexts& texts = TextsOf(method);
  return fmt::format("{}godownitem1.goriginalvouchertype_id in ({}) and ", texts.lines,
                     texts.vouchertypes);
}

std::string ComposeActualRates(enmValuationMethod method, std::string_view to,
                               std::uint8_t bytYearno) {
  const ActualRateTexts& texts = TextsOf(method);
  return fmt::format(
      "select godownitem1.item_id , godownitem1.godown_id , godownitem1.batch_id , "
      "godownitem1.rate , godownitem1.isopeningbal , godownitem1.yearno , godownitem1.date {}from "
      "godownitem1 where {}godownitem1.optional = 0 and ( godownitem1.date <= #{}# or isopeningbal "
      "= -1 ) and godownitem1.yearno <= {} order by {} , godownitem1.godown_id , "
      "godownitem1.batch_id ",
      texts.both_senses ? ", isadded " : "", ActualRateCondition(method), to, bytYearno,
      texts.order);
}

}  // namespace pstolvane1
