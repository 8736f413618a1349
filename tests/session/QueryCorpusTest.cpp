// The texts that the front end is tested with are those that the reports send.
#include <fstream>
#include <gtest/gtest.h>

#include "analysis/Doc_Initial.h"
#include "analysis/LedgersByCode.h"
#include "bills/MultiplePriceList.h"
#include "session/POrderTextQuery.h"
#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

// The file's text behind its comment, without the blanks at its ends.
std::string Sent(const std::string& file) {
  std::ifstream in(std::string(PST_SOURCE_DIR "/tests/queries/") + file);
  EXPECT_TRUE(in) << file;
  std::string comment, text;
  std::getline(in, comment);
  std::getline(in, text);
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? std::string()
                                    : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

std::string Trimmed(const std::string& composed, const typAliases& aliases = {}) {
  const std::string text = NormaliseQueryText(composed, aliases);
  const std::size_t first = text.find_first_not_of(' ');
  return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

std::string Documents(std::int32_t id, float scale = 1, bool no_rel = false,
                      std::string_view bill_filter = "") {
  return ComposeDoc_Initial({.lngVouchertype_id = id,
                             .from = "04/01/2003",
                             .to = "03/31/2004",
                             .gScale = scale,
                             .blnNoRel = no_rel,
                             .strBillFilter = bill_filter});
}

TEST(QueryCorpus, HoldsTheTextsOfDoc_Initial) {
  EXPECT_EQ(Trimmed(Documents(10)), Sent("analysis/Doc_Initial.sql"));
  EXPECT_EQ(Trimmed(Documents(10, 1, true)), Sent("analysis/Doc_Initial_this_type.sql"));
  EXPECT_EQ(
      Trimmed(Documents(10, 1000, false, "Desr1.TotalAmount > 5000 and Desr1.Date > #06/30/2003#")),
      Sent("analysis/Doc_Initial_bill_filter.sql"));
  EXPECT_EQ(Trimmed(Documents(43)), Sent("analysis/Doc_Initial_job_cards.sql"));
  EXPECT_EQ(Trimmed(Documents(43, 0.5F, false, "Desr1.IsJobCard = -1")),
            Sent("analysis/Doc_Initial_job_cards_filter.sql"));
  EXPECT_EQ(Trimmed(Documents(9)), Sent("analysis/Doc_Initial_receipts.sql"));
  EXPECT_EQ(Trimmed(Documents(9, 100, true, "VoucherDetails1.CreditAmt > 100")),
            Sent("analysis/Doc_Initial_receipts_filter.sql"));
  EXPECT_EQ(Trimmed(Documents(5)), Sent("analysis/Doc_Initial_uncleared.sql"));
  EXPECT_EQ(
      Trimmed(Documents(10), {.taLedger = "LedgerNames1.LedgerName + ' ' + LedgerNames1.Pin"}),
      Sent("analysis/Doc_Initial_alias.sql"));
}

TEST(QueryCorpus, HoldsTheTextsOfLedgersByCode) {
  EXPECT_EQ(Trimmed(ComposeLedgersByCode(2, CodeCondition("1,41"))),
            Sent("analysis/LedgersByCode.sql"));
  EXPECT_EQ(Trimmed(ComposeLedgersByCode(2, CodeCondition(""))),
            Sent("analysis/LedgersByCode_all.sql"));
}

TEST(QueryCorpus, HoldsTheTextsOfPOrderTextQuery) {
  EXPECT_EQ(Trimmed(ComposePOrderTextQuery("")), Sent("session/POrderTextQuery.sql"));
  EXPECT_EQ(Trimmed(ComposePOrderTextQuery(
                "Desr1.Date >= #04/01/2004# And Desr1.Vouchertype_id = 12 And Desr1.Deleted = "
                "False")),
            Sent("session/POrderTextQuery_dated.sql"));
}

TEST(QueryCorpus, HoldsTheTextsOfMultiplePriceList) {
  const std::string condition = "ConsiderForSih = 1";
  EXPECT_EQ(Trimmed(ComposeMultiplePriceList(4, -1, "", condition)),
            Sent("bills/MultiplePriceList.sql"));
  EXPECT_EQ(Trimmed(ComposeMultiplePriceList(4, 2, "", condition)),
            Sent("bills/MultiplePriceList_class.sql"));
}

}  // namespace
}  // namespace pstolvane1
