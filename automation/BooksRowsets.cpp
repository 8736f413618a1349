#include "automation/BooksRowsets.h"

namespace pstolvane1::automation {
namespace {

constexpr std::string_view kItemsWithUnits =
    "select Item_id, Item_id as ItemNew_id, ItemName, ItemPartNo, ItemDesc, UomName from Items1 "
    "left join Uom1 on Items1.Uom_id = Uom1.Uom_id";
constexpr std::string_view kLedgers = "select Ledger_id, LedgerName from LedgerNames1";

}  // namespace

std::string_view SelectOfTheBooks(const Argument& argument) {
  if (argument.type != ArgumentType::kRowset || !argument.IsRead()) return {};
  return argument.name == "recLedger" ? kLedgers : kItemsWithUnits;
}

}  // namespace pstolvane1::automation
