#include "ui/colours.h"

namespace trillomat {

QColor Mix(const QColor& a, const QColor& b, double share) {
  const auto mix = [share](float x, float y) { return static_cast<float>(x * (1 - share) + y * share); };
  return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()), mix(a.blueF(), b.blueF()));
}

}  // namespace trillomat
