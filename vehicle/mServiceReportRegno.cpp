#include <array>
#include <cmath>
#include <optional>

#include "movements/HostItems.h"
#include "session/RowLoop.h"
#include "session/data/RowFlag.h"
#include "session/rowset/ReportWriter.h"
#include "vehicle/ServiceReportRegno.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("RegistrationNumber"),
    Display("ChasisNumber"),
    Display("EngineNumber"),
    Display("Date"),
    Display("Refno"),
    Display("TotalAmt"),
    Display("ListOFComplaints"),
    Display("ItemName"),
    Display("Qty"),
    Display("Rate"),
    Display("Warranty"),
    Display("ServiceTax"),
    Display("Discount"),
    Display("ItemTotal"),
    Display("JobCardNo"),
    Key("Voucher_id", adBSTR),
    Key("Desr_id", adBSTR),
    Display("Yearno"),
    Marker("Format"),
    TextTwin("RegistrationNumberSort"),
    TextTwin("ChasisNumberSort"),
    TextTwin("EngineNumberSort"),
    DateTwin("DateSort"),
    TextTwin("PrefixSort"),
    NumberTwin("RefnoSort"),
    TextTwin("SuffixSort"),
    MoneyTwin("TotalAmtSort"),
    TextTwin("ListOfComplaintsSort"),
    NumberTwin("JobCardNoSort"),
    TextTwin("JobCardNoPrefixSort"),
    TextTwin("JobCardNoSuffixSort"),
    NumberTwin("DummySort"),
};

// The column Format tells a host how to lay a line out.
constexpr std::string_view kVehicle = "1", kBill = "2", kItem = "3", kComplaints = "4";

std::string TextOrNone(const Recordset::Row& row, ColumnHandle column) {
  return row.IsNull(column) ? std::string() : row[column].ToText();
}

struct SourceColumns {
  explicit SourceColumns(const Recordset& source)
      : desr_id(source.Column("desr_id")),
        registration(source.Column("registrationnumber")),
        chassis(source.Column("chasisnumber")),
        engine(source.Column("enginenumber")),
        date(source.Column("date")),
        amount(source.Column("totalamount")),
        voucher_id(source.Column("related_id")),
        year(source.Column("desryearno")),
        is_job_card(source.Column("isjobcard")),
        number(source, "prefix", "desrrefno", "suffix"),
        job_card(source, "jobcardprefix", "jobcardrefno", "jobcardsuffix"),
        complaints{source.Column("list1"), source.Column("list2"), source.Column("list3"),
                   source.Column("list4"), source.Column("list5"), source.Column("list6")} {}

  ColumnHandle desr_id, registration, chassis, engine, date, amount, voucher_id, year, is_job_card;
  DocumentNumberSource number, job_card;
  std::array<ColumnHandle, 6> complaints;
};

struct LineColumns {
  explicit LineColumns(const Recordset& source)
      : item_id(source.Column("item_id")),
        quantity(source.Column("qty")),
        price(source.Column("price")),
        rate(source.Column("actualrate")),
        tax(source.Column("salestax")),
        discount(source.Column("discount")),
        is_warranty(source.Column("iswarranty")) {}

  ColumnHandle item_id, quantity, price, rate, tax, discount, is_warranty;
};

// Numbers stand together with what is around them: JC12.
CellStyle WithoutSeparator(CellStyle style) {
  style.number_separator.clear();
  return style;
}

class History {
 public:
  History(ReportFrame& frame, const Recordset& source, bool detailed)
      : frame_(frame), source_(source), writer_(kColumns, WithoutSeparator(StyleOf(frame))) {
    if (detailed) line_.emplace(source);
  }

  void Write(const Recordset::Row& row) {
    if (!row.IsNull(source_.registration) && row.Text(source_.registration) != registration_) {
      AddVehicle(row);
    }
    if (desr_id_ != row.Int64(source_.desr_id)) AddBill(row);
    if (line_) AddItem(row);
    AddComplaints(row);
  }
  [[nodiscard]] RecordsetPtr Finish() { return writer_.Finish(); }

 private:
  void AddVehicle(const Recordset::Row& row) {
    registration_ = row.Text(source_.registration);
    Add(kVehicle, counter_ + 1);
    writer_.Text(kColumns.Twinned("RegistrationNumber"), registration_);
    counter_ += 2;
  }

