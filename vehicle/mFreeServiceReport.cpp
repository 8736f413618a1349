#include <algorithm>
#include <array>

#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"
#include "vehicle/FreeService.h"
#include "vehicle/FreeServiceReport.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("FreeService1Head"),
    Display("FreeService2Head"),
    Display("FreeService3Head"),
    Display("FreeService4Head"),
    Display("FreeService5Head"),
    Display("FreeService6Head"),
    Display("ParticularsHead"),
    Display("FreeService1"),
    Display("FreeService2"),
    Display("FreeService3"),
    Display("FreeService4"),
    Display("FreeService5"),
    Display("FreeService6"),
    Display("TotalFreeService1"),
    Display("TotalFreeService2"),
    Display("TotalFreeService3"),
    Display("TotalFreeService4"),
    Display("TotalFreeService5"),
    Display("TotalFreeService6"),
    Display("TotalParticulars"),
    Display("ParticularsHeadTotal"),
    Display("ParticularsTotal"),
    Display("Particulars"),
    Marker("TotalLine"),
    Display("Total"),
    NumberTwin("DummySort"),
    MoneyTwin("FreeService1Sort"),
    MoneyTwin("FreeService2Sort"),
    MoneyTwin("FreeService3Sort"),
    MoneyTwin("FreeService4Sort"),
    MoneyTwin("FreeService5Sort"),
    MoneyTwin("FreeService6Sort"),
    TextTwin("ParticularsHeadSort"),
    TextTwin("ParticularsSort"),
    Key("Category_id", adBSTR),
    Key("Item_id", adBSTR),
};

// By service, in their order.
constexpr std::array<TwinnedColumn, 6> kLineColumns = {
    kColumns.Twinned("FreeService1"), kColumns.Twinned("FreeService2"),
    kColumns.Twinned("FreeService3"), kColumns.Twinned("FreeService4"),
    kColumns.Twinned("FreeService5"), kColumns.Twinned("FreeService6")};
constexpr std::array<ColumnHandle, 6> kHeadColumns = {
    kColumns.At("FreeService1Head"), kColumns.At("FreeService2Head"),
    kColumns.At("FreeService3Head"), kColumns.At("FreeService4Head"),
    kColumns.At("FreeService5Head"), kColumns.At("FreeService6Head")};
constexpr std::array<ColumnHandle, 6> kTotalColumns = {
    kColumns.At("TotalFreeService1"), kColumns.At("TotalFreeService2"),
    kColumns.At("TotalFreeService3"), kColumns.At("TotalFreeService4"),
    kColumns.At("TotalFreeService5"), kColumns.At("TotalFreeService6")};

enum LineClass { kDetailLine = 1, kRuleLine = 2, kTotalLine = 3 };

struct Sums {
  std::array<Currency, 6> of_service{};
  Currency all;
};

class Services {
 public:
  Services(ReportFrame& frame, const Recordset& source, bool detailed)
      : detailed_(detailed),
        category_name_(source.Column("categoryname")),
        category_id_(source.Column("itemcategory_id")),
        service_(source.Column("servicetype_id")),
        value_(source.Column("value")),
        writer_(kColumns, StyleOf(frame)) {
    if (!detailed) return;
    item_name_ = source.Column("itemname");
    item_id_ = source.Column("item_id");
  }

  void Write(const Recordset::Row& row) {
    detailed_ ? BeginModel(row) : BeginCategory(row);
    AddValue(row);
  }

  [[nodiscard]] RecordsetPtr Finish() {
    CloseLine();
    if (detailed_) CloseHeading();
    writer_.AddRuleLine(kColumns.Rule("TotalLine", 255), kRuleLine);
    writer_.AddLine(kTotalLine);
    writer_.Text(kColumns.At("Total"), "Total");
    WriteSums(kTotalColumns, kColumns.At("TotalParticulars"), report_);
    return writer_.Finish();
  }

