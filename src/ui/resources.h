// The pictures that are built into the program, under ":/ui/".
#pragma once

namespace trillomat {

/// Makes them known to Qt. To be called once, before the first window is made.
void LoadResources();

}  // namespace trillomat
