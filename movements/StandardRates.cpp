#include "movements/StandardRates.h"

#include <fmt/format.h>

namespace pstolvane1 {

std::string ComposeStandardRates(StandardRates which, std::string_view to, std::uint8_t bytYearno) {
  return fmt::format(
      "select * from standardrate1 where dateto <= #{}# and yearno <=  {} {}", to, bytYearno,
      which == StandardRates::kCosts ? "and saleorpurchase = false order by datefrom , dateto "
                                     : "order by item_Id , datefrom , dateto ");
}

}  // namespace pstolvane1
