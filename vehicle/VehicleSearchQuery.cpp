#include <algorithm>
#include <fmt/args.h>
#include <fmt/format.h>

#include "vehicle/VehicleSearch.h"

namespace pstolvane1 {
namespace {

using enum VehicleSearch;

constexpr unsigned operator|(VehicleSearch a, VehicleSearch b) {
  return static_cast<unsigned>(a) | static_cast<unsigned>(b);
}
constexpr unsigned operator|(unsigned a, VehicleSearch b) { return a | static_cast<unsigned>(b); }

constexpr unsigned kOnlyInsurance = static_cast<unsigned>(kInsurance);
constexpr unsigned kService = kServiceBill | kServiceVehicle | kServiceReceipts;
constexpr unsigned kPaid = kReceipts | kServiceReceipts;
constexpr unsigned kStock = kBuyer | kBill | kVehicle | kReceipts | kInsurance;
constexpr unsigned kBought = kBuyer | kBill | kVehicle | kInsurance;
constexpr unsigned kAll = kStock | kService;

// A column of the result in the searches that have it. {batch}, {movement} and {document} are what
// a search calls the vehicle, its movement and the document.
struct SearchColumn {
  unsigned searches;
  std::string_view text;
};

constexpr SearchColumn kColumns[] = {
    {kStock, "{batch}.Batch_id"},
    {kService, "0 as Batch_id"},
    {kStock, "{batch}.Item_id"},
    {kService, "0 as ITem_id"},
    {kStock, "{batch}.Color_id"},
    {kService, "0 as Color_id"},
    {kAll, "Terms1.Despatchto"},
    {kOnlyInsurance, "Terms1.List2"},
    {kOnlyInsurance, "Terms1.PromisedDeliveryTime"},
    {kOnlyInsurance, "Terms1.ActualDeliveryTime"},
    {kStock, "{batch}.EngineNo"},
    {kService, "Terms1.EngineNumber as EngineNo"},
    {kStock, "{batch}.BatchCode"},
    {kService, "Terms1.ChasisNumber as BatchCode"},
    {kStock, "{batch}.DateOfPurchase"},
    {kService, "Terms1.DateOFSale as DateOFPurchase"},
    {kService, "Terms1.RegistrationNumber"},
    {kService, "Terms1.ServiceType"},
    {kAll, "{date}"},
    {kAll, "{number} as DesrRefno"},
    {kAll, "Desr1.Related_id"},
    {kAll, "Desr1.TotalAmount"},
    {kAll, "Desr1.Ledger_id"},
    {kAll,
     "(Select EmployeeName From Employee1 Where Employee1.Employee_id = Desr1.Employee_id) as "
     "SalesPerson"},
    {kStock, "{movement}.GOriginalVouchertype_id"},
    {kService, "Vouchertype1.Subrelatedto as GOriginalVouchertype_id"},
    {kStock, "{movement}.GDesr_id"},
    {kService, "Desr1.Desr_id as GDesr_id"},
    {kBought,
     "(Select (GPrefix + Cast(Grefno as Varchar) + GSuffix) From Godownitem1 where Batch_id = "
     "{batch}.Batch_id and Godownitem1.GOriginalVouchertype_id = 7) as PBillNo"},
    // The purchase bill alone is limited to the year; that is meant.
    {kBought,
     "(Select GDesr_id From Godownitem1 where Batch_id = {batch}.Batch_id and "
     "Godownitem1.GOriginalVouchertype_id = 7 and Godownitem1.Yearno = {year}) as PBill_id"},
    {kBought,
     "(Select Date From Godownitem1 where Batch_id = {batch}.Batch_id and "
     "Godownitem1.GOriginalVouchertype_id = 7) as PDate"},
    {kBuyer | kVehicle,
     "Case When {movement}.GOriginalVouchertype_id = 10 then {pending} Else 0 End as "
     "billamountpending"},
    {static_cast<unsigned>(kBill),
     "Case When Desr1.Relatedto = 10 then {pending} Else 0 End as billamountpending"},
    {kServiceBill | kServiceVehicle,
     "Case When Vouchertype1.Relatedto = 10 then {pending} Else 0 End as billamountpending"},
    {kPaid, "{pending} as billamountpending"},
    {kPaid, "ccc.crvoucher_id as Voucher_id"},
    {kPaid, "ccc.Billbybill_id"},
};

// What is owed on the bill of a document.
constexpr std::string_view kPending =
    "(Select sum(amountdr-amountcr) from billbybilldetails1 inner join billbybill1 On "
    "BillByBill1.crVoucher_id = Desr1.Related_id and Billbybill1.BillBybill_id = "
    "Billbybilldetails1.billbybill_id)";

// Where a search finds its rows, and in which order they come. The pieces of the host stand in
// selects of their own, so that their names and an Or in them reach no further.
struct SearchFrom {
  VehicleSearch search;
  std::string_view batch, movement;
  std::string_view text;
};

constexpr SearchFrom kFrom[] = {
    {kBuyer, "Batches1", "Godownitem1",
     "( Select Terms1.Despatchto,Terms1.desr_id From Terms1 {buyer} ) as Terms1 "
     "inner join Desr1 on Desr1.Desr_id = Terms1.Desr_id "
     "inner join Vouchertype1 on Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id "
     "inner join Godownitem1 on Godownitem1.GDesr_id = Desr1.Desr_id "
     "inner join Batches1 on Batches1.Batch_id = Godownitem1.Batch_id "
     "Where {type} and Godownitem1.Optional = 0 and Godownitem1.GOriginalVouchertype_id in "
     "(0,10,7) order By Desr1.Prefix,Desr1.DesrRefno,Desr1.Suffix,Godownitem1.GodownItem_id"},
    {kInsurance, "Batches1", "Godownitem1",
     "( Select Terms1.Despatchto,Terms1.desr_id,List2,PromisedDeliveryTime,ActualDeliveryTime From "
     "Terms1 {buyer} ) as Terms1 "
     "inner join Desr1 on Desr1.Desr_id = Terms1.Desr_id "
     "inner join Vouchertype1 on Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id "
     "inner join Godownitem1 on Godownitem1.GDesr_id = Desr1.Desr_id "
     "inner join Batches1 on Batches1.Batch_id = Godownitem1.Batch_id "
     "Where Godownitem1.Optional = 0 and Godownitem1.GOriginalVouchertype_id in (0,10,7) and "
     "{type} order By Desr1.Prefix,Desr1.DesrRefno,Desr1.Suffix,Godownitem1.GodownItem_id"},
    {kBill, "Batches1", "Godownitem1",
     "( Select Desr1.Desr_id,Desr1.Date,Desr1.Prefix,Desr1.DesrRefno,Desr1.Suffix,"
     "Desr1.Related_id,Desr1.TotalAmount,Desr1.Ledger_id,Desr1.Employee_id,Vouchertype1.Relatedto "
     "From Desr1 inner join Vouchertype1 on Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id "
     "Where {bill} and {type} and Desr1.Deleted = 0 and Desr1.Optional = 0 ) as Desr1 "
     "left join Terms1 on Terms1.Desr_id = Desr1.Desr_id "
     "inner join Godownitem1 on Godownitem1.GDesr_id = Desr1.Desr_id "
     "inner join Batches1 on Batches1.Batch_id = Godownitem1.Batch_id "
     "order By Desr1.Prefix,Desr1.DesrRefno,Desr1.Suffix,Godownitem1.GodownItem_id"},
    // A vehicle in opening stock has no document. The product keeps an engine from walking all
    // movements: it walks the batches, of which there are few.
    {kVehicle, "AAA", "AAA",
     "( Select Batches1.Batch_id,Batches1.Item_id,Batches1.Color_id,Batches1.BatchCode,"
     "Batches1.EngineNo,Batches1.DateOfPurchase,Godownitem1.GodownItem_id,"
     "Godownitem1.GOriginalVouchertype_id,Godownitem1.GDesr_id From Batches1 cross join "
     "Godownitem1 Where Godownitem1.Batch_id = Batches1.Batch_id and Godownitem1.Optional = 0 and "
     "Godownitem1.GOriginalVouchertype_id in (0,10,7) {criteria} ) as AAA "
     "left join Desr1 on Desr1.Desr_id = AAA.GDesr_id "
     "left join Vouchertype1 on Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id "
     "left join Terms1 on Terms1.Desr_id = Desr1.Desr_id "
     "Where ({type} Or Desr1.Vouchertype_id is null ) "
     "Order By Desr1.Prefix,Desr1.DesrRefno,Desr1.Suffix,AAA.GodownItem_id"},
    {kReceipts, "Batches1", "Godownitem1",
     "( select billbybill1.crvoucher_id,billbybill1.billbybill_id from billbybill1 where "
     "billbybill1.billbybill_id in ( select billbybilldetails1.billbybill_id from "
     "billbybilldetails1 inner join Voucher1 on Voucher1.Voucher_id = "
     "billbybilldetails1.Voucher_id inner join vouchertype1 on vouchertype1.vouchertype_id = "
     "Voucher1.vouchertype_id where vouchertype1.relatedto = 9 and Voucher1.deleted = 0 "
     "{criteria} ) ) as ccc "
     "inner join Desr1 on Desr1.Related_id = ccc.crvoucher_id "
     "inner join Terms1 on Terms1.Desr_id = Desr1.Desr_id "
     "inner join Godownitem1 on Godownitem1.GDesr_id = Desr1.Desr_id "
     "inner join Batches1 on Batches1.Batch_id = Godownitem1.Batch_id "
     "inner join Vouchertype1 on Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id "
     "where {type} order by Desr1.Desr_id,ccc.billbybill_id,Godownitem1.GodownItem_id"},
    {kServiceBill, "", "",
     "Desr1 left join Terms1 on Terms1.Desr_id = Desr1.Desr_id "
     "inner join Vouchertype1 on Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id "
     "Where {bill} and {type} and Desr1.Deleted = 0 and Desr1.Optional = 0 "
     "Order By Desr1.Prefix,Desr1.DesrRefno,Desr1.Suffix,Desr1.Desr_id,Terms1.DesrTerms_id"},
    {kServiceVehicle, "", "",
     "( Select Terms1.DesrTerms_id,Terms1.Desr_id,Terms1.Despatchto,Terms1.EngineNumber,"
     "Terms1.ChasisNumber,Terms1.DateOFSale,Terms1.RegistrationNumber,Terms1.ServiceType From "
     "Terms1 {criteria} ) as Terms1 "
     "inner join Desr1 on Desr1.Desr_id = Terms1.Desr_id "
     "inner join Vouchertype1 on Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id "
     "Where {type} "
     "Order By Desr1.Prefix,Desr1.DesrRefno,Desr1.Suffix,Desr1.Desr_id,Terms1.DesrTerms_id"},
    {kServiceReceipts, "", "",
     "( select billbybill1.crvoucher_id,billbybill1.billbybill_id from billbybill1 where "
     "billbybill1.billbybill_id in ( select billbybilldetails1.billbybill_id from "
     "billbybilldetails1 inner join Voucher1 on Voucher1.Voucher_id = "
     "billbybilldetails1.Voucher_id inner join vouchertype1 on vouchertype1.vouchertype_id = "
     "Voucher1.vouchertype_id where vouchertype1.subrelatedto = 9 and Voucher1.deleted = 0 "
     "{criteria} ) ) as ccc "
     "inner join Desr1 on Desr1.Related_id = ccc.crvoucher_id "
     "inner join Terms1 on Terms1.Desr_id = Desr1.Desr_id "
     "inner join Vouchertype1 on Vouchertype1.Vouchertype_id = Desr1.Vouchertype_id "
     "where {type} order by Desr1.Desr_id,ccc.billbybill_id,Terms1.DesrTerms_id"},
};

const SearchFrom& FromOf(VehicleSearch search) {
  return *std::ranges::find(kFrom, search, &SearchFrom::search);
}

constexpr std::int32_t kJobCard = 43;

std::string_view NumberText(bool job_card) {
  return job_card ? "(Desr1.JobcardPrefix + Cast(Desr1.JobcardRefno as Varchar) + "
                    "Desr1.JobcardSuffix)"
                  : "(Desr1.Prefix + Cast(Desr1.DesrRefno as Varchar) + Desr1.Suffix)";
}

}  // namespace

std::string ComposeVehicleSearch(VehicleSearch search, const VehicleSearchArguments& arguments) {
  const SearchFrom& from = FromOf(search);
  const bool service = (kService & static_cast<unsigned>(search)) != 0;
  const bool job_card = service && arguments.lngSubRelatedTo == kJobCard;
  fmt::dynamic_format_arg_store<fmt::format_context> words;
  words.push_back(fmt::arg("batch", from.batch));
  words.push_back(fmt::arg("movement", from.movement));
  words.push_back(fmt::arg("date", job_card ? "Desr1.JobcardDate" : "Desr1.Date"));
  words.push_back(fmt::arg("number", NumberText(job_card)));
  words.push_back(fmt::arg("year", arguments.bytYearno));
  words.push_back(fmt::arg("pending", kPending));
  words.push_back(fmt::arg("criteria", std::string_view(arguments.strCriteria)));
  words.push_back(fmt::arg("buyer", std::string_view(arguments.strBuyerFilter)));
  words.push_back(fmt::arg("bill", std::string_view(arguments.strBillFilter)));
  words.push_back(fmt::arg("type", std::string_view(arguments.strVouchertype)));

  std::string text = "Select ";
  std::string_view comma;
  for (const SearchColumn& column : kColumns) {
    if ((column.searches & static_cast<unsigned>(search)) == 0) continue;
    text.append(comma).append(fmt::vformat(column.text, words));
    comma = ",";
  }
  return text.append(" From ").append(fmt::vformat(from.text, words));
}

std::string ComposeReceiptsOfBill(std::int32_t bill_voucher_id) {
  return fmt::format(
      "select Voucher1.Vouchernumber,Voucher1.Voucher_id,"
      "(select top 1 ChequeNumber + '|' + cast(Ledger_id as varchar) from Voucherdetails1 where "
      "voucher_id = Voucher1.voucher_id and chequenumber <> '' order by ChequeNumber,Ledger_id) as "
      "chequenumber,(amountcr-amountdr) as amount,billbybilldetails1.Date,"
      "billbybilldetails1.BillByBill_id "
      "from billbybill1 inner join billbybilldetails1 on billbybilldetails1.BillByBill_id = "
      "billbybill1.BillByBill_id "
      "inner join vouchertype1 on vouchertype1.vouchertype_id = billbybilldetails1.vouchertype_id "
      "inner join Voucher1 on Voucher1.voucher_id = billbybilldetails1.voucher_id "
      "where billbybill1.CrVoucher_id = {} and vouchertype1.relatedto = 9 "
      "order by billbybilldetails1.BillByBillDetails_id",
      bill_voucher_id);
}

}  // namespace pstolvane1
