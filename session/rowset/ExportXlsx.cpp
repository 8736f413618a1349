#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <map>
#include <new>
#include <ostream>
#include <sstream>
#include <string>
#include <tuple>
#include <variant>
#include <xlsxwriter.h>

#include "session/data/Error.h"
#include "session/data/OutOfMemory.h"
#include "session/data/TextFold.h"
#include "session/data/ThreadWork.h"
#include "session/rowset/ArchiveParts.h"
#include "session/rowset/Export.h"
#include "session/rowset/ReportView.h"
#include "session/rowset/SheetCells.h"
#include "session/rowset/WorkbookRoom.h"

namespace pstolvane1 {
namespace {

constexpr std::size_t kLargestSheet = 1'048'576;
constexpr std::size_t kNarrowest = 6;
constexpr std::size_t kWidest = 60;
constexpr double kOfACharacter = 1.1;  // bold figures are wider than the sheet's usual ones
constexpr double kTitleSize = 14;
constexpr int kDeepest = 7;  // levels of an outline
constexpr std::size_t kColumnsOfAPage = 20;
constexpr std::uint8_t kA4 = 9;
constexpr double kMargin = 0.4, kFootMargin = 0.6;  // inches

std::size_t LongestWord(const std::string& label) {
  std::size_t longest = 0;
  std::istringstream words(label);
  for (std::string word; words >> word;) longest = std::max(longest, CountCharacters(word));
  return longest;
}

// At most so many bytes, and none of a character that is cut.
std::string FirstCharacters(const std::string& text, std::size_t bytes) {
  std::size_t end = std::min(text.size(), bytes);
  const auto goes_on = [&] {
    return end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U;
  };
  while (end > 0 && goes_on()) --end;
  return text.substr(0, end);
}

class Sheet {
 public:
  // `called` is what messages call the workbook; it must live as long.
  Sheet(const ReportView& view, WorkbookRoom& room, const std::string& called)
      : view_(view),
        name_(called),
        room_(room),
        top_(view.Look().lines.empty() ? 0 : view.Look().lines.size() + 2) {
    lxw_workbook_options options{};
    options.tmpdir = room.PartsFolder();
    book_ = workbook_new_opt(room.Path().c_str(), &options);
    if (book_ == nullptr) throw Failure("the workbook cannot be made");
    // A sheet's name may have 31 characters and none of []:*?/\.
    std::string name = FirstCharacters(view.Look().title, 31);
    std::replace_if(
        name.begin(), name.end(),
        [](char c) { return std::string_view("[]:*?/\\'").find(c) != std::string_view::npos; },
        ' ');
    sheet_ = workbook_add_worksheet(book_, name.c_str());
    if (sheet_ == nullptr) sheet_ = workbook_add_worksheet(book_, nullptr);
  }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;
  ~Sheet() {
    if (book_ != nullptr) lxw_workbook_free(book_);
  }

  void Write(const Recordset& rowset) {
    const std::size_t rows = top_ + view_.Lines().size() + view_.Notes().size() + 2;
    if (rows > kLargestSheet) {
      throw Failure("a sheet holds 1,048,576 lines, the report has " +
                    std::to_string(view_.Lines().size()));
    }
    WriteTitle();
    WriteHeads();
    for (std::size_t column = 0; column < view_.Columns().size(); ++column) {
      WriteColumn(rowset, column);
    }
    FoldGroups();
    WriteNotes();
    SetUp();
    const lxw_error error = workbook_close(book_);
    book_ = nullptr;
    Require(error);
    // The writer of workbooks does not notice a part that found no room on its way.
    if (!BrokenPart(room_.Bytes()).empty()) {
      throw Failure(
          fmt::format("there is no room in \"{}\", where its parts are made", room_.PartsFolder()));
    }
  }

 private:
  void Require(lxw_error error) const {
    if (error == LXW_ERROR_MEMORY_MALLOC_FAILED) throw std::bad_alloc();
    if (error == LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED) {
      throw Failure("a cell holds 32,767 characters, and a text of the report is longer");
    }
    if (error != LXW_NO_ERROR) throw Failure(lxw_strerror(error));
  }

  [[nodiscard]] lxw_format* NewFormat() const {
    lxw_format* const format = workbook_add_format(book_);
    if (format == nullptr) throw std::bad_alloc();
    return format;
  }

