// Colours between those of the palette, so that what is drawn suits light and dark ones alike.
#pragma once

#include <QColor>

namespace trillomat {

/// `share` of `b` (from 0 to 1) in `a`.
QColor Mix(const QColor& a, const QColor& b, double share);

}  // namespace trillomat
