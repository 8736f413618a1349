#include "session/rowset/ReportView.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <type_traits>
#include <utility>

#include "session/data/Error.h"
#include "session/data/TextFold.h"
#include "session/data/ThreadWork.h"
#include "session/rowset/ViewColumns.h"

namespace pstolvane1 {
namespace {

constexpr double kFloatNoise = 1e-5;

using LineKind = ReportView::LineKind;

bool IsHeading(const std::vector<std::string>& cells) {
  return !cells.empty() && !cells.front().empty() &&
         std::all_of(cells.begin() + 1, cells.end(),
                     [](const std::string& cell) { return cell.empty(); });
}

bool IsBlank(const ReportView::Line& line) {
  return std::ranges::all_of(line.cells, [](const std::string& cell) { return cell.empty(); });
}

// The kinds of the lines, from what is in them and around them.
class KindsOfLines {
 public:
  KindsOfLines(const ViewColumns& view, const std::vector<ReportView::Line>& lines)
      : view_(view), lines_(lines) {}

  [[nodiscard]] LineKind Of(std::size_t row) const {
    const bool has_rule = view_.rules[row] != 0;
    if (IsBlank(lines_[row])) return has_rule ? LineKind::kRule : LineKind::kSpacer;
    const bool below_a_rule = row > 0 && IsRuleLine(row - 1);
    const bool closes = has_rule || view_.sums[row] != 0 || IsRuleLine(row + 1);
    if (below_a_rule && closes) return LineKind::kTotal;
    const bool heads = has_rule || view_.headings[row] != 0 || DeeperLineFollows(row);
    return heads ? LineKind::kGroup : LineKind::kLine;
  }

 private:
  [[nodiscard]] bool IsRuleLine(std::size_t row) const {
    return row < lines_.size() && view_.rules[row] != 0 && IsBlank(lines_[row]);
  }
  [[nodiscard]] bool DeeperLineFollows(std::size_t row) const {
    for (std::size_t next = row + 1; next < lines_.size(); ++next) {
      if (!IsBlank(lines_[next])) return view_.levels[next] > view_.levels[row];
    }
    return false;
  }

  const ViewColumns& view_;
  const std::vector<ReportView::Line>& lines_;
};

// The lines of a stock statement whose closing quantity is not what came in less what went out.
std::size_t UnbalancedLines(const Recordset& report) {
  constexpr std::array kTwins = {"QtyOpSort", "QtyInSort", "QtyOutSort", "QtyClSort"};
  if (!std::ranges::all_of(kTwins, [&](const char* twin) { return report.HasColumn(twin); })) {
    return 0;
  }
  std::array<ColumnHandle, kTwins.size()> columns{};
  std::ranges::transform(kTwins, columns.begin(),
                         [&](const char* twin) { return report.Column(twin); });
  const WorkInHand in_hand;
  std::size_t lines = 0;
  for (const Recordset::Row row : report.Rows()) {
    in_hand.Check();
    std::array<double, kTwins.size()> quantity{};
    std::ranges::transform(columns, quantity.begin(), [&](ColumnHandle column) {
      return row.IsNull(column) ? 0.0 : row[column].ToDouble();
    });
    const auto& [opening, inwards, outwards, closing] = quantity;
    // Quantities are 32-bit floats.
    const double size = std::fabs(opening) + std::fabs(inwards) + std::fabs(outwards) + 1;
    if (std::fabs(opening + inwards - outwards - closing) > size * kFloatNoise) ++lines;
  }
  return lines;
}

}  // namespace

ReportView::ReportView(const Recordset& rowset, std::shared_ptr<const Locale> locale,
                       ReportLook look)
    : locale_(std::move(locale)), look_(std::move(look)) {
  if (!locale_)
    throw Error(ErrorNumber::kObjectNotSet, "no locale was given to show the rowset in");
  const WorkInHand in_hand;
  const bool report = rowset.HasColumn("DummySort") || look_.column;
  ViewColumns view = ReadViewColumns(rowset, *locale_, look_, report);
  std::erase_if(view.columns, [](const ViewColumn& column) { return !column.content; });
  for (std::size_t row = 0; row < view.levels.size(); ++row) {
    in_hand.Check();
    Line& line = lines_.emplace_back(Line{LineKind::kLine, {}, view.levels[row], view.rows[row]});
    for (ViewColumn& column : view.columns) line.cells.push_back(std::move(column.texts[row]));
    line.is_heading = IsHeading(line.cells);
  }
  const KindsOfLines kinds(view, lines_);
  for (std::size_t row = 0; row < lines_.size(); ++row) lines_[row].kind = kinds.Of(row);
  if (const std::size_t unbalanced = report ? UnbalancedLines(rowset) : 0; unbalanced > 0) {
    notes_.push_back(
        "In " + std::to_string(unbalanced) + (unbalanced == 1 ? " line" : " lines") +
        " the closing quantity is not opening plus inwards less outwards: first in, first out "
        "holds the opening stock twice in it.");
  }
  for (ViewColumn& column : view.columns) columns_.push_back(std::move(column.column));
  if (!look_.columns.empty() && !columns_.empty()) KeepNamedColumns();
}

std::optional<std::size_t> ReportView::PlaceOf(std::string_view name) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (EqualFolded(columns_[i].name, name) || EqualFolded(columns_[i].label, name)) return i;
  }
  return std::nullopt;
}

void ReportView::KeepNamedColumns() {
  std::vector<std::size_t> places;
  for (const std::string& name : look_.columns) {
    const auto place = PlaceOf(name);
    if (!place) {
      std::string known;
      for (const Column& column : columns_) known += (known.empty() ? "" : ", ") + column.label;
      throw Error(ErrorNumber::kArgumentOutOfRange,
                  "the report shows no column \"" + name + "\"; it shows " + known);
    }
    places.push_back(*place);
  }
  const auto kept = [&places](auto& of_all) {
    std::remove_cvref_t<decltype(of_all)> named;
    for (const std::size_t place : places) named.push_back(of_all[place]);
    of_all = std::move(named);
  };
  first_ = static_cast<std::size_t>(std::ranges::find(places, 0U) - places.begin());
  kept(columns_);
  for (Line& line : lines_) {
    kept(line.cells);
    line.is_heading = line.is_heading && first_ == 0;
  }
  std::erase_if(lines_, [](const Line& line) {
    return line.kind != LineKind::kRule && line.kind != LineKind::kSpacer && IsBlank(line);
  });
}

}  // namespace pstolvane1