  [[nodiscard]] Error Failure(const std::string& why) const {
    return {ErrorNumber::kArgumentOutOfRange, "cannot write " + name_ + ": " + why};
  }

  void WriteText(std::size_t row, std::size_t column, const std::string& text, lxw_format* format) {
    Require(worksheet_write_string(sheet_, static_cast<lxw_row_t>(row),
                                   static_cast<lxw_col_t>(column), text.c_str(), format));
  }

  // The title and what stands below it, and an empty line; nothing where there is no more to say
  // than the sheet's name.
  void WriteTitle() {
    if (view_.Look().lines.empty()) return;
    lxw_format* const bold = NewFormat();
    format_set_bold(bold);
    format_set_font_size(bold, kTitleSize);
    WriteText(0, 0, view_.Look().title, bold);
    std::size_t row = 0;
    for (const std::string& line : view_.Look().lines) WriteText(++row, 0, line, nullptr);
  }

  void WriteHeads() {
    for (std::size_t column = 0; column < view_.Columns().size(); ++column) {
      lxw_format* const format = NewFormat();
      format_set_bold(format);
      format_set_bottom(format, LXW_BORDER_MEDIUM);
      format_set_text_wrap(format);
      format_set_align(format, LXW_ALIGN_VERTICAL_BOTTOM);
      if (view_.Columns()[column].numeric) format_set_align(format, LXW_ALIGN_RIGHT);
      WriteText(top_, column, view_.Columns()[column].label, format);
    }
  }

  // Below the lines, with an empty one between.
  void WriteNotes() {
    std::size_t row = top_ + view_.Lines().size() + 1;
    for (const std::string& note : view_.Notes()) WriteText(++row, 0, note, nullptr);
  }

  // Formats are made once for all cells that look alike.
  lxw_format* FormatOf(const std::string& number, bool right, int indent,
                       ReportView::LineKind line) {
    using enum ReportView::LineKind;
    lxw_format*& format = formats_[{number, right, indent, line}];
    if (format != nullptr) return format;
    format = NewFormat();
    if (!number.empty()) format_set_num_format(format, number.c_str());
    if (right) format_set_align(format, LXW_ALIGN_RIGHT);
    if (indent > 0) format_set_indent(format, static_cast<std::uint8_t>(indent));
    if (line == kGroup || line == kTotal) format_set_bold(format);
    if (line == kRule) format_set_top(format, LXW_BORDER_THIN);
    if (line == kTotal) format_set_bottom(format, LXW_BORDER_DOUBLE);
    return format;
  }

  void WriteCell(const SheetCell& cell, std::size_t at, std::size_t column,
                 const ReportView::Line& line) {
    const int indent = std::min(view_.IndentOf(line, column), kDeepest);
    const bool drawn =
        line.kind == ReportView::LineKind::kRule || line.kind == ReportView::LineKind::kTotal;
    const auto row = static_cast<lxw_row_t>(at);
    const auto place = static_cast<lxw_col_t>(column);
    lxw_format* const format =
        FormatOf(cell.format, view_.Columns()[column].numeric, indent, line.kind);
    if (const auto* number = std::get_if<double>(&cell.value)) {
      Require(worksheet_write_number(sheet_, row, place, *number, format));
    } else if (const auto* flag = std::get_if<bool>(&cell.value)) {
      Require(worksheet_write_boolean(sheet_, row, place, *flag ? 1 : 0, format));
    } else if (const auto* text = std::get_if<std::string>(&cell.value)) {
      WriteText(at, column, *text, format);
    } else if (drawn) {
      Require(worksheet_write_blank(sheet_, row, place, format));
    }
  }

  void WriteColumn(const Recordset& rowset, std::size_t column) {
    const ReportView::Column& its = view_.Columns()[column];
    std::size_t width = kNarrowest;
    for (std::size_t at = 0; at < view_.Lines().size(); ++at) {
      in_hand_.Check();
      const ReportView::Line& line = view_.Lines()[at];
      const std::string& text = line.cells[column];
      WriteCell(CellOf(view_, line, column, rowset), top_ + 1 + at, column, line);
      if (!line.is_heading) {
        const auto indent = 2 * static_cast<std::size_t>(view_.IndentOf(line, column));
        width = std::max(width, CountCharacters(text) + indent + 1);
      }
    }
    width = std::max(width, LongestWord(its.label) + 3);  // with the filter's button
    const auto place = static_cast<lxw_col_t>(column);
    worksheet_set_column(sheet_, place, place,
                         static_cast<double>(std::min(width, kWidest)) * kOfACharacter, nullptr);
  }

