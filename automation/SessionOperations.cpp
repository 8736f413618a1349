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

constexpr Operation kSessionOperations[] = {
    {"SetConnection", "session", LaunchKind::kMember, ReturnKind::kBoolean, "Opens the books.",
     kSetConnection},
    {"GetConnectionObject", "session", LaunchKind::kMember, ReturnKind::kConnection,
     "The session's connection."},
    {"SetAliases", "session", LaunchKind::kMember, ReturnKind::kNothing,
     "Sets what reports show in place of names.", kSetAliases},
    {"SetFilter", "session", LaunchKind::kMember, ReturnKind::kEmpty,
     "Sets which documents the reports read.", kSetFilter},
    {"CancelFetching", "session", LaunchKind::kMember, ReturnKind::kNothing, "Ends a report early.",
     kCancelFetching},
    {"UserPressedCancel", "session", LaunchKind::kMember, ReturnKind::kEmpty, "Has no effect."},
    {"SetLocale", "session", LaunchKind::kMember, ReturnKind::kNothing,
     "Sets the locale of the reports' texts.", kSetLocale},
    {"POrderTextQuery", "session", LaunchKind::kPlainQuery, ReturnKind::kRowset,
     "The lines of documents as a plain rowset, by date.", kPOrderTextQuery},
};

}  // namespace

std::span<const Operation> SessionOperations() { return kSessionOperations; }

}  // namespace pstolvane1::automation
