// When the melody sounds by itself: the user's three choices.
#pragma once

namespace trillomat {

struct PlaySettings {
  bool bAutoPlay = true;       ///< a file that is opened is played
  bool bPlayComposing = true;  ///< an element that is entered or changed is played
  bool bPlayMoving = true;     ///< an element that the cursor moves over is played
};

}  // namespace trillomat
