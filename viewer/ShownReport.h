// A finished report as a page shows it: its lines in windows, sorted and filtered.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "automation/CallInWords.h"
#include "automation/CallTexts.h"
#include "automation/Pictures.h"
#include "automation/Roads.h"
#include "host/print/ExportPdf.h"
#include "session/data/Recordset.h"
#include "session/rowset/ReportView.h"
#include "viewer/Arrangement.h"
#include "viewer/Presentation.h"

namespace pstolvane1::viewer {

// Belongs to the thread of the report's session. All texts are JSON unless said otherwise.
class ShownReport {
 public:
  ShownReport(RecordsetPtr report, const automation::CallInWords& call,
              std::shared_ptr<const Locale> locale, Presentation presentation, bool whole);

  // {"title", "below", "columns": [{"name", "label", "numeric", "longest", "indent", "sorts"}],
  // "lines", "notes", "warnings", "pictures", "whole"}. "indent" is the level of the longest cell
  // in its column. Lines are counted without rules, spacers and what closes.
  [[nodiscard]] std::string Head() const;
  // {"count", "from", "lines": [[KIND, ROAD, PLACE, LEVEL, CELL ...]]}: how many lines the wish
  // leaves, and some of them. KIND is "line", "group" with the sums of those at its side, "total",
  // "rule" or "spacer"; ROAD is 1 where the line leads somewhere. Errors as of the arrangement.
  [[nodiscard]] std::string Lines(const Wish& wish, std::size_t from, std::size_t count);
  // [{"words", "operation", "arguments": {NAME: TEXT}}] of the line at a PLACE.
  [[nodiscard]] std::string RoadsOf(std::size_t place) const;
  // {"words", "kind", "names": [...], "series": [{"name", "values": [...]}]}; no value is null.
  [[nodiscard]] std::string PictureAt(std::size_t index) const;

  // What is seen, as a file: the lines that the wish leaves, without the hidden columns.
  struct Seen {
    Wish wish;
    std::set<std::string, std::less<>> hidden;
  };
  [[nodiscard]] std::string Csv(const Seen& seen);
  [[nodiscard]] std::string Xlsx(const Seen& seen);
  [[nodiscard]] std::string Html(const Seen& seen);
  [[nodiscard]] std::string Pdf(const Seen& seen, const print::PrintStyle& style);
  [[nodiscard]] const std::string& Name() const { return name_; }  // of the operation

 private:
  struct Followed {
    const automation::Road* road;
    std::vector<std::string> arguments;  // "NAME=VALUE"
  };

  [[nodiscard]] RecordsetPtr Copy(const Wish& wish);  // the arranged rows
  [[nodiscard]] ReportLook LookOf(const Seen& seen) const;
  [[nodiscard]] std::optional<std::string> CellText(std::size_t place, std::string_view name) const;
  [[nodiscard]] std::optional<std::string> AskedText(std::string_view name) const;
  [[nodiscard]] std::vector<Followed> Follow(std::size_t place) const;
  [[nodiscard]] std::optional<double> ValueOf(std::size_t place, std::string_view column) const;

  const RecordsetPtr report_;
  const std::shared_ptr<const Locale> locale_;
  const ReportView view_;
  const std::vector<std::string> warnings_;
  const bool whole_;
  const std::string name_;
  const automation::CallTexts asked_;
  std::vector<const automation::Road*> roads_;
  std::vector<const automation::Picture*> pictures_;
  Arrangement arrangement_;
};

}  // namespace pstolvane1::viewer
