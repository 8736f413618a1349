#include <gtest/gtest.h>

#include "movements/MovementFilter.h"

namespace pstolvane1 {
namespace {

const DocumentFilter kNoFilter;
const DocumentFilter kPurchasesOfParties{"Vouchertype1.Vouchertype_id in (7,10,12)", "", 1, 1};

TEST(MovementFilter, AFilterThatKeepsUndatedLinesJoinsFromTheLeft) {
  const MovementFilter kept = FilterOfMovements(kPurchasesOfParties, Undated::kKept, "git");
  EXPECT_TRUE(kept.condition.starts_with("((vouchertype1.vouchertype_id in (7,10,12) and "));
  EXPECT_TRUE(kept.condition.ends_with(" ) or git.date is null ) and "));
  EXPECT_EQ(kept.join.find("inner"), std::string::npos);
  const MovementFilter plain = FilterOfMovements(kPurchasesOfParties, Undated::kDropped);
  EXPECT_NE(plain.join.find("inner join desr1 on desr1.desr_id = godownitem1.gdesr_id"),
            std::string::npos);
  EXPECT_EQ(FilterOfMovements(kNoFilter, Undated::kKept).condition, "");
}

}  // namespace
}  // namespace pstolvane1
