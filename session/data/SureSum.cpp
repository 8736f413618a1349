#include "session/data/SureSum.h"

namespace pstolvane1 {

double SureSum::Result() const {
  constexpr int kSureFigures = 13;
  // The size depends on the order of the rows too; many sizes are a power of ten, none is 1.047 of
  // one.
  constexpr double kBesideAPower = 0.02;
  if (!std::isfinite(size)) return sum;
  const double exact = sum + lost;
  if (size == largest) return exact;
  const double places = kSureFigures - std::ceil(std::log10(size) - kBesideAPower);
  // A float is no power of ten below 1, nor one beyond 1e22.
  const double up = std::pow(10.0, std::clamp(places, 0.0, 300.0));
  const double down = std::pow(10.0, std::clamp(-places, 0.0, 22.0));
  const double sure = std::nearbyint(exact * up / down) * down / up;
  return sure == 0 ? 0 : sure;  // no -0
}

}  // namespace pstolvane1
