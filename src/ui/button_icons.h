// The pictures on buttons, drawn in the palette's own colours.
#pragma once

#include <QIcon>

namespace trillomat {

/// An arrow to the left (Qt::LeftArrow) or right that is sharp at any scale and follows the palette it is
/// drawn with.
QIcon ArrowIcon(Qt::ArrowType direction);
/// A cross of the same kind, for what closes something.
QIcon CrossIcon();

}  // namespace trillomat
