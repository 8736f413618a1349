#include "Call.h"

#include <sstream>
#include <stdexcept>

#include "automation/Calls.h"
#include "automation/Operations.h"

namespace pstolvane1::golden {
namespace {

using automation::NamedValue;

RecordsetPtr RowsetOf(const automation::Outcome& outcome) {
  return outcome.value.IsEmpty() ? nullptr : outcome.value.ToRowset();
}

RecordsetPtr CallByName(clsStolvane1& session, const std::string& name,
                        const std::vector<NamedValue>& values) {
  return RowsetOf(automation::Call(session, automation::GetOperation(name), values));
}

// open makes the rowset of an argument that is one.
template <typename Open>
std::vector<NamedValue> ValuesOf(const TextCall& call, Boolean blnReport, Open open) {
  std::vector<NamedValue> values;
  for (const TextArgument& argument : call.arguments) {
    values.push_back({argument.name, argument.is_rowset ? Variant(open(argument))
                                                        : Variant(TextOf(argument.value))});
  }
  const automation::Operation& operation = automation::GetOperation(call.operation);
  if (automation::FindArgument(operation, "blnReport") != nullptr) {
    values.push_back({"blnReport", blnReport});
  }
  return values;
}

}  // namespace

RecordsetPtr Call(clsStolvane1& session, const TextCall& call, Boolean blnReport) {
  return Call(session, call.operation, ValuesOf(session, call, blnReport));
}

automation::BoundValues ValuesOf(clsStolvane1& session, const TextCall& call, Boolean blnReport) {
  return automation::Bind(automation::GetOperation(call.operation),
                          ValuesOf(call, blnReport, [&](const auto& argument) {
                            return automation::OpenSelect(session, argument.value);
                          }));
}

RecordsetPtr Call(clsStolvane1& session, const std::string& operation,
                  const automation::BoundValues& values) {
  return RowsetOf(automation::Call(session, automation::GetOperation(operation), values));
}

std::optional<std::int32_t> ReportTypeOf(const TextCall& call) {
  const automation::Operation& operation = automation::GetOperation(call.operation);
  const auto values = ValuesOf(call, True, [](const auto&) { return Recordset::New(); });
  return automation::ReportTypeOf(operation, automation::Bind(operation, values));
}

void Apply(clsStolvane1& session, const CaseFile& file, const std::string& connection) {
  std::vector<NamedValue> connect = {{"strProvider", ""},
                                     {"strConnectionString", ""},
                                     {"strConnectionString1", connection},
                                     {"AsyncConnect", False}};
  std::vector<NamedValue> aliases;
  std::vector<NamedValue> filter = {
      {"strVouchertypeFilter", ""}, {"strSubgroupFilter", ""}, {"btTypeOfentry", 0}, {"OptNo", 0}};
  session.SetLocale("en_IN");
  for (const auto& [what, value] : file.settings) {
    std::istringstream words(what);
    std::string kind, name;
    words >> kind >> name;
    if (kind == "cancel") {
      session.CancelFetching(True);
    } else if (kind == "locale") {
      session.SetLocale(name);
    } else if (kind == "year") {
      const std::size_t dots = value.find(" .. ");
      if (dots == std::string::npos) throw std::runtime_error("a year is \"first .. last\"");
      connect.push_back({"dtFromDate", value.substr(0, dots)});
      connect.push_back({"dtToDate", value.substr(dots + 4)});
    } else if (kind == "alias") {
      aliases.push_back({name, TextOf(value)});
    } else if (kind == "filter") {
      std::erase_if(filter, [&name](const NamedValue& given) { return given.name == name; });
      filter.push_back({name, TextOf(value)});
    } else if (kind != "path") {
      throw std::runtime_error("no such setting: " + what);
    }
  }
  (void)automation::Call(session, automation::GetOperation("SetConnection"), connect);
  (void)CallByName(session, "SetAliases", aliases);
  (void)CallByName(session, "SetFilter", filter);
}

}  // namespace pstolvane1::golden
