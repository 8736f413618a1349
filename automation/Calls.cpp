#include "automation/Calls.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

#include "automation/MemberCall.h"
#include "automation/Operations.h"
#include "session/data/Error.h"
#include "session/data/OutOfMemory.h"

namespace pstolvane1::automation {
namespace {

using Caller = Outcome (*)(clsStolvane1&, const Operation&, const BoundValues&);

struct Built {
  std::string_view operation;
  Caller call;
  std::span<const ArgumentType> types;
};

// A member whose parameters are the operation's arguments, in their order.
template <auto member>
constexpr Built Member(std::string_view operation) {
  using Run = MemberCall<decltype(member)>;
  return {operation,
          [](clsStolvane1& session, const Operation& described, const BoundValues& values) {
            return Run::Run(member, session, described, values);
          },
          Run::kTypes};
}

Outcome SetAliases(clsStolvane1& session, const Operation& /*operation*/,
                   const BoundValues& values) {
  std::array<std::string, 8> alias;
  for (std::size_t i = 0; i < alias.size(); ++i) alias.at(i) = values.at(i).ToText();
  session.SetAliases(
      {alias[0], alias[1], alias[2], alias[3], alias[4], alias[5], alias[6], alias[7]});
  return {};
}

constexpr ArgumentType kAliasTypes[] = {ArgumentType::kRecord};

// One line makes a described operation callable.
constexpr Built kBuilt[] = {
    Member<&clsStolvane1::SetConnection>("SetConnection"),
    Member<&clsStolvane1::GetConnectionObject>("GetConnectionObject"),
    {"SetAliases", &SetAliases, kAliasTypes},
    Member<&clsStolvane1::SetFilter>("SetFilter"),
    Member<&clsStolvane1::CancelFetching>("CancelFetching"),
    Member<&clsStolvane1::UserPressedCancel>("UserPressedCancel"),
    Member<&clsStolvane1::SetLocale>("SetLocale"),
    Member<&clsStolvane1::POrderTextQuery>("POrderTextQuery"),
    Member<&clsStolvane1::Doc_Initial>("Doc_Initial"),
    Member<&clsStolvane1::LedgersByCode>("LedgersByCode"),
    Member<&clsStolvane1::BillWiseQuery>("BillWiseQuery"),
    Member<&clsStolvane1::BillWiseQuery1>("BillWiseQuery1"),
    Member<&clsStolvane1::MultiplePriceList>("MultiplePriceList"),
    Member<&clsStolvane1::StockDetails_Itemwise>("StockDetails_Itemwise"),
    Member<&clsStolvane1::StockDetails_Categorywise>("StockDetails_Categorywise"),
    Member<&clsStolvane1::StockDetails_Classwise>("StockDetails_Classwise"),
    Member<&clsStolvane1::StockDetails_Godownwise>("StockDetails_Godownwise"),
    Member<&clsStolvane1::Monthly_Itemwise>("Monthly_Itemwise"),
    Member<&clsStolvane1::Monthly_Categorywise>("Monthly_Categorywise"),
    Member<&clsStolvane1::Monthly_Classwise>("Monthly_Classwise"),
    Member<&clsStolvane1::Monthly_Godownwise>("Monthly_Godownwise"),
    Member<&clsStolvane1::Monthly_GodownItemwise>("Monthly_GodownItemwise"),
    Member<&clsStolvane1::FreeQuantity_Itemwise>("FreeQuantity_Itemwise"),
    Member<&clsStolvane1::FreeQuantity_Partywise>("FreeQuantity_Partywise"),
    Member<&clsStolvane1::FreeQuantity_Itemwise_Initial>("FreeQuantity_Itemwise_Initial"),
    Member<&clsStolvane1::FreeQuantity_Partywise_Initial>("FreeQuantity_Partywise_Initial"),
    Member<&clsStolvane1::PendingByItem>("PendingByItem"),
    Member<&clsStolvane1::PendingByLedger>("PendingByLedger"),
    Member<&clsStolvane1::PendingByEmployee>("PendingByEmployee"),
    Member<&clsStolvane1::CustomerItemwise_Analysis>("CustomerItemwise_Analysis"),
    Member<&clsStolvane1::Movement_PurchaseReturns_Analysis>("Movement_PurchaseReturns_Analysis"),
    Member<&clsStolvane1::CustomerItemDaily_Analysis>("CustomerItemDaily_Analysis"),
    Member<&clsStolvane1::Movement_PurchaseReturns_DailyAnalysis>(
        "Movement_PurchaseReturns_DailyAnalysis"),
    Member<&clsStolvane1::Commission_Initial>("Commission_Initial"),
    Member<&clsStolvane1::Commission_Daily>("Commission_Daily"),
    Member<&clsStolvane1::Colorwise_Initial>("Colorwise_Initial"),
    Member<&clsStolvane1::mColorwise_Initial>("mColorwise_Initial"),
    Member<&clsStolvane1::Colorwise_Monthly>("Colorwise_Monthly"),
    Member<&clsStolvane1::mColorwise_Monthly>("mColorwise_Monthly"),
    Member<&clsStolvane1::Colorwise_Daily>("Colorwise_Daily"),
    Member<&clsStolvane1::mColorwise_Daily>("mColorwise_Daily"),
    Member<&clsStolvane1::CategoryWise_Initial>("CategoryWise_Initial"),
    Member<&clsStolvane1::ItemWise_DlyBkup>("ItemWise_DlyBkup"),
    Member<&clsStolvane1::mItemwise_DlyBreakup>("mItemwise_DlyBreakup"),
    Member<&clsStolvane1::AutoSearch>("AutoSearch"),
    Member<&clsStolvane1::RTOInsSearch>("RTOInsSearch"),
    Member<&clsStolvane1::AutoSearchServices>("AutoSearchServices"),
    Member<&clsStolvane1::BuyerReport>("BuyerReport"),
    Member<&clsStolvane1::RtoSalesDetails>("RtoSalesDetails"),
    Member<&clsStolvane1::RtoSalesDetails1>("RtoSalesDetails1"),
    Member<&clsStolvane1::ServiceTax>("ServiceTax"),
    Member<&clsStolvane1::ServiceReportRegno>("ServiceReportRegno"),
    Member<&clsStolvane1::FreeServiceReport>("FreeServiceReport"),
    Member<&clsStolvane1::FreeServiceReportDaily>("FreeServiceReportDaily"),
    Member<&clsStolvane1::MechanicLabourReport>("MechanicLabourReport"),
    Member<&clsStolvane1::MechanicLabourReportDaily>("MechanicLabourReportDaily"),
    Member<&clsStolvane1::HypoReport>("HypoReport"),
    Member<&clsStolvane1::HypoReportDaily>("HypoReportDaily"),
    Member<&clsStolvane1::ClaimReport>("ClaimReport"),
};

const Built* FindBuilt(const Operation& operation) {
  const auto* found = std::find_if(std::begin(kBuilt), std::end(kBuilt), [&](const Built& one) {
    return one.operation == operation.name;
  });
  return found == std::end(kBuilt) ? nullptr : found;
}

const Built& GetBuilt(const Operation& operation) {
  if (const Built* found = FindBuilt(operation)) return *found;
  throw Error(
      ErrorNumber::kArgumentOutOfRange,
      fmt::format("{} is described, but this version does not build it yet", operation.name));
}

}  // namespace

bool IsBuilt(const Operation& operation) { return FindBuilt(operation) != nullptr; }

Outcome Call(clsStolvane1& session, const Operation& operation,
             std::span<const NamedValue> values) {
  return TellingWhatRanOut("reading the arguments", [&] {
    const Built& built = GetBuilt(operation);
    return built.call(session, operation, Bind(operation, values));
  });
}

Outcome Call(clsStolvane1& session, const Operation& operation, const BoundValues& values) {
  return TellingWhatRanOut("reading the arguments",
                           [&] { return GetBuilt(operation).call(session, operation, values); });
}

RecordsetPtr OpenSelect(clsStolvane1& session, std::string_view select) {
  RecordsetPtr rowset = Recordset::New();
  OpenSelect(session, select, *rowset);
  return rowset;
}

void OpenSelect(clsStolvane1& session, std::string_view select, Recordset& rowset) {
  const std::shared_ptr<Connection> connection = session.GetConnectionObject();
  if (!connection) {
    throw Error(ErrorNumber::kNoConnection, "the session is not connected to any books");
  }
  rowset.Open(select, connection, adOpenStatic, adLockReadOnly);
  rowset.ActiveConnection(nullptr);
}

std::span<const ArgumentType> ParameterTypes(const Operation& operation) {
  const Built* found = FindBuilt(operation);
  return found ? found->types : std::span<const ArgumentType>{};
}

}  // namespace pstolvane1::automation