  void AddBill(const Recordset::Row& row) {
    desr_id_ = row.Int64(source_.desr_id);
    Add(kBill, counter_);
    writer_.Text(kColumns.At("RegistrationNumberSort"), registration_);
    writer_.Date(kColumns.Twinned("Date"), row[source_.date]);
    writer_.Copy(kColumns.Twinned("EngineNumber"), row, source_.engine);
    writer_.Copy(kColumns.Twinned("ChasisNumber"), row, source_.chassis);
    writer_.DocumentNumber(kColumns.DocumentNumber("Refno"), row, source_.number);
    writer_.Money(kColumns.Twinned("TotalAmt"), row[source_.amount]);
    WriteJobCard(row);
    writer_.Copy(kColumns.At("Desr_id"), row, source_.desr_id);
    writer_.Copy(kColumns.At("Voucher_id"), row, source_.voucher_id);
    writer_.Copy(kColumns.At("Yearno"), row, source_.year);
    bill_ = writer_.Line();
  }

  void WriteJobCard(const Recordset::Row& row) {
    constexpr DocumentNumberColumns kJobCard =
        kColumns.DocumentNumber("JobCardNo", "JobCardNoPrefixSort", "JobCardNoSuffixSort");
    if (IsSet(row, source_.is_job_card)) {
      writer_.DocumentNumber(kJobCard, row, source_.job_card,
                             ReportWriter::NullParts::kBecomeEmpty);
      return;
    }
    writer_.Value(kJobCard.number_twin, 0);
    writer_.Text(kJobCard.prefix_twin, "");
    writer_.Text(kJobCard.suffix_twin, "");
  }

  void AddItem(const Recordset::Row& row) {
    if (!items_) {
      items_.emplace(frame_);
      unit_ = items_->Column("UOMNAME");
    }
    const std::optional<Recordset::Row> item = items_->Find(row, line_->item_id);
    if (!item) return;
    Add(kItem, ReportWriter::kNoNumber);
    writer_.Copy(kColumns.At("ItemName"), *item, items_->Name());
    // A quantity that came back is shown without its sign, and charged with it.
    const float quantity = row.Single(line_->quantity);
    writer_.Text(kColumns.At("Qty"),
                 Variant(std::abs(quantity)).ToText() + "  " + TextOrNone(*item, unit_));
    writer_.Number(kColumns.At("Rate"), row[line_->rate]);
    WritePercent(kColumns.At("ServiceTax"), row, line_->tax);
    WritePercent(kColumns.At("Discount"), row, line_->discount);
    writer_.Money(kColumns.At("ItemTotal"),
                  static_cast<double>(quantity) * row.Double(line_->price));
    if (IsSet(row, line_->is_warranty)) writer_.Text(kColumns.At("Warranty"), "W");
    if (IsSet(row, source_.is_job_card)) {
      writer_.Text(kColumns.At("JobCardNo"), TextOrNone(row, source_.job_card.prefix) +
                                                 TextOrNone(row, source_.job_card.number) +
                                                 TextOrNone(row, source_.job_card.suffix));
    }
  }

  void WritePercent(ColumnHandle to, const Recordset::Row& row, ColumnHandle percent) {
    if (row.IsNull(percent) || row.Double(percent) == 0) return;
    writer_.Text(to, row[percent].ToText() + "%");
  }

  // A text that was shown last is not shown again, whatever bills and vehicles stand between.
  void AddComplaints(const Recordset::Row& row) {
    std::string complaints;
    for (const ColumnHandle list : source_.complaints) complaints += row.Text(list);
    if (complaints.empty() || complaints == complaints_) return;
    writer_.AddSubLine(bill_, counter_);
    writer_.Text(kColumns.At("Format"), kComplaints);
    writer_.Text(kColumns.At("ListOFComplaints"), complaints);
    complaints_ = std::move(complaints);
  }

  void Add(std::string_view format, std::int64_t number) {
    writer_.AddLine(number);
    writer_.Text(kColumns.At("Format"), format);
  }

  const ReportFrame& frame_;
  SourceColumns source_;
  std::optional<LineColumns> line_;
  std::optional<HostItems> items_;
  ColumnHandle unit_{};
  ReportWriter writer_;
  std::string registration_, complaints_;
  std::optional<std::int64_t> desr_id_;
  Bookmark bill_{};
  std::int64_t counter_ = 0;  // of DummySort: a heading, then what stands below it
};

}  // namespace

RecordsetPtr mServiceReportRegno(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<ServiceHistoryArguments>();
  const RecordsetPtr source =
      InOrder(frame, Source::rsReport,
              arguments.blnDetailed ? "registrationnumber, desr_id, desrdetails_id"
                                    : "registrationnumber, desr_id");
  History history(frame, *source, arguments.blnDetailed);
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { history.Write(row); });
  return history.Finish();
}

}  // namespace pstolvane1
