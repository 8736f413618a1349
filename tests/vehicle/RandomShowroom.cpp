#include "RandomShowroom.h"

#include <array>
#include <fmt/format.h>
#include <random>

namespace pstolvane1 {
namespace {

using golden::TextTable;

constexpr std::array kBuyers = {"Asha Rao", "Binod Rao", "Chitra Nair", "Dilip Asha"};

std::string Paise(int paise) { return fmt::format("{}.{:02}", paise / 100, paise % 100); }
Currency OfPaise(int paise) { return Currency::FromTenThousandths(std::int64_t{paise} * 100); }

class Maker {
 public:
  explicit Maker(std::uint32_t seed) : random_(seed) {}

  Showroom Make() {
    for (int vehicle = Pick(10, 30); vehicle > 0; --vehicle) AddVehicle();
    for (int bill = Pick(5, 20); bill > 0; --bill) AddServiceBill();
    showroom_.books = std::make_unique<golden::SmallBooks>(std::vector<TextTable>{
        {"Vouchertype1",
         {"Vouchertype_id", "Vouchertype", "RelatedTo", "SubRelatedTo"},
         {{"7", "Purchase bill", "7", "7"},
          {"10", "Vehicle sale", "10", "10"},
          {"39", "Service bill", "10", "39"}}},
        {"LedgerNames1", {"Ledger_id", "LedgerName"}, {{"1", "Anand"}}},
        {"Items1", {"Item_id", "ItemName"}, {{"1", "Falcon"}, {"2", "Labour"}}},
        batches_,
        documents_,
        terms_,
        lines_,
        movements_,
        bills_,
        entries_});
    return std::move(showroom_);
  }

 private:
  int Pick(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }
  bool Chance(int percent) { return Pick(1, 100) <= percent; }
  std::string Day() { return fmt::format("2003-{:02}-{:02}", Pick(4, 12), Pick(1, 28)); }
  static std::string Flag(bool set) { return set ? "1" : "0"; }

  // Its number.
  int AddDocument(int type, const std::string& day, int paise, bool optional = false,
                  bool deleted = false, bool audited = false) {
    const int id = static_cast<int>(documents_.rows.size()) + 1;
    documents_.rows.push_back({std::to_string(id), day, std::to_string(type), "1", "D",
                               std::to_string(id), "", std::to_string(100 + id), Paise(paise),
                               Flag(optional), Flag(deleted), Flag(audited)});
    return id;
  }

  // A line of one vehicle with its movement.
  void AddMovement(int document, int type, const std::string& day, int batch, bool optional) {
    const std::string id = std::to_string(lines_.rows.size() + 1);
    const std::string number = std::to_string(document);
    lines_.rows.push_back({id, number, "1", day, "0", "1", "0", "0"});
    movements_.rows.push_back({id, day, "1", std::to_string(batch), Flag(optional), number, id,
                               std::to_string(type), "D", number, "-04"});
  }

  void AddVehicle() {
    const int batch = static_cast<int>(batches_.rows.size()) + 1;
    ShowroomVehicle vehicle;
    vehicle.chassis = fmt::format("CH-{}", 1000 + Pick(0, 99) * 40 + batch);
    batches_.rows.push_back({std::to_string(batch), vehicle.chassis, "1"});
    const std::string day = Day();
    vehicle.purchase_number = AddDocument(7, day, 4'000'000);
    AddMovement(vehicle.purchase_number, 7, day, batch, false);
    if (Chance(70)) Sell(vehicle, batch);
    showroom_.vehicles.push_back(std::move(vehicle));
  }

  void Sell(ShowroomVehicle& vehicle, int batch) {
    const int amount = Pick(3'000'000, 6'000'000), paid = Pick(0, amount);
    vehicle.buyer = kBuyers.at(static_cast<std::size_t>(Pick(0, 3)));
    vehicle.amount = OfPaise(amount);
    vehicle.paid = OfPaise(paid);
    vehicle.optional = Chance(15);
    vehicle.deleted = Chance(15);
    vehicle.audited = vehicle.deleted || Chance(30);
    const std::string day = Day();
    const int sale =
        AddDocument(10, day, amount, vehicle.optional, vehicle.deleted, vehicle.audited);
    const std::string id = std::to_string(sale), voucher = std::to_string(100 + sale);
    terms_.rows.push_back({id, id, vehicle.buyer});
    AddMovement(sale, 10, day, batch, vehicle.optional);
    bills_.rows.push_back({id, voucher, "1"});
    entries_.rows.push_back({std::to_string(2 * sale), id, voucher, Paise(amount), "0"});
    entries_.rows.push_back({std::to_string(2 * sale + 1), id, "9", "0", Paise(paid)});
  }

  void AddServiceBill() {
    const std::string day = Day();
    const bool deleted = Chance(15);
    const int bill = AddDocument(39, day, 0, false, deleted);
    for (int line = Pick(1, 4); line > 0; --line) {
      const int quantity = Pick(1, 3), rate = Pick(100, 90'000), percent = 5 * Pick(0, 3);
      lines_.rows.push_back({std::to_string(lines_.rows.size() + 1), std::to_string(bill), "2", day,
                             "0", std::to_string(quantity), Paise(rate), std::to_string(percent)});
      if (percent == 0) continue;
      const int paise = quantity * rate;
      // A hundredth of a percent of a paisa is a ten-thousandth.
      showroom_.lines.push_back({.bill = bill,
                                 .amount = OfPaise(paise),
                                 .tax = Currency::FromTenThousandths(std::int64_t{paise} * percent),
                                 .deleted = deleted});
    }
  }

  std::mt19937 random_;
  Showroom showroom_;
  TextTable batches_{"Batches1", {"Batch_id", "BatchCode", "Item_id"}, {}};
  TextTable documents_{"Desr1",
                       {"Desr_id", "Date", "Vouchertype_id", "Ledger_id", "Prefix", "DesrRefno",
                        "Suffix", "Related_id", "TotalAmount", "Optional", "Deleted", "Audited"},
                       {}};
  TextTable terms_{"Terms1", {"DesrTerms_id", "Desr_id", "DespatchTo"}, {}};
  TextTable lines_{"DesrDetails1",
                   {"DesrDetails_id", "Desr_id", "Item_id", "DesrDetDate", "QtyDespIn",
                    "QtyDespOut", "ActualRate", "Salestax"},
                   {}};
  TextTable movements_{
      "GodownItem1",
      {"GodownItem_id", "Date", "YearNo", "Batch_id", "Optional", "GDesr_id", "DesrDetails_id",
       "GOriginalVouchertype_id", "GPrefix", "GRefNo", "GSuffix"},
      {}};
  TextTable bills_{"BillByBill1", {"BillByBill_id", "CrVoucher_id", "YearNo"}, {}};
  TextTable entries_{
      "BillByBillDetails1",
      {"BillByBillDetails_id", "BillByBill_id", "Voucher_id", "AmountDr", "AmountCr"},
      {}};
};

}  // namespace

Showroom RandomShowroom(std::uint32_t seed) { return Maker(seed).Make(); }

}  // namespace pstolvane1
