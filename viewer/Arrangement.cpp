#include "viewer/Arrangement.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <numeric>
#include <optional>
#include <utility>

#include "automation/CallInWords.h"
#include "session/data/TextFold.h"
#include "session/data/ThreadWork.h"

namespace pstolvane1::viewer {
namespace {

using automation::WrongCall;
using LineKind = ReportView::LineKind;

// "> 100" as its sign and number.
struct Comparison {
  std::string sign;
  double number;

  [[nodiscard]] bool Holds(double value) const {
    if (sign == ">") return value > number;
    if (sign == "<") return value < number;
    if (sign == ">=") return value >= number;
    if (sign == "<=") return value <= number;
    return value == number;
  }
};

// "1,000", "1000.5" or "₹1,000.50" as somebody types it in the locale.
std::optional<double> NumberTyped(std::string_view text, const Locale& locale) {
  const std::string half = locale.FormatNumber(0.5);
  const std::size_t five = half.find('5');
  const std::string sign = five > 1 && five < half.size() ? half.substr(1, five - 1) : ".";
  std::string digits;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text.substr(at).starts_with(sign)) digits += '.';
    if (text[at] == '-' || (text[at] >= '0' && text[at] <= '9')) digits += text[at];
  }
  double number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [read, failure] = std::from_chars(digits.data(), end, number);
  if (failure != std::errc() || read != end) return std::nullopt;
  return number;
}

std::optional<Comparison> ComparisonIn(const std::string& text, const Locale& locale) {
  const std::size_t behind = text.find_first_not_of("<>=");
  if (behind == 0 || behind == std::string::npos) return std::nullopt;
  const auto number = NumberTyped(std::string_view(text).substr(behind), locale);
  if (!number) return std::nullopt;
  return Comparison{text.substr(0, behind), *number};
}

bool Closes(LineKind kind) { return kind != LineKind::kLine && kind != LineKind::kGroup; }

std::size_t ClosingOf(const ReportView& view) {
  std::size_t closing = view.Lines().size();
  while (closing > 0 && Closes(view.Lines()[closing - 1].kind)) --closing;
  return closing;
}

bool Separates(LineKind kind) { return kind == LineKind::kRule || kind == LineKind::kSpacer; }

// For each place the one that it belongs to, the last less deep one before it; its own for those
// that stand outermost. What separates belongs to the outermost line before it.
std::vector<std::size_t> Owners(const ReportView& view, std::size_t closing) {
  std::vector<std::size_t> owners(closing), open;
  for (std::size_t place = 0; place < closing; ++place) {
    const int level = view.Lines()[place].level;
    if (Separates(view.Lines()[place].kind)) {
      owners[place] = open.empty() ? place : open.front();
      continue;
    }
    while (!open.empty() && view.Lines()[open.back()].level >= level) open.pop_back();
    owners[place] = open.empty() ? place : open.back();
    open.push_back(place);
  }
  return owners;
}

}  // namespace

bool IsFiltered(const Wish& wish) {
  return std::ranges::any_of(wish.filter, [](const auto& one) { return !one.second.empty(); });
}

std::optional<double> NumberIn(std::string_view text, const Locale& locale) {
  if (text.ends_with('%')) text.remove_suffix(1);
  if (const auto number = locale.ReadNumber(text)) return number;
  if (const auto money = locale.ReadCurrency(text)) return money;
  return locale.ReadNumber(text.substr(0, text.find(' ')));
}

Arrangement::Arrangement(RecordsetPtr report, const ReportView& view,
                         const automation::SortedReport& asked)
    : report_(std::move(report)),
      view_(view),
      asked_(asked),
      closing_(ClosingOf(view)),
      owners_(Owners(view, closing_)),
      order_(Sorted({})) {}

const std::vector<std::size_t>& Arrangement::Of(const Wish& wish) {
  if (wish == arranged_) return order_;
  order_ = Sorted(wish);
  Filter(wish);
  arranged_ = wish;
  return order_;
}

bool Arrangement::Sorts(const std::string& column) const {
  return report_->HasColumn(column + "Sort") && report_->HasColumn("DummySort") &&
         automation::SortRuleOf(asked_).form != automation::DummySortForm::kNone;
}

