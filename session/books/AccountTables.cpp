#include "session/books/SchemaTables.h"

namespace pstolvane1::books {
namespace {

using enum ColumnKind;

constexpr Column kVouchertype1[] = {{"Vouchertype_id", kKey},
                                    {"Vouchertype", kText, 60},
                                    {"RelatedTo", kWhole},
                                    {"SubRelatedTo", kWhole}};

constexpr Column kVoucher1[] = {{"Voucher_id", kKey},
                                {"Vouchertype_id", kWhole},
                                {"VoucherNumber", kWhole},
                                {"Optional", kFlag},
                                {"Deleted", kFlag}};
constexpr Index kVoucher1Indexes[] = {{"Voucher1_Vouchertype", "Vouchertype_id"}};

constexpr Column kVoucherDetails1[] = {{"Voucher_id", kWhole},       {"Ledger_id", kWhole},
                                       {"Subgroup_id", kWhole},      {"CreditAmt", kMoney},
                                       {"DebitAmt", kMoney},         {"VhrDetailDate", kDate},
                                       {"VhrDetailOptional", kFlag}, {"ClearanceDate", kDate},
                                       {"ChequeNumber", kText, 20},  {"Deleted", kFlag}};
constexpr Index kVoucherDetails1Indexes[] = {
    {"VoucherDetails1_Voucher", "Voucher_id"},
    {"VoucherDetails1_Date",
     "VhrDetailDate, Voucher_id, Ledger_id, CreditAmt, DebitAmt, Deleted, VhrDetailOptional, "
     "ClearanceDate"},
    {"VoucherDetails1_Subgroup", "Subgroup_id, Voucher_id"}};

constexpr Column kBillByBill1[] = {{"BillByBill_id", kKey}, {"CrVoucher_id", kWhole},
                                   {"RefNo", kText, 40},    {"EffectiveDate", kDate},
                                   {"Ledger_id", kWhole},   {"YearNo", kWhole}};
constexpr Index kBillByBill1Indexes[] = {{"BillByBill1_CrVoucher", "CrVoucher_id"},
                                         {"BillByBill1_Ledger", "Ledger_id"}};

constexpr Column kBillByBillDetails1[] = {
    {"BillByBillDetails_id", kKey}, {"BillByBill_id", kWhole}, {"Voucher_id", kWhole},
    {"Vouchertype_id", kWhole},     {"Date", kDate},           {"AmountDr", kMoney},
    {"AmountCr", kMoney},           {"RefType", kText, 10},    {"OptionalDetails", kFlag},
    {"ReceiptNo", kWhole}};
constexpr Index kBillByBillDetails1Indexes[] = {
    {"BillByBillDetails1_Bill", "BillByBill_id, AmountDr, AmountCr"},
    {"BillByBillDetails1_Voucher", "Voucher_id"},
    {"BillByBillDetails1_Date", "Date"}};

constexpr Table kAccountTables[] = {
    {"Vouchertype1", "Vouchertype_id", kVouchertype1, {}},
    {"Voucher1", "Voucher_id", kVoucher1, kVoucher1Indexes},
    {"VoucherDetails1", "", kVoucherDetails1, kVoucherDetails1Indexes},
    {"BillByBill1", "BillByBill_id", kBillByBill1, kBillByBill1Indexes},
    {"BillByBillDetails1", "BillByBillDetails_id", kBillByBillDetails1, kBillByBillDetails1Indexes},
};

}  // namespace

std::span<const Table> AccountTables() { return kAccountTables; }

}  // namespace pstolvane1::books
