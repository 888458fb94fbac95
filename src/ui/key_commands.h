// Binds the keys that no menu stands for to what they do.
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

void BindKeys(KeyInput& keys, const KeyTargets& targets);

}  // namespace trillomat
