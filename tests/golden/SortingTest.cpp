// The reports of the cases, twenty of each operation at most, sorted by every twin.
#include <algorithm>
#include <cctype>
#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "CaseFile.h"
#include "Play.h"
#include "SmallBooks.h"
#include "automation/Operations.h"
#include "automation/SortText.h"
#include "session/ReportType.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1::golden {
namespace {

using automation::DummySortForm;
using automation::SortedReport;
using automation::SortRule;
using automation::SortText;

// By which columns the lines of one group or document are known.
const std::map<std::string, std::vector<std::string>, std::less<>> kBlocks = {
    {"StockDetails_Itemwise", {"Item_Id"}},
    {"StockDetails_Categorywise", {"Category_Id"}},
    {"StockDetails_Classwise", {"Category_Id"}},
    {"StockDetails_Godownwise", {"Category_Id"}},
    {"FreeQuantity_Itemwise",
     {"DateSort", "RefNoSort", "PrefixSort", "SuffixSort", "VhrTypeSort", "ParticularsSort"}},
    {"FreeQuantity_Partywise",
     {"DateSort", "RefNoSort", "PrefixSort", "SuffixSort", "VhrTypeSort", "ParticularsSort"}},
    {"PendingByItem",
     {"DateSort", "RefNoSort", "PrefixSort", "SuffixSort", "VhrTypeSort", "ParticularsSort"}},
    {"PendingByLedger",
     {"DateSort", "RefNoSort", "PrefixSort", "SuffixSort", "VhrTypeSort", "ParticularsSort"}},
    {"PendingByEmployee",
     {"DateSort", "RefNoSort", "PrefixSort", "SuffixSort", "VhrTypeSort", "ParticularsSort"}},
    {"CustomerItemwise_Analysis", {"IDPar"}},
    {"Movement_PurchaseReturns_Analysis", {"IDPar"}},
    {"CustomerItemDaily_Analysis", {"Parentname"}},
    {"Movement_PurchaseReturns_DailyAnalysis", {"Parentname"}},
    {"Colorwise_Initial", {"Parent_Id"}},
    {"mColorwise_Initial", {"Parent_Id"}},
    {"ItemWise_DlyBkup", {"HeadSort"}},
    {"ServiceReportRegno", {"RegistrationNumberSort"}},
    {"FreeServiceReport", {"Category_id"}},
    {"FreeServiceReportDaily", {"Desr_Id"}},
    {"MechanicLabourReport", {"Mechanic_ID"}},
    {"MechanicLabourReportDaily", {"HeadSort"}},
    {"HypoReport", {"Hypo_id"}},
    {"ServiceTax", {"desr_id"}},
    {"BillWiseQuery", {"Desr_Id"}},
};

std::string LowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

std::string ArgumentOf(const TextCall& call, const std::string& name) {
  for (const TextArgument& one : call.arguments) {
    if (LowerCase(one.name) == LowerCase(name)) return one.value;
  }
  return {};
}

// Where a key that names one thing asks for its details.
const std::map<std::string, std::string, std::less<>> kOneInDetail = {
    {"CustomerItemwise_Analysis", "lngId"},
    {"Movement_PurchaseReturns_Analysis", "lngId"},
    {"Commission_Initial", "lngId1"},
    {"FreeServiceReport", "Cat_id"},
    {"HypoReport", "Hypo_id"},
    {"MechanicLabourReport", "Mechanic_id"}};

// The daily analysis goes by the details of the analysis before it.
SortedReport Asked(const CaseFile& file) {
  const TextCall& call = file.calls.back();
  SortedReport asked{.operation = call.operation};
  for (const TextCall& one : file.calls) {
    asked.detailed = ArgumentOf(one, "blnDetailed") == "true";
    const auto found = kOneInDetail.find(one.operation);
    if (found == kOneInDetail.end()) continue;
    const std::string key = ArgumentOf(one, found->second);
    const bool all =
        key.empty() || key == "0" || (key == "-1" && one.operation != "MechanicLabourReport");
    if (!all) asked.detailed = true;
  }
  const std::string type = ArgumentOf(call, "reptype");
  if (type == "rtMovement_AreaLedgerAnalysis") asked.asked = rtMovement_AreaLedgerAnalysis;
  if (type == "rtMovement_SalesReturns_ItemRelationAnalysis") {
    asked.asked = rtMovement_SalesReturns_ItemRelationAnalysis;
    asked.detailed = ArgumentOf(call, "blnDetailed") == "true";
  }
  const std::string method = ArgumentOf(call, "ValuationMethod");
  if (method == "FifoRate") asked.asked = FifoRate;
  if (method == "LifoRate") asked.asked = LifoRate;
  return asked;
}

bool IsRule(const std::string& text) {
  return !text.empty() && text.find_first_not_of('_') == std::string::npos;
}

// A report's lines by their place in it.
class Lines {
 public:
  Lines(const RecordsetPtr& report, const std::vector<std::string>& block_columns)
      : rowset_(report->Clone(adLockUnspecified)) {
    for (const ColumnInfo& column : rowset_->Columns()) {
      const std::string name = LowerCase(column.name);
      if (name.ends_with("sort") && name != "dummysort") twins_.push_back(column.name);
    }
    for (const Recordset::Row row : rowset_->Rows()) {
      std::string block;
      for (const std::string& column : block_columns) {
        const std::string text = row[column].IsNull() ? "" : row[column].ToText();
        if (!text.empty()) block += LowerCase(text) + "|";  // as a sort compares them
      }
      places_[row.Bookmark()] = marks_.size();
      marks_.push_back(row.Bookmark());
      blocks_.push_back(block);
      closing_.push_back(false);
    }
    MarkClosingLines();
  }

