#include "session/rowset/ViewColumns.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <utility>

#include "session/data/TextFold.h"
#include "session/data/ThreadWork.h"
#include "session/rowset/TreeOrder.h"

namespace pstolvane1 {
namespace {

constexpr const char* kTotal = "Total";

bool EndsWith(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() &&
         EqualFolded(name.substr(name.size() - ending.size()), ending);
}

bool IsNumberType(DataType type) {
  return type == adInteger || type == adSingle || type == adDouble || type == adCurrency ||
         type == adBigInt;
}

bool IsPlainWhole(std::string_view text) {
  constexpr std::size_t kExact = 15;
  return !text.empty() && text.size() <= kExact &&
         std::ranges::all_of(text, [](char c) { return '0' <= c && c <= '9'; });
}

// "12.50", "₹12.50", "12.50 Nos", "12.50%" and "12".
bool LooksNumeric(std::string_view text, const Locale& locale) {
  if (text.ends_with('%')) text.remove_suffix(1);
  return locale.ReadNumber(text) || locale.ReadCurrency(text) ||
         locale.ReadNumber(text.substr(0, text.find(' '))) || IsPlainWhole(text);
}

std::string CellText(const Recordset::Row& row, ColumnHandle handle, DataType type,
                     const Locale& locale) {
  if (row.IsNull(handle)) return {};
  switch (type) {
    case adBSTR:
    case adVarChar:
      return std::string(row.Text(handle));
    case adCurrency:
      return locale.FormatCurrency(row[handle].ToCurrency());
    case adDate:
      return locale.FormatGeneralDate(row[handle].ToDate());
    default:
      return row[handle].ToText();
  }
}

bool HasContent(const ViewColumn& column) {
  return std::ranges::any_of(column.texts, [](const std::string& text) { return !text.empty(); });
}

void Judge(ViewColumn& column, const Locale& locale) {
  for (const std::string& text : column.texts) {
    if (text.empty()) continue;
    column.content = true;
    column.column.numeric =
        column.column.numeric && (IsNumberType(column.type) || LooksNumeric(text, locale));
  }
}

// Nothing but "_".
bool IsRuleText(std::string_view text) {
  return !text.empty() && text.find_first_not_of('_') == std::string_view::npos;
}

void ReadTexts(const Recordset& rowset, const Locale& locale, bool report, ViewColumn& column,
               std::vector<char>& rules) {
  const WorkInHand in_hand;
  const bool wanted = column.look.shown || !column.look.stands_in.empty() || column.look.level != 0;
  std::size_t at = 0;
  for (const Recordset::Row row : rowset.Rows()) {
    in_hand.Check();
    std::string text = CellText(row, column.column.handle, column.type, locale);
    if (text.empty() && !row.IsNull(column.column.handle)) text = column.look.nameless;
    if (report && IsRuleText(text)) {
      rules[at] = 1;
      text.clear();
    }
    column.texts.push_back(wanted ? std::move(text) : std::string());
    ++at;
  }
}

void ReadColumns(const Recordset& rowset, const Locale& locale, const ReportLook& look, bool report,
                 ViewColumns& view) {
  for (const Recordset::Row row : rowset.Rows()) view.rows.emplace_back(row.Bookmark());
  view.rules.resize(view.rows.size());
  for (const ColumnInfo& info : rowset.Columns()) {
    const bool twin_or_key = report && (EndsWith(info.name, "Sort") || EndsWith(info.name, "_Id"));
    if (twin_or_key || info.type == adChapter) continue;
    const ColumnLook its = look.column ? look.column(info.name) : ColumnLook{};
    ViewColumn& column = view.columns.emplace_back();
    column.column = {info.name,   rowset.Column(info.name),
                     true,        its.label.empty() ? info.name : its.label,
                     its.unit_of, its.telling};
    column.look = its;
    column.type = info.type;
    ReadTexts(rowset, locale, report, column, view.rules);
  }
  std::stable_partition(view.columns.begin(), view.columns.end(),
                        [](const ViewColumn& one) { return one.look.leads; });
}

ViewColumn* Find(std::vector<ViewColumn>& columns, std::string_view name) {
  const auto found = std::ranges::find_if(columns, [&](const ViewColumn& one) {
    return !name.empty() && one.look.shown && EqualFolded(one.column.name, name);
  });
  return found == columns.end() ? nullptr : &*found;
}

bool ShareALine(const ViewColumn& a, const ViewColumn& b) {
  for (std::size_t row = 0; row < a.texts.size(); ++row) {
    if (!a.texts[row].empty() && !b.texts[row].empty()) return true;
  }
  return false;
}

void FillFrom(ViewColumn& from, ViewColumn& column) {
  for (std::size_t row = 0; row < column.texts.size(); ++row) {
    if (column.texts[row].empty()) column.texts[row] = std::move(from.texts[row]);
    from.texts[row].clear();
  }
}

// The marks of a text: at most one more than the text above it has, as a name may begin like that.
std::size_t MarksOf(const std::string& text, char mark, std::size_t most) {
  const std::size_t marks = std::min(text.find_first_not_of(mark), text.size());
  return std::min(marks, most);
}

// Takes the marks of depth from the texts of a column.
void ReadMarks(ViewColumn& column, ViewColumns& view) {
  std::size_t most = 0;
  int depth = 0;
  for (std::size_t row = 0; row < column.texts.size(); ++row) {
    std::string& text = column.texts[row];
    if (!text.empty()) {
      const std::size_t marks = MarksOf(text, column.look.depth_mark, most);
      text.erase(0, marks);
      most = marks + 1;
      depth = static_cast<int>(marks);
      view.levels[row] = depth;
    } else if (view.levels[row] > 0) {
      view.levels[row] += depth;
    }
  }
}

// What tells the depth of a line, before its text goes to where it stands.
void ReadLevels(ViewColumns& view) {
  for (ViewColumn& column : view.columns) {
    for (std::size_t row = 0; row < column.texts.size(); ++row) {
      std::string& text = column.texts[row];
      if (text.empty()) continue;
      if (column.look.level == ColumnLook::kHeading) {
        view.headings[row] = 1;
      } else {
        view.levels[row] = std::max(view.levels[row], column.look.level);
      }
      // A text that is moved in by blanks.
      const bool in_front = column.look.leads || column.look.level > 0;
      const std::size_t blanks = text.find_first_not_of(' ');
      if (!in_front || blanks == 0 || blanks == std::string::npos) continue;
      text.erase(0, blanks);
      view.levels[row] = std::max(view.levels[row], 1);
    }
  }
  for (ViewColumn& column : view.columns) {
    if (column.look.depth_mark != '\0') ReadMarks(column, view);
  }
}

// The columns that tell how deep a line stands, and those that their texts go to.
bool TellsDepth(const ViewColumn& column, const std::vector<ViewColumn>& columns) {
  return column.look.leads || column.look.level != 0 ||
         std::ranges::any_of(columns, [&](const ViewColumn& one) {
           return one.look.level > 0 && EqualFolded(one.look.stands_in, column.column.name);
         });
}

// Depths at which no line with a name stands are left out; a line without one stands outermost.
void CloseUp(ViewColumns& view) {
  std::vector<char> named(view.levels.size());
  for (const ViewColumn& column : view.columns) {
    if (!TellsDepth(column, view.columns)) continue;
    for (std::size_t row = 0; row < named.size(); ++row) {
      if (!column.texts[row].empty()) named[row] = 1;
    }
  }
  std::set<int> there;
  for (std::size_t row = 0; row < named.size(); ++row) {
    if (named[row] != 0) there.insert(view.levels[row]);
  }
  for (int& level : view.levels) {
    level = static_cast<int>(std::distance(there.begin(), there.lower_bound(level)));
  }
}

void StandAsTheyLook(std::vector<ViewColumn>& columns) {
  for (ViewColumn& column : columns) {
    ViewColumn* const target = Find(columns, column.look.stands_in);
    if (target == nullptr || target == &column) continue;
    if (column.look.shown && ShareALine(column, *target)) continue;
    FillFrom(column, *target);
  }
}

// The row of the only text, if that is the last row.
bool IsAllOnTheLastRow(const ViewColumn& column) {
  const auto first =
      std::ranges::find_if(column.texts, [](const std::string& text) { return !text.empty(); });
  return first != column.texts.end() && first + 1 == column.texts.end();
}

class Sums {
 public:
  explicit Sums(ViewColumns& view) : view_(view), columns_(view.columns) {}