  // Deeper lines fold below the line that heads them.
  void FoldGroups() {
    bool folds = false;
    for (std::size_t at = 0; at < view_.Lines().size(); ++at) {
      const int level = view_.Lines()[at].level;
      if (level == 0) continue;
      folds = true;
      lxw_row_col_options options{};
      options.level = static_cast<std::uint8_t>(std::min(level, kDeepest));
      worksheet_set_row_opt(sheet_, static_cast<lxw_row_t>(top_ + 1 + at), LXW_DEF_ROW_HEIGHT,
                            nullptr, &options);
    }
    if (folds) worksheet_outline_settings(sheet_, LXW_TRUE, LXW_FALSE, LXW_FALSE, LXW_FALSE);
  }

  // The last line that the filter takes: not the total, which stays.
  [[nodiscard]] std::size_t LastFiltered() const {
    std::size_t last = view_.Lines().size();
    while (last > 0 && view_.Lines()[last - 1].kind != ReportView::LineKind::kLine) --last;
    return top_ + last;
  }

  void SetUp() {
    const auto heads = static_cast<lxw_row_t>(top_);
    worksheet_freeze_panes(sheet_, heads + 1, view_.Columns().size() > 1 ? 1 : 0);
    if (!view_.Columns().empty()) {
      const auto last = static_cast<lxw_col_t>(view_.Columns().size() - 1);
      worksheet_autofilter(sheet_, heads, 0, static_cast<lxw_row_t>(LastFiltered()), last);
    }
    worksheet_repeat_rows(sheet_, heads, heads);
    worksheet_repeat_columns(sheet_, 0, 0);
    worksheet_set_landscape(sheet_);
    worksheet_set_paper(sheet_, kA4);
    worksheet_set_margins(sheet_, kMargin, kMargin, kMargin, kFootMargin);
    worksheet_set_footer(sheet_, "&L&A&R&P / &N");
    // A page across holds so many columns that figures can still be read; more go to pages beside.
    const auto pages = static_cast<std::uint16_t>((view_.Columns().size() + kColumnsOfAPage - 1) /
                                                  kColumnsOfAPage);
    worksheet_fit_to_pages(sheet_, std::max<std::uint16_t>(pages, 1), 0);
  }

  const WorkInHand in_hand_;
  const ReportView& view_;
  const std::string& name_;
  WorkbookRoom& room_;
  const std::size_t top_;  // the row of the heads
  lxw_workbook* book_ = nullptr;
  lxw_worksheet* sheet_ = nullptr;
  std::map<std::tuple<std::string, bool, int, ReportView::LineKind>, lxw_format*> formats_;
};

}  // namespace

void ExportXlsx(const Recordset& rowset, const ReportLook& look,
                const std::shared_ptr<const Locale>& locale, std::ostream& out) {
  TellingWhatRanOut("exporting the rowset", [&] {
    const WorkInHand in_hand;
    const ReportView view(rowset, locale, look);
    WorkbookRoom room;
    Sheet(view, room, "the workbook").Write(rowset);
    out << room.Bytes();
  });
}

void ExportXlsx(const Recordset& rowset, std::string_view title,
                const std::shared_ptr<const Locale>& locale, std::ostream& out) {
  ExportXlsx(rowset, ReportLook{.title = std::string(title)}, locale, out);
}

void ExportXlsx(const Recordset& rowset, const ReportLook& look,
                const std::shared_ptr<const Locale>& locale, const std::string& path) {
  TellingWhatRanOut("exporting the rowset", [&] {
    const WorkInHand in_hand;
    const ReportView view(rowset, locale, look);
    WorkbookRoom room;
    Sheet(view, room, '"' + path + '"').Write(rowset);
    room.CopyTo(path);
  });
}

void ExportXlsx(const Recordset& rowset, std::string_view title,
                const std::shared_ptr<const Locale>& locale, const std::string& path) {
  ExportXlsx(rowset, ReportLook{.title = std::string(title)}, locale, path);
}

}  // namespace pstolvane1
