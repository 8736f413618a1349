// Sales or purchases along the tree of item categories, or of item classes.
#pragma once

#include <cstdint>
#include <string>

#include "session/FilterClauses.h"
#include "session/ReportFrame.h"

namespace pstolvane1 {

struct CategoryArguments {
  bool blnIsclass = false;
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  std::int32_t lngId = 0;  // above 0 the one group to begin with
  std::int32_t lngVouchertype_id = 0;
  bool blnDetailed = false;
  float sngScale = 0;
  std::string strConsiderForSih, strItemstate;
};

// One row a category, or with blnDetailed one a category and item: qty, value over the scale,
// itemcategory_id, categoryname and id, which is the category above; itemname and item_id. A
// category without sales has one row of Nulls. By category name, in detail then by the category
// above, then by id and item. Not normalised.
[[nodiscard]] std::string ComposeCategories(const CategoryArguments& arguments,
                                            const DocumentFilter& filter);
// A normalised text of categories as one of classes, under the same column names.
[[nodiscard]] std::string OfClasses(std::string text);

[[nodiscard]] RecordsetPtr mCategoryWise_Initial(ReportFrame& frame);

RecordsetPtr CategoryWise_Initial(ReportFrame& frame, const CategoryArguments& arguments,
                                  Boolean blnReport);

}  // namespace pstolvane1
