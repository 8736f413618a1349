// One document of the sample books, and what writes it with its lines, movements and terms.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "session/books/sample/Masters.h"
#include "session/books/sample/Stock.h"
#include "session/books/sample/VoucherTypes.h"

namespace pstolvane1::books::sample {

struct Claim {
  std::optional<int> defect, vendor, performance;
  Day made;
  std::string number;
};

// Quantities are in main units. A line either comes in, goes out, or is only returned.
struct Line {
  std::size_t item = 0;
  bool inward = false;
  double quantity = 0;
  double billed = 0;
  double returned = 0;  // credited without coming back into stock
  Paise list = 0;       // before the discount
  Paise price = 0;
  int discount_hundredths = 0;
  int tax_hundredths = 0;
  bool alternate_unit = false;
  bool alternate_rate = false;
  bool moves_stock = true;
  bool memorandum = false;  // of an order, a quotation or an enquiry
  std::optional<Claim> claim;
  std::vector<Move> moves;
};

struct JobCardNumber {
  Day day;
  std::string prefix, suffix;
  int number = 0;
};

// The document's free-form row; what a field means depends on the document's kind.
struct Terms {
  std::string despatch_to, address1, address2, city, pin, district, state, buyers_name;
  std::string sales_tax1, sales_tax2;
  std::optional<int> vehicle;
  std::string vehicle_type, registration, chassis, engine;
  std::optional<Day> sold;
  std::string kms;
  std::optional<int> mechanic, financier, service_type;
  std::array<std::string, 6> list;
  std::optional<Day> promised_day, delivered_day, promised_again;
  std::string promised_time, delivered_time;  // ISO date, with a time if there is one; "" is Null
  std::string fuel, scratches, extra, arf;
};

// The earlier document that a movement executes.
struct Link {
  std::int64_t desr = 0;
  int year = 0;
};

struct Document {
  int type = 0;
  Day day;
  int ledger = 0;
  std::optional<int> employee;
  bool optional = false;
  bool deleted = false;
  bool audited = false;
  std::string narration;
  std::optional<JobCardNumber> job_card;
  std::optional<Terms> terms;
  std::optional<Link> executes;
  std::vector<Line> lines;

  // Whether it counts in the books: what is optional or deleted does not move stock.
  [[nodiscard]] bool Counts() const { return !optional && !deleted; }
};

struct Posted {
  Link link;
  std::int64_t voucher = 0;
  int year = 0;
  int number = 0;
  std::string label;  // the number with its prefix and suffix
  Paise total = 0, goods = 0, vehicles = 0, labour = 0, tax = 0;
  std::int64_t movements = 0;
};

// Numbers and writes documents, in the order of their days, and adds up what they move.
class Documents {
 public:
  Documents(Writer& writer, Masters& masters);

  // The document's amount is what its lines charge, with the tax of each rounded to the paisa;
  // warranty lines charge nothing.
  Posted Post(const Document& document, std::int64_t voucher);
  // An opening movement; negative stock goes out. The rate is per main unit.
  void PostOpening(std::size_t item, const Move& move, Paise rate, int year, bool inward);
  // The next number of a type in a year, for what is numbered without being posted here.
  int NextNumber(int type, int year);

  [[nodiscard]] std::int64_t Movements() const { return last_movement_; }

 private:
  void WriteLine(const Document& document, const Line& line, Posted& posted);
  void WriteMoves(const Document& document, const Line& line, const Posted& posted);
  void WriteTerms(const Document& document, const Posted& posted);
  void AddUp(const Line& line);

  Masters& masters_;
  Statement desr_, line_, move_, terms_;
  std::int64_t last_desr_ = 0, last_line_ = 0, last_movement_ = 0, last_terms_ = 0;
  std::vector<std::array<int, kYears>> numbers_;  // by place in VoucherTypes
};

}  // namespace pstolvane1::books::sample
