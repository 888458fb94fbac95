// Colours between those of the palette, and far enough from each other, so that what is drawn suits light
// and dark ones alike.
#pragma once

#include <QColor>

namespace trillomat {

/// How far colours have to be apart that are read, and that lines and shapes are told by.
inline constexpr double kReadable = 4.5;
inline constexpr double kVisible = 3;

/// `share` of `b` (from 0 to 1) in `a`.
QColor Mix(const QColor& a, const QColor& b, double share);

/// How far apart two opaque colours are, from 1 to 21, as the guidelines for accessible content (WCAG 2)
/// count it.
double Contrast(const QColor& a, const QColor& b);

/// `ink`, made as much darker or lighter as it needs to be to stand out from `ground` by `least`.
QColor Against(const QColor& ink, const QColor& ground, double least);

}  // namespace trillomat
