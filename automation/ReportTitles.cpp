#include "automation/ReportTitles.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>

#include "automation/ArgumentWords.h"
#include "automation/CallTexts.h"
#include "automation/ColumnLooks.h"
#include "automation/Masters.h"

namespace pstolvane1::automation {
namespace {

std::string WordsOfScale(double divisor) {
  if (divisor == 1 || divisor == 0) return {};
  const auto found =
      std::ranges::find_if(Scales(), [&](const ScaleWords& one) { return one.divisor == divisor; });
  return found == Scales().end() ? fmt::format("money divided by {}", divisor)
                                 : fmt::format("money {}", found->words);
}

// The tree under which a stock statement lists its groups; nullptr for other reports, which say
// themselves where a group stands.
const Master* TreeOf(const Operation& operation) {
  if (operation.family != "stock") return nullptr;
  for (const Argument& argument : operation.arguments) {
    if (argument.master != nullptr && !argument.master->above.empty()) return argument.master;
  }
  return nullptr;
}

// A key may be given as a text.
bool IsWholeNumber(const Variant& value) {
  const std::string text = value.ToText();
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [read, failure] = std::from_chars(text.data(), end, number);
  return failure == std::errc() && read == end;
}

// What was asked for, part by part.
class Parts {
 public:
  Parts(const Operation& operation, const BoundValues& values, const Locale& locale)
      : operation_(operation), values_(values), locale_(locale) {}

  void Add(const std::string& part) {
    if (!part.empty()) text_ += (text_.empty() ? "" : " · ") + part;
  }
  void AddKeys(const KeysOfBooks& books) {
    const CallTexts texts = TextsOf(operation_, values_);
    ForEachRead([&](const Argument& argument, const Variant& value) {
      const Master* const list = ListOf(argument, texts);
      if (list == nullptr || !IsWholeNumber(value) || value.ToInt32() <= 0) return;
      const std::string name = books.name_of(*list, value.ToInt32());
      if (!name.empty()) Add(fmt::format("{}: {}", list->one, name));
    });
  }
  void AddPeriod() {
    Date from, to;
    ForEachRead([&](const Argument& argument, const Variant& value) {
      if (argument.name == "dtFromDate") from = value.ToDate();
      if (argument.name == "dtToDate") to = value.ToDate();
    });
    if (to == Date{}) return;
    Add(fmt::format("{} to {}", locale_.FormatGeneralDate(from), locale_.FormatGeneralDate(to)));
  }
  void AddMethodAndScale() {
    ForEachRead([&](const Argument& argument, const Variant& value) {
      if (argument.name == "ValuationMethod") Add(std::string(MethodInWords(value.ToInt32())));
      if (argument.name == "sngScale" || argument.name == "gScale") {
        Add(WordsOfScale(value.ToDouble()));
      }
    });
  }
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  template <typename Do>
  void ForEachRead(const Do& work) const {
    const std::vector<Slot> slots = SlotsOf(operation_);
    for (std::size_t at = 0; at < slots.size(); ++at) {
      if (slots[at].argument->IsRead()) work(*slots[at].argument, values_.at(at));
    }
  }

  const Operation& operation_;
  const BoundValues& values_;
  const Locale& locale_;
  std::string text_;
};

}  // namespace

std::string TitleOf(const Operation& operation, std::optional<std::int32_t> report_type) {
  const auto type =
      std::ranges::find(operation.report_types, report_type.value_or(0), &ReportTypeRule::stored);
  return std::string(operation.title) +
         std::string(type == operation.report_types.end() ? "" : type->by);
}

ReportLook LookOf(const Operation& operation, const BoundValues& values, const std::string& company,
                  const KeysOfBooks& books, const Locale& locale, Date today) {
  Parts parts(operation, values, locale);
  parts.AddKeys(books);
  parts.AddPeriod();
  parts.AddMethodAndScale();
  parts.Add("printed " + locale.FormatGeneralDate(today));
  ReportLook look{.title = TitleOf(operation, ReportTypeOf(operation, values)),
                  .lines = {company, parts.Text()},
                  .column = [name = operation.name](std::string_view column) {
                    return LookOfColumn(name, column);
                  }};
  if (const Master* const groups = TreeOf(operation)) {
    look.group_key = "Category_Id";
    look.group_above = [groups, above = books.above](std::int64_t key) {
      return above(*groups, key);
    };
  }
  return look;
}

}  // namespace pstolvane1::automation
