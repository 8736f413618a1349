#include "vehicle/BillList.h"

#include "session/data/Error.h"
#include "session/data/RowFlag.h"

namespace pstolvane1 {

BillList::BillList(ReportFrame& frame, const Recordset& source, const BillColumns& columns,
                   std::string_view particulars)
    : module_(frame.module),
      to_(columns),
      date_(source.Column("date")),
      type_(source.Column("vouchertype")),
      buyer_(source.Column("buyername")),
      amount_(source.Column("totalbill")),
      desr_id_(source.Column("desr_id")),
      voucher_id_(source.Column("voucher_id")),
      optional_(source.Column("optional")),
      number_(source) {
  if (source.HasColumn(particulars)) particulars_ = source.Column(particulars);
  module_.lngRecordNo = 0;
}

void BillList::AddBill(ReportWriter& writer, const Recordset::Row& row) {
  bill_ = row.Int64(desr_id_);
  writer.AddLine(kLine);
  writer.Date(to_.date, row[date_]);
  writer.Value(to_.record_no, ++module_.lngRecordNo);
  if (particulars_) writer.Copy(to_.particulars, row, *particulars_);
  writer.DocumentNumber(to_.number, row, number_);
  writer.Copy(to_.type, row, type_);
  writer.Copy(to_.buyer, row, buyer_);
  writer.Money(to_.amount, row[amount_]);
  AddTo(total_, row[amount_], writer.Style());
  writer.Copy(to_.desr_id, row, desr_id_);
  writer.Copy(to_.voucher_id, row, voucher_id_);
  writer.Text(to_.optional, IsSet(row, optional_) ? "Opt" : "");
}

CellStyle PassingOverErrors(CellStyle style) {
  style.pass_over_errors = true;
  return style;
}

void AddTo(Currency& sum, const Variant& amount, const CellStyle& style) {
  try {
    sum += amount.ToCurrency();
  } catch (const Error&) {
    if (!style.pass_over_errors) throw;
  }
}

}  // namespace pstolvane1