  void Stand() {
    const auto first = std::ranges::find_if(
        columns_, [](const ViewColumn& one) { return one.look.shown && HasContent(one); });
    if (first == columns_.end()) return;
    last_line_.resize(columns_.size());
    for (ViewColumn& sums : columns_) {
      if (&sums == &*first || !HasContent(sums)) continue;
      if (EqualFolded(sums.column.name, kTotal)) {
        if (!ShareALine(sums, *first)) Move(sums, *first, true);
        continue;
      }
      ViewColumn* const column = Find(columns_, SummedColumn(sums.column.name));
      if (column == nullptr || column == &sums) continue;
      const bool of_a_group = EqualFolded(sums.column.name.substr(0, 3), "Grp");
      if (!ShareALine(sums, *column)) {
        Move(sums, *column, !of_a_group);
      } else if (IsAllOnTheLastRow(sums)) {
        last_line_[static_cast<std::size_t>(column - columns_.data())] =
            std::exchange(sums.texts.back(), {});
        needs_line_ = true;
      }
    }
    if (needs_line_) AddLine(*first);
  }

 private:
  void Move(ViewColumn& sums, ViewColumn& column, bool of_the_report) {
    for (std::size_t row = 0; of_the_report && row < sums.texts.size(); ++row) {
      if (!sums.texts[row].empty()) view_.sums[row] = 1;
    }
    FillFrom(sums, column);
  }

