#include <algorithm>
#include <fmt/format.h>
#include <map>
#include <optional>
#include <vector>

#include "analysis/CategoryWise_Initial.h"
#include "session/RowLoop.h"
#include "session/data/RowGroups.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("CategoryName"),  Display("Itemname"),    Display("ParentName"), Display("QtyOut"),
    Display("Amount"),        Display("Rate"),        Display("ItemQty"),    Display("SubQty"),
    Display("AllQty"),        Display("ItemTotal"),   Display("SubTotal"),   Display("AllTotal"),
    Key("Item_Id", adBigInt), Display("Category_id"), Marker("LineChild"),   Marker("Line"),
    Marker("LineChildCap"),   Marker("LineCap"),      Display("Deleted"),
};

constexpr RuleColumn kItemRule = kColumns.Rule("LineChild", 85);
constexpr RuleColumn kRule = kColumns.Rule("Line", 85);

// Values add up exactly, quantities as 32-bit floats.
struct CategorySums {
  Currency value;
  float quantity = 0;

  void Add(const CategorySums& other) {
    value += other.value;
    quantity += other.quantity;
  }
};

struct SourceColumns {
  SourceColumns(const Recordset& source, bool detailed)
      : quantity(source.Column("Qty")),
        value(source.Column("Value")),
        category_id(source.Column("ItemCategory_id")),
        category_name(source.Column("CategoryName")),
        above(source.Column("Id")) {
    if (!detailed) return;
    item_name = source.Column("Itemname");
    item_id = source.Column("Item_id");
  }

  ColumnHandle quantity, value, category_id, category_name, above;
  std::optional<ColumnHandle> item_name, item_id;  // in detail
};

class Categories {
 public:
  Categories(ReportFrame& frame, const CategoryArguments& arguments, const Recordset& source)
      : frame_(frame),
        source_(source),
        from_(source, arguments.blnDetailed),
        categories_(source.GroupBy({"ItemCategory_id"})),
        writer_(kColumns, StyleOf(frame)) {
    for (std::size_t place = 0; place < categories_.Count(); ++place) {
      const Recordset::Row row = categories_[place].First();
      const std::int64_t id = row.Int64(from_.category_id);
      const bool has_parent = !row.IsNull(from_.above);
      const bool is_own_parent = has_parent && row.Int64(from_.above) == id;
      if (arguments.lngId > 0 ? id == arguments.lngId : is_own_parent) tops_.push_back(place);
      if (has_parent && !is_own_parent) below_[row.Int64(from_.above)].push_back(place);
    }
  }

  RecordsetPtr Write() {
    const CategorySums all = WriteLevel(tops_, "");
    writer_.AddRuleLine(kRule);
    writer_.AddLine();
    writer_.Text(kColumns.At("LineCap"), "Total");
    writer_.MoneyOrBlank(kColumns.At("AllTotal"), all.value);
    writer_.NumberOrBlank(kColumns.At("AllQty"), all.quantity);
    return writer_.Finish();
  }

 private:
  using Places = std::vector<std::size_t>;  // in categories_

  // The categories of a level, each with all below it. indent has a "-" for each level above.
  CategorySums WriteLevel(const Places& level, const std::string& indent) {
    CategorySums sums;
    for (const std::size_t place : level) {
      if (ended_) break;
      frame_.lngFetchTotal = static_cast<std::int32_t>(level.size());
      sums.Add(WriteCategory(place, indent));
      ended_ = ended_ || !frame_.EndPass();
    }
    return sums;
  }

  CategorySums WriteCategory(std::size_t place, const std::string& indent) {
    const RowGroups::Group rows = categories_[place];
    const Recordset::Row first = rows.First();
    const std::int64_t id = first.Int64(from_.category_id);
    CheckPath(id);
    const Bookmark head = AddCategory(first, id, indent);
    CategorySums sums = from_.item_name ? WriteItems(rows, id, indent) : SumsOf(first);
    if (const auto below = below_.find(id); below != below_.end()) {
      path_.push_back(id);
      sums.Add(WriteLevel(below->second, indent + "-"));
      path_.pop_back();
    }
    writer_.ReturnTo(head);
    if (sums.value == Currency()) {
      writer_.RemoveLine();
    } else {
      writer_.MoneyOrBlank(kColumns.At("SubTotal"), sums.value);
      writer_.NumberOrBlank(kColumns.At("SubQty"), sums.quantity);
    }
    return sums;
  }

