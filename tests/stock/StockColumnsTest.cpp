// The shape of the stock rowset.
#include <gtest/gtest.h>
#include <sstream>

#include "stock/StockColumns.h"

namespace pstolvane1 {
namespace {

struct Group {
  DataType type;
  int size, attributes;
  std::string names;
};

const Group kItemFirst = {adBSTR, 0, -1, "ItemName Godown"};
const Group kGroupFirst = {adBSTR, 0, -1, "Particulars Categoryname Itemname"};
const Group kFigures = {
    adBSTR, 0, -1,
    "QtyOp UomOp AltQtyOp AltUomOp RateOp ValueOp QtyIn UomIn AltQtyIn AltUomIn RateIn ValueIn "
    "QtyOut UomOut AltQtyOut AltUomOut RateOut ValueOut Consumption GrossProfit ProfitPerc "
    "PerProfit Balance Uom AltQty AltUom Rate Value"};
const Group kItemIds = {adBigInt, 0, -1, "Item_Id Godown_Id Batch_Id"};
const Group kGroupIds = {adBigInt, 0, -1, "Category_Id Item_Id"};
const Group kTotalsAndMarkers = {adBSTR, 0, -1,
                                 "TotalValueOp TotalValueIn TotalValueOut TotalValue "
                                 "TotalConsumption TotalGrossProfit TotalProfitPerc GrpLine "
                                 "TotalLine ParentName"};
const Group kTextTwins = {adVarChar, 255, 32, "ParticularsSort ItemNameSort"};
const Group kQuantities[] = {{adSingle, 0, 32, "QtyOpSort AltQtyOpSort"},
                             {adSingle, 0, 32, "QtyInSort AltQtyInSort"},
                             {adSingle, 0, 32, "QtyOutSort AltQtyOutSort"},
                             {adSingle, 0, 32, "QtyClSort AltQtyClSort"}};
const Group kMoney[] = {{adCurrency, 0, 32, "RateOpSort ValueOpSort"},
                        {adCurrency, 0, 32, "RateInSort ValueInSort"},
                        {adCurrency, 0, 32, "RateOutSort ValueOutSort"},
                        {adCurrency, 0, 32, "RateClSort ValueClSort"}};
const Group kProfits = {adCurrency, 0, 32, "GrossProfitSort ProfitSort ConsumSort"};
const Group kDummySort = {adBigInt, 0, 32, "DummySort"};
const Group kRecordNo = {adBSTR, 0, -1, "RecordNo"};

std::vector<std::string> Lines(const std::vector<Group>& groups) {
  std::vector<std::string> lines;
  for (const Group& group : groups) {
    std::istringstream names(group.names);
    for (std::string name; names >> name;) {
      lines.push_back(name + " " + std::to_string(group.type) + " " + std::to_string(group.size) +
                      " " + std::to_string(group.attributes));
    }
  }
  return lines;
}

std::vector<std::string> Lines(std::span<const ReportColumn> columns) {
  std::vector<std::string> lines;
  for (const ReportColumn& column : columns) {
    lines.push_back(std::string(column.name) + " " + std::to_string(column.type) + " " +
                    std::to_string(column.defined_size) + " " + std::to_string(column.attributes));
  }
  return lines;
}

std::vector<Group> Layout(const Group& first, const Group& ids) {
  std::vector<Group> groups = {first, kFigures, ids, kTotalsAndMarkers, kTextTwins};
  for (std::size_t side = 0; side < 4; ++side) {
    groups.push_back(kQuantities[side]);
    groups.push_back(kMoney[side]);
  }
  groups.insert(groups.end(), {kProfits, kDummySort, kRecordNo});
  return groups;
}

TEST(StockColumns, OfItemLines) {
  EXPECT_EQ(Lines(mStock_Columns(true)), Lines(Layout(kItemFirst, kItemIds)));
  EXPECT_EQ(mStock_Columns(true).size(), 66U);
}

TEST(StockColumns, OfGroupLines) {
  EXPECT_EQ(Lines(mStock_Columns(false)), Lines(Layout(kGroupFirst, kGroupIds)));
}

}  // namespace
}  // namespace pstolvane1