  // A rule, and the sums of the whole report.
  void AddLine(ViewColumn& first) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      ViewColumn& column = columns_[i];
      const bool is_first = &column == &first;
      column.texts.emplace_back();
      column.texts.push_back(is_first ? kTotal : last_line_[i]);
    }
    for (const bool is_sum : {false, true}) {
      view_.rows.emplace_back();
      view_.rules.push_back(is_sum ? 0 : 1);
      view_.levels.push_back(0);
      view_.headings.push_back(0);
      view_.sums.push_back(is_sum ? 1 : 0);
    }
  }

  ViewColumns& view_;
  std::vector<ViewColumn>& columns_;
  std::vector<std::string> last_line_;
  bool needs_line_ = false;
};

}  // namespace

std::string_view SummedColumn(std::string_view name) {
  for (const std::string_view prefix : {"Total", "Tot", "Grp"}) {
    if (name.size() > prefix.size() && EqualFolded(name.substr(0, prefix.size()), prefix)) {
      return name.substr(prefix.size());
    }
  }
  return {};
}

ViewColumns ReadViewColumns(const Recordset& rowset, const Locale& locale, const ReportLook& look,
                            bool report) {
  ViewColumns view;
  ReadColumns(rowset, locale, look, report, view);
  view.levels.resize(view.rules.size());
  view.headings.resize(view.rules.size());
  view.sums.resize(view.rules.size());
  if (report) {
    ReadLevels(view);
    CloseUp(view);
    StandAsTheTree(rowset, look, view);
    StandAsTheyLook(view.columns);
    Sums(view).Stand();
  }
  std::erase_if(view.columns, [](const ViewColumn& one) { return !one.look.shown; });
  for (ViewColumn& column : view.columns) Judge(column, locale);
  return view;
}

}  // namespace pstolvane1
