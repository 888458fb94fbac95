// Binds the keys of the main window to what they do, but for those that a menu item alone stands for.
#pragma once

#include "composer/composer.h"
#include "ui/key_input.h"
#include "ui/melody_box.h"

namespace trillomat {

/// What the keys work on; all of it outlives the KeyInput.
struct KeyTargets {
  const Document& document;
  Composer& composer;
  PlayControls& play;
  MelodyBox& melody;
};

/// Binds them in `keys`.
void BindKeys(KeyInput& keys, const KeyTargets& targets);

}  // namespace trillomat
