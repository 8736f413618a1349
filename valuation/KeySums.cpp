#include "valuation/KeySums.h"

#include <string>
#include <string_view>

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

// A line that does not count in a figure is 0 there.
void AddWhere(SureSum& sum, bool counts, const std::optional<double>& number, bool adds = true) {
  if (!counts) return sum.Add(0);
  if (number) sum.Add(adds ? *number : -*number);
}

double Told(const SureSum& sum, std::string_view what) {
  if (sum.count == 0) {
    throw Error(ErrorNumber::kInvalidUseOfNull,
                "the " + std::string(what) + " of every line is Null");
  }
  return sum.Result();
}

StockFigure Moved(const SureSum& quantity, const SureSum& amount) {
  return {ToSingle(Told(quantity, "quantity")), Currency::FromDouble(Told(amount, "amount"))};
}

}  // namespace

void KeySums::Add(const MovedLine& line) {
  AddWhere(opening_, line.in_opening, line.quantity, line.inward);
  AddWhere(came_, line.came, line.quantity);
  AddWhere(value_in_, line.came, line.amount);
  AddWhere(went_, line.went, line.quantity);
  AddWhere(value_out_, line.went, line.amount);
}

KeyQuantities KeySums::Quantities() const {
  // Each line is a number in two of the three quantities.
  if (opening_.count == 0 && came_.count == 0 && went_.count == 0) return {};
  const double opening = SumOf("the opening", [&] { return Told(opening_, "quantity"); });
  const StockFigure in = SumOf("what came in", [&] { return Moved(came_, value_in_); });
  const StockFigure out = SumOf("what went out", [&] { return Moved(went_, value_out_); });
  return {.opening = opening,
          .closing = opening + came_.Result() - went_.Result(),
          .inwards = in,
          .outwards = out};
}

}  // namespace pstolvane1
