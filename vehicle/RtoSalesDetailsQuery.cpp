#include <fmt/format.h>

#include "session/QueryText.h"
#include "vehicle/RtoSalesDetails.h"

namespace pstolvane1 {
namespace {

// A column of Terms1 and what it holds on a sale's form. Note that the form's pincode is that of
// the second address.
struct FormColumn {
  std::string_view terms, form;
};
constexpr FormColumn kForm[] = {
    {"desrterms_id", "termsid"},
    {"Despatchto", "buyername"},
    {"salestaxno1", "Fathername"},
    {"salestaxno2", "age"},
    {"DespatchtoAdd1", "Badd1"},
    {"Despatchtoadd2", "Badd2"},
    {"city", "city"},
    {"pincode", "Bpincode"},
    {"arf", "series"},
    {"list1", "ULW"},
    {"PromisedDeliverydate", "Formdate"},
    {"list3", "GVW"},
    {"Promisseddate", "PUCdate"},
    {"list2", "Coverno"},
    {"list6", "Onetime"},
    {"promiseddeliverytime", "insufromdate"},
    {"Actualdeliverytime", "insuTodate"},
    {"extradesc", "add1"},
    {"scratchesdesc", "add2"},
    {"fuellevel", "city1"},
    {"kms", "pincode"},
    {"Actualdeliverydate", "EndDate"},
    {"desr_id", "tdesr_id"},
    {"buyersname", "Financename"},
};

std::string Between(const TransportOfficeArguments& arguments) {
  return fmt::format("between #{}# and #{}#", SqlDateText(arguments.dtFromDate),
                     SqlDateText(arguments.dtToDate));
}

}  // namespace

std::string ComposeRtoSalesDetails(const TransportOfficeArguments& arguments) {
  std::string form;
  for (const FormColumn& column : kForm) {
    form += fmt::format("Terms1.{} as {},", column.terms, column.form);
  }
  const std::string between = Between(arguments);
  const std::string document =
      arguments.Desr_Id == 0 ? "" : fmt::format(" and desr1.desr_id = {}", arguments.Desr_Id);
  return fmt::format(
      "select itemname,seatingcapacity,batches1.batchcode,batches1.Engineno,"
      "batches1.item_id,batches1.manufacturedate as Mfgdate,godownitem1.batch_id,{}"
      "desr1.Desr_id,desr1.Ledger_id,desr1.Totalamount,desr1.desrrefno as refno,desr1.[date],"
      "vouchertype1.VoucherType,desr1.related_id as Voucher_id,desr1.prefix,desr1.suffix "
      "from desr1 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id "
      "inner join terms1 on terms1.desr_id = desr1.desr_id "
      "inner join godownitem1 on godownitem1.gdesr_id = desr1.desr_id and godownitem1.date {} "
      "inner join batches1 on batches1.batch_id = godownitem1.batch_id "
      "inner join items1 on items1.item_id = batches1.item_id "
      "where vouchertype1.subrelatedto = 10 and desr1.[date] {} and desr1.Audited = 0 and "
      "desr1.Deleted = 0{} "
      "order by desr1.[date],desr1.prefix,desr1.desrrefno,desr1.suffix,"
      "godownitem1.godownitem_id,terms1.desrterms_id",
      form, between, between, document);
}

std::string ComposeRtoSalesDetails1(const TransportOfficeArguments& arguments) {
  const std::string between = Between(arguments);
  return fmt::format(
      "SELECT DESR1.DATE as Date,DESR1.DESRREFNO as RefNo,LEDGERNAMES1.LEDGERNAME as LedgerName,"
      "VOUCHERTYPE1.VOUCHERTYPE as VoucherType,DESR1.TOTALAMOUNT as TotalAmount,AAA.* FROM "
      "( select godownitem1.Gdesr_id AS DESR_ID,godownitem1.batch_id from godownitem1 "
      "INNER JOIN VOUCHERTYPE1 ON VOUCHERTYPE1.subRELATEDTO = 10 AND VOUCHERTYPE1.RELATEDTO = "
      "GODOWNITEM1.GORIGINALVOUCHERTYPE_ID "
      "inner join batches1 on batches1.batch_id = godownitem1.batch_id And GODOWNITEM1.DATE {} And "
      "QtyonHand=2 group by Godownitem1.Batch_id,godownitem1.gdesr_id ) AS AAA "
      "inner join DESR1 on aaa.desr_id = desr1.desr_id "
      "INNER JOIN LEDGERNAMES1 ON DESR1.LEDGER_ID = LEDGERNAMES1.LEDGER_ID "
      "INNER JOIN VOUCHERTYPE1 ON DESR1.VOUCHERTYPE_ID = VOUCHERTYPE1.VOUCHERTYPE_ID "
      "AND DESR1.DATE {} and VoucherType1.subrelatedto =10 and   gROUP BY DESR1.DATE,"
      "DESR1.DESRREFNO,LEDGERNAMES1.LEDGERNAME,VOUCHERTYPE1.VOUCHERTYPE,DESR1.TOTALAMOUNT,"
      "AAA.desr_id,AAA.batch_id ORDER BY DESR1.DATE ",
      between, between);
}

}  // namespace pstolvane1
