#include "session/data/SureSum.h"

#include <array>

namespace pstolvane1 {
namespace {

constexpr int kSureFigures = 13;
// The size depends on the order of the rows too; many sizes are a power of ten, none is 1.047 of
// one.
constexpr double kBesideAPower = 0.02;

// 1 to 10^13, and each times 10 to the power of kBesideAPower.
constexpr std::array kPowers{1e0, 1e1, 1e2, 1e3,  1e4,  1e5,  1e6,
                             1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13};
constexpr double kBeside = 1.0471285480508996;

// The power of ten that lifts the last sure figure of a size to the ones; 0 for a size beyond the
// table. A logarithm and two powers for each sum of a statement would cost more than the sum.
double LiftOf(double size) {
  if (size <= kBeside / 10) return 0;
  for (std::size_t figures = 0; figures < kPowers.size(); ++figures) {
    if (size <= kPowers[figures] * kBeside) return kPowers[kPowers.size() - 1 - figures];
  }
  return 0;
}

}  // namespace

double SureSum::Result() const {
  if (!std::isfinite(size)) return sum;
  const double exact = sum + lost;
  if (size == largest) return exact;
  double up = LiftOf(size);
  double down = 1;
  if (up == 0) {
    const double places = kSureFigures - std::ceil(std::log10(size) - kBesideAPower);
    // A float is no power of ten below 1, nor one beyond 1e22.
    up = std::pow(10.0, std::clamp(places, 0.0, 300.0));
    down = std::pow(10.0, std::clamp(-places, 0.0, 22.0));
  }
  const double sure = std::nearbyint(exact * up / down) * down / up;
  return sure == 0 ? 0 : sure;  // no -0
}

}  // namespace pstolvane1
