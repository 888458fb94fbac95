// The pictures that are built into the program, under ":/ui/".
#pragma once

#include <QIcon>
#include <QString>

namespace trillomat {

/// Makes them known to Qt. To be called once, before the first window is made.
void LoadResources();

/// The picture that was drawn as NAME.svg, sharp at the sizes and scales that the program shows it in.
QIcon Picture(const QString& name);

}  // namespace trillomat
