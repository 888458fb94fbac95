// The melody as the two lines of text on both sides of the cursor.
#pragma once

#include <optional>
#include <string>

#include "core/workspace.h"

namespace trillomat {

/// What the melody text boxes show (Windows-1252).
struct MelodyViewText {
  std::string txtLeft;   ///< the elements up to the cursor; its caret goes behind the last character
  std::string txtRight;  ///< the elements behind the cursor; its caret goes to position 1

  /// RTTTL only: the default octave's digit and the default duration's code, for the fourth and fifth
  /// box of the song information.
  struct Defaults {
    std::string octave;
    std::string duration;
  };
  std::optional<Defaults> defaults;
};

class MelodyTextView {
 public:
  explicit MelodyTextView(Workspace& workspace) : ws_(workspace) {}

  /// The state of "Use Default in Composer": RTTTL tokens leave out what equals the defaults.
  bool bRTTTLUseDefault = false;

  /// Encodes the elements around the cursor in the current mode and marks those that the mode cannot
  /// express. Recomputes the codec's RTTTL defaults in that mode. Events run between the elements;
  /// nothing is returned when one of them changed the view anew or the program is ending, because
  /// this text is out of date then.
  std::optional<MelodyViewText> RefreshMelodyView();

  /// Makes a refresh that is running return nothing: what it would show was cleared meanwhile.
  void AbandonRefresh() { ++refreshes_; }

 private:
  MelodyViewText::Defaults RefreshDefaults();
  std::optional<std::string> TokenAt(int32_t index);
  bool AddLeft(std::string& text);
  bool AddRight(std::string& text);

  Workspace& ws_;
  unsigned refreshes_ = 0;
  MelodyDefaults shownDefaults_;  ///< what RTTTL tokens leave out in the view
};

}  // namespace trillomat
