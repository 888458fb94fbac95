// The song as the two lines of text on both sides of the cursor.
#pragma once

#include <optional>
#include <string>

#include "core/log.h"
#include "document/document.h"

namespace trillomat {

/// What the melody text boxes show (Windows-1252).
struct MelodyText {
  std::string left;   ///< the elements up to the cursor; its caret goes behind the last character
  std::string right;  ///< the elements behind the cursor; its caret goes to position 1

  /// RTTTL only: the default octave's digit and the default duration's code, for the fourth and fifth
  /// box of the song information.
  struct Defaults {
    std::string octave;
    std::string duration;
  };
  std::optional<Defaults> defaults;
};

/// The elements around the cursor as tokens of the document's mode. With `useDefaults` RTTTL tokens leave
/// out the octave and the duration that are the commonest. The log hears of what has no proper token.
MelodyText TextOf(const Document& document, bool useDefaults, Log& log);

}  // namespace trillomat
