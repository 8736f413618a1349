// The texts that the front end is tested with are those that the reports send, to the last blank.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "analysis/Doc_Initial.h"
#include "analysis/LedgersByCode.h"
#include "bills/MultiplePriceList.h"
#include "session/POrderTextQuery.h"
#include "session/QueryText.h"
#include "tests/SourcePath.h"

namespace pstolvane1 {
namespace {

const std::string kQueries = SourcePath("tests/queries/");

struct SentText {
  std::string file;  // below the folder of the queries
  std::string composed;
  typAliases aliases;
};

// The last line of the file; above it stand its comments.
std::string TextOf(const std::string& file) {
  std::ifstream in(kQueries + file);
  std::string text;
  for (std::string line; std::getline(in, line);) text = line;
  return text;
}

std::string Documents(std::int32_t id, float scale = 1, bool no_rel = false,
                      std::string_view bill_filter = "") {
  return ComposeDoc_Initial({.lngVouchertype_id = id,
                             .dtFromDate = Date::FromYmd(2003, 4, 1),
                             .dtToDate = Date::FromYmd(2004, 3, 31),
                             .gScale = scale,
                             .blnNoRel = no_rel,
                             .strBillFilter = std::string(bill_filter)});
}

std::string Prices(std::int32_t category, std::int32_t item_class, std::string_view state,
                   std::string_view condition = "ConsiderForSih = 1") {
  return ComposeMultiplePriceList(category, item_class, state, condition);
}

std::vector<SentText> SentTexts() {
  const auto documents = [](std::string_view condition) {
    return ComposePOrderTextQuery(condition);
  };
  return {
      {"analysis/Doc_Initial.sql", Documents(10), {}},
      {"analysis/Doc_Initial_this_type.sql", Documents(10, 1, true), {}},
      {"analysis/Doc_Initial_bill_filter.sql",
       Documents(10, 1000, false, "Desr1.TotalAmount > 5000 and Desr1.Date > #06/30/2003#"),
       {}},
      {"analysis/Doc_Initial_job_cards.sql", Documents(43), {}},
      {"analysis/Doc_Initial_job_cards_filter.sql",
       Documents(43, 0.5F, false, "Desr1.IsJobCard = -1"),
       {}},
      {"analysis/Doc_Initial_receipts.sql", Documents(9), {}},
      {"analysis/Doc_Initial_receipts_filter.sql",
       Documents(9, 100, true, "VoucherDetails1.CreditAmt > 100"),
       {}},
      {"analysis/Doc_Initial_uncleared.sql", Documents(5), {}},
      {"analysis/Doc_Initial_alias.sql",
       Documents(10),
       {.taLedger = "LedgerNames1.LedgerName + ' ' + LedgerNames1.Pin"}},
      {"analysis/LedgersByCode.sql", ComposeLedgersByCode(2, CodeCondition("1,41")), {}},
      {"analysis/LedgersByCode_all.sql", ComposeLedgersByCode(2, CodeCondition("")), {}},
      {"bills/MultiplePriceList.sql", Prices(4, -1, "1,2"), {}},
      {"bills/MultiplePriceList_alias.sql", Prices(4, -1, ""), {.taItem = "Items1.ItemPartNo"}},
      {"bills/MultiplePriceList_class.sql", Prices(4, 2, ""), {}},
      {"bills/MultiplePriceList_class_state.sql", Prices(4, 2, "2"), {}},
      {"bills/MultiplePriceList_no_category.sql",
       Prices(-1, -1, "", "Items1.ConsiderForSih = True"),
       {}},
      {"bills/MultiplePriceList_no_category_class.sql", Prices(-1, 2, ""), {}},
      {"bills/MultiplePriceList_state.sql", Prices(4, -1, "1"), {}},
      {"refused/MultiplePriceList_no_condition.sql", Prices(4, -1, "", ""), {}},
      {"refused/MultiplePriceList_no_condition_class.sql", Prices(4, 2, "", ""), {}},
      {"refused/MultiplePriceList_no_condition_no_category.sql", Prices(-1, -1, "", ""), {}},
      {"session/POrderTextQuery.sql", documents(""), {}},
      {"session/POrderTextQuery_dated.sql",
       documents("Desr1.Date >= #04/01/2004# And Desr1.Vouchertype_id = 12 And Desr1.Deleted = "
                 "False"),
       {}},
      {"session/POrderTextQuery_item_alias.sql",
       documents("Desr1.Optional = 0"),
       {.taItem = "Items1.ItemName + ' (' + Items1.ItemPartNo + ')'"}},
      {"session/POrderTextQuery_like.sql",
       documents("Desr1.Prefix Like 'PO%' And Not (Desr1.[Narration] Is Null) And "
                 "DesrDetails1.Item_id In (1,2,3) And DesrDetails1.Price Between 1.5 And 99.75"),
       {}},
      {"session/POrderTextQuery_user_text.sql",
       documents("Desr1.Narration <> 'It''s True -1'"),
       {}},
  };
}

TEST(QueryCorpus, HoldsTheTextsOfTheListReportsAsTheyAreSent) {
  for (const SentText& sent : SentTexts()) {
    EXPECT_EQ(NormaliseQueryText(sent.composed, sent.aliases), TextOf(sent.file)) << sent.file;
  }
}

TEST(QueryCorpus, HoldsNoTextOfTheListReportsThatTheyDoNotSend) {
  const std::vector<SentText> sent = SentTexts();
  for (const auto& entry : std::filesystem::recursive_directory_iterator(kQueries)) {
    const std::string name = entry.path().filename().string();
    const bool of_these = name.starts_with("Doc_Initial") || name.starts_with("LedgersByCode") ||
                          name.starts_with("MultiplePriceList") ||
                          name.starts_with("POrderTextQuery");
    if (!of_these) continue;
    const std::string file = entry.path().lexically_relative(kQueries).string();
    EXPECT_TRUE(std::ranges::any_of(sent, [&](const SentText& s) { return s.file == file; }))
        << file;
  }
}

}  // namespace
}  // namespace pstolvane1
