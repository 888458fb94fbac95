// The small signs of the note strip: phone commands and repeat marks.
#pragma once

#include <QColor>
#include <QPainter>

#include "composer/strip_layout.h"

namespace trillomat {

/// Draws the sign into `column`, which takes all of the strip's height. On is filled, off is crossed out.
void PaintSymbol(QPainter& painter, const QRectF& column, const StripSymbol& symbol, const QColor& ink);

}  // namespace trillomat