  [[nodiscard]] const std::vector<std::string>& Twins() const { return twins_; }

  // The places of the lines in that order.
  [[nodiscard]] std::vector<std::size_t> Sorted(const std::string& sort) const {
    rowset_->Sort(sort);
    std::vector<std::size_t> places;
    for (const Recordset::Row row : rowset_->Rows()) {
      places.push_back(places_.at(row.Bookmark()));
    }
    return places;
  }

  // From the rule above the total on, all lines are behind all others.
  [[nodiscard]] bool ClosingLinesAreLast(const std::vector<std::size_t>& order) const {
    const auto closes = [&](std::size_t place) { return closing_[place]; };
    return std::ranges::is_partitioned(order, std::not_fn(closes));
  }

  // The lines of each block stand behind one another, as many blocks as in the report; a block's
  // first line is still its first, unless it has no value in the twin and the order descends.
  [[nodiscard]] bool BlocksAreWhole(const std::vector<std::size_t>& order, const std::string& twin,
                                    bool descending) const {
    const auto before = Blocks(Sorted(""));
    const auto after = Blocks(order);
    if (before.size() != after.size()) return false;
    const ColumnHandle column = rowset_->Column(twin);
    return std::ranges::all_of(after, [&](const auto& block) {
      const std::size_t head = *std::ranges::min_element(block);
      return block.front() == head || (descending && rowset_->RowAt(marks_[head]).IsNull(column));
    });
  }

 private:
  // A rule above lines without twins, down to the last one; no empty line stands among them.
  void MarkClosingLines() {
    std::size_t first = closing_.size();
    for (std::size_t place = closing_.size(); place-- > 0;) {
      const Recordset::Row row = rowset_->RowAt(marks_[place]);
      const auto is_null = [&](const std::string& twin) { return row[twin].IsNull(); };
      const std::set<std::string> texts = TextsOf(row);
      if (texts.empty() || !std::ranges::all_of(twins_, is_null)) break;
      if (std::ranges::all_of(texts, IsRule)) first = place;
    }
    std::fill(closing_.begin() + static_cast<std::ptrdiff_t>(first), closing_.end(), true);
  }

  [[nodiscard]] std::set<std::string> TextsOf(const Recordset::Row& row) const {
    std::set<std::string> texts;
    for (const ColumnInfo& column : rowset_->Columns()) {
      if (LowerCase(column.name) == "dummysort" || row[column.name].IsNull()) continue;
      const std::string text = row[column.name].ToText();
      if (!text.empty()) texts.insert(text);
    }
    return texts;
  }

  [[nodiscard]] std::vector<std::vector<std::size_t>> Blocks(
      const std::vector<std::size_t>& order) const {
    std::vector<std::vector<std::size_t>> blocks;
    std::string last;
    for (const std::size_t place : order) {
      if (closing_[place] || blocks_[place].empty()) continue;
      if (blocks.empty() || blocks_[place] != last) blocks.emplace_back();
      blocks.back().push_back(place);
      last = blocks_[place];
    }
    return blocks;
  }

