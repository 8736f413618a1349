#include "session/books/sample/Document.h"

#include <cmath>

namespace pstolvane1::books::sample {
namespace {

constexpr const char* kDesrColumns =
    "Desr_id, Date, Vouchertype_id, Ledger_id, Employee_id, Prefix, DesrRefno, Suffix, Related_id, "
    "TotalAmount, Optional, Deleted, YearNo, Narration, IsJobCard, JobCardDate, JobCardPrefix, "
    "JobCardRefno, JobCardSuffix, Audited";
constexpr const char* kLineColumns =
    "DesrDetails_id, Desr_id, Item_id, DesrDetDate, QtyDespIn, QtyDespOut, QtyReturned, BilledQty, "
    "AltQty, Price, ActualRate, Rate, AltRate, IsAltUnit, IsAltRate, AffectStock, Optional, "
    "YearNo, "
    "Salestax, Discount, IsWarranty, DefectCode, VendorCode, PerformanceCode, VendorMfgDate, "
    "ClaimNo";
constexpr const char* kMoveColumns =
    "GodownItem_id, Date, YearNo, Item_id, Godown_id, Batch_id, GSrNo, Qty, AltQty, Rate, IsAdded, "
    "IsOpeningBal, Optional, GDesrOptional, GDesr_id, DesrDetails_id, GRelatedDesr_id, "
    "GRelatedYearNo, GOriginalVouchertype_id, GLedger_id, GPrefix, GRefNo, GSuffix, Color_id, "
    "IsAltUnit";
constexpr const char* kTermsColumns =
    "DesrTerms_id, Desr_id, DespatchTo, DespatchToAdd1, DespatchToAdd2, City, PinCode, District, "
    "State, BuyersName, SalesTaxNo1, SalesTaxNo2, Vehicle_id, VehicleType, RegistrationNumber, "
    "ChasisNumber, EngineNumber, DateOfSale, Kms, Mechanic_id, Hypo_id, ServiceType, "
    "ServiceType_id, List1, List2, List3, List4, List5, List6, JobCardRefno, JobCardPrefix, "
    "JobCardSuffix, IsJobCard, PromisedDeliveryDate, PromisedDeliveryTime, ActualDeliveryDate, "
    "ActualDeliveryTime, PromissedDate, FuelLevel, ScratchesDesc, ExtraDesc, ARF";

Paise Charge(double quantity, Paise price) {
  return std::llround(quantity * static_cast<double>(price));
}

std::optional<int> ColorKey(int color) {
  return color == 0 ? std::nullopt : std::optional<int>(color);
}

std::optional<std::string_view> TextOrNull(const std::string& text) {
  return text.empty() ? std::nullopt : std::optional<std::string_view>(text);
}

}  // namespace

Documents::Documents(Writer& writer, Masters& masters)
    : masters_(masters),
      desr_(writer, "Desr1", kDesrColumns),
      line_(writer, "DesrDetails1", kLineColumns),
      move_(writer, "GodownItem1", kMoveColumns),
      terms_(writer, "Terms1", kTermsColumns),
      numbers_(VoucherTypes().size()) {}

int Documents::NextNumber(int type, int year) {
  const auto place = static_cast<std::size_t>(&TypeOf(type) - VoucherTypes().data());
  return ++numbers_[place][static_cast<std::size_t>(year - 1)];
}

Posted Documents::Post(const Document& document, std::int64_t voucher) {
  const VoucherType& type = TypeOf(document.type);
  Posted posted;
  posted.year = YearOf(document.day);
  posted.link = {++last_desr_, posted.year};
  posted.voucher = voucher;
  posted.number = NextNumber(document.type, posted.year);
  const std::string suffix = SuffixOf(type, posted.year);
  posted.label = std::string(type.prefix) + std::to_string(posted.number) + suffix;
  for (const Line& line : document.lines) {
    const Paise charged = line.claim ? 0 : Charge(line.billed + line.returned, line.price);
    const Paise tax = std::llround(static_cast<double>(charged * line.tax_hundredths) / 10'000);
    const ItemKind kind = masters_.items[line.item].kind;
    (kind == ItemKind::kLabour    ? posted.labour
     : kind == ItemKind::kVehicle ? posted.vehicles
                                  : posted.goods) += charged;
    posted.tax += tax;
    posted.total += charged + tax;
    WriteLine(document, line, posted);
  }
  const auto& card = document.job_card;
  const auto of_card = [&](auto member) {
    return card ? std::optional((*card).*member) : std::nullopt;
  };
  desr_.Run(posted.link.desr, document.day, document.type, document.ledger, document.employee,
            type.prefix, posted.number, suffix, voucher, Rupees(posted.total), document.optional,
            document.deleted, posted.year, TextOrNull(document.narration), card.has_value(),
            of_card(&JobCardNumber::day), of_card(&JobCardNumber::prefix),
            of_card(&JobCardNumber::number), of_card(&JobCardNumber::suffix), document.audited);
  if (document.terms) WriteTerms(document, posted);
  return posted;
}

void Documents::WriteLine(const Document& document, const Line& line, Posted& posted) {
  const Item& item = masters_.items[line.item];
  const double relation = item.relation;
  const auto claim = [&](auto member) {
    return line.claim ? (*line.claim).*member : std::optional<int>();
  };
  line_.Run(++last_line_, posted.link.desr, item.id, document.day,
            line.inward ? line.quantity : 0.0, line.inward ? 0.0 : line.quantity, line.returned,
            line.alternate_unit ? line.billed / relation : line.billed, line.quantity / relation,
            Rupees(line.price), Rupees(line.list), Rupees(line.price),
            Rupees(line.price * item.relation), line.alternate_unit, line.alternate_rate,
            line.moves_stock, line.memorandum || document.optional, posted.year,
            Percent(line.tax_hundredths), Percent(line.discount_hundredths), line.claim.has_value(),
            claim(&Claim::defect), claim(&Claim::vendor), claim(&Claim::performance),
            line.claim ? std::optional(line.claim->made) : std::nullopt,
            line.claim ? std::optional<std::string_view>(line.claim->number) : std::nullopt);
  if (document.deleted) return;
  WriteMoves(document, line, posted);
  posted.movements += std::ssize(line.moves);
  if (document.Counts() && line.moves_stock) AddUp(line);
}

void Documents::WriteMoves(const Document& document, const Line& line, const Posted& posted) {
  const Item& item = masters_.items[line.item];
  const VoucherType& type = TypeOf(document.type);
  const bool stands_apart = document.optional || !line.moves_stock;
  for (const Move& move : line.moves) {
    move_.Run(++last_movement_, document.day, posted.year, item.id, move.godown, move.batch, 1,
              move.quantity, move.quantity / item.relation, Rupees(line.price), line.inward, false,
              stands_apart, document.optional, posted.link.desr, last_line_,
              document.executes ? std::optional(document.executes->desr) : std::nullopt,
              document.executes ? std::optional(document.executes->year) : std::nullopt,
              type.related, document.ledger, type.prefix, posted.number,
              SuffixOf(type, posted.year), ColorKey(move.color), line.alternate_unit);
  }
}

void Documents::PostOpening(std::size_t place, const Move& move, Paise rate, int year,
                            bool inward) {
  Item& item = masters_.items[place];
  move_.Run(++last_movement_, std::nullopt, year, item.id, move.godown, move.batch, 1,
            move.quantity, move.quantity / item.relation, Rupees(rate), inward, true, false, false,
            std::nullopt, std::nullopt, std::nullopt, std::nullopt, 0, std::nullopt, "",
            std::nullopt, "", ColorKey(move.color), false);
  const double quantity = inward ? move.quantity : -move.quantity;
  item.totals.opening += quantity;
  item.totals.opening_value += Charge(quantity, rate);
}

void Documents::AddUp(const Line& line) {
  YearTotals& totals = masters_.items[line.item].totals;
  const Paise value = Charge(line.quantity, line.price);
  if (line.inward) {
    totals.purchased += line.quantity;
    totals.purchase_value += value;
  } else {
    totals.sold += line.quantity;
    totals.sales_value += value;
  }
}

void Documents::WriteTerms(const Document& document, const Posted& posted) {
  const Terms& terms = *document.terms;
  const auto& card = document.job_card;
  terms_.Run(
      ++last_terms_, posted.link.desr, terms.despatch_to, terms.address1, terms.address2,
      terms.city, terms.pin, terms.district, terms.state, terms.buyers_name, terms.sales_tax1,
      terms.sales_tax2, terms.vehicle, terms.vehicle_type, terms.registration, terms.chassis,
      terms.engine, terms.sold, terms.kms, terms.mechanic, terms.financier,
      terms.service_type ? ServiceTypes()[static_cast<std::size_t>(*terms.service_type - 1)] : "",
      terms.service_type, terms.list[0], terms.list[1], terms.list[2], terms.list[3], terms.list[4],
      terms.list[5], card ? std::optional(card->number) : std::nullopt, card ? card->prefix : "",
      card ? card->suffix : "", card.has_value(), terms.promised_day,
      TextOrNull(terms.promised_time), terms.delivered_day, TextOrNull(terms.delivered_time),
      terms.promised_again, terms.fuel, terms.scratches, terms.extra, terms.arf);
}

}  // namespace pstolvane1::books::sample
