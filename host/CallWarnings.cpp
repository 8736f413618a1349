#include "host/CallWarnings.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <optional>

#include "automation/CallTexts.h"
#include "automation/Operations.h"
#include "session/data/Error.h"
#include "session/data/TextFold.h"

namespace pstolvane1::host {
namespace {

using automation::Argument;
using automation::CallInWords;
using automation::Slot;
using Sentences = std::vector<std::string>;

// The value of an argument that the operation looks at.
std::optional<Variant> Read(const CallInWords& call, std::string_view name) {
  const std::vector<Slot> slots = automation::SlotsOf(call.Called());
  for (std::size_t at = 0; at < slots.size(); ++at) {
    if (slots[at].name == name && slots[at].argument->IsRead()) return call.Values().at(at);
  }
  return std::nullopt;
}

std::optional<Date> ReadDay(const CallInWords& call, std::string_view name) {
  const std::optional<Variant> value = Read(call, name);
  if (!value || value->Type() != adDate || value->ToDate() == Date{}) return std::nullopt;
  return value->ToDate();
}

void CheckPeriod(const CallInWords& call, BooksLookup& books, Sentences& sentences) {
  const std::optional<Date> from = ReadDay(call, "dtFromDate"), to = ReadDay(call, "dtToDate");
  if (!from || !to) return;
  if (*to < *from) {
    sentences.push_back(
        fmt::format("the period ends on {}, before it begins on {}", to->ToIso(), from->ToIso()));
    return;
  }
  const std::optional<Variant> number = Read(call, "bytYearno");
  if (!number) return;
  const std::vector<AccountingYear>& years = books.Years();
  if (years.empty()) return;
  const auto year = std::ranges::find_if(
      years, [&](const AccountingYear& one) { return one.number == number->ToInt32(); });
  if (year == years.end()) {
    sentences.push_back(fmt::format("the books have no year {}; \"stolvane list years\" lists them",
                                    number->ToInt32()));
  } else if (*from < year->first || year->last < *to) {
    sentences.push_back(fmt::format(
        "year {} of the books goes from {} to {}, the period from {} to {}", year->number,
        year->first.ToIso(), year->last.ToIso(), from->ToIso(), to->ToIso()));
  }
}

// A key that is written as a text may be no number: it stands in the query as it is.
std::int32_t KeyIn(const Variant& value) {
  if (value.Type() != adBSTR) return value.ToInt32();
  const std::string text = value.ToText();
  std::int32_t key = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), key);
  return error == std::errc() && end == text.data() + text.size() ? key : 0;
}

// 0 and below mean all, or nothing, wherever they mean anything.
void CheckKeys(const CallInWords& call, BooksLookup& books, Sentences& sentences) {
  const automation::CallTexts texts = automation::TextsOf(call.Called(), call.Values());
  for (const Argument& argument : call.Called().arguments) {
    const automation::Master* const list = automation::ListOf(argument, texts);
    if (list == nullptr || !argument.IsRead()) continue;
    const std::optional<Variant> key = Read(call, argument.name);
    const std::int32_t asked = key ? KeyIn(*key) : 0;
    if (asked <= 0 || books.HasKey(*list, asked)) continue;
    sentences.push_back(
        fmt::format("{}: the books have no {} with the key {}", argument.name, list->one, asked));
  }
}

void CheckMethod(const CallInWords& call, Sentences& sentences) {
  const std::string_view decided_by = call.Called().decided_by;
  if (decided_by.empty() || call.ReportType()) return;
  const Argument* const argument = automation::FindArgument(call.Called(), decided_by);
  const std::int32_t asked = Read(call, decided_by).value_or(Variant(0)).ToInt32();
  sentences.push_back(fmt::format("{} has no report for {} {}", call.Called().name, decided_by,
                                  automation::NameOf(*argument->enumeration, asked)));
}

}  // namespace

std::vector<std::string> WarningsOf(const CallInWords& call, BooksLookup& books) {
  Sentences sentences;
  CheckMethod(call, sentences);
  try {
    CheckPeriod(call, books, sentences);
    CheckKeys(call, books, sentences);
  } catch (const Error&) {
    // Books made elsewhere may lack what is asked here; the report itself tells what it needs.
  }
  return sentences;
}

}  // namespace pstolvane1::host
