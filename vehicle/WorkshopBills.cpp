#include "vehicle/WorkshopBills.h"

#include <fmt/format.h>

#include "session/QueryText.h"
#include "session/RowLoop.h"
#include "vehicle/Bills.h"

namespace pstolvane1 {
namespace {

constexpr const auto& kColumns = kWorkshopBillLayout;

}  // namespace

std::string ComposeWorkshopBills(const WorkshopBillQuery& query) {
  return fmt::format(
      "Select desr1.desr_id, desr1.date, desr1.related_id as voucher_id, desr1.optional, "
      "desr1.prefix, desr1.desrrefno as refno, desr1.suffix, vouchertype1.vouchertype, "
      "terms1.despatchto as buyername, terms1.registrationnumber, terms1.servicetype, "
      "desr1.totalamount/{} as totalbill, mechanicname.mechanicname{}{}{}"
      "left join mechanicname on mechanicname.mechanic_id = terms1.mechanic_id {}where {}{}",
      SingleText(query.sngScale), query.columns,
      query.detailed ? ", desrdetails1.item_id, desrdetails1.qtydespout, desrdetails1.price, "
                       "desrdetails1.desrdetails_id"
                     : "",
      kBillsOfTerms,
      query.detailed ? "inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id " : "",
      query.conditions, BilledBetween(query.from, query.to));
}

RecordsetPtr WorkshopBillsInOrder(const ReportFrame& frame, bool detailed, std::string_view first) {
  std::string order(first);
  if (!first.empty()) order += ", ";
  order += "date, registrationnumber, desr_id";
  if (detailed) order += ", desrdetails_id";
  return InOrder(frame, Source::rsReport, order);
}

WorkshopBills::WorkshopBills(ReportFrame& frame, const Recordset& source, ReportWriter& writer,
                             bool detailed)
    : frame_(frame),
      writer_(writer),
      bills_(frame, source, BillColumnsOf(kColumns), "registrationnumber"),
      service_(source.Column("servicetype")),
      mechanic_(source.Column("mechanicname")) {
  if (!detailed) return;
  lines_ = {.item_id = source.Column("item_id"),
            .quantity = source.Column("qtydespout"),
            .price = source.Column("price")};
}

void WorkshopBills::AddBill(const Recordset::Row& row) {
  bills_.AddBill(writer_, row);
  writer_.Copy(kColumns.Twinned("ServiceType"), row, service_);
  writer_.Copy(kColumns.Twinned("MechanicName"), row, mechanic_);
  writer_.Text(kColumns.At("RecordType"), kBill);
  bill_ = writer_.Line();
}

bool WorkshopBills::AddItem(const Recordset::Row& row) {
  if (!lines_) return false;
  if (!items_) items_.emplace(frame_);
  const std::optional<Recordset::Row> item = items_->Find(row, lines_->item_id);
  if (!item) return false;
  writer_.AddSubLine(bill_, BillList::kLine);
  writer_.Copy(kColumns.At("ItemName"), *item, items_->Name());
  writer_.Number(kColumns.At("Qty"), row[lines_->quantity]);
  writer_.Number(kColumns.At("Price"), row[lines_->price]);
  writer_.Text(kColumns.At("RecordType"), kItem);
  return true;
}

void WorkshopBills::AddRuleAndTotal(std::size_t rule_width) {
  writer_.AddRuleLine({kColumns.At("Line"), rule_width}, BillList::kRule);
  writer_.AddLine(BillList::kTotal);
  writer_.Text(kColumns.At("Total"), "Total");
  writer_.Money(kColumns.At("TotalAmount"), bills_.Total());
}

}  // namespace pstolvane1
