// Colours made of those of the palette, with contrast enough to be seen in light and in dark palettes.
#pragma once

#include <QColor>

namespace trillomat {

/// The least contrast of text, and of lines and shapes that tell something, to what they are drawn on.
inline constexpr double kReadable = 4.5;
inline constexpr double kVisible = 3;

/// The colour between `a` and `b` that holds `share` of `b`, from 0 for `a` to 1 for `b`.
QColor Mix(const QColor& a, const QColor& b, double share);

/// The contrast of two opaque colours, from 1 to 21, as the guidelines for accessible content (WCAG 2) count
/// it.
double Contrast(const QColor& a, const QColor& b);

/// `ink`, made as much darker or lighter as it needs to have at least the contrast `least` to `ground`.
QColor WithContrast(const QColor& ink, const QColor& ground, double least);

}  // namespace trillomat