  void CheckPath(std::int64_t id) const {
    if (std::ranges::find(path_, id) == path_.end()) return;
    throw Error(ErrorNumber::kArgumentOutOfRange,
                fmt::format("the category or class {} lies below itself", id));
  }

  Bookmark AddCategory(const Recordset::Row& row, std::int64_t id, const std::string& indent) {
    const bool is_own_parent = !row.IsNull(from_.above) && row.Int64(from_.above) == id;
    writer_.AddLine();
    writer_.Text(kColumns.At("Category_id"), is_own_parent ? "-1" : std::to_string(id));
    writer_.Value(kColumns.At("Item_Id"), std::int64_t{0});
    writer_.Text(kColumns.At("CategoryName"), indent + NameOf(row, from_.category_name));
    writer_.Text(kColumns.At("ParentName"), "");
    return writer_.Line();
  }

  CategorySums WriteItems(const RowGroups::Group& rows, std::int64_t id,
                          const std::string& category_indent) {
    const std::string indent(category_indent.size() + 2, ' ');
    CategorySums sums;
    bool has_items = false;
    const auto write_item = [&](const Recordset::Row& row) {
      if (NameOf(row, *from_.item_name).empty()) return;
      has_items = true;
      WriteItem(row, id, indent);
      sums.Add(SumsOf(row));
    };
    ended_ = !ForEachSourceRow(frame_, source_, rows, write_item);
    if (!has_items) return sums;
    writer_.AddRuleLine(kItemRule);
    writer_.AddLine();
    writer_.NumberOrBlank(kColumns.At("ItemQty"), sums.quantity);
    writer_.MoneyOrBlank(kColumns.At("ItemTotal"), sums.value);
    return sums;
  }

  void WriteItem(const Recordset::Row& row, std::int64_t id, const std::string& indent) {
    writer_.AddLine();
    writer_.Copy(kColumns.At("ParentName"), row, from_.category_name);
    writer_.Text(kColumns.At("Category_id"), std::to_string(id));
    writer_.Copy(kColumns.At("Item_Id"), row, *from_.item_id);
    writer_.Text(kColumns.At("Itemname"), indent + NameOf(row, *from_.item_name));
    writer_.NumberOrBlank(kColumns.At("QtyOut"), row[from_.quantity]);
    writer_.MoneyOrBlank(kColumns.At("Amount"), row[from_.value]);
    const double quantity = row.IsNull(from_.quantity) ? 0 : row.Double(from_.quantity);
    if (quantity == 0) return;
    writer_.Number(kColumns.At("Rate"), ValueOf(row) / quantity);
  }

  [[nodiscard]] double ValueOf(const Recordset::Row& row) const {
    return row.IsNull(from_.value) ? 0 : row.Double(from_.value);
  }
  // Nulls of a category without sales count as zero.
  [[nodiscard]] CategorySums SumsOf(const Recordset::Row& row) const {
    const double quantity = row.IsNull(from_.quantity) ? 0 : row.Double(from_.quantity);
    return {.value = Currency::FromDouble(ValueOf(row)), .quantity = static_cast<float>(quantity)};
  }
  [[nodiscard]] static std::string NameOf(const Recordset::Row& row, ColumnHandle column) {
    return row.IsNull(column) ? std::string() : row[column].ToText();
  }

  ReportFrame& frame_;
  const Recordset& source_;
  SourceColumns from_;
  RowGroups categories_;
  ReportWriter writer_;
  Places tops_;
  std::map<std::int64_t, Places> below_;  // by the category above
  std::vector<std::int64_t> path_;        // the categories above the one in hand
  bool ended_ = false;                    // by a cancel
};

}  // namespace

RecordsetPtr mCategoryWise_Initial(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<CategoryArguments>();
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  return Categories(frame, arguments, *source).Write();
}

}  // namespace pstolvane1