  RecordsetPtr rowset_;
  std::vector<std::string> twins_;
  std::map<Bookmark, std::size_t> places_;
  std::vector<Bookmark> marks_;
  std::vector<std::string> blocks_;
  std::vector<bool> closing_;
};

bool StaysTogether(const SortRule& rule, const std::string& twin) {
  if (rule.together.empty()) return true;
  return (" " + LowerCase(std::string(rule.together)) + " ").find(" " + LowerCase(twin) + " ") !=
         std::string::npos;
}

RecordsetPtr ReportOf(const CaseFile& file) {
  const SmallBooks books(file.books);
  const auto path =
      std::ranges::find(file.settings, "path", &std::pair<std::string, std::string>::first);
  const bool fetched = path != file.settings.end() && path->second == "asynchronous";
  return Play(file, fetched ? Path::kAsynchronous : Path::kSynchronous, books.ConnectionString())
      .rowset;
}

// Sorts a report by every twin both ways, and says which twins part its lines.
std::set<std::string> SortByEveryTwin(const CaseFile& file, const RecordsetPtr& report) {
  const SortedReport asked = Asked(file);
  const SortRule rule = automation::SortRuleOf(asked);
  const auto blocks = kBlocks.find(asked.operation);
  const Lines lines(report, blocks == kBlocks.end() ? std::vector<std::string>() : blocks->second);
  std::set<std::string> parted;
  for (const std::string& twin : lines.Twins()) {
    for (const bool descending : {false, true}) {
      const std::string text = SortText(asked, twin, descending);
      SCOPED_TRACE(text);
      const std::vector<std::size_t> order = lines.Sorted(text);
      const bool closed = lines.ClosingLinesAreLast(order);
      if (!closed) parted.insert("closing lines");
      EXPECT_TRUE(closed || !rule.closing_last);
      const bool whole = lines.BlocksAreWhole(order, twin, descending);
      if (!whole) parted.insert(twin);
      EXPECT_TRUE(whole || !StaysTogether(rule, twin));
    }
  }
  return parted;
}

TEST(Sorting, KeepsTotalsLastAndLinesTogetherAsTheRuleOfEachReportSays) {
  std::set<std::string> sorted;
  std::map<std::string, std::set<std::string>> parted;
  constexpr int kCasesOfAReport = 20;
  std::map<std::string, int> tried;
  for (const std::string& name : AllCases()) {
    if (++tried[name.substr(0, name.find('/'))] > kCasesOfAReport) continue;
    const CaseFile file = ReadCase(kCases + "/" + name, kCases);
    if (file.expected.IsError()) continue;
    SCOPED_TRACE(name);
    const RecordsetPtr report = ReportOf(file);
    const SortedReport asked = Asked(file);
    const SortRule rule = automation::SortRuleOf(asked);
    if (report == nullptr || !report->HasColumn("DummySort")) {
      EXPECT_EQ(rule.form, DummySortForm::kNone);
      continue;
    }
    sorted.insert(std::string(asked.operation));
    if (rule.form == DummySortForm::kNone) continue;
    parted[std::string(asked.operation)].merge(SortByEveryTwin(file, report));
  }
  // What a rule says of lines that part is so, and each rule was tried.
  for (const automation::Operation& operation : automation::Operations()) {
    const std::string name(operation.name);
    EXPECT_TRUE(operation.sorting.empty() || sorted.contains(name)) << name;
    const std::set<std::string>& apart = parted[name];
    for (const SortRule& rule : operation.sorting) {
      if (rule.together == automation::kNoTwin) {
        EXPECT_GT(apart.size(), apart.count("closing lines")) << name;
      }
      EXPECT_TRUE(rule.closing_last || apart.contains("closing lines")) << name;
    }
  }
}

TEST(Sorting, TheTextHasTheTwinWhereTheFormOfTheReportAsksForIt) {
  EXPECT_EQ(SortText({.operation = "Doc_Initial"}, "AmountSort"), "DummySort, AmountSort");
  EXPECT_EQ(SortText({.operation = "doc_initial"}, "AmountSort", true),
            "DummySort, AmountSort DESC");
  EXPECT_EQ(SortText({.operation = "PendingByItem", .detailed = true}, "DateSort"),
            "DateSort, DummySort");
  EXPECT_EQ(SortText({.operation = "StockDetails_Itemwise"}, "ValueSort"),
            "TotalLine, ValueSort, DummySort");
  EXPECT_EQ(SortText({.operation = "StockDetails_Itemwise", .asked = FifoRate}, "ValueSort"),
            "DummySort, ValueSort");
}

TEST(Sorting, AReportThatCannotBeSortedSaysSo) {
  const auto described = [](const SortedReport& report) -> std::string {
    try {
      return SortText(report, "DateSort");
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kArgumentOutOfRange);
      return error.Description();
    }
  };
  EXPECT_EQ(described({.operation = "ServiceReportRegno", .detailed = true}),
            "the lines of ServiceReportRegno cannot be sorted by a twin");
  EXPECT_EQ(described({.operation = "LedgersByCode"}),
            "the lines of LedgersByCode cannot be sorted by a twin");
}

}  // namespace
}  // namespace pstolvane1::golden
