// What lies in the godowns of the sample books, lot by lot, while they are written.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "session/books/sample/Masters.h"

namespace pstolvane1::books::sample {

// One movement's place and quantity; color 0 is none.
struct Move {
  int godown = 0;
  int batch = 0;
  int color = 0;
  double quantity = 0;
};

struct Vehicle {
  std::size_t item = 0;
  Move place;  // of quantity 1
  std::string chassis, engine;
};

// A part that is not kept by lot has one batch a godown, which is there from the start. Quantities
// are in main units.
class Stock {
 public:
  Stock(Writer& writer, const Masters& masters);

  [[nodiscard]] double OnHand(std::size_t item, int godown) const;
  // Into the lot in hand, or for goods kept by lot into a new one every other time.
  Move PutIn(std::size_t item, int godown, double quantity, Day day, Random& random);
  // Back into a given lot.
  void PutBack(std::size_t item, const Move& move);
  // The oldest lots first. What is not there is taken from the last lot all the same, which then is
  // negative.
  std::vector<Move> TakeOut(std::size_t item, int godown, double quantity);
  // The lot that an order names, without moving anything.
  [[nodiscard]] Move Named(std::size_t item, int godown, double quantity) const;

  // A new vehicle; it stands in the showroom or the branch.
  const Vehicle& Deliver(std::size_t item, int godown, Day day, Random& random);
  [[nodiscard]] std::size_t VehiclesOnHand() const { return vehicles_.size(); }
  // Takes one out; marks its batch as sold.
  Vehicle Sell(std::size_t place);

 private:
  struct Lot {
    int batch;
    int color;
    double quantity;
  };
  std::vector<Lot>& Cell(std::size_t item, int godown);
  [[nodiscard]] const std::vector<Lot>& Cell(std::size_t item, int godown) const;
  int NewBatch(const Item& item, const std::string& code, int color, Day bought, Day made,
               const std::string& engine);

  const Masters& masters_;
  Statement insert_;
  Statement sell_;
  std::vector<std::vector<Lot>> cells_;  // parts times godowns
  std::deque<Vehicle> vehicles_;
  int last_batch_ = 0;
  int last_vehicle_ = 0;
};

}  // namespace pstolvane1::books::sample