std::vector<std::size_t> Arrangement::Sorted(const Wish& wish) const {
  std::vector<std::size_t> order(view_.Lines().size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  if (wish.sort.empty()) return order;
  const std::vector<std::size_t> ranks = Ranks(wish);
  std::vector<std::vector<std::size_t>> below(closing_);
  std::vector<std::size_t> waiting;  // the next one last
  for (std::size_t place = 0; place < closing_; ++place) {
    (owners_[place] == place ? waiting : below[owners_[place]]).push_back(place);
  }
  // A group's own lines stand before the groups below it, and what separates it from the next last.
  const auto standing = [&](std::size_t place) {
    const LineKind kind = view_.Lines()[place].kind;
    if (Separates(kind)) return std::pair(2, place);
    return std::pair(kind == LineKind::kGroup ? 1 : 0, ranks[place]);
  };
  const auto put_below = [&](std::vector<std::size_t>& lines) {
    std::ranges::sort(lines, std::greater<>(), standing);
    waiting.insert(waiting.end(), lines.begin(), lines.end());
  };
  std::vector<std::size_t> outermost = std::exchange(waiting, {});
  put_below(outermost);
  const WorkInHand in_hand;
  std::size_t next = 0;
  while (!waiting.empty()) {
    in_hand.Check();
    const std::size_t place = waiting.back();
    waiting.pop_back();
    order[next++] = place;
    put_below(below[place]);
  }
  return order;
}

// Where the rowset's own sort puts each line; lines without a row come last.
std::vector<std::size_t> Arrangement::Ranks(const Wish& wish) const {
  static_cast<void>(ColumnNamed(wish.sort));
  if (!Sorts(wish.sort)) throw WrongCall(fmt::format("{} does not sort", wish.sort));
  std::vector<std::size_t> ranks(view_.Lines().size());
  std::iota(ranks.begin(), ranks.end(), ranks.size());
  std::map<Bookmark, std::size_t> places;
  for (std::size_t place = 0; place < ranks.size(); ++place) {
    if (const auto& row = view_.Lines()[place].row) places.emplace(*row, place);
  }
  const RecordsetPtr sorted = report_->Clone();
  sorted->Sort(automation::SortText(asked_, wish.sort + "Sort", wish.descending));
  std::size_t rank = 0;
  for (const Recordset::Row row : sorted->Rows()) {
    const auto place = places.find(row.Bookmark());
    if (place != places.end()) ranks[place->second] = rank++;
  }
  return ranks;
}

void Arrangement::Filter(const Wish& wish) {
  if (!IsFiltered(wish)) return;
  std::erase_if(order_, [&](std::size_t place) {
    return place >= closing_ || Separates(view_.Lines()[place].kind);
  });
  const WorkInHand in_hand;
  const Locale& locale = view_.TheLocale();
  for (const auto& [name, looked_for] : wish.filter) {
    if (looked_for.empty()) continue;
    const std::size_t column = ColumnNamed(name);
    const auto comparison =
        view_.Columns()[column].numeric ? ComparisonIn(looked_for, locale) : std::nullopt;
    const std::string folded = Folded(looked_for);
    std::erase_if(order_, [&, &wanted = comparison](std::size_t place) {
      in_hand.Check();
      if (!wanted) return !Holds(place, column, folded);
      const auto number = NumberIn(view_.Lines()[place].cells[column], locale);
      return !number || !wanted->Holds(*number);
    });
  }
}

bool Arrangement::Holds(std::size_t place, std::size_t column, const std::string& folded) const {
  const auto has = [&](std::size_t one) {
    return Folded(view_.Lines()[one].cells[column]).find(folded) != std::string::npos;
  };
  while (!has(place)) {
    if (owners_[place] == place) return false;
    place = owners_[place];
  }
  return true;
}

std::size_t Arrangement::ColumnNamed(const std::string& name) const {
  const auto found = std::ranges::find_if(
      view_.Columns(), [&](const ReportView::Column& one) { return one.name == name; });
  if (found == view_.Columns().end()) throw WrongCall(fmt::format("no column \"{}\"", name));
  return static_cast<std::size_t>(found - view_.Columns().begin());
}

}  // namespace pstolvane1::viewer
