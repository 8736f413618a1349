#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <new>
#include <optional>
#include <ostream>
#include <string>
#include <vector>
#include <xlsxwriter.h>

#include "session/data/Error.h"
#include "session/data/OutOfMemory.h"
#include "session/data/ThreadWork.h"
#include "session/rowset/ArchiveParts.h"
#include "session/rowset/Export.h"
#include "session/rowset/ReportView.h"
#include "session/rowset/WorkbookRoom.h"

namespace pstolvane1 {
namespace {

constexpr std::size_t kLargestSheet = 1'048'576;
constexpr double kNarrowest = 8;
constexpr double kWidest = 60;

// How the cells of one column are written: as the numbers that their texts show, or as the texts.
enum class CellKind : std::uint8_t { kText, kNumber, kMoney };

CellKind KindOf(const ReportView& view, std::size_t column) {
  if (!view.Columns()[column].numeric) return CellKind::kText;
  bool numbers = true;
  bool money = true;
  for (const ReportView::Line& line : view.Lines()) {
    const std::string& text = line.cells[column];
    if (text.empty()) continue;
    numbers = numbers && view.TheLocale().ReadNumber(text).has_value();
    money = money && view.TheLocale().ReadCurrency(text).has_value();
  }
  if (numbers) return CellKind::kNumber;
  return money ? CellKind::kMoney : CellKind::kText;
}

std::optional<double> ValueOf(const ReportView& view, CellKind kind, const std::string& text) {
  if (kind == CellKind::kNumber) return view.TheLocale().ReadNumber(text);
  if (kind == CellKind::kMoney) return view.TheLocale().ReadCurrency(text);
  return std::nullopt;
}

// The sheet's own number format; the separators are the reader's, the grouping and symbol ours.
std::string NumberFormat(const ReportView& view, CellKind kind) {
  if (kind == CellKind::kText) return "@";
  const bool indian = view.TheLocale().FormatNumber(1e5).starts_with("1,00,");
  std::string digits = indian ? "#,##,##0" : "#,##0";
  const Locale::CurrencyAffixes affixes = view.TheLocale().Affixes();
  const int decimals = kind == CellKind::kMoney ? affixes.decimals : 2;
  if (decimals > 0) digits += "." + std::string(static_cast<std::size_t>(decimals), '0');
  if (kind == CellKind::kNumber) return digits;
  const auto quoted = [](std::string_view text) {
    return text.empty() ? std::string() : '"' + std::string(text) + '"';
  };
  return quoted(affixes.prefix) + digits + quoted(affixes.suffix);
}

// Characters, not bytes.
double WidthOf(std::string_view text) {
  return static_cast<double>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

class Sheet {
 public:
  // `called` is what messages call the workbook; it must live as long.
  Sheet(const ReportView& view, std::string_view title, WorkbookRoom& room,
        const std::string& called)
      : view_(view), name_(called), room_(room) {
    lxw_workbook_options options{};
    options.tmpdir = room.PartsFolder();
    book_ = workbook_new_opt(room.Path().c_str(), &options);
    if (book_ == nullptr) throw Failure("the workbook cannot be made");
    // A sheet's name may have 31 characters and none of []:*?/\.
    std::string name(title.substr(0, 31));
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

  void Write() {
    if (view_.Lines().size() >= kLargestSheet) {
      throw Failure("a sheet holds 1,048,575 lines below its header, the report has " +
                    std::to_string(view_.Lines().size()));
    }
    WriteHeader();
    for (std::size_t column = 0; column < view_.Columns().size(); ++column) WriteColumn(column);
    WriteNotes();
    worksheet_freeze_panes(sheet_, 1, 0);
    worksheet_repeat_rows(sheet_, 0, 0);
    worksheet_set_landscape(sheet_);
    worksheet_fit_to_pages(sheet_, 1, 0);
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

  void WriteHeader() {
    for (std::size_t column = 0; column < view_.Columns().size(); ++column) {
      lxw_format* const format = NewFormat();
      format_set_bold(format);
      format_set_bottom(format, LXW_BORDER_MEDIUM);
      if (view_.Columns()[column].numeric) format_set_align(format, LXW_ALIGN_RIGHT);
      Require(worksheet_write_string(sheet_, 0, static_cast<lxw_col_t>(column),
                                     view_.Columns()[column].name.c_str(), format));
    }
  }

  // Below the lines, with an empty one between.
  void WriteNotes() {
    auto row = static_cast<lxw_row_t>(view_.Lines().size() + 1);
    for (const std::string& note : view_.Notes()) {
      worksheet_write_string(sheet_, ++row, 0, note.c_str(), nullptr);
    }
  }

  lxw_format* CellFormat(CellKind kind, bool numeric, ReportView::LineKind line) {
    lxw_format* const format = NewFormat();
    format_set_num_format(format, NumberFormat(view_, kind).c_str());
    if (numeric) format_set_align(format, LXW_ALIGN_RIGHT);
    if (line == ReportView::LineKind::kRule) format_set_top(format, LXW_BORDER_THIN);
    if (line == ReportView::LineKind::kTotal) {
      format_set_bold(format);
      format_set_bottom(format, LXW_BORDER_DOUBLE);
    }
    return format;
  }

  void WriteColumn(std::size_t column) {
    using enum ReportView::LineKind;
    const CellKind kind = KindOf(view_, column);
    const bool numeric = view_.Columns()[column].numeric;
    lxw_format* const plain = CellFormat(kind, numeric, kLine);
    lxw_format* const rule = CellFormat(kind, numeric, kRule);
    lxw_format* const total = CellFormat(kind, numeric, kTotal);
    const auto place = static_cast<lxw_col_t>(column);
    double width = std::max(kNarrowest, WidthOf(view_.Columns()[column].name) + 2);
    lxw_row_t row = 0;
    for (const ReportView::Line& line : view_.Lines()) {
      in_hand_.Check();
      ++row;
      const std::string& text = line.cells[column];
      lxw_format* const format = line.kind == kRule ? rule : line.kind == kTotal ? total : plain;
      if (const auto value = ValueOf(view_, kind, text); value && !text.empty()) {
        Require(worksheet_write_number(sheet_, row, place, *value, format));
      } else if (!text.empty()) {
        Require(worksheet_write_string(sheet_, row, place, text.c_str(), format));
      } else if (line.kind != kLine) {
        Require(worksheet_write_blank(sheet_, row, place, format));
      }
      width = std::max(width, WidthOf(text) + 2);
    }
    worksheet_set_column(sheet_, place, place, std::min(width, kWidest), nullptr);
  }

  const WorkInHand in_hand_;
  const ReportView& view_;
  const std::string& name_;
  WorkbookRoom& room_;
  lxw_workbook* book_ = nullptr;
  lxw_worksheet* sheet_ = nullptr;
};

}  // namespace

void ExportXlsx(const Recordset& rowset, std::string_view title,
                const std::shared_ptr<const Locale>& locale, std::ostream& out) {
  TellingWhatRanOut("exporting the rowset", [&] {
    const ReportView view(rowset, locale);
    WorkbookRoom room;
    Sheet(view, title, room, "the workbook").Write();
    out << room.Bytes();
  });
}

void ExportXlsx(const Recordset& rowset, std::string_view title,
                const std::shared_ptr<const Locale>& locale, const std::string& path) {
  TellingWhatRanOut("exporting the rowset", [&] {
    const ReportView view(rowset, locale);
    WorkbookRoom room;
    Sheet(view, title, room, '"' + path + '"').Write();
    room.CopyTo(path);
  });
}

}  // namespace pstolvane1