 private:
  // A line of rows: the services of one category, or of one model.
  void BeginCategory(const Recordset::Row& row) {
    const std::int64_t category = row.Int64(category_id_);
    if (category == category_) return;
    CloseLine();
    category_ = category;
    writer_.AddLine(kDetailLine);
    writer_.Copy(kColumns.At("Category_id"), row, category_id_);
    writer_.Copy(kColumns.Twinned("Particulars"), row, category_name_);
    line_is_begun_ = true;
  }

  void BeginModel(const Recordset::Row& row) {
    const std::int64_t item = row.Int64(item_id_);
    const std::int64_t category = row.Int64(category_id_);
    if (item != item_) CloseLine();
    if (category != category_) {
      CloseHeading();
      category_ = category;
      AddHeading(row);
    }
    if (item == item_) return;
    item_ = item;
    writer_.AddLine(kDetailLine);
    writer_.Copy(kColumns.At("Category_id"), row, category_id_);
    writer_.Copy(kColumns.At("Item_id"), row, item_id_);
    writer_.Copy(kColumns.Twinned("Particulars"), row, item_name_);
    writer_.Copy(kColumns.At("ParticularsHeadSort"), row, category_name_);
    line_is_begun_ = true;
  }

  void AddHeading(const Recordset::Row& row) {
    writer_.AddLine(kDetailLine);
    // 0 would be all categories to a host that opens the line.
    writer_.Value(kColumns.At("Category_id"), category_ == 0 ? std::int64_t{-1} : *category_);
    writer_.Copy(kColumns.Twinned("ParticularsHead"), row, category_name_);
    heading_ = writer_.Line();
  }

  // A host's condition with an Or can bring bills of other services: they are not shown, but their
  // amounts count.
  void AddValue(const Recordset::Row& row) {
    const Variant value = row[value_];
    const Currency amount = value.ToCurrency();
    if (const std::optional<std::size_t> service = FreeServiceOf(row)) {
      writer_.MoneyOrBlank(kLineColumns.at(*service), value);
      of_category_.of_service.at(*service) += amount;
      report_.of_service.at(*service) += amount;
    }
    of_line_ += amount;
    of_category_.all += amount;
    report_.all += amount;
  }

  [[nodiscard]] std::optional<std::size_t> FreeServiceOf(const Recordset::Row& row) const {
    if (row.IsNull(service_)) return std::nullopt;
    const auto found = std::ranges::find(kFreeServices, row.Int32(service_));
    if (found == kFreeServices.end()) return std::nullopt;
    return static_cast<std::size_t>(found - kFreeServices.begin());
  }

  void CloseLine() {
    if (!line_is_begun_) return;
    writer_.MoneyOrBlank(kColumns.At("ParticularsTotal"), of_line_);
    of_line_ = {};
    line_is_begun_ = false;
  }
  void CloseHeading() {
    if (!heading_) return;
    writer_.ReturnTo(*heading_);
    WriteSums(kHeadColumns, kColumns.At("ParticularsHeadTotal"), of_category_);
    of_category_ = {};
  }
  void WriteSums(const std::array<ColumnHandle, 6>& columns, ColumnHandle total, const Sums& sums) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      writer_.MoneyOrBlank(columns.at(i), sums.of_service.at(i));
    }
    writer_.MoneyOrBlank(total, sums.all);
  }

  bool detailed_;
  ColumnHandle category_name_, category_id_, service_, value_, item_name_{}, item_id_{};
  ReportWriter writer_;
  std::optional<std::int64_t> category_, item_;
  std::optional<Bookmark> heading_;
  bool line_is_begun_ = false;
  Currency of_line_;
  Sums of_category_, report_;
};

}  // namespace

RecordsetPtr mFreeServiceReport(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<FreeServiceArguments>();
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  Services services(frame, *source, arguments.blnDetailed);
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { services.Write(row); });
  return services.Finish();
}

}  // namespace pstolvane1
