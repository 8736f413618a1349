#include <array>
#include <cstddef>
#include <string>

#include "automation/Families.h"

namespace pstolvane1::automation {
namespace {

constexpr std::string_view kAliasNames[] = {"taItem",  "taGodown", "taBatch",    "taCategory",
                                            "taClass", "taLedger", "taEmployee", "taTransporter"};

constexpr Argument kSetConnection[] = {
    Text("strProvider", kNotUsed),
    Text("strConnectionString", kNotUsed),
    Text("strConnectionString1", "The books: a file, or what the engine takes."),
    Flag("AsyncConnect", "True connects in the background and tells by OnConnect.")
        .Optional("true"),
    Day("dtFromDate", "The first day of the open books.").Optional(),
    Day("dtToDate", "The last day of the open books.").Optional(),
    Text("strCurrencyPrefix", "The name of the currency.").Optional("Rupees"),
    Text("strCurrencySuffix", "The name of its hundredth part.").Optional("Paise"),
};

constexpr Argument kSetAliases[] = {
    {.name = "pAlias",
     .type = ArgumentType::kRecord,
     .help = "typAliases: what to show in place of each name column, an expression or nothing.",
     .members = kAliasNames,
     .by_reference = true},
};

constexpr Argument kSetFilter[] = {
    Text("strVouchertypeFilter", "A condition on Vouchertype1, or nothing."),
    Text("strSubgroupFilter", "A condition on SubgroupName1, for any other btTypeOfentry."),
    Byte("btTypeOfentry", "1 parties of the codes 2, 1 and 41, 2 all others, else the condition."),
    Byte("OptNo", "1 regular documents, 2 optional ones, else both."),
};

constexpr Argument kCancelFetching[] = {
    Flag("CancelFetching", "True ends this and all later reports early, until False is written."),
};

constexpr Argument kSetLocale[] = {
    Text("name", "A locale such as en_IN or de_DE; nothing is the user's own."),
};

constexpr Argument kPOrderTextQuery[] = {
    Text("strFilter", "A condition on Desr1 and DesrDetails1, or nothing."),
};

constexpr ArgumentType kAliasTypes[] = {ArgumentType::kRecord};

Outcome SetAliases(clsStolvane1& session, const Operation& /*operation*/,
                   const BoundValues& values) {
  std::array<std::string, 8> alias;
  for (std::size_t i = 0; i < alias.size(); ++i) alias.at(i) = values.at(i).ToText();
  session.SetAliases(
      {alias[0], alias[1], alias[2], alias[3], alias[4], alias[5], alias[6], alias[7]});
  return {};
}

constexpr Operation kSessionOperations[] = {
    {"SetConnection", kCallOf<&clsStolvane1::SetConnection>, "session", LaunchKind::kMember,
     ReturnKind::kBoolean, "Opens the books.", kSetConnection},
    {"GetConnectionObject", kCallOf<&clsStolvane1::GetConnectionObject>, "session",
     LaunchKind::kMember, ReturnKind::kConnection, "The session's connection."},
    {"SetAliases",
     {&SetAliases, kAliasTypes},
     "session",
     LaunchKind::kMember,
     ReturnKind::kNothing,
     "Sets what reports show in place of names.",
     kSetAliases},
    {"SetFilter", kCallOf<&clsStolvane1::SetFilter>, "session", LaunchKind::kMember,
     ReturnKind::kEmpty, "Sets which documents the reports read.", kSetFilter},
    {"CancelFetching", kCallOf<&clsStolvane1::CancelFetching>, "session", LaunchKind::kMember,
     ReturnKind::kNothing, "Ends a report early.", kCancelFetching},
    {"UserPressedCancel", kCallOf<&clsStolvane1::UserPressedCancel>, "session", LaunchKind::kMember,
     ReturnKind::kEmpty, "Has no effect."},
    {"SetLocale", kCallOf<&clsStolvane1::SetLocale>, "session", LaunchKind::kMember,
     ReturnKind::kNothing, "Sets the locale of the reports' texts.", kSetLocale},
    Operation{"POrderTextQuery", kCallOf<&clsStolvane1::POrderTextQuery>, "session",
              LaunchKind::kPlainQuery, ReturnKind::kRowset,
              "The lines of documents as a plain rowset, by date.", kPOrderTextQuery}
        .Titled("Lines of documents"),
};

}  // namespace

std::span<const Operation> SessionOperations() { return kSessionOperations; }

}  // namespace pstolvane1::automation
