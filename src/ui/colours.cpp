#include "ui/colours.h"

#include <algorithm>
#include <cmath>

namespace trillomat {
namespace {

double Luminance(const QColor& colour) {
  const auto linear = [](float part) {
    const double value = part;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double Ratio(double a, double b) { return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05); }

}  // namespace

QColor Mix(const QColor& a, const QColor& b, double share) {
  const auto mix = [share](float x, float y) { return static_cast<float>(x * (1 - share) + y * share); };
  return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()), mix(a.blueF(), b.blueF()));
}

double Contrast(const QColor& a, const QColor& b) { return Ratio(Luminance(a), Luminance(b)); }

QColor WithContrast(const QColor& ink, const QColor& ground, double least) {
  constexpr int kSteps = 20;
  constexpr double kSpare = 1.02;  // what rounding to a screen's colours can take
  const double behind = Luminance(ground);
  const QColor end(Ratio(0, behind) > Ratio(1, behind) ? Qt::black : Qt::white);
  for (int step = 0; step < kSteps; ++step) {
    const QColor mixed = Mix(ink, end, 1.0 * step / kSteps);
    if (Ratio(Luminance(mixed), behind) >= least * kSpare) return mixed;
  }
  return end;
}

}  // namespace trillomat
