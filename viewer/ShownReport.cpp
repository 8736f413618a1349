#include "viewer/ShownReport.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <utility>

#include "automation/SortedCall.h"
#include "session/data/TextFold.h"
#include "session/data/ThreadWork.h"
#include "session/rowset/Export.h"

namespace pstolvane1::viewer {
namespace {

using automation::Picture;
using automation::Road;
using automation::WrongCall;
using Json = nlohmann::ordered_json;
using LineKind = ReportView::LineKind;

constexpr std::size_t kMostShares = 12;

// Text of the books may hold bytes that are no UTF-8.
std::string Dumped(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string_view NameOf(LineKind kind, bool closing) {
  switch (kind) {
    case LineKind::kRule:
      return "rule";
    case LineKind::kGroup:
      return "group";
    case LineKind::kTotal:
      return closing ? "total" : "group";
    case LineKind::kSpacer:
      return "spacer";
    case LineKind::kLine:
      break;
  }
  return "line";
}

std::vector<const Road*> RoadsFrom(std::string_view operation) {
  std::vector<const Road*> roads;
  for (const Road& road : automation::Roads()) {
    if (road.from == operation) roads.push_back(&road);
  }
  return roads;
}

std::vector<std::string> PartsOf(std::string_view names) {
  std::vector<std::string> parts;
  std::istringstream stream{std::string(names)};
  for (std::string part; std::getline(stream, part, ',');) parts.push_back(part);
  return parts;
}

bool CanDraw(const Picture& picture, const Recordset& report) {
  return report.HasColumn(picture.names) &&
         std::ranges::any_of(PartsOf(picture.values),
                             [&](const std::string& name) { return report.HasColumn(name); });
}

struct LongCell {
  std::string text;
  int indent = 0;
};

// A level is as wide as two letters.
LongCell LongestCell(const ReportView& view, std::size_t column) {
  LongCell longest;
  std::size_t most = 0;
  for (const ReportView::Line& line : view.Lines()) {
    const std::string& cell = line.cells[column];
    const int indent = view.IndentOf(line, column);
    const std::size_t room = 2 * static_cast<std::size_t>(indent);
    if (cell.empty() || cell.size() + room <= most) continue;
    const std::size_t characters = CountCharacters(cell) + room;
    if (characters <= most) continue;
    most = characters;
    longest = {cell, indent};
  }
  return longest;
}

// The greatest first; those behind the most that are shown as one.
void KeepGreatest(Json& names, Json& values) {
  std::vector<std::pair<double, std::string>> all;
  for (std::size_t at = 0; at < names.size(); ++at) {
    if (!values[at].is_null()) all.emplace_back(values[at].get<double>(), names[at]);
  }
  std::ranges::stable_sort(all, std::greater<>(), [](const auto& one) { return one.first; });
  names = Json::array();
  values = Json::array();
  double others = 0;
  for (std::size_t at = 0; at < all.size(); ++at) {
    if (at + 1 < kMostShares || all.size() == kMostShares) {
      names.push_back(all[at].second);
      values.push_back(all[at].first);
    } else {
      others += all[at].first;
    }
  }
  if (all.size() > kMostShares) {
    names.push_back(fmt::format("{} others", all.size() - kMostShares + 1));
    values.push_back(others);
  }
}

}  // namespace

ShownReport::ShownReport(RecordsetPtr report, const automation::CallInWords& call,
                         std::shared_ptr<const Locale> locale, Presentation presentation,
                         bool whole)
    : report_(std::move(report)),
      locale_(std::move(locale)),
      view_(*report_, locale_, std::move(presentation.look)),
      warnings_(std::move(presentation.warnings)),
      whole_(whole),
      name_(call.Called().name),
      asked_(automation::TextsOf(call.Called(), call.Values())),
      roads_(RoadsFrom(call.Called().name)),
      arrangement_(report_, view_, automation::SortedAs(call.Called(), call.Values())) {
  for (const Picture& picture : automation::Pictures()) {
    if (picture.operation == call.Called().name && CanDraw(picture, *report_)) {
      pictures_.push_back(&picture);
    }
  }
}

std::string ShownReport::Head() const {
  Json columns = Json::array(), pictures = Json::array();
  for (std::size_t at = 0; at < view_.Columns().size(); ++at) {
    const ReportView::Column& column = view_.Columns()[at];
    const LongCell longest = LongestCell(view_, at);
    columns.push_back({{"name", column.name},
                       {"label", column.label.empty() ? column.name : column.label},
                       {"numeric", column.numeric},
                       {"longest", longest.text},
                       {"indent", longest.indent},
                       {"sorts", arrangement_.Sorts(column.name)}});
  }
  for (const Picture* picture : pictures_) pictures.push_back(picture->words);
  const auto telling = std::ranges::count_if(view_.Lines(), [](const ReportView::Line& line) {
    return line.kind == LineKind::kLine || line.kind == LineKind::kGroup;
  });
  return Dumped({{"title", view_.Look().title},
                 {"below", view_.Look().lines},
                 {"columns", std::move(columns)},
                 {"lines", telling},
                 {"notes", view_.Notes()},
                 {"warnings", warnings_},
                 {"pictures", std::move(pictures)},
                 {"whole", whole_}});
}

std::string ShownReport::Lines(const Wish& wish, std::size_t from, std::size_t count) {
  const std::vector<std::size_t>& order = arrangement_.Of(wish);
  Json lines = Json::array();
  const std::size_t end = std::min(from + count, order.size());
  for (std::size_t at = from; at < end; ++at) {
    const ReportView::Line& line = view_.Lines()[order[at]];
    const std::size_t place = order[at];
    Json one = {NameOf(line.kind, place >= arrangement_.Closing()), Follow(place).empty() ? 0 : 1,
                place, line.level};
    for (const std::string& cell : line.cells) one.push_back(cell);
    lines.push_back(std::move(one));
  }
  return Dumped({{"count", order.size()}, {"from", from}, {"lines", std::move(lines)}});
}

std::string ShownReport::RoadsOf(std::size_t place) const {
  Json roads = Json::array();
  for (const Followed& one : Follow(place)) {
    Json arguments = Json::object();
    for (const std::string& argument : one.arguments) {
      const std::size_t equals = argument.find('=');
      arguments[argument.substr(0, equals)] = argument.substr(equals + 1);
    }
    roads.push_back({{"words", one.road->words},
                     {"operation", one.road->to},
                     {"arguments", std::move(arguments)}});
  }
  return Dumped(roads);
}

std::string ShownReport::PictureAt(std::size_t index) const {
  if (index >= pictures_.size()) throw WrongCall("there is no such picture");
  const Picture& picture = *pictures_[index];
  std::vector<std::size_t> places;
  Json names = Json::array();
  for (std::size_t place = 0; place < arrangement_.Closing(); ++place) {
    const std::string name = CellText(place, picture.names).value_or("");
    const bool part = !picture.unlike.empty() && name.starts_with(picture.unlike);
    if (name.empty() || part) continue;
    places.push_back(place);
    names.push_back(name);
  }
  Json series = Json::array();
  for (const std::string& column : PartsOf(picture.values)) {
    if (!report_->HasColumn(column)) continue;
    Json values = Json::array();
    for (const std::size_t place : places) {
      const std::optional<double> number = ValueOf(place, column);
      values.push_back(number ? Json(*number) : Json(nullptr));
    }
    if (picture.kind == Picture::Kind::kShares) KeepGreatest(names, values);
    series.push_back({{"name", column}, {"values", std::move(values)}});
  }
  return Dumped({{"words", picture.words},
                 {"kind", picture.kind == Picture::Kind::kMonths ? "months" : "shares"},
                 {"names", std::move(names)},
                 {"series", std::move(series)}});
}

std::string ShownReport::Csv(const Seen& seen) {
  std::ostringstream stream;
  ExportSheet(*Copy(seen.wish), LookOf(seen), locale_, {.byte_order_mark = true}, stream);
  return stream.str();
}

std::string ShownReport::Xlsx(const Seen& seen) {
  std::ostringstream stream;
  ExportXlsx(*Copy(seen.wish), LookOf(seen), locale_, stream);
  return stream.str();
}

std::string ShownReport::Html(const Seen& seen) {
  std::ostringstream stream;
  ExportHtml(*Copy(seen.wish), LookOf(seen), locale_, stream);
  return stream.str();
}

std::string ShownReport::Pdf(const Seen& seen, const print::PrintStyle& style) {
  std::ostringstream stream;
  print::ExportPdf(*Copy(seen.wish), LookOf(seen), locale_, style, stream);
  return stream.str();
}

// With a column go its sums and what stands in its cells.
ReportLook ShownReport::LookOf(const Seen& seen) const {
  ReportLook look = view_.Look();
  look.column = [seen, all = look.column](std::string_view name) {
    ColumnLook column = all ? all(name) : ColumnLook{};
    const auto is_hidden = [&](std::string_view one) { return seen.hidden.contains(one); };
    if (is_hidden(name) || is_hidden(column.stands_in) || is_hidden(SummedColumn(name))) {
      column.shown = false;
    }
    return column;
  };
  if (IsFiltered(seen.wish)) look.group_above = {};  // no group is left
  return look;
}

RecordsetPtr ShownReport::Copy(const Wish& wish) {
  const std::vector<std::size_t>& order = arrangement_.Of(wish);
  RecordsetPtr copy = Recordset::New();
  std::vector<ColumnHandle> columns;
  for (const ColumnInfo& info : report_->Columns()) {
    if (info.type == adChapter) continue;
    const Field field = report_->Fields(info.name);
    copy->Fields().Append(info.name, info.type, field.DefinedSize(), field.Attributes());
    columns.push_back(report_->Column(info.name));
  }
  copy->Open();
  const WorkInHand in_hand;
  for (const std::size_t place : order) {
    in_hand.Check();
    if (!view_.Lines()[place].row) continue;
    const Recordset::Row row = report_->RowAt(*view_.Lines()[place].row);
    copy->AddNew();
    for (std::size_t at = 0; at < columns.size(); ++at) {
      copy->SetFrom(ColumnHandle{static_cast<int>(at)}, row, columns[at]);
    }
    copy->Update();
  }
  return copy;
}

std::optional<std::string> ShownReport::CellText(std::size_t place, std::string_view name) const {
  if (place >= arrangement_.Closing() || !view_.Lines()[place].row || !report_->HasColumn(name)) {
    return std::nullopt;
  }
  const Variant value = report_->RowAt(*view_.Lines()[place].row)[name];
  if (value.IsNull() || value.IsEmpty()) return std::nullopt;
  return value.ToText();
}

std::optional<std::string> ShownReport::AskedText(std::string_view name) const {
  const auto found = asked_.find(name);
  if (found == asked_.end()) return std::nullopt;
  return found->second;
}

std::vector<ShownReport::Followed> ShownReport::Follow(std::size_t place) const {
  std::vector<Followed> followed;
  if (place >= arrangement_.Closing()) return followed;
  for (const Road* road : roads_) {
    auto arguments = automation::FollowedBy(
        *road, [&](std::string_view name) { return CellText(place, name); },
        [&](std::string_view name) { return AskedText(name); });
    if (arguments) followed.push_back({road, std::move(*arguments)});
  }
  return followed;
}

// The twin's number where there is one, else what the text says.
std::optional<double> ShownReport::ValueOf(std::size_t place, std::string_view column) const {
  const Recordset::Row row = report_->RowAt(*view_.Lines()[place].row);
  const std::string twin = std::string(column) + "Sort";
  const bool raw = report_->HasColumn(twin);
  const Variant value = row[raw ? std::string_view(twin) : column];
  if (value.IsNull() || value.IsEmpty()) return std::nullopt;
  const bool text = value.Type() == adBSTR || value.Type() == adVarChar;
  return raw || !text ? value.ToDouble() : NumberIn(value.ToText(), *locale_);
}

}  // namespace pstolvane1::viewer
